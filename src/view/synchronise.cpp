#include "view/synchronise.h"

#include "instance/prseq.h"
#include "view/keydisplay.h"
#include "view/layout.h"
#include "view/maindisplay.h"
#include "view/scrollbar.h"
#include "view/scrollbar_layout.h"

namespace tq {

namespace {

/// The scrollbar takes the display's size and the timeline's length: its page sizes and its zoom range.
void synchronise_horscrollbar(const Prseq& object, Geometry& g) {
    MainDisplay& md = g.maindisplay;
    TQScrollbar& bar = g.horscrollbar;
    TQ_Prseq_Maindisplay_CalculateZoomCoefficientHorizontal(object, md);
    bar.selectionpagesize = TQ_Prseq_Maindisplay_GetSelectionPageSizeHorizontal(md);
    TQScrollbar_SetMinMaxZoomValue(bar, TQ_Prseq_Maindisplay_CalculateMinimumZoomValue(md, md.rect.width),
                                   md.maximumhorizontalzoom);
    bar.maximumpagesize = TQ_Prseq_Maindisplay_GetMaximumPageSizeHorizontal(md);
    TQScrollbar_MakeCalculations(bar, g.layout[Part::HorScrollbar]);
}

void synchronise_vertscrollbar(Geometry& g) {
    KeyDisplay& kd = g.keydisplay;
    TQScrollbar& bar = g.vertscrollbar;
    bar.selectionpagesize = g.maindisplay.rect.height;
    const double minimum = TQ_Prseq_Keydisplay_CalculateMinimumZoomValue(kd, kd.rect.height);
    TQScrollbar_SetMinMaxZoomValue(bar, minimum,
                                   TQ_Prseq_Keydisplay_CalculateMaximumZoomValue(kd, kd.rect.height));
    bar.maximumpagesize = TQ_Prseq_Keydisplay_GetTotalPageSizeMaximum(kd);
    TQScrollbar_MakeCalculations(bar, g.layout[Part::VertScrollbar]);
}

/// The key display takes zoom and scroll from the vertical scrollbar.
void synchronise_keydisplay(Geometry& g) {
    TQ_Prseq_Keydisplay_CalculateBlackKeyBroadnessFromZoomValue(g.keydisplay, g.vertscrollbar.zoomvalue);
    TQ_Prseq_Keydisplay_ConvertToActualScrollValueFromUnityScrollValue(g.keydisplay,
                                                                       g.vertscrollbar.scrollunityvalue);
}

/// The main display takes zoom and scroll from the key display and the horizontal scrollbar.
void synchronise_maindisplay(const Prseq& object, Geometry& g) {
    MainDisplay& md = g.maindisplay;
    md.verticalzoom = g.keydisplay.zoom;
    md.verticalscroll = g.keydisplay.scroll;
    md.rowheight = g.keydisplay.blackkeyunit * md.verticalzoom;
    md.horizontalzoom = g.horscrollbar.zoomvalue;
    TQ_Prseq_Maindisplay_SetActualScrollValueFromUnityValueHorizontal(md, g.horscrollbar.scrollunityvalue);
    const double increment = TQ_Prseq_Maindisplay_CalculateMsLabelIncrement(object, md);
    TQ_Prseq_Maindisplay_CalculateBigBarSize(object, md, increment);
}

}  // namespace

void init_scrollbars(Prseq& object) {
    using Bar = TQScrollbar;
    object.horscrollbar = TQScrollbar_Create(Bar::Orientation::Horizontal, true, Bar::Zoom::AtStart);
    object.vertscrollbar = TQScrollbar_Create(Bar::Orientation::Vertical, true, Bar::Zoom::AtEnd);
    object.trackscrollbar = TQScrollbar_Create(Bar::Orientation::Vertical, true, Bar::Zoom::None);
    synchronise_view(object);
}

Geometry geometry_in_step(const Prseq& object) {
    Geometry geometry = object;
    calculate_windowparts(object, geometry);
    synchronise_horscrollbar(object, geometry);
    synchronise_vertscrollbar(geometry);
    synchronise_keydisplay(geometry);
    synchronise_maindisplay(object, geometry);
    return geometry;
}

void synchronise_view(Prseq& object) { static_cast<Geometry&>(object) = geometry_in_step(object); }

}  // namespace tq
