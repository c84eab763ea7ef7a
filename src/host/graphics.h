// Vector drawing. Coordinates are pixels of the view; a surface may have more than one pixel of the screen
// each.
//
// What is parallel to the axes and named "fast" is put on whole pixels of the screen, without anti-aliasing,
// and is never thinner than one: a line 0.5 wide is one pixel of the screen in its full colour, at any ratio.
#pragma once

#include <memory>

#include "host/color.h"
#include "host/geometry.h"

namespace tq {

class Surface;

/// A way of drawing into a surface; drawing ends with its life.
class Graphics {
 public:
    struct Painter;  ///< the toolkit's
    explicit Graphics(Surface& surface);
    Graphics(Graphics&&) noexcept;
    ~Graphics();
    Painter& painter() { return *painter_; }
    /// Pixels of the screen for one of the view.
    double ratio() const;
    /// What is drawn, in pixels of the view: all of the surface, or the clip.
    Rect clip() const;
    /// Whether all that was drawn would be the same pixels, moved, when it were drawn some whole pixels of
    /// the screen beside: so are texts and what lies on whole pixels, and not what is anti-aliased or
    /// stretched.
    bool moves_exactly() const;

 private:
    std::unique_ptr<Painter> painter_;
};

/// A gradient along a line from one colour to another.
struct LinearPattern {
    Point from, to;
    Rgba start, end;
};

void jgraphics_set_source_jrgba(Graphics& g, const Rgba& color);
void jgraphics_set_source_rgba(Graphics& g, double red, double green, double blue, double alpha);
/// Fills of paths take the pattern until a colour is set.
void jgraphics_set_source(Graphics& g, const LinearPattern& pattern);
/// Of strokes.
void jgraphics_set_line_width(Graphics& g, double width);
void jgraphics_translate(Graphics& g, double dx, double dy);
/// From now on only what lies in the rectangle is drawn; its edges are put on whole pixels of the screen.
void jgraphics_clip(Graphics& g, const Rect& rect);

void jgraphics_rectangle_fill_fast(Graphics& g, const Rect& rect);
/// Makes the pixels transparent.
void jgraphics_rectangle_clear(Graphics& g, const Rect& rect);
/// An outline of the given width just inside the rectangle.
void jgraphics_rectangle_draw_fast(Graphics& g, const Rect& rect, double width);
/// A line centred on the way between two points; one that is not parallel to an axis is anti-aliased.
void jgraphics_line_draw_fast(Graphics& g, Point from, Point to, double width);

// A path is built up, then filled or stroked, which empties it.
void jgraphics_move_to(Graphics& g, double x, double y);
void jgraphics_line_to(Graphics& g, double x, double y);
void jgraphics_rectangle(Graphics& g, const Rect& rect);
/// The ovals are the diameters of the corners.
void jgraphics_rectangle_rounded(Graphics& g, const Rect& rect, double ovalwidth, double ovalheight);
void jgraphics_ellipse(Graphics& g, const Rect& rect);
void jgraphics_fill(Graphics& g);
void jgraphics_stroke(Graphics& g);

}  // namespace tq
