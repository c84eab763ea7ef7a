// The edits, and the messages, that make, change and delete tracks.
#pragma once

#include "host/class.h"
#include "instance/track.h"

namespace tq {

struct Prseq;

/// Appends a new track with the type "Pitch"; nothing is recorded.
TrackRef append_track(Prseq& object, Symbol name);
/// A track that was appended becomes the active one, coloured as new tracks are.
void activate_new_track(Prseq& object, const Track& track);
/// "track_add": a track of the given name, or "Track %ld", which becomes the active one.
void prseq_addtrack(Prseq& object, OptionalSymbol name);
/// "track_delete".
void prseq_deletetrack(Prseq& object, long index);
/// "track_active": makes a track active; nothing happens when it is already, or is none.
void prseq_activetrack(Prseq& object, long index);
/// Undoable changes of a track's looks: what the track inspector asks for.
void change_track_hue(Prseq& object, const TrackRef& track, double hue);
void change_track_name(Prseq& object, const TrackRef& track, Symbol name);
/// "track_color": the active track's hue.
void prseq_trackcolor(Prseq& object, double hue);
/// "track_visible" and "track_mute": a value for the active track, or an index and a value.
void prseq_trackvisible(Prseq& object, Symbol message, AtomSpan atoms);
void prseq_trackmute(Prseq& object, Symbol message, AtomSpan atoms);
/// "track_solo", likewise: kept with the track. What is sent is the same; who plays it may leave the others
/// out.
void prseq_tracksolo(Prseq& object, Symbol message, AtomSpan atoms);
/// "track_destination": a receiver's name for the active track, or an index and a name; no name: outlet 0.
/// What it is already stays without a word.
void prseq_trackdestination(Prseq& object, Symbol message, AtomSpan atoms);
/// The same, of a track that exists; no part of the history.
void change_track_destination(Prseq& object, const TrackRef& track, Symbol destination);
/// "track_bpf_add": a curve type on the active track.
void prseq_trackbpfadd(Prseq& object, Symbol name, double minimum, double maximum, double default_);
/// "track_parameter_add": a parameter type on the active track.
void prseq_trackparameteradd(Prseq& object, Symbol name, double minimum, double maximum, double default_,
                             long steps);

}  // namespace tq
