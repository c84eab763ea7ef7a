#include "view/event_style.h"

#include "instance/track.h"
#include "view/gradient.h"

namespace tq {

EventStyle event_style(const Track& track, bool active, bool selected, double rowheight) {
    constexpr double bottom_shade = 0.8, dark_shade = 0.3, light_luminosity = 0.8;
    const Rgba base = selected ? track.selectedcolor : active ? track.color : track.inactivecolor;
    return {.active = active,
            .curve = base,
            .fill = vertical_gradient(rowheight, opaque(base), opaque(shade(base, bottom_shade))),
            .dark = shade(base, dark_shade),
            .light = with_luminosity(base, light_luminosity),
            .frame = track.framecolor,
            .labeltext = grey((active ? 50 : 100) / 255.),
            .messagetext = grey((active ? 50 : 150) / 255.)};
}

}  // namespace tq
