// How the box is divided into its parts.
#pragma once

#include "instance/view_records.h"

namespace tq {

struct Prseq;

inline constexpr double upperdisplay_height = 24, scrollbar_thickness = 15;

/// Lays the parts out in the box by its size and by which displays are shown.
void calculate_windowparts(const Prseq& object, Geometry& geometry);
/// Changes what the ruler shows, and how high it is.
void set_time_display_type(Prseq& object, TimeDisplayType type);
/// The part under a point of the box; right and bottom edges belong to the next part, or to none.
Part whichpartisthemouse(const Prseq& object, double x, double y);

}  // namespace tq
