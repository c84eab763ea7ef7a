// Colours and values that new tracks and events take.
#pragma once

#include <array>

#include "host/color.h"

namespace tq {

struct Defaults {
    Rgba marqueefill, marqueeframe;
    double linecursorwidth = 0;  ///< pixels
    double eventduration = 0;    ///< ms
    double hue = 0, saturation = 0, luminosity = 0;
    std::array<Rgba, 6> palette;  ///< of a new track: colours 1 to 6 stand at 0 to 5
};

Defaults make_defaults();
/// The six colours of a hue, as new tracks copy them.
std::array<Rgba, 6> TQ_Prseq_Defaults_TrackColors(double hue, double saturation, double luminosity);

}  // namespace tq
