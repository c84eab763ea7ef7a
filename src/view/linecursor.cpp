#include "view/linecursor.h"

#include <algorithm>
#include <cmath>

#include "host/graphics.h"
#include "host/image.h"
#include "instance/prseq.h"
#include "view/maindisplay.h"
#include "view/scrollbar.h"
#include "view/zoom.h"

namespace tq {

double TQ_Prseq_LineCursor_CalculateLineCursorPositionInDisplay(const Prseq& object) {
    return std::max(0., TQ_Prseq_Maindisplay_CalculateMouseFromPosition(object, object.maindisplay,
                                                                        object.linecursor.position));
}

void TQ_Prseq_LineCursor_SetHorizontalScrollFromLineCursorPosition(Prseq& object) {
    // Two that scroll would fight.
    const bool scrolled_by_hand = object.gesture && object.gesture->repeat;
    if (scrolled_by_hand) return;
    const double x = TQ_Prseq_LineCursor_CalculateLineCursorPositionInDisplay(object);
    const double page = TQ_Prseq_Maindisplay_GetSelectionPageSizeHorizontal(object.maindisplay);
    if (!(page > 0)) return;
    const double target =
        object.linecursor.followmode == FollowMode::PageJump ? std::trunc(x / page) * page : x - page / 2;
    // Held before it is compared: at the end of the page there is nothing more to scroll to.
    const double unity =
        std::clamp(TQScrollbar_ScrollValueToScrollUnityValue(object.horscrollbar, target), 0., 1.);
    if (unity != object.horizontalscroll) prseq_horscroll(object, unity);
}

void TQ_Prseq_LineCursor_MakeLine(Prseq& object) {
    const double width = object.defaults.linecursorwidth;
    object.linecursor.line = jgraphics_image_surface_create(width, 1);
    Graphics g(*object.linecursor.line);
    jgraphics_set_source_jrgba(g, object.linecursorcolor);
    jgraphics_line_draw_fast(g, {0, 0}, {0, 1}, width);
}

void TQ_Prseq_LineCursor_SetLineColor(Prseq& object) {
    if (!object.linecursor.line) return;
    TQ_Prseq_LineCursor_MakeLine(object);
    prseq_show(object, Change::LineCursor);
}

}  // namespace tq
