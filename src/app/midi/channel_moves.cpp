#include "app/midi/channel_moves.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace tq {

namespace {

/// The moves of one thing, in rising order.
class Stairs {
 public:
    Stairs(int what, const std::function<int(double)>& position, double duration_ms, double step_ms)
        : what_(what), position_(position), duration_ms_(duration_ms), step_ms_(step_ms) {}

    std::vector<ChannelMove> along(std::span<const CurvePoint> curve) {
        moves_.push_back({0, what_, position_(curve.front().value)});
        for (std::size_t i = 1; i < curve.size(); ++i)
            if (!climb(curve[i - 1], curve[i])) break;
        return std::move(moves_);
    }

 private:
    // False when the note is over.
    bool climb(const CurvePoint& from, const CurvePoint& to) {
        const double span = to.ms - from.ms;
        // More stairs than positions would say nothing more, however long the curve is.
        const double stairs =
            std::min(std::ceil(span / step_ms_), std::abs(position_(to.value) - position_(from.value)) + 1.0);
        for (double k = 1; k < stairs; ++k) {
            const double ms = from.ms + span * k / stairs;
            if (ms >= duration_ms_) return false;
            move(ms, position_(from.value + (to.value - from.value) * k / stairs));
        }
        if (to.ms > duration_ms_) return false;
        move(to.ms, position_(to.value));
        return true;
    }

    void move(double ms, int position) {
        if (moves_.back().value == position) return;
        if (moves_.back().ms == ms)
            moves_.back().value = position;
        else
            moves_.push_back({ms, what_, position});
    }

    int what_;
    const std::function<int(double)>& position_;
    double duration_ms_;
    double step_ms_;
    std::vector<ChannelMove> moves_;
};

}  // namespace

int controller_position(double value) { return static_cast<int>(std::lround(std::clamp(value, 0.0, 127.0))); }

bool stays_initial(const ControllerCurve& curve) {
    const int initial = controller_initial(curve.controller);
    return std::ranges::all_of(curve.points,
                               [&](const CurvePoint& p) { return controller_position(p.value) == initial; });
}

std::vector<ChannelMove> channel_moves(const MovingNote& note, double step_ms) {
    const CurvePoint level{0, note.pitch};
    const std::function<int(double)> wheel = [&](double pitch) { return note.bend.wheel(pitch); };
    const std::function<int(double)> position = controller_position;
    std::vector<ChannelMove> moves = Stairs(pitch_wheel, wheel, note.duration_ms, step_ms)
                                         .along(note.curve.empty() ? std::span(&level, 1) : note.curve);
    for (const ControllerCurve& curve : note.controllers) {
        if (curve.points.empty()) continue;
        const auto more = Stairs(curve.controller, position, note.duration_ms, step_ms).along(curve.points);
        moves.insert(moves.end(), more.begin(), more.end());
    }
    std::ranges::stable_sort(moves, {}, &ChannelMove::ms);
    return moves;
}

}  // namespace tq
