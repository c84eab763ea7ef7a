// What the column of keys looks like.
#pragma once

#include <optional>

#include "host/graphics.h"

namespace tq {

struct Prseq;

void TQ_Prseq_Keydisplay_Draw(const Prseq& object, Graphics& g);
/// The pitch whose key is lit: that under the pointer, while it is in the main display.
std::optional<long> lit_pitch(const Prseq& object);

}  // namespace tq
