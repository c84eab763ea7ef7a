#include "view/synchronise.h"

#include "shell/prseq.h"
#include "view/keydisplay.h"
#include "view/layout.h"
#include "view/maindisplay.h"
#include "view/scrollbar.h"
#include "view/scrollbar_layout.h"

namespace tq {

void init_scrollbars(Prseq& object) {
    using Bar = TQScrollbar;
    object.horscrollbar = TQScrollbar_Create(Bar::Orientation::Horizontal, true, Bar::Zoom::AtStart);
    object.vertscrollbar = TQScrollbar_Create(Bar::Orientation::Vertical, true, Bar::Zoom::AtEnd);
    synchronise_view(object);
}

void synchronise_horscrollbar(Prseq& object) {
    MainDisplay& md = object.maindisplay;
    TQScrollbar& bar = object.horscrollbar;
    TQ_Prseq_Maindisplay_CalculateZoomCoefficientHorizontal(object, md);
    bar.selectionpagesize = TQ_Prseq_Maindisplay_GetSelectionPageSizeHorizontal(md);
    TQScrollbar_SetMinMaxZoomValue(bar, TQ_Prseq_Maindisplay_CalculateMinimumZoomValue(md, md.rect.width),
                                   md.maximumhorizontalzoom);
    bar.maximumpagesize = TQ_Prseq_Maindisplay_GetMaximumPageSizeHorizontal(md);
    TQScrollbar_MakeCalculations(bar, object.layout[Part::HorScrollbar]);
}

void synchronise_vertscrollbar(Prseq& object) {
    KeyDisplay& kd = object.keydisplay;
    TQScrollbar& bar = object.vertscrollbar;
    bar.selectionpagesize = object.maindisplay.rect.height;
    double minimum = TQ_Prseq_Keydisplay_CalculateMinimumZoomValue(kd, kd.rect.height);
    TQScrollbar_SetMinMaxZoomValue(bar, minimum,
                                   TQ_Prseq_Keydisplay_CalculateMaximumZoomValue(kd, kd.rect.height));
    bar.maximumpagesize = TQ_Prseq_Keydisplay_GetTotalPageSizeMaximum(kd);
    TQScrollbar_MakeCalculations(bar, object.layout[Part::VertScrollbar]);
}

void synchronise_keydisplay(Prseq& object) {
    KeyDisplay& kd = object.keydisplay;
    TQ_Prseq_Keydisplay_CalculateBlackKeyBroadnessFromZoomValue(kd, object.vertscrollbar.zoomvalue);
    TQ_Prseq_Keydisplay_ConvertToActualScrollValueFromUnityScrollValue(kd,
                                                                       object.vertscrollbar.scrollunityvalue);
}

void synchronise_maindisplay(Prseq& object) {
    MainDisplay& md = object.maindisplay;
    md.verticalzoom = object.keydisplay.zoom;
    md.verticalscroll = object.keydisplay.scroll;
    md.rowheight = object.keydisplay.blackkeyunit * md.verticalzoom;
    md.horizontalzoom = object.horscrollbar.zoomvalue;
    TQ_Prseq_Maindisplay_SetActualScrollValueFromUnityValueHorizontal(md,
                                                                      object.horscrollbar.scrollunityvalue);
    double increment = TQ_Prseq_Maindisplay_CalculateMsLabelIncrement(object, md);
    TQ_Prseq_Maindisplay_CalculateBigBarSize(object, md, increment);
}

void synchronise_view(Prseq& object) {
    calculate_windowparts(object);
    synchronise_horscrollbar(object);
    synchronise_vertscrollbar(object);
    synchronise_keydisplay(object);
    synchronise_maindisplay(object);
}

}  // namespace tq
