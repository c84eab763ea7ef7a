// Where the points of the edited curve are under the pointer.
#pragma once

#include <string>

#include "instance/bpf_editing.h"
#include "instance/event.h"
#include "instance/gesture.h"

namespace tq {

struct Prseq;

/// A point of the box in an event's rectangle: x from 0 to 1 of its width, y from 0 at its bottom to 1 at its
/// top.
BpfPoint TQ_Prseq_Events_ConvertPointToUnityPoint(const Prseq& object, const Event& event, Point at);
bool in_unity(double value);

/// The first point of the curve whose handle is at a point of the box, edges included; or −1.
long TQ_Prseq_Events_GetBpfPointInBpfUnderMouse(const Prseq& object, const CurveOf& curve, Point at);

/// Indices of points: those from the first to before the last.
struct PointRange {
    size_t first = 0, last = 0;
};
/// The points whose handles overlap a stretch of the main display's width, wherever they are vertically.
PointRange bpf_points_between(const Prseq& object, const CurveOf& curve, double left, double right);

/// Tells about a place of the curve beside the pointer.
void TQ_Prseq_Events_MakeBpfTiptool(Prseq& object, const CurveOf& curve, BpfPoint at, const Pointer& pointer);

}  // namespace tq
