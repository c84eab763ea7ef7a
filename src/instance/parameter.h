// Parameters: the numeric values that a track defines by name, and each event's value of each.
#pragma once

#include <optional>

#include "host/symbol.h"
#include "instance/counted.h"

namespace tq {

/// What a track says of a parameter.
struct ParameterType : Counted<ParameterType> {
    Symbol name;  ///< unique on the track
    double minimum = 0, maximum = 1, default_ = 0;
    long steps = 0;          ///< distinct values from minimum to maximum; 0 or 1: continuous
    std::optional<long> id;  ///< given by the track inspector
};
using ParameterTypeRef = Ref<ParameterType>;

/// What an event holds of a parameter.
struct ParameterValue {
    ParameterTypeRef type;  ///< of the event's track, or what it was when the event left
    double value = 0;
    Symbol name() const { return type->name; }
    friend bool operator==(const ParameterValue&, const ParameterValue&) = default;
};

}  // namespace tq
