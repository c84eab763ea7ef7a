// Painting the box.
#pragma once

#include <vector>

#include "host/graphics.h"

namespace tq {

class BoxPicture;
struct Prseq;

/// Paints the box into a view whose top left corner is the box's. Layers whose contents still hold are only
/// put in place. Nothing of the box changes.
void prseq_paint(const Prseq& object, Graphics& view);
void draw_display(const Prseq& object, Graphics& view);
/// Brings a picture of the box, which becomes as large as the box, up to date: only where something has
/// changed is it painted. These places, in pixels of the box; they may overlap.
std::vector<Rect> prseq_paint(const Prseq& object, BoxPicture& picture, double ratio);

}  // namespace tq
