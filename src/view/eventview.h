// The present view as painting needs it: document to pixels of the main display, on whole pixels of the
// screen.
#pragma once

#include "instance/view_records.h"

namespace tq {

struct Event;
struct Prseq;

/// All coordinates are relative to the main display, scrolled.
struct EventView {
    EventView(const Prseq& object, double pixel_ratio);

    double width, height;  ///< of the main display
    double rowheight;
    double ratio;  ///< pixels of the screen for one of the view
    double pixels_per_ms;
    double horizontalscroll, verticalscroll;

    double x_of(double ms) const { return ms * pixels_per_ms - horizontalscroll; }
    double ms_at(double x) const { return (x + horizontalscroll) / pixels_per_ms; }
    /// The bottom edge of the row of a whole pitch.
    double y_of(double pitch) const;
    /// The nearest whole pixel of the screen.
    double snap(double value) const;
    /// An event's rectangle, its edges on whole pixels of the screen.
    Rect rect_of(const Event& event) const;
};

}  // namespace tq
