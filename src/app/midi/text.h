// Texts in MIDI files: bytes whose encoding nobody states.
#pragma once

#include <string>
#include <string_view>

namespace tq {

/// The text as UTF-8: bytes that are not UTF-8 count as Latin-1. Control characters become blanks, blanks at
/// both ends go, and what is longer than 200 bytes is cut.
std::string midi_text(std::string_view bytes);

}  // namespace tq
