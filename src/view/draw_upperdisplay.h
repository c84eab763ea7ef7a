// The strip along the top of the box: menu titles, the focus and dirty hints, the icons of the mouse modes.
#pragma once

#include "host/geometry.h"

namespace tq {

class Graphics;
struct Prseq;

Rect upperdisplay_place(const Prseq& object);
/// Where the hints are, in the upper display.
Rect hint_place(const Prseq& object);
void draw_upperdisplay(const Prseq& object, Graphics& g);

}  // namespace tq
