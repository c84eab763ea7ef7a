// The lane under the main display that shows one value of every event.
#pragma once

#include <string>

#include "host/graphics.h"

namespace tq {

struct Prseq;

void draw_parameterdisplay_background(const Prseq& object, Graphics& g);
/// The bars of all visible tracks, the active one's in front, and what they show.
void draw_parameterdisplay(const Prseq& object, Graphics& g);
void TQ_Prseq_Tracks_DrawParameters(const Prseq& object, Graphics& g);
/// "NAME (MINIMUM-MAXIMUM)" of what the active track shows, or nothing when it has no such type.
std::string parameter_label(const Prseq& object);

}  // namespace tq
