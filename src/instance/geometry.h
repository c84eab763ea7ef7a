// Linear mapping, points and rectangles.
#pragma once

#include "host/geometry.h"

namespace tq {

/// Maps v from one range to another, without clipping; an empty input range divides by zero.
double scale(double v, double in_low, double in_high, double out_low, double out_high);
double linearInterpolation(double v, double in_low, double in_high, double out_low, double out_high);

/// Edges included.
bool TQRectContainsPoint(const Rect& rect, double px, double py);
/// Touching edges intersect.
bool TQRectsIntersect(const Rect& a, const Rect& b);
/// Whether a point is at distance exactly 0 from the line through two others; never for a line without
/// length.
bool TQ_Utilities_PointOnLine(double x1, double y1, double x2, double y2, double px, double py);

}  // namespace tq
