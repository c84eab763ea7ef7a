// The box's own clipboard.
#pragma once

#include <vector>

#include "instance/event.h"
#include "instance/track.h"

namespace tq {

struct Clipboard {
    enum class Kind { Nothing = 0, Events = 2 };
    Kind kind = Kind::Nothing;     ///< what was copied last
    std::vector<EventRef> events;  ///< copies that belong to no track
    std::vector<TrackRef> homes;   ///< of the events, where they are of several tracks; else none
};

}  // namespace tq
