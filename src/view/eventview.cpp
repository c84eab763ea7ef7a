#include "view/eventview.h"

#include "instance/prseq.h"

namespace tq {

EventView::EventView(const Prseq& object, double pixel_ratio)
    : width(object.maindisplay.rect.width),
      height(object.maindisplay.rect.height),
      rowheight(object.maindisplay.rowheight),
      ratio(pixel_ratio),
      pixels_per_ms(TQ_Prseq_Maindisplay_GetTotalPageSizeHorizontal(object.maindisplay) /
                    object.timelinelength),
      horizontalscroll(snap(object.maindisplay.horizontalscroll)),
      verticalscroll(snap(object.maindisplay.verticalscroll)) {}

Rect EventView::rect_of(const Event& event) const {
    const int left = left_of(event.start), right = right_of(event.start, event.end());
    const int top = pixel(y_of(event.pitch + 1)), bottom = pixel(y_of(event.pitch));
    return {left / ratio, top / ratio, (right - left) / ratio, (bottom - top) / ratio};
}

}  // namespace tq
