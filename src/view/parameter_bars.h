// The bars of the parameter display: one an event, as high as its value.
#pragma once

#include <vector>

#include "host/geometry.h"

namespace tq {

struct Prseq;
struct Track;

struct ParameterBar {
    Rect rect;  ///< in the parameter display, on whole pixels of the screen; a value below the minimum hangs
                ///< down
    bool selected;
    friend bool operator==(const ParameterBar&, const ParameterBar&) = default;
};

/// The bars of a track's events that are in view, in its order. A bar is left out where `layers` later ones
/// lie on every pixel of it: what is painted so often over it hides it.
std::vector<ParameterBar> parameter_bars(const Prseq& object, const Track& track, double ratio, int layers);

}  // namespace tq
