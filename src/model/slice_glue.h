// Gluing more than two events at once.
#pragma once

#include <span>

#include "instance/event.h"

namespace tq {

struct Prseq;

/// TQ_Prseq_Events_GlueEvents() of one or more events, in the order of their starts.
EventRef glue_events(Prseq& object, std::span<const Event* const> events);

}  // namespace tq
