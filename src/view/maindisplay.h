// Between time and pitch and the pixels of the main display.
//
// "Page x" is a display x plus the horizontal scroll. Rectangles of events are in display pixels horizontally
// and in page pixels vertically.
#pragma once

#include "instance/view_records.h"

namespace tq {

struct Event;
struct Prseq;

/// Rows, one a pitch: 0 to 131.
inline constexpr double pitch_rows = 132;
/// Pixels; no event is drawn narrower.
inline constexpr double minimum_event_width = 3;

double TQ_Prseq_Maindisplay_GetTotalPageSizeHorizontal(const MainDisplay& md);
double TQ_Prseq_Maindisplay_GetSelectionPageSizeHorizontal(const MainDisplay& md);
double TQ_Prseq_Maindisplay_GetMaximumPageSizeHorizontal(MainDisplay& md);

/// ms at a page x.
double TQ_Prseq_Maindisplay_CalculatePositionFromMouse(const Prseq& object, const MainDisplay& md,
                                                       double pagex);
/// Page x of a time in ms.
double TQ_Prseq_Maindisplay_CalculateMouseFromPosition(const Prseq& object, const MainDisplay& md, double ms);
/// The multiple of `grid` nearest to a position, both in ms.
double TQ_Prseq_Maindisplay_CalculateSnappedPositionFromMouse(const MainDisplay& md, double grid,
                                                              double position);
/// A fractional pitch at a y from the display's top; its floor is the pitch of the row there.
double TQ_Prseq_Maindisplay_CalculatePitchFromMouse(const MainDisplay& md, double localy);
Rect TQ_Prseq_Maindisplay_CalculateDisplayRectFromPitchAndStartAndDuration(const Prseq& object,
                                                                           const MainDisplay& md,
                                                                           double pitch, double start,
                                                                           double duration);
/// The place of a curve's point; y is the bottom edge of the row of a whole pitch.
Point TQ_Prseq_Maindisplay_CalculateDisplayPositionFromStartAndPitch(const Prseq& object,
                                                                     const MainDisplay& md, double start,
                                                                     double pitch);
/// An event's rectangle in the present view.
Rect TQ_Prseq_Events_Rect(const Prseq& object, const Event& event);

/// ms from one main division line to the next: the least of 100, 200, 500, 1000, … that makes about 100
/// pixels.
double TQ_Prseq_Maindisplay_CalculateMsLabelIncrement(const Prseq& object, MainDisplay& md);
/// Pixels from one main division line to the next.
double TQ_Prseq_Maindisplay_CalculateBigBarSize(const Prseq& object, MainDisplay& md, double increment);
/// The zoom coefficient of a timeline of this length in ms.
double TQ_Prseq_Maindisplay_ZoomCoefficientHorizontal(double timelinelength);
double TQ_Prseq_Maindisplay_CalculateZoomCoefficientHorizontal(const Prseq& object, MainDisplay& md);
double TQ_Prseq_Maindisplay_CalculateZoomValueHorizontalFromMsLabelIncrement(const Prseq& object,
                                                                             const MainDisplay& md,
                                                                             double increment);
/// The zoom at which the whole timeline takes `width` pixels.
double TQ_Prseq_Maindisplay_CalculateMinimumZoomValue(MainDisplay& md, double width);
void TQ_Prseq_Maindisplay_SetActualScrollValueFromUnityValueHorizontal(MainDisplay& md, double unity);

}  // namespace tq
