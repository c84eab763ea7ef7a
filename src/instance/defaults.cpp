#include "instance/defaults.h"

#include "instance/colors.h"

namespace tq {

Defaults make_defaults() {
    Defaults d;
    d.marqueefill = {170 / 255.0, 180 / 255.0, 150 / 255.0, 150 / 255.0};
    d.marqueeframe = {50 / 255.0, 50 / 255.0, 50 / 255.0, 200 / 255.0};
    d.linecursorwidth = 3;
    d.eventduration = 1000;
    d.hue = 0.5;
    d.saturation = 0.8;
    d.luminosity = 0.7;
    d.palette = TQ_Prseq_Defaults_TrackColors(d.hue, d.saturation, d.luminosity);
    return d;
}

std::array<Rgba, 6> TQ_Prseq_Defaults_TrackColors(double h, double s, double l) {
    return {rgb2rgba(hsl2rgb(h, s, l), 0.75),     rgb2rgba(hsl2rgb(h, s, 0.9), 0.75),
            rgb2rgba(hsl2rgb(h, s, 0.3), 1.0),    rgb2rgba(hsl2rgb(h, s, 0.3), 0.25),
            rgb2rgba(hsl2rgb(h, 0.4, 0.8), 0.75), rgb2rgba(hsl2rgb(h, 0.4, 0.5), 0.75)};
}

}  // namespace tq
