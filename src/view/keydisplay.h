// The vertical mapping: keys, rows, zoom and scroll.
#pragma once

#include "instance/view_records.h"

namespace tq {

/// Each stores the zoom and the size of a key in pixels, and returns the size. A black key is as high as a
/// row.
double TQ_Prseq_Keydisplay_CalculateWhiteKeyBroadnessFromZoomValue(KeyDisplay& kd, double zoom);
double TQ_Prseq_Keydisplay_CalculateBlackKeyBroadnessFromZoomValue(KeyDisplay& kd, double zoom);
double TQ_Prseq_Keydisplay_CalculateActualZoomValueFromWhiteKeyBroadness(const KeyDisplay& kd,
                                                                         double broadness);
/// Pixels of all 132 rows, at the present and at the maximum zoom.
double TQ_Prseq_Keydisplay_GetTotalPageSize(const KeyDisplay& kd);
double TQ_Prseq_Keydisplay_GetTotalPageSizeMaximum(const KeyDisplay& kd);
double TQ_Prseq_Keydisplay_GetSelectionPageSize(const KeyDisplay& kd);
/// The zoom at which all rows fit a height; it is stored.
double TQ_Prseq_Keydisplay_CalculateMinimumZoomValue(KeyDisplay& kd, double height);
/// The zoom at which one row takes a height; it is stored.
double TQ_Prseq_Keydisplay_CalculateMaximumZoomValue(KeyDisplay& kd, double height);
double TQ_Prseq_Keydisplay_ConvertToActualScrollValueFromUnityScrollValue(KeyDisplay& kd, double unity);
/// 0 when there is nothing to scroll.
double TQ_Prseq_Keydisplay_ConvertToUnityScrollValueFromActualScrollValue(const KeyDisplay& kd);

}  // namespace tq
