// Presses and drags in the main display.
#pragma once

namespace tq {

struct Prseq;

/// Takes the place of a press; x and y are of the box.
void TQ_Prseq_Maindisplay_Click(Prseq& object, double x, double y);
/// In the select and zoom modes: the marquee spans from the press, which stays at its place of the page, to
/// where the pointer is.
void TQ_Prseq_Maindisplay_SetMarqueeRect(Prseq& object);

}  // namespace tq
