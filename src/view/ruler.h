// The ticks and texts of the time display, as plain lines and places.
#pragma once

#include <string>
#include <vector>

#include "host/geometry.h"
#include "host/text.h"

namespace tq {

struct Prseq;

struct RulerTick {
    double x = 0;  ///< its left edge, on a whole pixel of the screen
    double length = 0;
    friend bool operator==(const RulerTick&, const RulerTick&) = default;
};

struct RulerText {
    std::string text;
    Point at;  ///< its top left corner
    friend bool operator==(const RulerText&, const RulerText&) = default;
};

struct Ruler {
    std::vector<RulerTick> ticks;  ///< from the left, never one over another
    std::vector<RulerText> texts;
};

/// What is in view, relative to the time display; `ratio` is that of the picture.
Ruler build_ruler(const Prseq& object, double ratio);
JFont ruler_font();

}  // namespace tq
