// Named off-screen layers of a box: each is drawn once, kept until it is invalidated, and composited.
#pragma once

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "host/symbol.h"

namespace tq {

class Box;
class Graphics;
class Surface;

struct Layer {
    std::shared_ptr<Surface> surface;
    bool valid = false;
};

struct Layers {
    std::unordered_map<Symbol, Layer> by_name;
    std::vector<Symbol>
        drawn;  ///< the layers drawn since this was last emptied, each once, in the order of the first times
};

/// What to draw a layer with, transparent to begin with, when it is invalid or its size or the view's pixel
/// ratio has changed; none while what was drawn before still holds, and for a layer without area.
std::optional<Graphics> jbox_start_layer(const Box& box, const Graphics& view, Symbol name, double width,
                                         double height);
/// The layer is drawn, and valid from now on.
void jbox_end_layer(const Box& box, Symbol name);
/// Puts the layer's top left corner at a point of the view. Nothing happens before the layer was drawn.
void jbox_paint_layer(const Box& box, Graphics& view, Symbol name, double x, double y);
void jbox_invalidate_layer(const Box& box, Symbol name);

}  // namespace tq
