// The present view as painting needs it: document to pixels of the main display, on whole pixels of the
// screen.
#pragma once

#include "instance/view_records.h"
#include "view/maindisplay.h"

namespace tq {

/// All coordinates are relative to the main display, scrolled. The scroll is rounded to whole pixels of the
/// screen, so that at one zoom every scroll shows the same picture, moved.
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
    double y_of(double pitch) const { return (pitch_rows - pitch) * rowheight - verticalscroll; }
    /// The nearest whole pixel of the screen, counted in those; far outside, some number far outside.
    int pixel(double value) const {
        constexpr double far = 1e9;
        const double place = value * ratio + 0.5, held = place > -far ? (place < far ? place : far) : -far;
        const int whole =
            static_cast<int>(held);  // towards 0; std::floor is a call that costs more than all else
        return whole - (held < whole);
    }
    /// The same in pixels of the view.
    double snap(double value) const { return pixel(value) / ratio; }
    /// Where an event's rectangle begins and ends, on whole pixels of the screen, counted in those.
    int left_of(double start) const { return pixel(x_of(start)); }
    int right_of(double start, double end) const {
        const double least = x_of(start) + minimum_event_width, right = x_of(end);
        return pixel(right > least ? right : least);
    }
    /// An event's rectangle, its edges on whole pixels of the screen. Rows have no seams between them.
    Rect rect_of(const Event& event) const;
};

}  // namespace tq
