// Taking curve and parameter types off a track, and putting them back with all that events had of them.
#pragma once

#include <utility>
#include <vector>

#include "instance/track.h"

namespace tq {

struct RemovedParameterType {
    ParameterTypeRef type;  ///< none: there was no such type
    long index = 0;
    std::vector<std::pair<EventRef, double>> values;
};
RemovedParameterType remove_parameter_type(Track& track, long index);
/// At its index. Events that had no value get the default.
void put_back_parameter_type(Track& track, const RemovedParameterType& removed);
/// Where the type is on the track now; −1 when it is not.
long place_of(const Track& track, const RemovedParameterType& removed);

struct RemovedBpfType {
    BpfTypeRef type;  ///< none: there was no such type
    long index = 0;
    long activebpfindex = 0;  ///< of the track, before
    std::vector<std::pair<EventRef, BpfRef>> bpfs;
};
/// When the type, or one behind it, was the active one, the one before that becomes it.
RemovedBpfType remove_bpf_type(Track& track, long index);
/// At its index. When another type has got its name meanwhile, a "Bis" is appended.
void put_back_bpf_type(Track& track, const RemovedBpfType& removed);
long place_of(const Track& track, const RemovedBpfType& removed);

}  // namespace tq
