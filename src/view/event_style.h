// The colours of events.
#pragma once

#include "host/color.h"
#include "host/image.h"

namespace tq {

struct Track;

/// The colours of one kind of event: of a track, selected or not.
struct EventStyle {
    bool active = false;  ///< of the active track
    Rgba curve;           ///< the wide line under the active "Pitch" curve
    SurfaceRef fill;
    Rgba dark, light;  ///< outlines on the active track
    Rgba frame;        ///< outline on other tracks
    Rgba labeltext, messagetext;
};

EventStyle event_style(const Track& track, bool active, bool selected, double rowheight);

}  // namespace tq
