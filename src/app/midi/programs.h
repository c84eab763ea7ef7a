// The names that General MIDI gives its sounds.
#pragma once

#include <string_view>

namespace tq {

/// The name of a General MIDI program, 0…127.
std::string_view midi_program_name(int program);

}  // namespace tq
