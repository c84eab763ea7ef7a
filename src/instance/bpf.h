// Break-point functions: the types that a track defines, and the polyline that each event has of each type.
#pragma once

#include <boost/container/small_vector.hpp>
#include <vector>

#include "host/symbol.h"
#include "instance/counted.h"

namespace tq {

/// What a kind of curve is called, and what its unity values stand for.
struct BpfTypeValues {
    Symbol name;
    double minimum = 0;   ///< real value of a curve's 0
    double maximum = 1;   ///< real value of a curve's 1
    double default_ = 0;  ///< real value that new curves have
    friend bool operator==(const BpfTypeValues&, const BpfTypeValues&) = default;
};

/// A kind of curve on a track. "Pitch" is on every track; its curves hold semitones, all others unity values.
struct BpfType : Counted<BpfType>, BpfTypeValues {};
using BpfTypeRef = Ref<BpfType>;

/// A point is a plain value: what edits it keeps the points before and after.
struct BpfPoint {
    double x = 0;  ///< time, 0 to 1 of the event's duration
    double y = 0;  ///< "Pitch": semitones above the event's pitch; other types: 0 to 1 of minimum to maximum
    friend bool operator==(const BpfPoint&, const BpfPoint&) = default;
};

/// Room for a straight line, which most curves are, without a second allocation.
using BpfPoints = boost::container::small_vector<BpfPoint, 2>;

/// One event's curve of one type: points ascending by x, the first at 0 and the last at 1.
struct Bpf : Counted<Bpf> {
    explicit Bpf(BpfTypeRef bpftype) : type(std::move(bpftype)) {}
    BpfTypeRef type;  ///< of the event's track, or what it was when the event left
    BpfPoints points;
    Symbol name() const { return type->name; }
};
using BpfRef = Ref<Bpf>;

/// A curve's values by name, as messages, the history and documents pass them.
struct BpfDictionary {
    Symbol name;
    BpfPoints points;
    friend bool operator==(const BpfDictionary&, const BpfDictionary&) = default;
};

}  // namespace tq
