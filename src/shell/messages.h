// The messages that the inlet takes.
#pragma once

#include "host/class.h"

namespace tq {

struct Prseq;

/// Registers every message, in order.
void add_messages(Class& c);

void prseq_getdirty_out(Prseq& object);

}  // namespace tq
