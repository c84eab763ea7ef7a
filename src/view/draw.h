// Painting the box.
#pragma once

#include "host/graphics.h"

namespace tq {

struct Prseq;

/// Paints the box into a view whose top left corner is the box's. Layers whose contents still hold are only
/// put in place. Nothing of the box changes.
void prseq_paint(const Prseq& object, Graphics& view);
void draw_display(const Prseq& object, Graphics& view);

}  // namespace tq
