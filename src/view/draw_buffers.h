// Painting the buffers that events are linked to.
#pragma once

#include "host/graphics.h"
#include "host/image.h"
#include "host/sound.h"
#include "view/event_shapes.h"

namespace tq {

struct Prseq;

/// The waveform of the event's buffer as far as the event plays it, with what else there is of it hinted at.
void TQ_Prseq_Buffer_DrawBuffer(const Prseq& object, Graphics& g, const EventView& view,
                                const EventShape& shape, bool active_track);
/// The waveform of a whole sound, 4000 by 512 pixels, a lane a channel; none of a sound without frames.
SurfaceRef TQ_Prseq_Buffer_MakeSurfaceFromBuffer(const Sound& sound);

}  // namespace tq
