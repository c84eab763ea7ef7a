#include "shell/track_messages.h"

#include <fmt/printf.h>

#include <algorithm>

#include "history/capture.h"
#include "history/recorders.h"
#include "host/host.h"
#include "model/bpfs.h"
#include "model/parameters.h"
#include "model/track_info.h"
#include "model/tracks.h"
#include "shell/change.h"
#include "shell/messages.h"
#include "shell/prseq.h"
#include "shell/symbols.h"

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

void prseq_addtrack(Prseq& object, OptionalSymbol name) {
    Symbol text =
        name.symbol.empty() ? gensym(fmt::sprintf("Track %ld", ++object.tracknamecounter)) : name.symbol;
    close_event_capture(object);
    TrackRef previously_active = TQ_Prseq_Tracks_GetActiveTrack(object);
    long previous_index = object.activetrack;
    TrackRef track = TQ_Prseq_Tracks_MakeTrack(object, text, true, false, false);
    long index = TQ_Prseq_Tracks_AddTrack(object, track);
    TQ_Prseq_Tracks_AddBpfTypeToTrack(object, index, tq_sym_Pitch, 0, Prseq::keysperoctave * 11, 0);
    TQ_Prseq_Undoredo_AddUndoRedoItem_AddTrack(object, track, previous_index);
    prseq_do_set_activetrack(object, index);
    color_new_track(object, previously_active.get());
    TQ_Prseq_Tracks_OutputTrackInfo(object);
    prseq_show(object, Change::Tracks);
}

void prseq_deletetrack(Prseq& object, long index) {
    if (TrackRef track = track_at(object, index)) {
        close_event_capture(object);
        track->deletedindex = index;
        long active = object.activetrack, left = static_cast<long>(object.tracks.size()) - 1;
        long active_after = std::min(active, left - 1);  // −1 when none is left
        TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteTrack(object, track, active, active_after);
        TQ_Prseq_Tracks_DeleteTrackReference(object, index);
        object.activetrack = active_after;
        prseq_do_set_activetrack(object, object.activetrack);
    } else {
        object_error(object, fmt::sprintf("deletetrack: track number %ld does not exist", index));
    }
    TQ_Prseq_Tracks_OutputTrackInfo(object);
    prseq_show(object, Change::Tracks);
}

void prseq_trackcolor(Prseq& object, double hue) {
    if (!TQ_Prseq_Tracks_GetActiveTrack(object)) return;
    TQ_Prseq_Tracks_SetColor(object, hue);
    prseq_edited(object, Change::Tracks);
}

void prseq_trackvisible(Prseq& object, Symbol message, AtomSpan atoms) {
    std::optional<TrackSwitch> wanted = parse_switch(object, message, atoms);
    if (!wanted) return;
    TQ_Prseq_Tracks_SetVisible(object, wanted->index, wanted->on);
    TQ_Prseq_Tracks_OutputTrackVisibility(object, *track_at(object, wanted->index));
    TQ_Prseq_Tracks_OutputDone(object);
    prseq_edited(object, Change::Events);
}

void prseq_trackmute(Prseq& object, Symbol message, AtomSpan atoms) {
    std::optional<TrackSwitch> wanted = parse_switch(object, message, atoms);
    if (!wanted) return;
    TQ_Prseq_Tracks_SetMute(object, wanted->index, wanted->on);
    TQ_Prseq_Tracks_OutputTrackMuteState(object, *track_at(object, wanted->index));
    TQ_Prseq_Tracks_OutputDone(object);
    prseq_setdirtyflag(object, true);
}

void prseq_trackbpfadd(Prseq& object, Symbol name, double minimum, double maximum, double default_) {
    if (TQ_Prseq_Tracks_AddBpfTypeToTrack(object, object.activetrack, name, minimum, maximum, default_))
        prseq_setdirtyflag(object, true);
}

void prseq_trackparameteradd(Prseq& object, Symbol name, double minimum, double maximum, double default_,
                             long steps) {
    Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (!track ||
        !TQ_Prseq_Parameters_AddParameterTypeToTrack(*track, name, minimum, maximum, default_, steps))
        return;
    close_event_capture(object);
    TQ_Prseq_Undoredo_AddUndoRedoItem_AddParameterTypeToTrack(
        object, track, static_cast<long>(track->parametertypes.size()) - 1);
    prseq_setdirtyflag(object, true);
}

}  // namespace tq
