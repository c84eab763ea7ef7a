#include "view/trackdisplay.h"

#include <algorithm>
#include <cmath>

#include "instance/prseq.h"
#include "view/scrollbar.h"
#include "view/scrollbar_layout.h"

namespace tq {

namespace {

constexpr double scrollbar_from_right = 17, scrollbar_width = 15;

long track_count(const Prseq& object) { return static_cast<long>(object.tracks.size()); }

}  // namespace

TrackDisplay trackdisplay_of(const Prseq& object) {
    const Rect& part = object.layout[Part::TrackDisplay];
    TrackDisplay display{.header = {0, 0, part.width, track_header_height},
                         .scrollbarrect = {part.width - scrollbar_from_right, track_header_height,
                                           scrollbar_width, part.height - track_header_height},
                         .visibleheight = part.height - track_header_height,
                         .alltracksheight = TQ_Prseq_Trackdisplay_CalculateAllTracksHeight(object),
                         .scrollbar = object.trackscrollbar};
    TQScrollbar& bar = display.scrollbar;
    bar.selectionpagesize = display.visibleheight;
    bar.totalpagesize = display.alltracksheight;
    TQScrollbar_SetMinMaxZoomValue(bar, 1, 1);
    TQScrollbar_MakeCalculations(bar, display.scrollbarrect);
    display.scroll = bar.scrollunityvalue * std::max(0., display.alltracksheight - display.visibleheight);
    return display;
}

double TQ_Prseq_Trackdisplay_CalculateAllTracksHeight(const Prseq& object) {
    return static_cast<double>(object.tracks.size()) * track_row_height;
}

Rect track_row(const TrackDisplay& display, long index) {
    const TrackColumn& name = track_columns[TrackNameColumn];
    return {name.x, static_cast<double>(index) * track_row_height + track_header_height - display.scroll,
            name.width, track_row_height};
}

TrackRows visible_track_rows(const Prseq& object, const TrackDisplay& display) {
    const auto row_at = [&](double y) { return static_cast<long>(std::floor(y / track_row_height)); };
    const long last = row_at(display.scroll + std::max(0., display.visibleheight)) + 1;
    return {row_at(display.scroll), std::min(last, track_count(object))};
}

long TQ_Prseq_Trackdisplay_WhatTrack(const Prseq& object, double, double y) {
    const double down = (y - track_header_height + trackdisplay_of(object).scroll) / track_row_height;
    const double row = std::floor(down);
    return row >= 0 && row < down && row < static_cast<double>(object.tracks.size()) ? static_cast<long>(row)
                                                                                     : -1;
}

long TQ_Prseq_Trackdisplay_WhatColumn(const Prseq&, double x, double) {
    const auto under = [x](const TrackColumn& column) { return column.x < x && x < column.x + column.width; };
    const auto column = std::ranges::find_if(track_columns, under);
    return column == track_columns.end() ? -1 : column - track_columns.begin();
}

}  // namespace tq
