// What is painted under and over the displays: the contents of each layer, and where it is in the box.
#pragma once

#include <string>

#include "host/geometry.h"
#include "host/graphics.h"

namespace tq {

struct Prseq;

void draw_background(const Prseq& object, Graphics& g);
/// Which curve type is active on the active track, in a corner of the main display.
void TQ_Prseq_Tracks_DrawBpfLabel(const Prseq& object, Graphics& g);
/// Where it is written in the main display.
Rect bpf_label_place(const Prseq& object);
/// Whether the cursor's x is inside the main display.
bool linecursor_in_view(const Prseq& object);
Rect linecursor_place(const Prseq& object);
void draw_linecursor(const Prseq& object, Graphics& g);
Rect marquee_place(const Prseq& object);
void draw_marquee(const Prseq& object, Graphics& g);
/// What asks for an event to be chosen for curve editing.
void draw_bpf_hint(const Prseq& object, Graphics& g);
/// A hint in the middle of the main display.
void draw_centered_text(const Prseq& object, Graphics& g, const std::string& text);
void draw_border(const Prseq& object, Graphics& g);
/// "Bpf: Pitch", "Bpf: NAME (MINIMUM-MAXIMUM)", or nothing without an active type.
std::string bpf_label(const Prseq& object);

}  // namespace tq
