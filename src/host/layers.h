// Named off-screen layers of a box: each is drawn once, kept until it is invalidated, and composited.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "host/geometry.h"
#include "host/symbol.h"

namespace tq {

class Box;
class Graphics;
class Surface;

/// The stretch of something larger that a layer shows. Where only the scroll is another one, what is seen of
/// both is the same picture, moved.
struct LayerView {
    double xzoom = 0, yzoom = 0;
    double xscroll = 0, yscroll = 0;  ///< pixels of the view, on whole pixels of the screen
    std::vector<Rect> standing;       ///< places of the layer that do not move along
};

struct Layer {
    std::shared_ptr<Surface> surface;
    bool valid = false;
    bool scrolled = false;          ///< valid, but for a scroll
    long version = 0;               ///< how often it was drawn
    std::optional<LayerView> view;  ///< of what was drawn, when that can be moved
};

struct Layers {
    std::unordered_map<Symbol, Layer> by_name;
    std::vector<Symbol>
        drawn;  ///< the layers drawn since this was last emptied, each once, in the order of the first times
};

/// What to draw a layer with, transparent to begin with, when it is invalid or its size or the pixel ratio
/// has changed; none while what was drawn before still holds, and for a layer without area.
std::optional<Graphics> jbox_start_layer(const Box& box, double ratio, Symbol name, double width,
                                         double height);
/// The layer is drawn, and valid from now on. With a view, it may be moved when that is scrolled.
void jbox_end_layer(const Box& box, Symbol name, std::optional<LayerView> view = {});
/// Moves what was drawn of a layer to where another scroll has it, and says which places are to be drawn
/// still; none when nothing has scrolled, or it cannot be moved: it is to be drawn as ever then.
std::optional<std::vector<Rect>> jbox_scroll_layer(const Box& box, double ratio, Symbol name, Size size,
                                                   const LayerView& view);
/// What to draw one of these places with; nothing else of the layer is touched.
Graphics jbox_start_place(const Box& box, Symbol name, const Rect& place);
/// Puts the layer's top left corner at a point of the view. Nothing happens before the layer was drawn.
void jbox_paint_layer(const Box& box, Graphics& view, Symbol name, double x, double y);
void jbox_invalidate_layer(const Box& box, Symbol name);
/// The layer is valid but for the scroll of its view.
void jbox_scrolled_layer(const Box& box, Symbol name);

/// A layer, and where its top left corner is in the view.
struct PlacedLayer {
    Symbol name;
    Point at;
};

/// A picture of a box that lasts from one paint to the next: what stays the same in it is not painted again.
class BoxPicture {
 public:
    /// A picture of this size in pixels of the view; an empty one, unless it is of this size and ratio
    /// already.
    void resize(Size size, double ratio);
    /// None before it has a size.
    const Surface* surface() const { return surface_.get(); }
    /// Shows the layers, the last one on top, and nothing else of what it has shown. The places where the
    /// picture is another one now, in pixels of the view; they may overlap.
    std::vector<Rect> show(const Box& box, std::span<const PlacedLayer> layers);

 private:
    struct Shown {
        Symbol name;
        long version;
        Rect place;  ///< on whole pixels of the screen
        friend bool operator==(const Shown&, const Shown&) = default;
    };
    std::vector<Shown> placed(const Box& box, std::span<const PlacedLayer> layers) const;
    std::vector<Rect> differing_from(const std::vector<Shown>& now) const;

    std::shared_ptr<Surface> surface_;
    const Box* box_ = nullptr;
    std::vector<Shown> shown_;  ///< empty: nothing of the picture is to be relied on
};

}  // namespace tq
