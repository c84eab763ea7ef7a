// Painting the curves of events.
#pragma once

#include "host/graphics.h"
#include "view/event_shapes.h"
#include "view/event_style.h"

namespace tq {

struct Prseq;

/// All curves of an event, or the active one alone, which comes last.
void TQ_Prseq_Events_DrawBpfsOnOneTrack(const Prseq& object, Graphics& g, const EventView& view,
                                        const EventShape& shape, const EventStyle& style);

}  // namespace tq
