// What reading a MIDI file could not keep, and what it had to mend.
#pragma once

#include <cstddef>
#include <string>

namespace tq {

/// Counts of messages, by what they are.
struct LeftOut {
    std::size_t exclusives = 0;  ///< system exclusive, but those that reset
    std::size_t parameters = 0;  ///< registered and other parameters, but the range of bends and the tuning
    std::size_t fine = 0;        ///< fine parts of controllers
    std::size_t repaired = 0;    ///< bytes out of range, taken as the nearest that is within
    std::size_t tracks = 0;      ///< beyond those that the header promises
    friend bool operator==(const LeftOut&, const LeftOut&) = default;
};

/// One line, "left out: 3 system exclusive messages, …; 1 byte repaired"; empty when there is nothing to say.
std::string text_of(const LeftOut& left_out);

}  // namespace tq
