// The messages that the inlet takes.
#pragma once

#include "host/class.h"

namespace tq {

struct Prseq;

/// Registers every message, in order.
void add_messages(Class& c);

/// Message "track_active": makes a track active; nothing happens when it is already, or is none.
void prseq_activetrack(Prseq& object, long index);
/// False when there is no such track. Deselects the old active track's events and reports the new one.
bool prseq_do_set_activetrack(Prseq& object, long index);
void prseq_getdirty_out(Prseq& object);

}  // namespace tq
