#include "interaction/marquee_gesture.h"

#include <unordered_set>
#include <vector>

#include "host/modifiers.h"
#include "instance/prseq.h"
#include "interaction/hit_test.h"
#include "interaction/marquee.h"
#include "model/selection.h"
#include "model/tracks.h"

namespace tq {

namespace {

class MarqueeGesture final : public Gesture {
 public:
    MarqueeGesture(Prseq& object, const Pointer& press) : press_(press) {
        track_ = TQ_Prseq_Tracks_GetActiveTrack(object);
        if (!track_) return;
        const std::vector<Event*>& selected = track_->events.selected();
        selected_.assign(selected.begin(), selected.end());
        were_selected_.insert(selected.begin(), selected.end());
    }

    void step(Prseq& object, const Pointer& to) override {
        TQ_Prseq_Maindisplay_SetMarqueeRect(object, press_, to);
        select_touched(object, to.modifiers & modifier_shift);
        prseq_show(object, Change::Events);
    }

    void commit(Prseq& object) override {
        close_marquee(object);
        list_selected_events(object);
    }

    void rollback(Prseq& object) override {
        if (track_) restore();
        commit(object);
        prseq_show(object, Change::Events);
    }

 private:
    void restore() {
        track_->events.deselect_all();
        for (const EventRef& event : selected_)
            if (event->track == track_.get()) track_->events.select(*event, true);
    }

    void select_touched(const Prseq& object, bool toggles) {
        if (!track_ || track_->index != object.activetrack || !track_->visible) return;
        if (toggles)
            restore();
        else
            track_->events.deselect_all();
        Rect area = object.maindisplay.marquee;
        area.y += object.maindisplay.verticalscroll;
        for (Event* event : events_touching(object, *track_, area))
            track_->events.select(*event, !toggles || !were_selected_.contains(event));
    }

    Pointer press_;
    TrackRef track_;
    std::vector<EventRef> selected_;  ///< at the press
    std::unordered_set<const Event*> were_selected_;
};

}  // namespace

std::unique_ptr<Gesture> marquee_gesture(Prseq& object, const Pointer& press) {
    return std::make_unique<MarqueeGesture>(object, press);
}

}  // namespace tq
