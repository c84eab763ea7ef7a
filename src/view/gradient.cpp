#include "view/gradient.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <unordered_map>

#include "host/graphics.h"
#include "instance/colors.h"

namespace tq {

namespace {

/// Two a track and row height; thousands cost some MB.
constexpr size_t kept_gradients = 4096;
struct GradientKey {
    double height;
    Rgba top, bottom;
    friend bool operator==(const GradientKey&, const GradientKey&) = default;
};
struct HashOfKey {
    size_t operator()(const GradientKey& key) const {
        size_t hash = 0;
        for (double value : {key.height, key.top.red, key.top.green, key.top.blue, key.bottom.red,
                             key.bottom.green, key.bottom.blue})
            hash = hash * 31 + std::hash<double>()(value);
        return hash;
    }
};

Rgba from_hsl(const Hsl& hsl, double luminosity, double alpha) {
    if (!(hsl.saturation > 0)) return grey(luminosity, alpha);
    const double hue = hsl.hue >= 1 ? hsl.hue - 1 : hsl.hue;  // the hue of red comes as 1
    return rgb2rgba(hsl2rgb(hue, hsl.saturation, luminosity), alpha);
}

}  // namespace

Rgba with_luminosity(const Rgba& color, double luminosity) {
    return from_hsl(rgb2hsl(color.red, color.green, color.blue), luminosity, color.alpha);
}

Rgba shade(const Rgba& color, double factor) {
    const Hsl hsl = rgb2hsl(color.red, color.green, color.blue);
    return from_hsl(hsl, hsl.luminosity * factor, color.alpha);
}

Rgba opaque(const Rgba& color) { return {color.red, color.green, color.blue, 1}; }

Rgba grey(double value, double alpha) { return {value, value, value, alpha}; }

SurfaceRef make_gradient_surface(double x0, double y0, double x1, double y1, const Rgba& color1,
                                 const Rgba& color2) {
    const double width = std::abs(x1 - x0), height = std::abs(y1 - y0);
    SurfaceRef surface = jgraphics_image_surface_create(width, height);
    Graphics g(*surface);
    const double left = std::min(x0, x1), top = std::min(y0, y1);
    jgraphics_set_source(g, LinearPattern{{x0 - left, y0 - top}, {x1 - left, y1 - top}, color1, color2});
    jgraphics_rectangle(g, {0, 0, surface->size().width, surface->size().height});
    jgraphics_fill(g);
    return surface;
}

SurfaceRef vertical_gradient(double height, const Rgba& top, const Rgba& bottom) {
    static std::unordered_map<GradientKey, SurfaceRef, HashOfKey> kept;
    if (kept.size() >= kept_gradients) kept.clear();
    SurfaceRef& surface = kept[{height, top, bottom}];
    if (!surface) surface = make_gradient_surface(0, 0, 1, height, top, bottom);
    return surface;
}

void draw_gradient(Graphics& g, const Surface& gradient, const Rect& rect) {
    jgraphics_image_surface_draw(g, gradient, {0, 0, gradient.size().width, gradient.size().height}, rect);
}

}  // namespace tq
