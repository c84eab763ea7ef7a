#include "view/eventview.h"

#include <algorithm>

#include "host/round.h"
#include "instance/prseq.h"
#include "view/maindisplay.h"

namespace tq {

EventView::EventView(const Prseq& object, double pixel_ratio)
    : width(object.maindisplay.rect.width),
      height(object.maindisplay.rect.height),
      rowheight(object.maindisplay.rowheight),
      ratio(pixel_ratio),
      pixels_per_ms(TQ_Prseq_Maindisplay_GetTotalPageSizeHorizontal(object.maindisplay) /
                    object.timelinelength),
      horizontalscroll(object.maindisplay.horizontalscroll),
      verticalscroll(object.maindisplay.verticalscroll) {}

double EventView::y_of(double pitch) const { return (pitch_rows - pitch) * rowheight - verticalscroll; }

double EventView::snap(double value) const { return jgraphics_round(value * ratio) / ratio; }

Rect EventView::rect_of(const Event& event) const {
    const double x = x_of(event.start), bottom = y_of(event.pitch);
    const double left = snap(x), top = snap(bottom - rowheight);
    const double right = snap(x + std::max(event.duration * pixels_per_ms, minimum_event_width));
    return {left, top, right - left, snap(bottom) - top};
}

}  // namespace tq
