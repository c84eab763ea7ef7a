#include "view/reports.h"

#include "host/host.h"
#include "host/outlet.h"
#include "instance/prseq.h"
#include "instance/symbols.h"

namespace tq {

namespace {

void system_info(Prseq& object, Symbol selector, const Atoms& atoms) {
    outlet_anything(object, OutletSystemInfo, selector, atoms);
}

}  // namespace

void TQ_Prseq_Output_ScrollHor(Prseq& object) {
    system_info(object, tq_sym_scrollhor, {object.horscrollbar.scrollunityvalue});
}
void TQ_Prseq_Output_ScrollVert(Prseq& object) {
    system_info(object, tq_sym_scrollvert, {object.vertscrollbar.scrollunityvalue});
}
void TQ_Prseq_Output_ZoomHor(Prseq& object) {
    system_info(object, tq_sym_zoomhor, {object.horscrollbar.zoomunityvalue});
}
void TQ_Prseq_Output_ZoomVert(Prseq& object) {
    system_info(object, tq_sym_zoomvert, {object.vertscrollbar.zoomunityvalue});
}

void TQ_Prseq_Output_ZoomScrollNow(Prseq& object) {
    TQ_Prseq_Output_ZoomVert(object);
    TQ_Prseq_Output_ScrollVert(object);
    TQ_Prseq_Output_ZoomHor(object);
    TQ_Prseq_Output_ScrollHor(object);
}

void TQ_Prseq_Output_PatcherwindowRect(Prseq& object) {
    const Rect& rect = object.host().view.rect();
    system_info(object, tq_sym_patcherwindow_rect, {rect.x, rect.y, rect.width, rect.height});
}

void TQ_Prseq_Output_Maxtime(Prseq& object) { system_info(object, tq_sym_maxtime, {object.timelinelength}); }

}  // namespace tq
