// Undoable edits of the track list and of a track's looks.
#include "history/items.h"
#include "history/recorders.h"
#include "model/track_info.h"
#include "model/tracks.h"
#include "shell/change.h"
#include "shell/messages.h"
#include "shell/prseq.h"
#include "shell/utilities.h"

namespace tq {

namespace {

void show_tracks(Prseq& object) {
    prseq_edited(object, Change::Tracks);
    TQ_Prseq_Tracks_OutputTrackInfo(object);
}

void take_track(Prseq& object, const TrackRef& track, long active_after) {
    if (in_document(track)) TQ_Prseq_Tracks_DeleteTrackReference(object, track->index);
    object.activetrack =
        track_at(object, active_after) ? active_after : static_cast<long>(object.tracks.size()) - 1;
    show_tracks(object);
}

void put_track(Prseq& object, const TrackRef& track, long index, long active_after) {
    if (!in_document(track)) TQ_Prseq_Tracks_InsertTrack(object, track, index);
    if (track_at(object, active_after)) object.activetrack = active_after;
    show_tracks(object);
}

struct AddTrackItem : UndoItem {
    AddTrackItem(TrackRef added, long before)
        : track(std::move(added)), index(track->index), active_before(before) {}
    TrackRef track;
    long index, active_before;
    std::string name() const override { return "Add Track"; }
    void undo(Prseq& object) override { take_track(object, track, active_before); }
    void redo(Prseq& object) override { put_track(object, track, index, index); }
};

struct DeleteTrackItem : UndoItem {
    DeleteTrackItem(TrackRef deleted, long before, long after)
        : track(std::move(deleted)), active_before(before), active_after(after) {}
    TrackRef track;
    long active_before, active_after;
    std::string name() const override { return "Delete Track"; }
    void undo(Prseq& object) override { put_track(object, track, track->deletedindex, active_before); }
    void redo(Prseq& object) override { take_track(object, track, active_after); }
};

struct ActiveTrackItem : UndoItem {
    ActiveTrackItem(long index_, long previous_) : index(index_), previous(previous_) {}
    long index, previous;
    std::string name() const override { return "Change Active Track"; }
    void undo(Prseq& object) override { prseq_do_set_activetrack(object, previous); }
    void redo(Prseq& object) override { prseq_do_set_activetrack(object, index); }
};

struct TrackColorItem : UndoItem {
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
        show_tracks(object);
    }
};

struct TrackNameItem : UndoItem {
    TrackNameItem(TrackRef t, std::string before)
        : track(std::move(t)), previous(std::move(before)), next(track->name) {}
    TrackRef track;
    std::string previous, next;
    std::string name() const override { return "Change Track Name"; }
    void undo(Prseq& object) override { set(object, previous); }
    void redo(Prseq& object) override { set(object, next); }
    void set(Prseq& object, const std::string& text) const {
        track->name = text;
        prseq_show(object, Change::TrackName);
        show_tracks(object);
    }
};

}  // namespace

void TQ_Prseq_Undoredo_AddUndoRedoItem_AddTrack(Prseq& object, TrackRef track, long previously_active) {
    record<AddTrackItem>(object, std::move(track), previously_active);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteTrack(Prseq& object, TrackRef track, long active_before,
                                                   long active_after) {
    record<DeleteTrackItem>(object, std::move(track), active_before, active_after);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeActiveTrack(Prseq& object, long index, long previous) {
    record<ActiveTrackItem>(object, index, previous);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeTrackColor(Prseq& object, TrackRef track, double previous,
                                                        double hue) {
    record<TrackColorItem>(object, std::move(track), previous, hue);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeTrackName(Prseq& object, TrackRef track, std::string previous) {
    record<TrackNameItem>(object, std::move(track), std::move(previous));
}

}  // namespace tq
