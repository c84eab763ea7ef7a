#include "model/removed_types.h"

#include <algorithm>

#include "model/bpfs.h"
#include "model/events.h"
#include "model/parameters.h"

namespace tq {

namespace {

void set_active_type(Track& track, long index) {
    track.activebpfindex = std::max(index, 0L);
    if (const BpfType* type = TQ_Prseq_Tracks_GetBpfTypeWithGivenIndex(track, track.activebpfindex))
        TQ_Prseq_Tracks_SetActiveBpfToAllEventsOnTrack(track, *type);
}

template <typename List, typename Value>
void insert_at(List& list, long index, Value value) {
    list.insert(list.begin() + std::min(index, static_cast<long>(list.size())), std::move(value));
}

template <typename TypeRef>
long place_in(const std::vector<TypeRef>& types, const TypeRef& type) {
    auto at = std::ranges::find(types, type);
    return at == types.end() ? -1 : static_cast<long>(at - types.begin());
}

}  // namespace

long place_of(const Track& track, const RemovedParameterType& removed) {
    return place_in(track.parametertypes, removed.type);
}

long place_of(const Track& track, const RemovedBpfType& removed) {
    return place_in(track.bpftypes, removed.type);
}

RemovedParameterType remove_parameter_type(Track& track, long index) {
    RemovedParameterType removed{TQ_Prseq_Parameters_GetDictionaryAtIndex(track, index), index, {}};
    if (!removed.type) return removed;
    track.events.for_each([&](Event& event) {
        auto value = std::ranges::find(event.parametervalues, removed.type, &ParameterValue::type);
        if (value == event.parametervalues.end()) return;
        removed.values.emplace_back(&event, value->value);
        event.parametervalues.erase(value);
    });
    track.parametertypes.erase(track.parametertypes.begin() + index);
    return removed;
}

void put_back_parameter_type(Track& track, const RemovedParameterType& removed) {
    if (!removed.type || TQ_Prseq_Parameters_GetDictionaryFromName(track, removed.type->name)) return;
    insert_at(track.parametertypes, removed.index, removed.type);
    for (const auto& [event, value] : removed.values)
        if (event->track == &track)
            insert_at(event->parametervalues, removed.index, ParameterValue{removed.type, value});
    track.events.for_each([&](Event& event) { conform_event_to(track, event); });
}

RemovedBpfType remove_bpf_type(Track& track, long index) {
    RemovedBpfType removed{
        TQ_Prseq_Tracks_GetBpfTypeWithGivenIndex(track, index), index, track.activebpfindex, {}};
    if (!removed.type) return removed;
    track.events.for_each([&](Event& event) {
        auto bpf = std::ranges::find(event.bpfs, removed.type, [](const BpfRef& b) { return b->type; });
        if (bpf == event.bpfs.end()) return;
        removed.bpfs.emplace_back(&event, *bpf);
        TQ_Prseq_Events_DeleteBpfReferenceFromEvent(event, **bpf);
    });
    track.bpftypes.erase(track.bpftypes.begin() + index);
    if (TQ_Prseq_Tracks_GetBpfTypeWithGivenName(track, removed.type->name))  // a second one of its name
        track.events.for_each([&](Event& event) { conform_event_to(track, event); });
    if (track.activebpfindex >= index) set_active_type(track, track.activebpfindex - 1);
    track.events.renew_all();
    return removed;
}

void put_back_bpf_type(Track& track, const RemovedBpfType& removed) {
    if (!removed.type) return;
    removed.type->name = free_bpf_type_name(track, *removed.type, removed.type->name);
    insert_at(track.bpftypes, removed.index, removed.type);
    for (const auto& [event, bpf] : removed.bpfs) {
        bpf->type = removed.type;
        if (event->track == &track && !TQ_Prseq_Events_GetBpfWithGivenName(*event, bpf->name()))
            insert_at(event->bpfs, removed.index, bpf);
    }
    track.events.for_each([&](Event& event) { conform_event_to(track, event); });
    set_active_type(track, removed.activebpfindex);
    track.events.renew_all();
}

}  // namespace tq
