// The names that General MIDI gives its sounds.
#pragma once

#include <string_view>

namespace tq {

/// The name of a General MIDI program, 0…127.
std::string_view midi_program_name(int program);

/// The name of a drum, which is a key of the drum channel; empty for keys that have none.
std::string_view midi_drum_name(long key);

}  // namespace tq
