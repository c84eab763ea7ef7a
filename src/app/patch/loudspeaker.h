// The machine's loudspeaker, if it has one.
#pragma once

#include <memory>
#include <string>

#include "app/sound/audio_output.h"

namespace tq {

struct Loudspeaker {
    std::unique_ptr<AudioOutput> output;  ///< open, or none
    std::string reason;                   ///< why there is none
};

Loudspeaker open_loudspeaker();

}  // namespace tq
