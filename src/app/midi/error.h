// What is wrong with a MIDI file.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace tq {

/// One sentence that says what is wrong and at which byte of the file.
class MidiError : public std::runtime_error {
 public:
    MidiError(const std::string& what, std::size_t position)
        : std::runtime_error(what + " at byte " + std::to_string(position)) {}
};

}  // namespace tq
