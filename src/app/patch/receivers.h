// The names of the built-in sounds.
#pragma once

#include <optional>
#include <string>

#include "app/midi/voice.h"

namespace tq {

/// The sound that a receiver's name stands for: "gm:PROGRAM", "gm:PROGRAM:BANK", "gm:PROGRAM:BANK:FINE",
/// "gm:drums", "gm:drums:KIT", each number 0 to 127; none for other names.
std::optional<Voice> voice_of_receiver(const std::string& name);
/// The shortest such name.
std::string receiver_of_voice(const Voice& voice);

}  // namespace tq
