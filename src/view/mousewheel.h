// The mouse wheel.
#pragma once

namespace tq {

struct Prseq;

/// A turn of the wheel at a point of the box; scrolls the main display, by one main division or one row a
/// unit.
void prseq_mousewheel(Prseq& object, double x, double y, long modifiers, double dx, double dy);

}  // namespace tq
