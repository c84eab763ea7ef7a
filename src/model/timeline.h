// The length of the timeline.
#pragma once

namespace tq {

struct Event;
struct Prseq;

/// Makes a timeline that is shorter than `ms` longer: whole seconds, at least 1.5 s beyond `ms`. What follows
/// of that is left to the caller.
void extend_timeline(Prseq& object, double ms);
/// The same up to the ends of an event and of the last one on its track, for events that come, are moved or
/// made longer; the length is reported at the end of the edit.
void cover_event(Prseq& object, const Event& event);

}  // namespace tq
