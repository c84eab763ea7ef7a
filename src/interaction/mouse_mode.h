// Choosing what the mouse does in the main display.
#pragma once

#include "host/symbol.h"

namespace tq {

struct Prseq;

/// Message "mouse_mode". The modes for curves open the curve editor on the selected event, or on the active
/// track's only one; all others but "zoom" close it. An unknown name is an error.
void prseq_mousemode(Prseq& object, Symbol name);

}  // namespace tq
