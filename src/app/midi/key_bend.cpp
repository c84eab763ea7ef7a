#include "app/midi/key_bend.h"

#include <algorithm>
#include <cmath>

namespace tq {

namespace {

int nearest_key(double pitch) { return static_cast<int>(std::lround(std::clamp(pitch, 0.0, 127.0))); }

}  // namespace

int KeyBend::wheel(double pitch) const {
    const double position = 8192 + (pitch - key) / range * 8192;
    return static_cast<int>(std::lround(std::clamp(position, 0.0, 16383.0)));
}

KeyBend key_bend(double pitch, std::span<const CurvePoint> curve, int widest) {
    double low = curve.empty() ? pitch : curve.front().value;
    double high = low;
    for (const CurvePoint& point : curve) {
        low = std::min(low, point.value);
        high = std::max(high, point.value);
    }
    const auto reach = [&](int key) { return std::max(high - key, key - low); };
    int key = nearest_key(pitch);
    if (reach(key) > widest) key = nearest_key((low + high) / 2);
    const int range = static_cast<int>(std::ceil(std::clamp(reach(key), 2.0, static_cast<double>(widest))));
    return {key, range, reach(key) != 0};
}

}  // namespace tq
