// Painting events.
#pragma once

#include "host/graphics.h"

namespace tq {

struct Prseq;

/// Every visible track's events, the active track's last, in each the unselected ones before the selected
/// ones. The view is the main display's. `all`: also those that others cover, which changes no pixel.
void TQ_Prseq_Tracks_DrawEventsOnAllTracks(const Prseq& object, Graphics& g, bool all = false);
/// While an event's curves are edited: everything else is darkened, and the event stands on top.
void draw_edited_event(const Prseq& object, Graphics& g);

}  // namespace tq
