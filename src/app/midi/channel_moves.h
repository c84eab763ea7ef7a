// Curves as the messages of a channel: how the wheel and controllers follow them.
#pragma once

#include <span>
#include <vector>

#include "app/midi/controllers.h"
#include "app/midi/key_bend.h"

namespace tq {

/// What moves beside the controllers.
constexpr int pitch_wheel = controller_count;

/// `ms` after the note's start something goes to a value: the wheel to 0…16383, a controller to 0…127.
struct ChannelMove {
    double ms;
    int what;  ///< a `Controller`, or `pitch_wheel`
    int value;
    friend bool operator==(const ChannelMove&, const ChannelMove&) = default;
};

/// What a note asks of its channel.
struct MovingNote {
    KeyBend bend;
    double pitch;
    std::span<const CurvePoint> curve;  ///< of the pitch
    std::span<const ControllerCurve> controllers;
    double duration_ms;
};

/// How the wheel and the controllers follow their curves: in stairs of `step_ms` at most, level where the
/// curve is, none that changes nothing; by time. A move at 0 is there for each. Points outside 0…duration are
/// cut.
std::vector<ChannelMove> channel_moves(const MovingNote& note, double step_ms);

/// Whether a controller is all the time where it is when nobody says anything.
bool stays_initial(const ControllerCurve& curve);

/// The next position, 0…127, to a controller's value.
int controller_position(double value);

}  // namespace tq
