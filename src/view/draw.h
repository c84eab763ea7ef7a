// Painting the box.
#pragma once

#include "host/graphics.h"

namespace tq {

struct Prseq;

/// Paints the box into a view whose top left corner is the box's. Layers that are valid are only put in
/// place.
void prseq_paint(Prseq& object, Graphics& view);
void draw_display(Prseq& object, Graphics& view);
/// What a paint changes of the box, without the painting: zoom and scroll are brought into step, and the view
/// follows the line cursor.
void update_view_as_painted(Prseq& object);

}  // namespace tq
