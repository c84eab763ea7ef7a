#include "interaction/main_press.h"

#include <algorithm>
#include <cmath>

#include "shell/prseq.h"

namespace tq {

void TQ_Prseq_Maindisplay_Click(Prseq& object, double x, double y) {
    const MainDisplay& md = object.maindisplay;
    MainPress& press = object.press;
    press.press = press.drag = {x - md.rect.x, y - md.rect.y};
    press.pagepress = {press.press.x + md.horizontalscroll, press.press.y + md.verticalscroll};
}

void TQ_Prseq_Maindisplay_SetMarqueeRect(Prseq& object) {
    MainDisplay& md = object.maindisplay;
    if (md.mousemode != MouseMode::Select && md.mousemode != MouseMode::Zoom) return;
    const MainPress& press = object.press;
    const Point corner{press.pagepress.x - md.horizontalscroll, press.pagepress.y - md.verticalscroll};
    md.marquee = {std::min(corner.x, press.drag.x), std::min(corner.y, press.drag.y),
                  std::abs(press.drag.x - corner.x), std::abs(press.drag.y - corner.y)};
    md.marqueescroll = md.verticalscroll;
}

}  // namespace tq
