// Undoable edits of events that the mouse, keys and menus ask for.
#pragma once

#include <optional>

#include "model/events.h"

namespace tq {

struct Prseq;

/// Takes the active track's selected events out of the document.
void prseq_deleteselectedevents(Prseq& object);
/// Takes events of any tracks out of the document.
void delete_events(Prseq& object, const std::vector<EventRef>& events);
/// Makes an event of the default duration and velocity 80 on the active track, which is made when there is
/// none. `start` in ms.
EventRef insert_event(Prseq& object, double start, double pitch);
/// Cuts an event of the document in two at a position in ms; none, and nothing happens, where that is too
/// near its ends.
std::optional<Slices> slice_event(Prseq& object, const EventRef& event, double position);
/// Makes one event of this one and the next of the same pitch on its track; none, and nothing happens, when
/// there is none.
EventRef glue_event_to_next(Prseq& object, const EventRef& event);

}  // namespace tq
