// What the mouse does in the track list.
#pragma once

#include "instance/gesture.h"

namespace tq {

/// A name makes its track the active one, an eye shows or hides it, a speaker mutes it or not; the
/// scrollbar's knob is dragged until the release, with shift held a hundredth of the way.
void press_trackdisplay(Prseq& object, const Pointer& press);
/// Beside the rows: adds a track.
void doubleclick_trackdisplay(Prseq& object, const Pointer& at);

}  // namespace tq
