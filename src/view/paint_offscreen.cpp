#include "view/paint_offscreen.h"

#include "host/graphics.h"
#include "shell/prseq.h"
#include "view/draw.h"

namespace tq {

SurfaceRef paint_to_surface(Prseq& object, double ratio) {
    SurfaceRef surface = jgraphics_image_surface_create(object.width, object.height, ratio);
    Graphics g(*surface);
    prseq_paint(object, g);
    return surface;
}

void paint_offscreen(Prseq& object) { paint_to_surface(object); }

std::optional<std::string> paint_box_to_png(Prseq& object, const std::string& path, double ratio) {
    return surface_write_png(*paint_to_surface(object, ratio), path);
}

}  // namespace tq
