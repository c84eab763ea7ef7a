// Undoable changes of what holds for all of a song, or all of a track, at once.
#include "history/items.h"
#include "history/recorders.h"
#include "host/transport.h"
#include "instance/prseq.h"
#include "model/bars.h"
#include "model/events.h"
#include "model/selected_events.h"
#include "model/track_info.h"
#include "playback/output.h"
#include "playback/time.h"

namespace tq {

namespace {

/// What is in the document's file can be gone back to: the step that led there stays one of its own.
bool goes_on(const Prseq& object, const UndoItem& item) {
    return item.revision_after != object.revisions.saved;
}

SongBefore song_now(const Prseq& object, const std::vector<UndoEventSnapshot>& events) {
    SongBefore song{{}, itm_gettempo(*object.transport), object.cycle};
    song.times.reserve(events.size());
    for (const UndoEventSnapshot& s : events) song.times.push_back(undo_snapshot(*s.event));
    return song;
}

bool same_range(const Cycle& a, const Cycle& b) { return a.start == b.start && a.end == b.end; }

struct TempoItem : UndoItem {
    TempoItem(SongBefore b, SongBefore a) : before(std::move(b)), after(std::move(a)) {}
    SongBefore before, after;
    std::string name() const override { return "Change Tempo"; }
    void undo(Prseq& object) override { step(object, after, before); }
    void redo(Prseq& object) override { step(object, before, after); }
    /// The loop is no part of the history: it may be another one by now, and then keeps its place, too. What
    /// it is now comes back with the next step.
    static void step(Prseq& object, SongBefore& from, SongBefore& to) {
        set_snapshots(to.times);
        change_transport_tempo(object, to.tempo);
        if (!same_range(object.cycle, from.cycle)) {
            const double beat = from.tempo / to.tempo;
            from.cycle = object.cycle;
            to.cycle = {kept_time(object, from.cycle.start * beat), kept_time(object, from.cycle.end * beat)};
        }
        set_cycle_range(object, to.cycle.start, to.cycle.end);
        to.cycle = object.cycle;  // held in the timeline
        TQ_Prseq_Output_CycleRange(object);
        prseq_show(object, Change::Cycle);
    }
};

struct LevelItem : UndoItem {
    LevelItem(TrackRef tr, BpfTypeRef ty, double d, std::vector<EventsBefore::Curve> c)
        : track(std::move(tr)), type(std::move(ty)), other_default(d), curves(std::move(c)) {}
    TrackRef track;
    BpfTypeRef type;
    double other_default;                     ///< what the type does not have now
    std::vector<EventsBefore::Curve> curves;  ///< with the points that the curves do not have now
    std::string name() const override { return "Change Track Level"; }
    void undo(Prseq& object) override { exchange(object); }
    void redo(Prseq& object) override { exchange(object); }
    void exchange(Prseq& object) {
        std::swap(type->default_, other_default);
        exchange_points(curves);
        if (in_document(track)) TQ_Prseq_Tracks_OutputTrackInfo(object);
        prseq_show(object, Change::Types);
    }
};

struct ArrangeItem : UndoItem {
    ArrangeItem(const char* t, ArrangedBefore b) : text(t), before(std::move(b)) {
        for (const UndoEventSnapshot& s : before.times) times_after.push_back(undo_snapshot(*s.event));
    }
    const char* text;
    ArrangedBefore before;
    std::vector<UndoEventSnapshot> times_after;
    std::string name() const override { return text; }
    void undo(Prseq& object) override {
        take_events(object, before.came);
        put_events(object, before.went);
        set_snapshots(before.times);
    }
    void redo(Prseq& object) override {
        set_snapshots(times_after);
        take_events(object, before.went);
        put_events(object, before.came);
    }
};

}  // namespace

void record_arrangement(Edit& edit, const char* name, ArrangedBefore before) {
    record<ArrangeItem>(edit, name, std::move(before));
}

void record_tempo_of_song(Edit& edit, SongBefore before) {
    SongBefore after = song_now(edit.object(), before.times);
    record<TempoItem>(edit, std::move(before), std::move(after));
}

bool is_last_step_a_tempo(const Prseq& object) {
    const auto* item = last_step<TempoItem>(object.history);
    return item && goes_on(object, *item);
}

void record_curve_level(Edit& edit, TrackRef track, BpfTypeRef type, double previous_default,
                        std::vector<EventsBefore::Curve> before) {
    record<LevelItem>(edit, std::move(track), std::move(type), previous_default, std::move(before));
}

bool is_last_step_a_level_of(const Prseq& object, const BpfType& type) {
    const auto* item = last_step<LevelItem>(object.history);
    return item && item->type.get() == &type && goes_on(object, *item);
}

}  // namespace tq
