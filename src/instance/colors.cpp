#include "instance/colors.h"

#include <algorithm>

namespace tq {

Rgb hsl2rgb(double h, double s, double l) {
    double v = l <= 0.5 ? l * (1 + s) : l + s - l * s;
    if (v <= 0) return {l, l, l};
    double m = 2 * l - v, sv = (v - m) / v, h6 = 6 * h;
    if (!(h6 > -1 && h6 < 6)) return {l, l, l};
    int sextant = static_cast<int>(h6);
    double vsf = v * sv * (h6 - sextant), mid1 = m + vsf, mid2 = v - vsf;
    switch (sextant) {
        case 0:
            return {v, mid1, m};
        case 1:
            return {mid2, v, m};
        case 2:
            return {m, v, mid1};
        case 3:
            return {m, mid2, v};
        case 4:
            return {mid1, m, v};
        default:
            return {v, m, mid2};
    }
}

Hsl rgb2hsl(double r, double g, double b) {
    double max = std::max({r, g, b}), min = std::min({r, g, b});
    double l = (min + max) / 2, d = max - min, s = d;
    if (d > 0) s = l <= 0.5 ? d / (max + min) : d / (2 - max - min);
    double rc = (max - r) / d, gc = (max - g) / d, bc = (max - b) / d;
    double hue;
    if (r == max)
        hue = g == min ? 5 + bc : 1 - gc;
    else if (g == max)
        hue = b == min ? 1 + rc : 3 - bc;
    else
        hue = r == min ? 3 + gc : 5 - rc;
    return {hue / 6, s, l};
}

Rgba rgb2rgba(double r, double g, double b, double a) { return {r, g, b, a}; }

}  // namespace tq
