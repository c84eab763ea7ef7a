// Colour conversions.
#pragma once

#include "host/color.h"

namespace tq {

/// Each component 0 to 1.
struct Rgb {
    double red = 0, green = 0, blue = 0;
};
struct Hsl {
    double hue = 0, saturation = 0, luminosity = 0;
};

/// A hue of 1 (or outside 0 to 1) gives the grey of the luminosity.
Rgb hsl2rgb(double h, double s, double l);
/// The hue of a grey is not a number.
Hsl rgb2hsl(double r, double g, double b);
Rgba rgb2rgba(double r, double g, double b, double a);
inline Rgba rgb2rgba(const Rgb& rgb, double a) { return rgb2rgba(rgb.red, rgb.green, rgb.blue, a); }

}  // namespace tq
