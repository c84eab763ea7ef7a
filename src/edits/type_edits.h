// Undoable edits of a track's parameter and curve types, and of curves' points: what the track inspector and
// the curve editor ask for.
#pragma once

#include "instance/track.h"

namespace tq {

struct Prseq;

// Indices are those of the track's types; one that does not exist changes nothing.

/// A name that another type has adds nothing. Every event of the track gets a value.
void add_parameter_type(Prseq& object, const TrackRef& track, const ParameterType& values);
void delete_parameter_type(Prseq& object, const TrackRef& track, long index);
/// The type takes these values; events keep theirs. A name that another type has is not taken. Values that it
/// has already change nothing, here as below.
void change_parameter_type(Prseq& object, const TrackRef& track, long index, const ParameterType& values);
/// See TQ_Prseq_Tracks_AddBpfTypeToTrack().
void add_bpf_type(Prseq& object, const TrackRef& track, const BpfTypeValues& values);
void delete_bpf_type(Prseq& object, const TrackRef& track, long index);
/// The type takes these values, with a "Bis" where another has the name; points stay, and stand for the new
/// range.
void change_bpf_type(Prseq& object, const TrackRef& track, long index, const BpfTypeValues& values);

/// Puts a point before the first one that lies after it; its index, or −1, and nothing added, when there is
/// none.
long add_bpf_point(Prseq& object, const CurveOf& curve, BpfPoint point);
/// The curve takes these points, which are its own without some.
void delete_bpf_points(Prseq& object, const CurveOf& curve, BpfPoints left);
/// Deletes the selected points, the first and the last point excepted.
void TQ_Prseq_Events_DeleteSelectedBpfPoints(Prseq& object, const CurveOf& curve);
/// The curve takes these points, which are as many as its own; `moved` of them are others than before.
void move_bpf_points(Prseq& object, const CurveOf& curve, BpfPoints points, size_t moved);

}  // namespace tq
