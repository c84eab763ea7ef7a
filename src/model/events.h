// Making, copying, finding and changing events.
#pragma once

#include <optional>
#include <span>

#include "instance/track.h"

namespace tq {

struct Prseq;

/// A new event in no track, without curves and parameter values. Times in ms.
EventRef TQ_Prseq_Events_MakeEvent(Prseq& object, long start, double pitch, double velocity, long duration,
                                   Symbol label, Symbol message);
/// A copy in no track, with an identifier of its own, deep copies of what it carries, not selected.
EventRef TQ_Prseq_Events_DuplicateEvent(Prseq& object, const Event& event);

/// The event of the document with this identifier, or none.
Event* TQ_Prseq_Events_FindEventFromID(const Prseq& object, long id);

/// Start and duration in ms; the event's place in its track follows.
void TQ_Prseq_Events_SetEventStart(Event& event, double start);
/// Recomputes the buffer ratio as well.
void TQ_Prseq_Events_SetEventDuration(Event& event, double duration);
/// Both at once, without touching the buffer ratio.
void TQ_Prseq_Events_SetEventTimes(Event& event, double start, double duration);
/// The same for many events.
void TQ_Prseq_Events_SetEventsTimes(std::span<const EventTimes> times);

/// After a change of what is seen of an event other than by these calls: pitch, label, message, link, curves.
void TQ_Prseq_Events_LookAgain(const Event& event);

/// Sets the duration without recomputing the buffer ratio and keeps the curves' points in place while the
/// start moves earlier by `offset` ms.
void TQ_Prseq_Events_ResizeEvent(Event& event, double duration, double offset);
/// Writes what the dictionary holds. When it names a track, the event moves there.
void TQ_Prseq_Events_ModifyEventFromDictionary(Prseq& object, Event& event,
                                               const EventDictionary& dictionary);

/// Gives the event exactly the curves and values of a track, in its order, keeping its own of the same names.
void conform_event_to(const Track& track, Event& event);
/// Moves an event to another track of the document.
void move_event_to_track(Prseq& object, Event& event, Track& track);

/// The two parts of an event cut at a position in ms; neither is in a track.
struct Slices {
    EventRef left, right;
};
/// None when the position lies less than 10 ms after the event's start, or at or after its end.
std::optional<Slices> TQ_Prseq_Events_SliceEvent(Prseq& object, const Event& event, double position);
/// One event over the time of both, with the curves of both; everything else is the first one's.
EventRef TQ_Prseq_Events_GlueEvents(Prseq& object, const Event& first, const Event& second);

}  // namespace tq
