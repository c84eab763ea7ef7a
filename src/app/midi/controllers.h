// What a channel can be told beside notes, programs and the wheel, by name.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tq {

/// The controllers 0…127 by their numbers, then what is told by messages of its own.
enum Controller : int {
    BankCoarse = 0,
    Modulation = 1,
    DataCoarse = 6,
    Volume = 7,
    Pan = 10,
    Expression = 11,
    BankFine = 32,
    DataFine = 38,
    Sustain = 64,
    Portamento = 65,
    Sostenuto = 66,
    SoftPedal = 67,
    Reverb = 91,
    Chorus = 93,
    DataIncrement = 96,
    DataDecrement = 97,
    OwnParameterFine = 98,
    OwnParameterCoarse = 99,
    ParameterFine = 100,
    ParameterCoarse = 101,
    AllSoundOff = 120,
    ResetAll = 121,
    LocalControl = 122,
    AllNotesOff = 123,
    ChannelPressure = 128,
    KeyPressure = 129,
};
constexpr int controller_count = 130;

/// "Volume", "Pan", "Controller 3" …
std::string controller_name(int controller);
/// The controller of a name, whatever its case; none for other names.
std::optional<int> controller_named(std::string_view name);
/// What a controller is at before anything is said, 0…127.
int controller_initial(int controller);
/// Whether a synthesiser is to hear it: what notes already carry in their length, and what would tie one
/// note's sound to the next, is not told again.
bool controller_is_heard(int controller);
/// Whether a controller that stands in a file becomes a curve; the others mean something to the reader (a
/// bank, a parameter, an end of notes) or are the fine parts of those below 32.
bool controller_makes_curve(int controller);

}  // namespace tq
