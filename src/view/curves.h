// An event's curves as lines.
#pragma once

#include <vector>

#include "view/eventview.h"

namespace tq {

struct Bpf;
struct Event;

/// Pixels: a straight curve of a narrower event is not drawn.
inline constexpr double curve_detail_width = 4;

/// The curve's points in view and those just outside, in order. Points that fall into one column of pixels of
/// the screen are stood in for by the first, the lowest, the highest and the last of them.
std::vector<Point> build_curve(const EventView& view, const Event& event, const Bpf& bpf);

}  // namespace tq
