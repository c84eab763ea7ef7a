// Painting events.
#pragma once

#include "host/graphics.h"
#include "host/image.h"
#include "view/event_shapes.h"

namespace tq {

struct Prseq;

/// Every visible track's events, the active track's last. The view is the main display's.
void TQ_Prseq_Tracks_DrawEventsOnAllTracks(const Prseq& object, Graphics& g);
/// `all`: also those that draw again what is there, which changes no pixel.
void TQ_Prseq_Tracks_DrawEventsOnOneTrack(const Prseq& object, Graphics& g, long index, bool all = false);
/// While an event's curves are edited: everything else is darkened, and the event stands on top.
void draw_edited_event(const Prseq& object, Graphics& g);

}  // namespace tq
