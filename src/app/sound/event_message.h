// The messages that the box sends for its events, read back into notes.
#pragma once

#include <optional>

#include "app/sound/played_note.h"
#include "host/atom.h"

namespace tq {

/// A list out of the event outlet, taken apart: "INDEX event …" or "INDEX stop".
struct OutletList {
    enum class Kind { Event, Stop };
    Kind kind;
    long track;
    AtomSpan arguments;  ///< of an event, from "duration" on
};
/// Nothing when the list is of another form.
std::optional<OutletList> parse_outlet_list(AtomSpan list);

/// The note in the arguments of an event message: "duration D <note> P V </note> … <bpf> Pitch … </bpf>". Its
/// time, voice and source are left to the caller. Nothing when the event has no note, or its numbers make no
/// sense. What stands in the message, parameters and names never counts as a note or a curve, whatever it
/// looks like.
std::optional<PlayedNote> parse_event_note(AtomSpan arguments);

/// What an event plays of a buffer: "… <buffer> NAME START END RATIO </buffer> …".
struct EventBuffer {
    double duration_ms = 0;  ///< of the event
    Symbol name;
    double start_ms = 0, end_ms = 0;
    double ratio = 1;
};
/// Nothing when the event has none, or its numbers make no sense. What looks like one in the event's message
/// does not count.
std::optional<EventBuffer> parse_event_buffer(AtomSpan arguments);

}  // namespace tq
