// What a press does in the select mode.
#pragma once

#include "instance/gesture.h"

namespace tq {

/// On an event: selects it, or with shift toggles it; its edges resize the selection, its middle moves it,
/// with option copies of it. Beside the events: selects none, unless with shift, and begins a marquee.
void press_in_select_mode(Prseq& object, const Pointer& press);
/// The cursor shows what of an event a press would take hold of.
void hover_in_select_mode(Prseq& object, const Pointer& at);

}  // namespace tq
