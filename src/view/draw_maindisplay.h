// The main display's layer.
#pragma once

#include "host/graphics.h"
#include "host/layers.h"

namespace tq {

struct Prseq;

/// Note lanes and the time grid.
void TQ_Prseq_Maindisplay_Draw(const Prseq& object, Graphics& g);
/// The whole layer: lanes, grid, events, and the event whose curves are edited.
/// What of the page it shows.
LayerView maindisplay_view(const Prseq& object, double ratio);
void draw_maindisplay(const Prseq& object, Graphics& g);

}  // namespace tq
