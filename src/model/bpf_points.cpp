// The points of curves.
#include <fmt/printf.h>

#include <algorithm>

#include "instance/geometry.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "model/bpfs.h"

namespace tq {

namespace {

/// Puts the (time, value) pairs that follow a curve's name into the curve.
void set_points_from_numbers(const Prseq& object, const Event& event, Bpf& bpf, AtomSpan numbers) {
    BpfPoints points = flat_points(0);
    for (size_t i = 0; i + 1 < numbers.size(); i += 2) {
        double time = numbers[i].as_double(), value = numbers[i + 1].as_double();
        if (time > event.duration) {
            object_error(object, fmt::sprintf("Point Time Value (%f) exceeds the events duration (%f)", time,
                                              event.duration));
            continue;
        }
        double x = event.duration > 0 ? std::clamp(time / event.duration, 0.0, 1.0) : 0;
        points.push_back({x, bpf_unity_value(bpf, value)});
    }
    merge_bpf_points(points);
    bpf.points = std::move(points);
}

}  // namespace

BpfPoints flat_points(double y) {
    BpfPoints points;
    points.push_back({0, y});
    points.push_back({1, y});
    return points;
}

double bpf_unity_value(const Bpf& bpf, double value) {
    const BpfType& type = *bpf.type;
    if (type.name == tq_sym_Pitch) return value;
    if (type.minimum == type.maximum) return 0;
    return std::clamp(scale(value, type.minimum, type.maximum, 0, 1), 0.0, 1.0);
}

void merge_bpf_points(BpfPoints& points) {
    sort_bpf_points(points);
    size_t kept = 0;
    for (size_t i = 0; i < points.size(); ++i) {
        if (i > 0 && points[i].x != points[i - 1].x) ++kept;
        points[kept] = points[i];
    }
    if (!points.empty()) points.resize(kept + 1);
}

void sort_bpf_points(BpfPoints& points) {
    std::stable_sort(points.begin(), points.end(),
                     [](const BpfPoint& a, const BpfPoint& b) { return a.x < b.x; });
}

long TQ_Prseq_Events_AddBpfPoint(Bpf& bpf, BpfPoint point) {
    auto behind =
        std::find_if(bpf.points.begin(), bpf.points.end(), [&](const BpfPoint& p) { return p.x >= point.x; });
    if (behind == bpf.points.end()) return -1;
    auto inserted = bpf.points.insert(behind, point);  // may move all points
    return inserted - bpf.points.begin();
}

void TQ_Prseq_Events_SetBpfPointsFromAtomArray(const Prseq& object, Event& event, AtomSpan atoms) {
    auto is_name = [](const Atom& atom) { return atom.is_symbol(); };
    auto name = std::find_if(atoms.begin(), atoms.end(), is_name);
    while (name != atoms.end()) {
        auto numbers = name + 1;
        auto next = std::find_if(numbers, atoms.end(), is_name);
        if (Bpf* bpf = TQ_Prseq_Events_GetBpfWithGivenName(event, name->as_symbol()))
            set_points_from_numbers(object, event, *bpf, AtomSpan(numbers, next));
        else
            object_error(object, fmt::sprintf("Event with id %ld has no Bpf Type named %s", event.id,
                                              name->as_symbol().text()));
        name = next;
    }
}

void TQ_Prseq_Events_SetBpfFromDictionary(const BpfDictionary& dictionary, Bpf& bpf) {
    BpfPoints points = flat_points(0);
    for (const BpfPoint& point : dictionary.points)
        if (point.x <= 1) points.push_back(point);
    merge_bpf_points(points);
    bpf.points = std::move(points);
}

}  // namespace tq
