#include "instance/geometry.h"

#include <algorithm>
#include <cmath>

namespace tq {

double scale(double v, double in_low, double in_high, double out_low, double out_high) {
    return (out_high - out_low) * ((v - in_low) / (in_high - in_low)) + out_low;
}

double linearInterpolation(double v, double in_low, double in_high, double out_low, double out_high) {
    return scale(v, in_low, in_high, out_low, out_high);
}

bool TQRectContainsPoint(const Rect& rect, double px, double py) {
    return rect.x <= px && px <= rect.x + rect.width && rect.y <= py && py <= rect.y + rect.height;
}

bool TQRectsIntersect(const Rect& a, const Rect& b) {
    return !(b.y > a.y + a.height || a.y > b.y + b.height || b.x > a.x + a.width || a.x > b.x + b.width);
}

bool TQ_Utilities_PointOnLine(double x1, double y1, double x2, double y2, double px, double py) {
    double length = std::hypot(y2 - y1, x2 - x1);
    return std::abs((px - x1) * (y2 - y1) - (x2 - x1) * (py - y1)) / length == 0;
}

}  // namespace tq
