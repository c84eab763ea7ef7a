// Sizes on the command line.
#pragma once

#include <cstdio>
#include <optional>
#include <string>

#include "host/geometry.h"

namespace tq {

/// "WxH" in pixels, each 1 to 16384; none for anything else.
inline std::optional<Size> parse_size(const std::string& text) {
    int width = 0, height = 0;
    char behind = 0;
    if (std::sscanf(text.c_str(), "%dx%d%c", &width, &height, &behind) != 2) return {};
    bool fits = width >= 1 && width <= 16384 && height >= 1 && height <= 16384;
    return fits ? std::optional(Size{double(width), double(height)}) : std::nullopt;
}

}  // namespace tq
