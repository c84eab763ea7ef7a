// Painting the box.
#pragma once

#include "host/graphics.h"

namespace tq {

struct Prseq;

/// Paints the box into a view whose top left corner is the box's. Layers that are valid are only put in
/// place.
void prseq_paint(Prseq& object, Graphics& view);
void draw_display(Prseq& object, Graphics& view);

}  // namespace tq
