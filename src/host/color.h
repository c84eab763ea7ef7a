// A colour as the host passes it around.
#pragma once

namespace tq {

/// Red, green, blue and alpha, each 0 to 1.
struct Rgba {
    double red = 0, green = 0, blue = 0, alpha = 1;
    friend bool operator==(const Rgba&, const Rgba&) = default;
};

}  // namespace tq
