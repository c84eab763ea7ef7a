// Shades of colours, and gradients made of them.
#pragma once

#include "host/color.h"
#include "host/image.h"

namespace tq {

/// The colour with its luminosity replaced, or multiplied; alpha stays.
Rgba with_luminosity(const Rgba& color, double luminosity);
Rgba shade(const Rgba& color, double factor);
Rgba opaque(const Rgba& color);
Rgba grey(double value, double alpha = 1);

/// An image |x1 - x0| wide and |y1 - y0| high, filled from one colour at the first corner to another at the
/// second.
SurfaceRef make_gradient_surface(double x0, double y0, double x1, double y1, const Rgba& color1,
                                 const Rgba& color2);
/// One pixel wide and `height` pixels high, from `top` down to `bottom`. The last ones made are kept.
SurfaceRef vertical_gradient(double height, const Rgba& top, const Rgba& bottom);
void draw_gradient(Graphics& g, const Surface& gradient, const Rect& rect);

}  // namespace tq
