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

void zoom_by(Prseq& object, double factor, double pagex, double localy) {
    const double time = TQ_Prseq_Maindisplay_CalculatePositionFromMouse(object, object.maindisplay, pagex);
    const double pitch = TQ_Prseq_Maindisplay_CalculatePitchFromMouse(object.maindisplay, localy);
    const Sector now = TQ_Prseq_Zoom_CalculateSectorForGivenZoomAndScroll(
        object, TQ_Prseq_Zoom_GetZoomScrollObjectNow(object));
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
    TQ_Prseq_Zoom_ZoomToGivenZoomAndScroll(
        object, TQ_Prseq_Zoom_CalculateZoomAndScrollValuesForGivenSector(object, sector));
}

}  // namespace

void zoom_to(Prseq& object, const Sector& target) {
    object.zoomanimation.start = TQ_Prseq_Zoom_CalculateSectorForGivenZoomAndScroll(
        object, TQ_Prseq_Zoom_GetZoomScrollObjectNow(object));
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
