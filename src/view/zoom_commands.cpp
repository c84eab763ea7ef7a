#include "view/zoom_commands.h"

#include <algorithm>
#include <cmath>

#include "instance/prseq.h"
#include "model/selected_events.h"
#include "model/selection.h"
#include "view/keydisplay.h"
#include "view/maindisplay.h"
#include "view/reports.h"
#include "view/sector.h"
#include "view/zoom.h"

namespace tq {

namespace {

constexpr double animation_duration = 500, tick_interval = 20;  // ms

Sector visible_sector(const Prseq& object) {
    return TQ_Prseq_Zoom_CalculateSectorForGivenZoomAndScroll(object,
                                                              TQ_Prseq_Zoom_GetZoomScrollObjectNow(object));
}

ZoomScroll view_of(const Prseq& object, const Sector& sector) {
    return TQ_Prseq_Zoom_CalculateZoomAndScrollValuesForGivenSector(object, sector);
}

void zoom_by(Prseq& object, double factor, double pagex, double localy) {
    const double time = TQ_Prseq_Maindisplay_CalculatePositionFromMouse(object, object.maindisplay, pagex);
    const double pitch = TQ_Prseq_Maindisplay_CalculatePitchFromMouse(object.maindisplay, localy);
    const Sector now = visible_sector(object);
    const double duration = now.duration * factor, span = now.span * factor;
    zoom_to(
        object,
        {.start = time - duration / 2, .toppitch = pitch + span / 2 - 1, .duration = duration, .span = span});
}

/// The centre of what is visible: a page x and a y from the display's top.
Point center(const Prseq& object) {
    return {object.maindisplay.rect.width / 2 + object.maindisplay.horizontalscroll,
            TQ_Prseq_Keydisplay_GetSelectionPageSize(object.keydisplay) / 2};
}

void show_sector(Prseq& object, const Sector& sector) {
    TQ_Prseq_Zoom_ZoomToGivenZoomAndScroll(object, view_of(object, sector));
}

/// 0 to 1 of the way from the main display's left, or top, edge.
double part_of(double place, double edge, double length) {
    return std::clamp((place - edge) / length, 0., 1.);
}

// Each zooms first, and scrolls by what is visible then, which the limits may have held.

void zoom_horizontally(Prseq& object, double part, double factor) {
    Sector sector = visible_sector(object);
    const double ms = sector.start + part * sector.duration;
    sector.duration /= factor;
    prseq_horzoom(object, view_of(object, sector).horizontalzoom);
    sector = visible_sector(object);
    sector.start = ms - part * sector.duration;
    prseq_horscroll(object, view_of(object, sector).horizontalscroll);
}

void zoom_vertically(Prseq& object, double part, double factor) {
    Sector sector = visible_sector(object);
    const double pitch = sector.toppitch - part * sector.span;
    sector.span /= factor;
    prseq_vertzoom(object, view_of(object, sector).verticalzoom);
    sector = visible_sector(object);
    sector.toppitch = pitch + part * sector.span;
    prseq_vertscroll(object, view_of(object, sector).verticalscroll);
}

}  // namespace

void zoom_at(Prseq& object, Point box, double horizontal, double vertical) {
    const Rect& display = object.maindisplay.rect;
    if (!(display.width > 0 && display.height > 0) || (horizontal == 1 && vertical == 1)) return;
    if (object.modaldialog) return;  // a question keeps the mouse for itself
    zoom_clock_stop(object);
    const double x = part_of(box.x, display.x, display.width), y = part_of(box.y, display.y, display.height);
    if (horizontal != 1) zoom_horizontally(object, x, horizontal);
    if (vertical != 1) zoom_vertically(object, y, vertical);
    TQ_Prseq_Output_ZoomScrollNow(object);
}

void scroll_to(Prseq& object, const Event& event) {
    constexpr double margin = 0.25;  // of the view, left of what was out of it
    zoom_clock_stop(object);
    Sector sector = visible_sector(object);
    const double pages = (event.start - sector.start) / sector.duration,
                 rows = sector.toppitch + 1 - event.pitch;  // to its lower edge
    if (pages < 0 || pages >= 1) {
        sector.start = event.start - sector.duration * margin;
        prseq_horscroll(object, view_of(object, sector).horizontalscroll);
    }
    if (rows < 1 || rows > sector.span) {
        sector.toppitch = event.pitch + sector.span / 2;
        prseq_vertscroll(object, view_of(object, sector).verticalscroll);
    }
    TQ_Prseq_Output_ZoomScrollNow(object);
}

void zoom_to(Prseq& object, const Sector& target) {
    object.zoomanimation.start = visible_sector(object);
    object.zoomanimation.target = target;
    TQ_Prseq_Zoom_DoZoom(object);
    TQ_Prseq_Output_ZoomScrollNow(object);
}

void prseq_zoom_in(Prseq& object) {
    const Point point = center(object);
    TQ_Prseq_Zoom_ZoomInCentered(object, point.x, point.y);
}

void prseq_zoom_out(Prseq& object) {
    const Point point = center(object);
    TQ_Prseq_Zoom_ZoomOutCentered(object, point.x, point.y);
}

void prseq_zoom_to_selection(Prseq& object) { TQ_Prseq_Zoom_ZoomToSelectedEvents(object); }

void prseq_zoom_out_all(Prseq& object) {
    zoom_to(object, {0, Prseq::maximumpitch, object.timelinelength, pitch_rows});
}

namespace {

/// Some rows around what is between two pitches, and not fewer of them in all than that.
Sector sector_around(const TimeSpan& span, double lowest, double highest, double fewest_rows) {
    constexpr double rows_around = 2;
    const double more = std::max(fewest_rows - (highest - lowest), 2 * rows_around) / 2;
    return TQ_Prseq_Zoom_MakeSector(span.start, span.end, std::min(highest + more, Prseq::maximumpitch),
                                    std::max(lowest - more, 0.));
}

}  // namespace

void zoom_near_selection(Prseq& object) {
    constexpr double fewest_rows = 12, fewest_ms = 2000, part_around = 0.05;
    const std::vector<EventRef> events = all_selected_events(object);
    if (events.empty()) return;
    const auto [lowest, highest] = std::ranges::minmax_element(events, {}, &Event::pitch);
    TimeSpan span = time_span(events);
    const double length = span.end - span.start,
                 more = std::max((fewest_ms - length) / 2, length * part_around);
    span.start = std::max(span.start - more, 0.);
    span.end = std::min(span.end + more, object.timelinelength);
    zoom_to(object, sector_around(span, (*lowest)->pitch, (*highest)->pitch, fewest_rows));
}

void zoom_to_song(Prseq& object) {
    constexpr double fewest_rows = 36;  // what is less would be too high to be read
    double end = 0, lowest = Prseq::maximumpitch, highest = 0;
    for (const TrackRef& track : object.tracks) {
        if (!track->visible || track->events.empty()) continue;
        end = std::max(end, track->events.latest_end());
        track->events.for_each([&](const Event& event) {
            lowest = std::min(lowest, event.pitch);
            highest = std::max(highest, event.pitch);
        });
    }
    if (end <= 0) return prseq_zoom_out_all(object);
    zoom_to(object, sector_around({.start = 0, .end = end}, lowest, highest, fewest_rows));
}

void TQ_Prseq_Zoom_ZoomInCentered(Prseq& object, double pagex, double localy) {
    zoom_by(object, 0.5, pagex, localy);
}
void TQ_Prseq_Zoom_ZoomOutCentered(Prseq& object, double pagex, double localy) {
    zoom_by(object, 2, pagex, localy);
}

void TQ_Prseq_Zoom_ZoomToSelectedEvents(Prseq& object) {
    if (!list_selected_events(object)) return;
    double end = 0;
    for (const EventRef& event : object.selection) end = std::max(end, event->end());
    zoom_to(object, TQ_Prseq_Zoom_MakeSector(object.selection.front()->start, end,
                                             TQ_Prseq_Tracks_GetMaximumPitchOfSelectedEvents(object),
                                             TQ_Prseq_Tracks_GetMinimumPitchOfSelectedEvents(object)));
}

void TQ_Prseq_Zoom_DoZoom(Prseq& object) {
    zoom_clock_stop(object);
    if (object.zoom_animation) {
        zoom_clock_start(object, animation_duration);
    } else {
        show_sector(object, object.zoomanimation.target);
    }
}

void zoom_clock_start(Prseq& object, double duration) {
    if (!(duration > 0)) return;
    object.zoomanimation.tick = 0;
    object.zoomanimation.ticks = std::max(1L, std::lround(duration / tick_interval));
    clock_fdelay(object.zoomclock, tick_interval);
}

void zoom_clock_run(Prseq& object) {
    ZoomAnimation& animation = object.zoomanimation;
    ++animation.tick;
    if (animation.tick < animation.ticks) clock_fdelay(object.zoomclock, tick_interval);
    const double position = static_cast<double>(animation.tick) / static_cast<double>(animation.ticks);
    show_sector(object, sector_between(animation.start, animation.target, position));
}

void zoom_clock_stop(Prseq& object) { clock_unset(object.zoomclock); }

}  // namespace tq
