// The "event" message: makes an event, or changes one, from a list of keywords.
#pragma once

#include "host/atom.h"

namespace tq {

struct Prseq;

void prseq_event(Prseq& object, Symbol message, AtomSpan atoms);

}  // namespace tq
