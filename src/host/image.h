// Images that are drawn into and drawn from.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>

#include "host/geometry.h"

namespace tq {

class Graphics;

/// An image with transparency. Its size is in pixels of the view; `ratio` pixels of the screen make one of
/// them.
class Surface {
 public:
    struct Image;  ///< the toolkit's
    Surface(Size size, double ratio);
    explicit Surface(std::unique_ptr<Image> image);
    ~Surface();
    Image& image() { return *image_; }
    const Image& image() const { return *image_; }
    Size size() const;
    double ratio() const;

 private:
    std::unique_ptr<Image> image_;
};
using SurfaceRef = std::shared_ptr<Surface>;

/// A transparent surface. Sizes are rounded up to whole pixels of the screen, and are at least one of them.
SurfaceRef jgraphics_image_surface_create(double width, double height, double ratio = 1);
/// A picture of a file NAME.png, at one pixel of the view for each of its own, and with it NAME@2x.png when
/// there is one: what is drawn where a pixel of the view is more than one of the screen. None when the file
/// cannot be read as a picture.
SurfaceRef jgraphics_image_surface_create_from_file(const std::string& path);
/// Makes every pixel transparent.
void surface_clear(Surface& surface);
/// Moves what is in it by pixels of the view, which are whole pixels of the screen; what it does not move to
/// keeps what was there.
void surface_move(Surface& surface, double dx, double dy);
/// Draws a part of a surface into a rectangle, stretched to it.
void jgraphics_image_surface_draw(Graphics& g, const Surface& surface, const Rect& source,
                                  const Rect& destination);

/// An opaque surface of the painter's own ratio, as wide as it is or wider: its middle column is repeated
/// then. In pixels of the screen.
struct WidenedSurface {
    const Surface* surface;
    int left, right;
};
/// Draws some beside or over each other, the last one on top; all of them are equally high. `top` is in
/// pixels of the screen.
void jgraphics_image_surfaces_draw_widened(Graphics& g, std::span<const WidenedSurface> surfaces, int top);

/// Writes a PNG beside `path` and renames it over it; the reason when that failed.
std::optional<std::string> surface_write_png(const Surface& surface, const std::string& path);
/// The colour of a pixel of the screen, as four bytes 0xAARRGGBB, not premultiplied; 0 outside the surface.
unsigned surface_pixel(const Surface& surface, int x, int y);

}  // namespace tq
