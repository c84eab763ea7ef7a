// Where the pointer is in the document.
#pragma once

#include <optional>
#include <string>

#include "edits/time_grid.h"
#include "instance/gesture.h"

namespace tq {

/// A point of the box, held right of and below the main display's corner, in the document as the view shows
/// it.
Pointer pointer_at(const Prseq& object, double x, double y, unsigned modifiers);
/// Where a drag has come to, in the box: with shift held, a hundredth of its way since the press.
Point dragged_to(const Pointer& press, const Pointer& to);
/// What dragging snaps to, if anything: tenths of the main divisions, or parts of a beat.
class Snap {
 public:
    explicit Snap(const Prseq& object);
    /// The tenths, or parts of a beat, whether snapping is on or not.
    static Snap always(const Prseq& object);
    /// The nearest time, in ms.
    double time(double ms) const;
    /// A length in ms of what starts there.
    double length(double start, double ms) const;
    /// Whether events that are moved together keep their distances, and only the one that is held snaps.
    bool keeps_distances() const { return beats_.has_value(); }
    /// To the next time behind, in ms; none where it is not a part of a beat.
    std::optional<double> step(double start) const;
    /// How far times are from each other there, in ms.
    double spacing(double ms) const;

 private:
    Snap(const Prseq& object, bool on);
    std::optional<TimeGrid> beats_;
    double tenths_ = 0;  ///< ms; 0: nothing
};
/// The pitch at the pointer that an event takes there: within the editor's, and whole with "snappitch".
double pitch_to_insert(const Prseq& object, const Pointer& pointer);
/// Shows the tiptool beside the pointer, inside the main display.
void show_tiptool(Prseq& object, const Pointer& pointer, const std::string& text);

}  // namespace tq
