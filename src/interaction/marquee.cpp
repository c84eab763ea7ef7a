#include "interaction/marquee.h"

#include <algorithm>
#include <cmath>

#include "instance/prseq.h"
#include "view/maindisplay.h"

namespace tq {

void TQ_Prseq_Maindisplay_SetMarqueeRect(Prseq& object, const Pointer& press, const Pointer& to) {
    MainDisplay& md = object.maindisplay;
    const Point corner =
        TQ_Prseq_Maindisplay_CalculateDisplayPositionFromStartAndPitch(object, md, press.ms, press.pitch);
    const double top = corner.y - md.verticalscroll;
    const Point drag{std::max(to.at.x - md.rect.x, 0.), std::max(to.at.y - md.rect.y, 0.)};
    md.marquee = {std::min(corner.x, drag.x), std::min(top, drag.y), std::abs(drag.x - corner.x),
                  std::abs(drag.y - top)};
    md.marqueeactive = true;
    prseq_show(object, Change::Marquee);
}

void close_marquee(Prseq& object) {
    object.maindisplay.marqueeactive = false;
    prseq_show(object, Change::Marquee);
}

}  // namespace tq
