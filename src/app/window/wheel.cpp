#include "app/window/wheel.h"

#include <algorithm>
#include <cmath>

namespace tq {

namespace {

constexpr double unit = 0.039062;  // one row, or one main division
constexpr double notch = 120, rows_a_notch = 3;

double over(double amount, double size) { return size > 0 ? amount / size : 0; }

}  // namespace

WheelDelta wheel_delta(QPoint angle, QPoint pixels, bool sideways, const MainDisplay& md) {
    if (sideways && angle.x() == 0) {
        angle = angle.transposed();
        pixels = pixels.transposed();
    }
    if (!pixels.isNull())
        return {unit * over(pixels.x(), md.bigbarsize), unit * over(pixels.y(), md.rowheight)};
    return {unit * angle.x() / notch, unit * angle.y() / notch * rows_a_notch};
}

WheelZoom wheel_zoom(QPoint angle, QPoint pixels, bool upright) {
    constexpr double factor_a_notch = 1.25, pixels_a_notch = 40, most_notches = 30;
    // Some platforms turn the wheel sideways themselves while shift is held.
    const auto turned = [&](QPoint delta) { return upright && delta.y() == 0 ? delta.x() : delta.y(); };
    const double notches = angle.isNull() ? turned(pixels) / pixels_a_notch : turned(angle) / notch;
    const double factor = std::pow(factor_a_notch, std::clamp(notches, -most_notches, most_notches));
    return upright ? WheelZoom{1, factor} : WheelZoom{factor, 1};
}

}  // namespace tq
