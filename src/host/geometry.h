// Points and rectangles, in pixels.
#pragma once

namespace tq {

struct Point {
    double x = 0, y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    double width = 0, height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

/// x and y are the top left corner.
struct Rect {
    double x = 0, y = 0, width = 0, height = 0;
    friend bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace tq
