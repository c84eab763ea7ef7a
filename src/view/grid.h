// Note lanes and the time grid, as plain rectangles and lines.
#pragma once

#include <vector>

#include "view/eventview.h"

namespace tq {

struct NoteLane {
    Rect rect;
    bool black = false;   ///< of a black key
    bool octave = false;  ///< the top row of an octave
};

struct GridLine {
    double x = 0;
    bool main = false;  ///< a main division, else a subdivision
    bool part = false;  ///< of a beat
    friend bool operator==(const GridLine&, const GridLine&) = default;
};

/// The rows that are visible, from the top.
std::vector<NoteLane> build_note_lanes(const EventView& view);
/// The vertical lines that are visible, those drawn later last: bars and beats, or tenths of the main
/// divisions. Never two on the same pixel of the screen.
std::vector<GridLine> build_grid(const Prseq& object, const EventView& view);

}  // namespace tq
