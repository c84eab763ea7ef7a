// The small box of text that follows the pointer while something is edited.
#pragma once

#include <string>

#include "host/geometry.h"

namespace tq {

class Graphics;
struct Prseq;

/// Shows lines of text (at most 4095 bytes) beside a point of the box, inside `constrain`; an empty text
/// hides it.
void TQ_Prseq_Tiptool_Set(Prseq& object, const std::string& text, double x, double y, const Rect& constrain);
Rect tiptool_place(const Prseq& object);
void TQ_Prseq_Tiptool_Draw(const Prseq& object, Graphics& g);

}  // namespace tq
