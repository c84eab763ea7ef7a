// Undoable edits of the track list and of a track's looks.
#include "history/items.h"
#include "history/recorders.h"
#include "instance/prseq.h"
#include "model/track_info.h"
#include "model/tracks.h"
#include "playback/output.h"
#include "playback/time.h"

namespace tq {

namespace {

/// Both leave the track active that was so then: what was edited there goes on there. Tracks that get another
/// index while playing are told to stop before.
void take_track(Prseq& object, const TrackRef& track, long active_after) {
    if (in_document(track)) {
        stop_tracks_from(object, track->index);
        TQ_Prseq_Tracks_DeleteTrackReference(object, track->index);
    }
    object.activetrack =
        track_at(object, active_after) ? active_after : static_cast<long>(object.tracks.size()) - 1;
    TQ_Prseq_Tracks_OutputTrackInfo(object);
}

void put_track(Prseq& object, const TrackRef& track, long index, long active_after) {
    if (!in_document(track)) {
        stop_tracks_from(object, index);
        TQ_Prseq_Tracks_InsertTrack(object, track, index);
        schedule_track_that_came(object, *track);
    }
    if (track_at(object, active_after)) object.activetrack = active_after;
    TQ_Prseq_Tracks_OutputTrackInfo(object);
}

struct TracksItem : UndoItem {
    Change change() const override { return Change::Tracks; }
};

struct AddTrackItem : TracksItem {
    AddTrackItem(TrackRef added, long before)
        : track(std::move(added)), index(track->index), active_before(before) {}
    TrackRef track;
    long index, active_before;
    std::string name() const override { return "Add Track"; }
    void undo(Prseq& object) override { take_track(object, track, active_before); }
    void redo(Prseq& object) override { put_track(object, track, index, index); }
};

struct DeleteTrackItem : TracksItem {
    DeleteTrackItem(TrackRef deleted, long before, long after)
        : track(std::move(deleted)), active_before(before), active_after(after) {}
    TrackRef track;
    long active_before, active_after;
    std::string name() const override { return "Delete Track"; }
    void undo(Prseq& object) override { put_track(object, track, track->deletedindex, active_before); }
    void redo(Prseq& object) override { take_track(object, track, active_after); }
};

struct ActiveTrackItem : TracksItem {
    ActiveTrackItem(long index_, long previous_) : index(index_), previous(previous_) {}
    long index, previous;
    std::string name() const override { return "Change Active Track"; }
    void undo(Prseq& object) override { prseq_do_set_activetrack(object, previous); }
    void redo(Prseq& object) override { prseq_do_set_activetrack(object, index); }
};

struct TrackColorItem : TracksItem {
    TrackColorItem(TrackRef t, double before, double after)
        : track(std::move(t)), previous(before), next(after) {}
    TrackRef track;
    double previous, next;
    std::string name() const override { return "Change Track Color"; }
    void undo(Prseq& object) override { set(object, previous); }
    void redo(Prseq& object) override { set(object, next); }
    void set(Prseq& object, double hue) const {
        if (!in_document(track)) return;
        TQ_Prseq_Tracks_SetColorFromHSL(object, track->index, hue, object.defaults.saturation,
                                        object.defaults.luminosity);
        TQ_Prseq_Tracks_OutputTrackInfo(object);
    }
};

struct TrackNameItem : UndoItem {
    TrackNameItem(TrackRef t, std::string before)
        : track(std::move(t)), previous(std::move(before)), next(track->name) {}
    TrackRef track;
    std::string previous, next;
    std::string name() const override { return "Change Track Name"; }
    Change change() const override { return Change::TrackName; }
    void undo(Prseq& object) override { set(object, previous); }
    void redo(Prseq& object) override { set(object, next); }
    void set(Prseq& object, const std::string& text) const {
        track->name = text;
        TQ_Prseq_Tracks_OutputTrackInfo(object);
    }
};

struct TrackDestinationItem : TracksItem {
    TrackDestinationItem(TrackRef t, Symbol before)
        : track(std::move(t)), previous(before), next(track->destination) {}
    TrackRef track;
    Symbol previous, next;
    std::string name() const override { return "Change Track Destination"; }
    void undo(Prseq& object) override { set(object, previous); }
    void redo(Prseq& object) override { set(object, next); }
    void set(Prseq& object, Symbol destination) const {
        track->destination = destination;
        TQ_Prseq_Tracks_OutputTrackInfo(object);
    }
};

}  // namespace

void TQ_Prseq_Undoredo_AddUndoRedoItem_AddTrack(Edit& edit, TrackRef track, long previously_active) {
    record<AddTrackItem>(edit, std::move(track), previously_active);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteTrack(Edit& edit, TrackRef track, long active_before,
                                                   long active_after) {
    record<DeleteTrackItem>(edit, std::move(track), active_before, active_after);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeActiveTrack(Edit& edit, long index, long previous) {
    record<ActiveTrackItem>(edit, index, previous);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeTrackColor(Edit& edit, TrackRef track, double previous,
                                                        double hue) {
    record<TrackColorItem>(edit, std::move(track), previous, hue);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeTrackName(Edit& edit, TrackRef track, std::string previous) {
    record<TrackNameItem>(edit, std::move(track), std::move(previous));
}

void record_track_destination(Edit& edit, TrackRef track, Symbol previous) {
    record<TrackDestinationItem>(edit, std::move(track), previous);
}

}  // namespace tq
