#include "app/patch/paint_offscreen.h"

#include "host/image.h"
#include "instance/prseq.h"
#include "view/draw.h"

namespace tq {

void OffscreenPainter::paint(const Prseq& box) { prseq_paint(box, picture_, ratio); }

std::optional<std::string> OffscreenPainter::paint_to_png(const Prseq& box, const std::string& path) {
    paint(box);
    return surface_write_png(*picture_.surface(), path);
}

}  // namespace tq
