#include "model/track_info.h"

#include "host/outlet.h"
#include "instance/prseq.h"
#include "instance/symbols.h"

namespace tq {

namespace {

void send(Prseq& object, const Atoms& atoms) {
    outlet_anything(object, OutletTrackInfo, tq_sym_tracks, atoms);
}

void send_color(Prseq& object, Symbol which, const Track& track, const Rgba& color) {
    send(object, {which, track.index, color.red, color.green, color.blue});
}

}  // namespace

void TQ_Prseq_Tracks_OutputTrackInfo(Prseq& object) {
    send(object, {tq_sym_clear});
    send(object, {tq_sym_bpf, tq_sym_clear});
    for (const TrackRef& track : object.tracks) {
        send(object, {tq_sym_set, track->index, gensym(track->name)});
        TQ_Prseq_Tracks_OutputTrackColor(object, *track);
        TQ_Prseq_Tracks_OutputTrackVisibility(object, *track);
        TQ_Prseq_Tracks_OutputTrackMuteState(object, *track);
        TQ_Prseq_Tracks_OutputParameterInfo(object, *track);
        TQ_Prseq_Tracks_OutputBpfInfo(object, *track);
        TQ_Prseq_Tracks_OutputDestination(object, *track);
        TQ_Prseq_Tracks_OutputTrackActive(object);
    }
    TQ_Prseq_Tracks_OutputDone(object);
}

void TQ_Prseq_Tracks_OutputTrackColor(Prseq& object, const Track& track) {
    send_color(object, tq_sym_color, track, track.color);
    send_color(object, tq_sym_inactivecolor, track, track.inactivecolor);
}

void TQ_Prseq_Tracks_OutputTrackVisibility(Prseq& object, const Track& track) {
    send(object, {tq_sym_visible, track.index, long{track.visible}});
}

void TQ_Prseq_Tracks_OutputTrackMuteState(Prseq& object, const Track& track) {
    send(object, {tq_sym_mute, track.index, long{track.mute}});
}

void TQ_Prseq_Tracks_OutputParameterInfo(Prseq& object, const Track& track) {
    if (track.parametertypes.empty()) return;
    Atoms atoms{tq_sym_parameter, track.index};
    for (const ParameterTypeRef& type : track.parametertypes)
        atoms.insert(atoms.end(), {type->name, type->minimum, type->maximum, type->default_, type->steps});
    send(object, atoms);
}

void TQ_Prseq_Tracks_OutputBpfInfo(Prseq& object, const Track& track) {
    if (track.bpftypes.empty()) return;
    Atoms atoms{tq_sym_bpf, track.index};
    for (const BpfTypeRef& type : track.bpftypes) {
        bool pitch = type->name == tq_sym_Pitch;
        atoms.insert(atoms.end(), {type->name, pitch ? 0.0 : type->minimum,
                                   pitch ? Prseq::maximumpitch : type->maximum, type->default_});
    }
    send(object, atoms);
}

void TQ_Prseq_Tracks_OutputDestination(Prseq& object, const Track& track) {
    send(object, {tq_sym_destination, track.destination});
}

void TQ_Prseq_Tracks_OutputTrackActive(Prseq& object) { send(object, {tq_sym_select, object.activetrack}); }

void TQ_Prseq_Tracks_OutputDone(Prseq& object) { send(object, {tq_sym_done}); }

}  // namespace tq
