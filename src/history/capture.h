// Gathering "event" messages into undo items.
#pragma once

#include "instance/capture_record.h"

namespace tq {

struct Prseq;

/// Every "event" message begins here: the first of a burst starts the capture clock.
void open_event_capture(Prseq& object);
/// Before an event is inserted or modified: a burst of the other kind is closed, while the document is still
/// what it left.
void expect_insertion(Prseq& object);
void expect_modification(Prseq& object);
void capture_inserted_event(Prseq& object, EventRef event);
void capture_modified_event(Prseq& object, EventModification modification);
/// Records what was gathered. Done by the clock, and before anything else is recorded or undone.
void close_event_capture(Prseq& object);

}  // namespace tq
