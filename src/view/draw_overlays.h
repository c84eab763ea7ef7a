// What is painted under and over the displays.
#pragma once

#include <string>

#include "host/graphics.h"

namespace tq {

struct Prseq;

void draw_background(Prseq& object, Graphics& view);
/// Which curve type is active on the active track.
void TQ_Prseq_Tracks_DrawBpfLabel(Prseq& object, Graphics& view);
/// Nothing while the cursor's x is outside the main display.
void draw_linecursor(Prseq& object, Graphics& view);
void draw_marquee(Prseq& object, Graphics& view);
/// A hint in the middle of the main display.
void draw_centered_text(Prseq& object, Graphics& view, const std::string& text);
void draw_border(Prseq& object, Graphics& view);

/// "Bpf: Pitch", "Bpf: NAME (MINIMUM-MAXIMUM)", or nothing without an active type.
std::string bpf_label(const Prseq& object);

}  // namespace tq
