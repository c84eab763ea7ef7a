#include "app/patch/paint_offscreen.h"

#include "host/graphics.h"
#include "instance/prseq.h"
#include "view/draw.h"

namespace tq {

void OffscreenPainter::paint(Prseq& box) {
    if (!surface_ || surface_->size() != Size{box.width, box.height})
        surface_ = jgraphics_image_surface_create(box.width, box.height);
    surface_clear(*surface_);
    Graphics view(*surface_);
    draw_display(box, view);
}

std::optional<std::string> OffscreenPainter::paint_to_png(Prseq& box, const std::string& path) {
    paint(box);
    return surface_write_png(*surface_, path);
}

}  // namespace tq
