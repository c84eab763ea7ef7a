// Turns of a mouse wheel, or strokes on a touchpad, as the box takes them.
#pragma once

#include <QPoint>

#include "instance/view_records.h"

namespace tq {

struct WheelDelta {
    double dx = 0, dy = 0;
    friend bool operator==(const WheelDelta&, const WheelDelta&) = default;
};

/// `angle` is in eighths of a degree, `pixels` is what a touchpad says beside it, or zero. A notch of a wheel
/// scrolls by three rows, or by one main division; a touchpad by just as many pixels as it says. `sideways`
/// turns an upright wheel into a horizontal one.
WheelDelta wheel_delta(QPoint angle, QPoint pixels, bool sideways, const MainDisplay& md);

struct WheelZoom {
    double horizontal = 1, vertical = 1;  ///< factors, above 1 to zoom in
};

/// A notch, or a stroke as long as one, zooms by a quarter; less than a notch by as much less.
WheelZoom wheel_zoom(QPoint angle, QPoint pixels, bool upright);

}  // namespace tq
