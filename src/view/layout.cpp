#include "view/layout.h"

#include "instance/prseq.h"
#include "view/synchronise.h"

namespace tq {

namespace {

constexpr double ruler_height = 24, ruler_height_bars = 48;

bool contains(const Rect& rect, double x, double y) {
    return x >= rect.x && x < rect.x + rect.width && y >= rect.y && y < rect.y + rect.height;
}

}  // namespace

void calculate_windowparts(const Prseq& object, Geometry& geometry) {
    Layout& layout = geometry.layout;
    const double W = object.width, H = object.height, U = upperdisplay_height, S = scrollbar_thickness;
    const bool bars = object.timedisplaytype == static_cast<long>(TimeDisplayType::BarsBeats);
    layout.timedisplayheight = bars ? ruler_height_bars : ruler_height;
    const double D = layout.timedisplayheight;
    const double T = object.trackdisplay ? layout.trackdisplaywidth : 0;
    const double K = object.keydisplay_shown ? layout.keydisplaywidth : 0;
    const double P = object.parameterdisplay ? layout.parameterdisplayheight : 0;

    layout[Part::UpperDisplay] = {0, 0, W, U};
    layout[Part::TrackDisplay] = {0, U, T, H - U};
    layout[Part::TimeDisplay] = {T + K, U, W - K - S - T, D};
    layout[Part::KeyDisplay] = {T, U + D, K, H - D - S - U - P};
    layout[Part::MainDisplay] = {T + K, U + D, W - K - S - T, H - S - D - U - P};
    layout[Part::ParameterDisplay] = {T + K, H - S - P, W - K - S - T, P};
    layout[Part::HorScrollbar] = {T, H - S, W - S - T, S};
    layout[Part::VertScrollbar] = {W - S, U + D, S, H - S - D - U};
    geometry.keydisplay.rect = layout[Part::KeyDisplay];
    geometry.maindisplay.rect = layout[Part::MainDisplay];
}

void set_time_display_type(Prseq& object, TimeDisplayType type) {
    object.timedisplaytype = static_cast<long>(type);
    synchronise_view(object);
    prseq_show(object, Change::TimeDisplayType);
}

Part whichpartisthemouse(const Prseq& object, double x, double y) {
    for (std::size_t i = 0; i < part_count; ++i)
        if (contains(object.layout.parts[i], x, y)) return static_cast<Part>(i);
    return Part::None;
}

}  // namespace tq
