// The rectangle that is dragged open in the main display.
#pragma once

#include "instance/gesture.h"

namespace tq {

struct Prseq;

/// Opens it from where the press was in the document to where the pointer is.
void TQ_Prseq_Maindisplay_SetMarqueeRect(Prseq& object, const Pointer& press, const Pointer& to);
void close_marquee(Prseq& object);

}  // namespace tq
