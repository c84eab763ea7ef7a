#include "view/maindisplay.h"

#include <algorithm>
#include <cmath>

#include "host/round.h"
#include "instance/prseq.h"

namespace tq {

double TQ_Prseq_Maindisplay_GetTotalPageSizeHorizontal(const MainDisplay& md) {
    return md.horizontalzoom / md.horizontalzoomcoefficient;
}

double TQ_Prseq_Maindisplay_GetSelectionPageSizeHorizontal(const MainDisplay& md) { return md.rect.width; }

double TQ_Prseq_Maindisplay_GetMaximumPageSizeHorizontal(MainDisplay& md) {
    return md.maximumpagesize = md.maximumhorizontalzoom / md.horizontalzoomcoefficient;
}

double TQ_Prseq_Maindisplay_CalculatePositionFromMouse(const Prseq& object, const MainDisplay& md,
                                                       double pagex) {
    return object.timelinelength / TQ_Prseq_Maindisplay_GetTotalPageSizeHorizontal(md) * pagex;
}

double TQ_Prseq_Maindisplay_CalculateMouseFromPosition(const Prseq& object, const MainDisplay& md,
                                                       double ms) {
    return TQ_Prseq_Maindisplay_GetTotalPageSizeHorizontal(md) / object.timelinelength * ms;
}

double TQ_Prseq_Maindisplay_CalculateSnappedPositionFromMouse(const MainDisplay&, double grid,
                                                              double position) {
    return grid * jgraphics_round(position / grid);
}

double TQ_Prseq_Maindisplay_CalculatePitchFromMouse(const MainDisplay& md, double localy) {
    return pitch_rows - (md.verticalscroll + localy) / md.rowheight;
}

Rect TQ_Prseq_Maindisplay_CalculateDisplayRectFromPitchAndStartAndDuration(const Prseq& object,
                                                                           const MainDisplay& md,
                                                                           double pitch, double start,
                                                                           double duration) {
    const double page = TQ_Prseq_Maindisplay_GetTotalPageSizeHorizontal(md), h = md.rowheight;
    return {page * start / object.timelinelength - md.horizontalscroll, pitch_rows * h - pitch * h - h,
            std::max(page * duration / object.timelinelength, minimum_event_width), h};
}

Point TQ_Prseq_Maindisplay_CalculateDisplayPositionFromStartAndPitch(const Prseq& object,
                                                                     const MainDisplay& md, double start,
                                                                     double pitch) {
    const double page = TQ_Prseq_Maindisplay_GetTotalPageSizeHorizontal(md);
    return {page * start / object.timelinelength - md.horizontalscroll,
            pitch_rows * md.rowheight - pitch * md.rowheight};
}

Rect TQ_Prseq_Events_Rect(const Prseq& object, const Event& event) {
    return TQ_Prseq_Maindisplay_CalculateDisplayRectFromPitchAndStartAndDuration(
        object, object.maindisplay, event.pitch, event.start, event.duration);
}

double TQ_Prseq_Maindisplay_CalculateMsLabelIncrement(const Prseq& object, MainDisplay& md) {
    constexpr double smallest = 100, largest = 1e8;
    const double steps = std::trunc(TQ_Prseq_Maindisplay_GetTotalPageSizeHorizontal(md) / 100);
    const double wanted = steps >= 1 ? std::trunc(object.timelinelength / steps) : smallest;
    if (wanted > largest) return md.mslabelincrement = wanted;
    for (double decade = smallest; decade < largest; decade *= 10)
        for (double factor : {1., 2., 5.})
            if (decade * factor >= wanted) return md.mslabelincrement = decade * factor;
    return md.mslabelincrement = largest;
}

double TQ_Prseq_Maindisplay_CalculateBigBarSize(const Prseq& object, MainDisplay& md, double increment) {
    md.numberofbigbars = object.timelinelength / increment;
    md.bigbarsize = TQ_Prseq_Maindisplay_GetTotalPageSizeHorizontal(md) / md.numberofbigbars;
    return md.bigbarsize;
}

double TQ_Prseq_Maindisplay_ZoomCoefficientHorizontal(double timelinelength) {
    return 1 / (0.1 * timelinelength);
}

double TQ_Prseq_Maindisplay_CalculateZoomCoefficientHorizontal(const Prseq& object, MainDisplay& md) {
    return md.horizontalzoomcoefficient =
               TQ_Prseq_Maindisplay_ZoomCoefficientHorizontal(object.timelinelength);
}

double TQ_Prseq_Maindisplay_CalculateZoomValueHorizontalFromMsLabelIncrement(const Prseq& object,
                                                                             const MainDisplay& md,
                                                                             double increment) {
    return md.horizontalzoomcoefficient * 100 * object.timelinelength / increment;
}

double TQ_Prseq_Maindisplay_CalculateMinimumZoomValue(MainDisplay& md, double width) {
    return md.minimumhorizontalzoom = md.horizontalzoomcoefficient * width;
}

void TQ_Prseq_Maindisplay_SetActualScrollValueFromUnityValueHorizontal(MainDisplay& md, double unity) {
    md.horizontalscroll = unity * (TQ_Prseq_Maindisplay_GetTotalPageSizeHorizontal(md) - md.rect.width);
}

}  // namespace tq
