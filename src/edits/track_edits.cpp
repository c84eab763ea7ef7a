#include "edits/track_edits.h"

#include <fmt/printf.h>

#include <algorithm>
#include <utility>

#include "history/edit.h"
#include "history/recorders.h"
#include "host/host.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "instance/utilities.h"
#include "model/bpfs.h"
#include "model/parameters.h"
#include "model/selection.h"
#include "model/track_info.h"
#include "model/tracks.h"
#include "playback/output.h"

namespace tq {

namespace {

double random_hue(Prseq& object) { return static_cast<double>(object.host().random()) / 2147483647.0; }

void color_new_track(Prseq& object, const Track* previously_active) {
    if (object.new_track_color == NewTrackColor::Random) TQ_Prseq_Tracks_SetColor(object, random_hue(object));
    if (object.new_track_color != NewTrackColor::Rainbow) return;
    if (object.tracks.size() == 1) TQ_Prseq_Tracks_SetColor(object, random_hue(object));
    if (previously_active) {
        double hue = previously_active->hue + 0.1;
        TQ_Prseq_Tracks_SetColor(object, hue >= 1 ? hue - 1 : hue);
    }
}

/// What "track_visible" and "track_mute" name: a track, and whether it is to be on.
struct TrackSwitch {
    long index;
    bool on;
};

/// None when the atoms do not fit (which is posted) or name no track.
std::optional<TrackSwitch> parse_switch(Prseq& object, Symbol message, AtomSpan atoms) {
    if (object.tracks.empty()) return {};
    if (atoms.size() != 1 && atoms.size() != 2) {
        object_error(object, fmt::sprintf("bad arguments for message %s", message.text()));
        return {};
    }
    if (!atoms.front().is_int() || !atoms.back().is_int()) {
        object_error(object, fmt::sprintf("bad argument type for message %s", message.text()));
        return {};
    }
    long index = atoms.size() == 2 ? atoms.front().as_long() : object.activetrack;
    if (!track_at(object, index)) return {};
    return TrackSwitch{index, atoms.back().as_long() >= 1};
}

}  // namespace

TrackRef append_track(Prseq& object, Symbol name) {
    TrackRef track = TQ_Prseq_Tracks_MakeTrack(object, name, true, false, false);
    TQ_Prseq_Tracks_AddTrack(object, track);
    TQ_Prseq_Tracks_AddBpfTypeToTrack(object, track->index, tq_sym_Pitch, 0, Prseq::keysperoctave * 11, 0);
    return track;
}

void activate_new_track(Prseq& object, const Track& track) {
    const TrackRef previously_active = TQ_Prseq_Tracks_GetActiveTrack(object);
    prseq_do_set_activetrack(object, track.index);
    color_new_track(object, previously_active.get());
}

void prseq_addtrack(Prseq& object, OptionalSymbol name) {
    Symbol text =
        name.symbol.empty() ? gensym(fmt::sprintf("Track %ld", ++object.tracknamecounter)) : name.symbol;
    Edit edit(object, Change::Tracks);
    const long previous_index = object.activetrack;
    const TrackRef track = append_track(object, text);
    TQ_Prseq_Undoredo_AddUndoRedoItem_AddTrack(edit, track, previous_index);
    activate_new_track(object, *track);
    TQ_Prseq_Tracks_OutputTrackInfo(object);
}

void prseq_deletetrack(Prseq& object, long index) {
    if (TrackRef track = track_at(object, index)) {
        Edit edit(object, Change::Tracks);
        track->deletedindex = index;
        long active = object.activetrack, left = static_cast<long>(object.tracks.size()) - 1;
        long active_after = std::min(active, left - 1);  // −1 when none is left
        TQ_Prseq_Tracks_DeselectAllEventsInTrack(object, active);
        stop_tracks_from(object, index);
        TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteTrack(edit, track, active, active_after);
        TQ_Prseq_Tracks_DeleteTrackReference(object, index);
        object.activetrack = active_after;
        prseq_do_set_activetrack(object, object.activetrack);
    } else {
        object_error(object, fmt::sprintf("deletetrack: track number %ld does not exist", index));
    }
    TQ_Prseq_Tracks_OutputTrackInfo(object);
    prseq_show(object, Change::Tracks);
}

void prseq_activetrack(Prseq& object, long index) {
    const long previous = object.activetrack;
    if (index == previous || !track_at(object, index)) return;
    Edit edit(object, Change::Tracks);
    prseq_do_set_activetrack(object, index);
    if (previous >= 0) TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeActiveTrack(edit, index, previous);
}

void change_track_hue(Prseq& object, const TrackRef& track, double hue) {
    Edit edit(object, Change::Tracks);
    const double previous = track->hue;
    TQ_Prseq_Tracks_SetColorFromHSL(object, track->index, hue, object.defaults.saturation,
                                    object.defaults.luminosity);
    TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeTrackColor(edit, track, previous, hue);
    TQ_Prseq_Tracks_OutputTrackColor(object, *track);
    TQ_Prseq_Tracks_OutputDone(object);
}

void change_track_name(Prseq& object, const TrackRef& track, Symbol name) {
    Edit edit(object, Change::TrackName);
    std::string previous = std::exchange(track->name, cut_text(name.text(), 255));
    TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeTrackName(edit, track, std::move(previous));
    TQ_Prseq_Tracks_OutputTrackInfo(object);
}

void prseq_trackcolor(Prseq& object, double hue) {
    if (!TQ_Prseq_Tracks_GetActiveTrack(object)) return;
    Edit edit(object, Edit::Unrecorded{Change::Tracks});
    TQ_Prseq_Tracks_SetColor(object, hue);
}

void prseq_trackvisible(Prseq& object, Symbol message, AtomSpan atoms) {
    std::optional<TrackSwitch> wanted = parse_switch(object, message, atoms);
    if (!wanted) return;
    Edit edit(object, Edit::Unrecorded{Change::Tracks});
    TQ_Prseq_Tracks_SetVisible(object, wanted->index, wanted->on);
    TQ_Prseq_Tracks_OutputTrackVisibility(object, *track_at(object, wanted->index));
    TQ_Prseq_Tracks_OutputDone(object);
}

void prseq_trackmute(Prseq& object, Symbol message, AtomSpan atoms) {
    std::optional<TrackSwitch> wanted = parse_switch(object, message, atoms);
    if (!wanted) return;
    Edit edit(object, Edit::Unrecorded{Change::TrackDisplay});
    TQ_Prseq_Tracks_SetMute(object, wanted->index, wanted->on);
    TQ_Prseq_Tracks_OutputTrackMuteState(object, *track_at(object, wanted->index));
    TQ_Prseq_Tracks_OutputDone(object);
}

void prseq_tracksolo(Prseq& object, Symbol message, AtomSpan atoms) {
    std::optional<TrackSwitch> wanted = parse_switch(object, message, atoms);
    if (!wanted) return;
    Edit edit(object, Edit::Unrecorded{Change::TrackDisplay});
    TQ_Prseq_Tracks_SetSolo(object, wanted->index, wanted->on);
}

void change_track_destination(Prseq& object, const TrackRef& track, Symbol destination) {
    if (destination == track->destination) return;
    Edit edit(object, Edit::Unrecorded{Change::Tracks});
    TQ_Prseq_Tracks_SetDestination(object, track->index, destination);
    TQ_Prseq_Tracks_OutputTrackInfo(object);
}

void prseq_trackdestination(Prseq& object, Symbol message, AtomSpan atoms) {
    long index = object.activetrack;
    if (!atoms.empty() && atoms.front().is_number()) {
        index = atoms.front().as_long();
        atoms = atoms.subspan(1);
    }
    const TrackRef track = track_at(object, index);
    if (!track || atoms.size() > 1 || (atoms.size() == 1 && !atoms.front().is_symbol()))
        return object_error(object, fmt::sprintf("bad arguments for message %s", message.text()));
    const Symbol destination = atoms.empty() ? Symbol() : atoms.front().as_symbol(),
                 previous = track->destination;
    if (destination == previous) return;
    Edit edit(object, Change::Tracks);
    TQ_Prseq_Tracks_SetDestination(object, track->index, destination);
    record_track_destination(edit, track, previous);
    TQ_Prseq_Tracks_OutputTrackInfo(object);
}

void prseq_trackbpfadd(Prseq& object, Symbol name, double minimum, double maximum, double default_) {
    Edit edit(object, Edit::Unrecorded{Change::Types});
    if (!TQ_Prseq_Tracks_AddBpfTypeToTrack(object, object.activetrack, name, minimum, maximum, default_))
        edit.nothing();
}

void prseq_trackparameteradd(Prseq& object, Symbol name, double minimum, double maximum, double default_,
                             long steps) {
    Edit edit(object, Change::Types);
    TrackRef track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (!track ||
        !TQ_Prseq_Parameters_AddParameterTypeToTrack(*track, name, minimum, maximum, default_, steps))
        return edit.nothing();
    const long index = static_cast<long>(track->parametertypes.size()) - 1;
    TQ_Prseq_Undoredo_AddUndoRedoItem_AddParameterTypeToTrack(edit, std::move(track), index);
}

}  // namespace tq
