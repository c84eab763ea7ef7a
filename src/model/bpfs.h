// Curve types on tracks, and the curves of events.
#pragma once

#include <optional>

#include "host/atom.h"
#include "instance/track.h"

namespace tq {

struct Prseq;

// --- types on a track ---

/// The new type, or none when there is no such track or it has an identical type already. A name that the
/// track has with other values gets "Bis" appended ("Pitch" never does). Every event of the track gets a
/// curve of it.
BpfType* TQ_Prseq_Tracks_AddBpfTypeToTrack(Prseq& object, long index, Symbol name, double minimum,
                                           double maximum, double default_);
/// The name for a type on a track: what is wanted, with a "Bis" appended while another type has it.
Symbol free_bpf_type_name(const Track& track, const BpfType& type, Symbol wanted);
/// The type of these values that the track has (its name may have got a "Bis"), or none.
BpfType* find_identical_bpf_type(const Track& track, const BpfTypeValues& values);
void TQ_Prseq_Tracks_AddBpfTypeToAllEventsOnTrack(const Track& track, BpfType& type);
BpfType* TQ_Prseq_Tracks_GetBpfTypeWithGivenIndex(const Track& track, long index);
BpfType* TQ_Prseq_Tracks_GetBpfTypeWithGivenName(const Track& track, Symbol name);
/// −1 when the track has no such type.
long TQ_Prseq_Tracks_GetBpfTypeIndexWithGivenName(const Track& track, Symbol name);
void TQ_Prseq_Tracks_SetActiveBpfToAllEventsOnTrack(const Track& track, const BpfType& type);
/// What is edited and drawn in front on the active track is the curves of this type.
void activate_bpf_type(Prseq& object, long index);
/// 0 for a type whose range is empty.
double TQ_Prseq_Events_ConvertBpfTypeDefaultValueToUnity(const BpfType& type);

// --- curves of an event ---

/// A flat curve at 0 over the whole event.
BpfRef TQ_Prseq_Events_MakeDefaultBpf(BpfType& type);
/// A flat curve at the type's default.
BpfRef TQ_Prseq_Events_MakeBpfFromBpfType(BpfType& type);
/// Gives the event a curve of each of the track's types that it lacks.
void TQ_Prseq_Events_AddBpfsFromExistingBpfTypesOnExistingTrack(const Track& track, Event& event);
/// False, and nothing added, when the event has a curve of that name.
bool TQ_Prseq_Events_AddBpfToEvent(Event& event, BpfRef bpf);
/// None also for the empty symbol.
Bpf* TQ_Prseq_Events_GetBpfWithGivenName(const Event& event, Symbol name);
/// Unlinks the curve; whoever refers to it keeps it.
void TQ_Prseq_Events_DeleteBpfReferenceFromEvent(Event& event, const Bpf& bpf);
BpfRef TQ_Prseq_Events_CopyBpf(const Bpf& bpf);
/// The event's curve of the track's active type becomes its active one.
void activate_bpf_of_track(const Track& track, Event& event);

// --- points ---

/// Inserts before the first point whose x is not smaller; −1, and nothing added, when there is none.
long TQ_Prseq_Events_AddBpfPoint(Bpf& bpf, BpfPoint point);
/// Sets curves from the numbers of an event message: a name, then times (ms from the event's start) and
/// values by turns, then perhaps another name. Faults are posted and passed over.
void TQ_Prseq_Events_SetBpfPointsFromAtomArray(const Prseq& object, Event& event, AtomSpan atoms);
/// Puts in the points that lie at x <= 1, over a flat curve at 0.
void TQ_Prseq_Events_SetBpfFromDictionary(const BpfDictionary& dictionary, Bpf& bpf);

/// A straight line at y.
BpfPoints flat_points(double y);
/// A message's value as a point's y: as it is for "Pitch", else by the curve's range, held in 0 to 1.
double bpf_unity_value(const Bpf& bpf, double value);
/// Ascending by x; of points of the same x the last one stays.
void merge_bpf_points(BpfPoints& points);
/// Ascending by x; points of the same x keep their order.
void sort_bpf_points(BpfPoints& points);

}  // namespace tq
