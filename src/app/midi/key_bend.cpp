#include "app/midi/key_bend.h"

#include <algorithm>
#include <cmath>

namespace tq {

namespace {

int nearest_key(double pitch) { return static_cast<int>(std::lround(std::clamp(pitch, 0.0, 127.0))); }

void move(std::vector<WheelMove>& moves, double ms, int wheel) {
    if (moves.back().wheel == wheel) return;
    if (moves.back().ms == ms) {
        moves.back().wheel = wheel;
    } else {
        moves.push_back({ms, wheel});
    }
}

}  // namespace

int KeyBend::wheel(double pitch) const {
    const double position = 8192 + (pitch - key) / range * 8192;
    return static_cast<int>(std::lround(std::clamp(position, 0.0, 16383.0)));
}

KeyBend key_bend(double pitch, std::span<const PitchPoint> curve, int widest) {
    double low = curve.empty() ? pitch : curve.front().pitch;
    double high = low;
    for (const PitchPoint& point : curve) {
        low = std::min(low, point.pitch);
        high = std::max(high, point.pitch);
    }
    const auto reach = [&](int key) { return std::max(high - key, key - low); };
    int key = nearest_key(pitch);
    if (reach(key) > widest) key = nearest_key((low + high) / 2);
    const int range = static_cast<int>(std::ceil(std::clamp(reach(key), 2.0, static_cast<double>(widest))));
    return {key, range, reach(key) != 0};
}

std::vector<WheelMove> wheel_moves(const KeyBend& bend, double pitch, std::span<const PitchPoint> curve,
                                   double duration_ms, double step_ms) {
    std::vector<WheelMove> moves = {{0, bend.wheel(curve.empty() ? pitch : curve.front().pitch)}};
    for (std::size_t i = 1; i < curve.size(); ++i) {
        const PitchPoint& from = curve[i - 1];
        const PitchPoint& to = curve[i];
        const double span = to.ms - from.ms;
        // More stairs than wheel positions would say nothing more, however long the curve is.
        const double stairs = std::min(std::ceil(span / step_ms),
                                       std::abs(bend.wheel(to.pitch) - bend.wheel(from.pitch)) + 1.0);
        for (double k = 1; k < stairs; ++k) {
            const double ms = from.ms + span * k / stairs;
            if (ms >= duration_ms) return moves;
            move(moves, ms, bend.wheel(from.pitch + (to.pitch - from.pitch) * k / stairs));
        }
        if (to.ms > duration_ms) return moves;
        move(moves, to.ms, bend.wheel(to.pitch));
    }
    return moves;
}

}  // namespace tq
