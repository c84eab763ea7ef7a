// Taking curve and parameter types off a track, and putting them back with all that events had of them.
#pragma once

#include <utility>
#include <vector>

#include "model/track.h"

namespace tq {

struct RemovedParameterType {
    ParameterTypeRef type;  ///< none: there was no such type
    long index = 0;
    std::vector<std::pair<EventRef, ParameterValue>> values;
};
RemovedParameterType remove_parameter_type(Track& track, long index);
/// At its index. Events that had no value get the default.
void put_back_parameter_type(Track& track, const RemovedParameterType& removed);

struct RemovedBpfType {
    BpfTypeRef type;  ///< none: there was no such type
    long index = 0;
    long activebpfindex = 0;  ///< of the track, before
    std::vector<std::pair<EventRef, BpfRef>> bpfs;
};
/// When the type, or one behind it, was the active one, the one before that becomes it.
RemovedBpfType remove_bpf_type(Track& track, long index);
void put_back_bpf_type(Track& track, const RemovedBpfType& removed);

/// A type's values, for changing it back and forth.
struct BpfTypeValues {
    Symbol name;
    double minimum = 0, maximum = 1, default_ = 0;
};

}  // namespace tq
