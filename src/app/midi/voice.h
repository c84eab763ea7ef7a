// What a note sounds like.
#pragma once

#include <compare>

namespace tq {

/// A General MIDI program or one of its variations, or a drum kit.
struct Voice {
    int program = 0;     ///< 0…127; of drums, the kit
    int bank = 0;        ///< coarse, 0…127
    int fine_bank = 0;   ///< 0…127
    bool drums = false;  ///< then there are no banks
    friend auto operator<=>(const Voice&, const Voice&) = default;
};

}  // namespace tq
