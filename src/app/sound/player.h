// What makes notes heard, or keeps them.
#pragma once

#include "app/sound/played_note.h"

namespace tq {

/// Times are logical, in ms, and never fall from call to call.
class Player {
 public:
    virtual ~Player() = default;
    virtual void note(const PlayedNote& note) = 0;
    /// Ends every note of a source that sounds.
    virtual void stop(const std::string& source, double ms) = 0;
    /// Ends every note of a track that sounds, whatever its source.
    virtual void stop_track(long track, double ms) = 0;
    /// Ends every note that sounds.
    virtual void stop_all(double ms) = 0;
};

}  // namespace tq
