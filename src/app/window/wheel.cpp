#include "app/window/wheel.h"

#include <utility>

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

}  // namespace tq
