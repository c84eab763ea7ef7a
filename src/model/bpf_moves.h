// How far the points of a curve can be dragged: they stay in order, between the first and the last one, and
// in the range of their type.
#pragma once

#include <span>

#include "host/geometry.h"
#include "instance/bpf.h"

namespace tq {

/// From the smallest to the largest x and y of some points; all 0 without points.
Rect TQ_Prseq_Events_CalculateBoundingRectOfSelectedPoints(const BpfPoints& points,
                                                           std::span<const size_t> selected);

/// What a drag of points is held to.
struct BpfLimits {
    bool pitch = false;  ///< of a "Pitch" curve, whose values have no limits
    bool whole = false;  ///< of a "Pitch" curve: one point takes whole semitones, several keep their values
    double gap = 0;      ///< what several points keep from those that stay, in unity x
};

/// Where one point comes to that is dragged to a place alone.
BpfPoint dragged_bpf_point(const BpfPoints& points, size_t index, BpfPoint to, const BpfLimits& limits);
/// The curve after several points have been dragged by a distance. Where there is no room beside those that
/// stay, they move up and down only, and so they do when the first or the last point of the curve is among
/// them.
BpfPoints dragged_bpf_points(const BpfPoints& points, std::span<const size_t> selected, BpfPoint by,
                             const BpfLimits& limits);

}  // namespace tq
