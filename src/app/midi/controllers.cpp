#include "app/midi/controllers.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace tq {

namespace {

struct Row {
    int controller;
    std::string_view name;
    int initial = 0;
    bool heard = true;
};

constexpr Row rows[] = {
    {Modulation, "Modulation"},
    {2, "Breath"},
    {4, "Foot"},
    {5, "Portamento Time", 0, false},
    {Volume, "Volume", 100},
    {8, "Balance", 64},
    {Pan, "Pan", 64},
    {Expression, "Expression", 127},
    {12, "Effect 1"},
    {13, "Effect 2"},
    {16, "General Purpose 1"},
    {17, "General Purpose 2"},
    {18, "General Purpose 3"},
    {19, "General Purpose 4"},
    {Sustain, "Sustain", 0, false},
    {Portamento, "Portamento", 0, false},
    {Sostenuto, "Sostenuto", 0, false},
    {SoftPedal, "Soft Pedal"},
    {68, "Legato", 0, false},
    {69, "Hold 2", 0, false},
    {70, "Sound Variation", 64},
    {71, "Resonance", 64},
    {72, "Release Time", 64},
    {73, "Attack Time", 64},
    {74, "Brightness", 64},
    {75, "Decay Time", 64},
    {76, "Vibrato Rate", 64},
    {77, "Vibrato Depth", 64},
    {78, "Vibrato Delay", 64},
    {79, "Sound Control 10", 64},
    {80, "General Purpose 5"},
    {81, "General Purpose 6"},
    {82, "General Purpose 7"},
    {83, "General Purpose 8"},
    {84, "Portamento Control", 0, false},
    {Reverb, "Reverb"},
    {92, "Tremolo"},
    {Chorus, "Chorus"},
    {94, "Detune"},
    {95, "Phaser"},
    {ChannelPressure, "Pressure"},
    {KeyPressure, "Key Pressure"},
};

constexpr std::string_view other = "Controller ";

const Row* row_of(int controller) {
    const auto* row = std::ranges::find(rows, controller, &Row::controller);
    return row == std::end(rows) ? nullptr : row;
}

bool same_letters(std::string_view a, std::string_view b) {
    return std::ranges::equal(
        a, b, [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

}  // namespace

std::string controller_name(int controller) {
    const Row* row = row_of(controller);
    return row ? std::string(row->name) : std::string(other) + std::to_string(controller);
}

std::optional<int> controller_named(std::string_view name) {
    for (const Row& row : rows)
        if (same_letters(row.name, name)) return row.controller;
    if (name.size() <= other.size() || !same_letters(name.substr(0, other.size()), other)) return {};
    for (int controller = 0; controller < 128; ++controller)
        if (controller_makes_curve(controller) && name.substr(other.size()) == std::to_string(controller))
            return controller;
    return {};
}

int controller_initial(int controller) {
    const Row* row = row_of(controller);
    return row ? row->initial : 0;
}

bool controller_is_heard(int controller) {
    const Row* row = row_of(controller);
    return !row || row->heard;
}

bool controller_makes_curve(int controller) {
    constexpr std::array silent = {BankCoarse,       DataCoarse,         DataIncrement, DataDecrement,
                                   OwnParameterFine, OwnParameterCoarse, ParameterFine, ParameterCoarse};
    if (controller >= 32 && controller < 64) return false;
    if (controller >= AllSoundOff && controller < ChannelPressure) return false;
    return std::ranges::find(silent, controller) == silent.end();
}

}  // namespace tq
