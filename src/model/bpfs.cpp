#include "model/bpfs.h"

#include <algorithm>

#include "instance/geometry.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "instance/utilities.h"
#include "model/tracks.h"

namespace tq {

namespace {

Symbol with_bis(Symbol name) { return gensym(cut_text(name.text() + "Bis", 255)); }

/// Nobody could find the curves of a type without a name.
Symbol named(Symbol name) { return name.empty() ? tq_sym_Bpftype : name; }

bool has_other_type_named(const Track& track, const BpfType* type, Symbol name) {
    return std::ranges::any_of(
        track.bpftypes, [&](const BpfTypeRef& other) { return other.get() != type && other->name == name; });
}

/// What is wanted, or else with "Bis" and perhaps a number behind it.
Symbol free_name(const Track& track, const BpfType* type, Symbol wanted) {
    wanted = named(wanted);
    Symbol name = wanted;
    for (long n = 1; has_other_type_named(track, type, name); ++n)
        name = gensym(cut_text(wanted.text(), 240) + "Bis" + (n == 1 ? "" : std::to_string(n)));
    return name;
}

/// The type of these values that the track has, or else the name that a new one gets.
struct TypeSearch {
    BpfType* identical = nullptr;
    Symbol freename;
};
TypeSearch search_type(const Track& track, BpfTypeValues values) {
    values.name = named(values.name);
    if (values.name == tq_sym_Pitch) return {nullptr, values.name};
    for (const BpfTypeRef& type : track.bpftypes) {
        if (type->name != values.name) continue;
        if (*type == values) return {type.get(), values.name};
        values.name = with_bis(values.name);
    }
    return {nullptr, free_name(track, nullptr, values.name)};
}

}  // namespace

BpfType* TQ_Prseq_Tracks_AddBpfTypeToTrack(Prseq& object, long index, Symbol name, double minimum,
                                           double maximum, double default_) {
    Track* track = track_at(object, index);
    if (!track) return nullptr;
    TypeSearch search = search_type(*track, {name, minimum, maximum, default_});
    if (search.identical) return nullptr;
    BpfTypeRef type = make_ref<BpfType>();
    static_cast<BpfTypeValues&>(*type) = {search.freename, minimum, maximum, default_};
    track->bpftypes.push_back(type);
    TQ_Prseq_Tracks_AddBpfTypeToAllEventsOnTrack(*track, *type);
    return type.get();
}

Symbol free_bpf_type_name(const Track& track, const BpfType& type, Symbol wanted) {
    return free_name(track, &type, wanted);
}

BpfType* find_identical_bpf_type(const Track& track, const BpfTypeValues& values) {
    return search_type(track, values).identical;
}

void TQ_Prseq_Tracks_AddBpfTypeToAllEventsOnTrack(const Track& track, BpfType& type) {
    track.events.for_each([&](Event& event) {
        TQ_Prseq_Events_AddBpfToEvent(event, TQ_Prseq_Events_MakeBpfFromBpfType(type));
    });
    track.events.renew_all();
}

BpfType* TQ_Prseq_Tracks_GetBpfTypeWithGivenIndex(const Track& track, long index) {
    bool exists = index >= 0 && index < static_cast<long>(track.bpftypes.size());
    return exists ? track.bpftypes[static_cast<size_t>(index)].get() : nullptr;
}

BpfType* TQ_Prseq_Tracks_GetBpfTypeWithGivenName(const Track& track, Symbol name) {
    return TQ_Prseq_Tracks_GetBpfTypeWithGivenIndex(
        track, TQ_Prseq_Tracks_GetBpfTypeIndexWithGivenName(track, name));
}

long TQ_Prseq_Tracks_GetBpfTypeIndexWithGivenName(const Track& track, Symbol name) {
    for (size_t i = 0; i < track.bpftypes.size(); ++i)
        if (track.bpftypes[i]->name == name) return static_cast<long>(i);
    return -1;
}

void TQ_Prseq_Tracks_SetActiveBpfToAllEventsOnTrack(const Track& track, const BpfType& type) {
    track.events.for_each(
        [&](Event& event) { event.activebpf = TQ_Prseq_Events_GetBpfWithGivenName(event, type.name); });
}

void activate_bpf_type(Prseq& object, long index) {
    Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    const BpfType* type = track ? TQ_Prseq_Tracks_GetBpfTypeWithGivenIndex(*track, index) : nullptr;
    if (!type) return;
    track->activebpfindex = index;
    TQ_Prseq_Tracks_SetActiveBpfToAllEventsOnTrack(*track, *type);
    prseq_show(object, Change::Types);
}

double TQ_Prseq_Events_ConvertBpfTypeDefaultValueToUnity(const BpfType& type) {
    return type.minimum == type.maximum ? 0 : scale(type.default_, type.minimum, type.maximum, 0, 1);
}

BpfRef TQ_Prseq_Events_MakeDefaultBpf(BpfType& type) {
    BpfRef bpf = make_ref<Bpf>(&type);
    bpf->points = flat_points(0);
    return bpf;
}

BpfRef TQ_Prseq_Events_MakeBpfFromBpfType(BpfType& type) {
    BpfRef bpf = TQ_Prseq_Events_MakeDefaultBpf(type);
    bpf->points = flat_points(TQ_Prseq_Events_ConvertBpfTypeDefaultValueToUnity(type));
    return bpf;
}

void TQ_Prseq_Events_AddBpfsFromExistingBpfTypesOnExistingTrack(const Track& track, Event& event) {
    for (const BpfTypeRef& type : track.bpftypes)
        if (!TQ_Prseq_Events_GetBpfWithGivenName(event, type->name))
            event.bpfs.push_back(TQ_Prseq_Events_MakeBpfFromBpfType(*type));
}

bool TQ_Prseq_Events_AddBpfToEvent(Event& event, BpfRef bpf) {
    if (TQ_Prseq_Events_GetBpfWithGivenName(event, bpf->name())) return false;
    event.bpfs.push_back(std::move(bpf));
    return true;
}

Bpf* TQ_Prseq_Events_GetBpfWithGivenName(const Event& event, Symbol name) {
    if (name.empty()) return nullptr;
    for (const BpfRef& bpf : event.bpfs)
        if (bpf->name() == name) return bpf.get();
    return nullptr;
}

void TQ_Prseq_Events_DeleteBpfReferenceFromEvent(Event& event, const Bpf& bpf) {
    BpfRef kept;
    auto found = std::find(event.bpfs.begin(), event.bpfs.end(), &bpf);
    if (found == event.bpfs.end()) return;
    kept = *found;
    event.bpfs.erase(found);
    if (event.activebpf == kept) event.activebpf = nullptr;
}

BpfRef TQ_Prseq_Events_CopyBpf(const Bpf& bpf) { return make_ref<Bpf>(bpf); }

void activate_bpf_of_track(const Track& track, Event& event) {
    const BpfType* type = TQ_Prseq_Tracks_GetBpfTypeWithGivenIndex(track, track.activebpfindex);
    event.activebpf = type ? TQ_Prseq_Events_GetBpfWithGivenName(event, type->name) : nullptr;
}

}  // namespace tq
