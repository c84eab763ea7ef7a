// Going to an event, wherever it is.
#pragma once

namespace tq {

struct Event;
struct Prseq;

/// Makes the event's track the active one, selects it alone, which is reported, and scrolls to it where its
/// beginning or its pitch is out of view. The zooms stay as they are.
void go_to_event(Prseq& object, Event& event);

}  // namespace tq
