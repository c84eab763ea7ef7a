// The loop in the ruler.
#pragma once

#include <optional>

#include "host/graphics.h"

namespace tq {

struct Prseq;

/// The loop's bar, relative to the time display; its width is below 0 when the loop's start lies after its
/// end.
Rect loop_bar(const Prseq& object);
void draw_loop_bar(const Prseq& object, Graphics& g);

/// What a press in the bar takes hold of.
enum class LoopGrip { Start, Middle, End };
/// None beside the bar. The point is relative to the time display.
std::optional<LoopGrip> loop_grip_at(const Prseq& object, Point at);

}  // namespace tq
