// The view scrolls on while something is dragged outside of the display that it was pressed in.
#pragma once

#include "host/geometry.h"

namespace tq {

struct Prseq;

/// Where a point is beside a rectangle.
struct Outside {
    int right = 0;        ///< −1 left of it, 1 right of it
    int down = 0;         ///< −1 above it, 1 below it
    double distance = 0;  ///< pixels, the larger one of the two

    explicit operator bool() const { return right || down; }
    /// ms from one step to the next: the farther outside, the shorter.
    double interval() const;
};

Outside TQ_Prseq_Mouse_DraggedOutsideMainDisplayRect(const Rect& rect, Point at);
/// Only beside it; above and below it counts as inside.
Outside TQ_Prseq_Mouse_DraggedOutsideTimeDisplayRect(const Rect& rect, Point at);

/// The gesture that is under way is dragged to a point of the box. Outside of the display that it began in,
/// the view scrolls at once and again and again while the pointer stays there, and the gesture follows.
void autoscroll(Prseq& object, Point at, unsigned modifiers);

}  // namespace tq
