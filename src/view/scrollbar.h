// The value model of a scrollbar: unity values, zoom and scroll values, page sizes.
#pragma once

#include "instance/view_records.h"

namespace tq {

TQScrollbar TQScrollbar_Create(TQScrollbar::Orientation orientation, bool hasarrows, TQScrollbar::Zoom zoom);

/// Maps v from [a, b] to [c, d]; c when a and b are the same.
double TQScrollbar_Scale(double v, double a, double b, double c, double d);
double TQScrollbar_ZoomUnityValueToZoomValue(const TQScrollbar& bar, double unity);
double TQScrollbar_ZoomValueToZoomUnityValue(const TQScrollbar& bar, double zoom);
/// Stores and returns the page size at a zoom value, in pixels.
double TQScrollbar_CalculateTotalPageSize(TQScrollbar& bar, double zoom);
/// The zoom value at which the page has a size.
double TQScrollbar_CalculateZoom(const TQScrollbar& bar, double totalpagesize);
double TQScrollbar_ScrollUnityValueToScrollValue(const TQScrollbar& bar, double unity);
double TQScrollbar_ScrollValueToScrollUnityValue(const TQScrollbar& bar, double value);

/// Held within 0 and 1; the zoom or scroll value follows.
void TQScrollbar_SetZoomUnityValue(TQScrollbar& bar, double unity);
void TQScrollbar_SetScrollUnityValue(TQScrollbar& bar, double unity);
/// Scrolls by pixels of the page.
void TQScrollbar_Scroll(TQScrollbar& bar, double pixels);
/// Held within the zoom range; the unity value follows.
void TQScrollbar_SetZoomValue(TQScrollbar& bar, double zoom);
/// The zoom value is held within the new range; the unity value stays as it is.
void TQScrollbar_SetMinMaxZoomValue(TQScrollbar& bar, double minimum, double maximum);

}  // namespace tq
