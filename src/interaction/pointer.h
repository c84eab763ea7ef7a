// Where the pointer is in the document.
#pragma once

#include <string>

#include "instance/gesture.h"

namespace tq {

/// A point of the box, held right of and below the main display's corner, in the document as the view shows
/// it.
Pointer pointer_at(const Prseq& object, double x, double y, unsigned modifiers);
/// Where a drag has come to, in the box: with shift held, a hundredth of its way since the press.
Point dragged_to(const Pointer& press, const Pointer& to);
/// The time grid in ms that dragging snaps to; 0 when it is off.
double snap_grid(const Prseq& object);
/// The nearest time on a grid, in ms; the time itself where the grid is 0.
double snapped(double ms, double grid);
/// The pitch at the pointer that an event takes there: within the editor's, and whole with "snappitch".
double pitch_to_insert(const Prseq& object, const Pointer& pointer);
/// Shows the tiptool beside the pointer, inside the main display.
void show_tiptool(Prseq& object, const Pointer& pointer, const std::string& text);

}  // namespace tq
