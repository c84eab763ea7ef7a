// The zoom commands: each aims at a sector of the document, at once or on an animated way.
#pragma once

#include "host/geometry.h"

namespace tq {

struct Event;
struct Prseq;
struct Sector;

void prseq_zoom_in(Prseq& object);
void prseq_zoom_out(Prseq& object);
void prseq_zoom_to_selection(Prseq& object);
void prseq_zoom_out_all(Prseq& object);
/// All events of visible tracks, as large as they can be; without any, all of the timeline.
void zoom_to_song(Prseq& object);
/// Shows the selected events of all visible tracks with room around them: at least 2 s, and an octave.
void zoom_near_selection(Prseq& object);

/// To a sector of the document; the view is reported as it was before.
void zoom_to(Prseq& object, const Sector& target);
/// By factors, above 1 to zoom in, at once: what lies under a point of the box stays there as far as the
/// limits of zoom and scroll let it. A direction whose factor is 1 stays as it is.
void zoom_at(Prseq& object, Point box, double horizontal, double vertical);
/// Where the event's beginning or its pitch is out of view, the view scrolls until it is not; the zooms stay.
void scroll_to(Prseq& object, const Event& event);
/// Half, or twice, of what is visible, around a page x and a y from the display's top.
void TQ_Prseq_Zoom_ZoomInCentered(Prseq& object, double pagex, double localy);
void TQ_Prseq_Zoom_ZoomOutCentered(Prseq& object, double pagex, double localy);
/// Nothing without selected events on the active track.
void TQ_Prseq_Zoom_ZoomToSelectedEvents(Prseq& object);
/// Goes to the target sector: at once, or in 500 ms with "zoom_animation".
void TQ_Prseq_Zoom_DoZoom(Prseq& object);

void zoom_clock_start(Prseq& object, double duration);
/// A step of the animation.
void zoom_clock_run(Prseq& object);
void zoom_clock_stop(Prseq& object);

}  // namespace tq
