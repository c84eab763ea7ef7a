// Keeps layout, scrollbars, key display and main display in step.
#pragma once

#include "instance/view_records.h"

namespace tq {

struct Prseq;

/// Makes the scrollbars, and gives those of the main display the ranges of the box as it is laid out.
void init_scrollbars(Prseq& object);
/// The geometry that follows from the box's size, its display switches, the time display type, the timeline's
/// length, and zoom and scroll as the scrollbars have them.
Geometry geometry_in_step(const Prseq& object);
/// The box takes that geometry. Done wherever one of these changes, so that it holds at any time.
void synchronise_view(Prseq& object);

}  // namespace tq
