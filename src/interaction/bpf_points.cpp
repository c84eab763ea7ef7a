#include "interaction/bpf_points.h"

#include <fmt/printf.h>

#include <algorithm>

#include "instance/geometry.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "interaction/pointer.h"
#include "view/draw_bpf_editor.h"

namespace tq {

namespace {

Point in_maindisplay(const Prseq& object, Point at) {
    return {at.x - object.maindisplay.rect.x, at.y - object.maindisplay.rect.y};
}

}  // namespace

bool in_unity(double value) { return value >= 0 && value <= 1; }

BpfPoint TQ_Prseq_Events_ConvertPointToUnityPoint(const Prseq& object, const Event& event, Point at) {
    const Rect rect = TQ_Prseq_Events_Rect(object, event);
    const Point p = in_maindisplay(object, at);
    return {(p.x - rect.x) / rect.width,
            1 - (p.y + object.maindisplay.verticalscroll - rect.y) / rect.height};
}

PointRange bpf_points_between(const Prseq& object, const CurveOf& curve, double left, double right) {
    const EventView view(object, 1);
    const auto before = [&](const BpfPoint& point) {
        const Rect handle = bpf_point_handle(view, *curve.event, point);
        return handle.x + handle.width < left;
    };
    const auto not_behind = [&](const BpfPoint& point) {
        return bpf_point_handle(view, *curve.event, point).x <= right;
    };
    const BpfPoints& points = curve.bpf->points;
    const auto first = std::ranges::partition_point(points, before),
               last = std::partition_point(first, points.end(), not_behind);
    return {static_cast<size_t>(first - points.begin()), static_cast<size_t>(last - points.begin())};
}

long TQ_Prseq_Events_GetBpfPointInBpfUnderMouse(const Prseq& object, const CurveOf& curve, Point at) {
    const EventView view(object, 1);
    const Point p = in_maindisplay(object, at);
    const PointRange range = bpf_points_between(object, curve, p.x, p.x);
    for (size_t i = range.first; i < range.last; ++i)
        if (TQRectContainsPoint(bpf_point_handle(view, *curve.event, curve.bpf->points[i]), p.x, p.y))
            return static_cast<long>(i);
    return -1;
}

void TQ_Prseq_Events_MakeBpfTiptool(Prseq& object, const CurveOf& curve, BpfPoint at,
                                    const Pointer& pointer) {
    const BpfType& type = *curve.bpf->type;
    const Event& event = *curve.event;
    const double time = at.x * event.duration + (object.bpfediting.absolutetime ? event.start : 0);
    const bool pitch = type.name == tq_sym_Pitch;
    const double value = pitch ? event.pitch + at.y : type.minimum + at.y * (type.maximum - type.minimum);
    show_tiptool(object, pointer,
                 fmt::sprintf(pitch ? "%s Point \nPosition: %f ms \nPitch: %f"
                                    : "%s Point \nPosition: %f ms \nValue: %f",
                              type.name.text(), time, value));
}

}  // namespace tq
