#include "interaction/trackdisplay.h"

#include <memory>

#include "edits/track_edits.h"
#include "instance/geometry.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "interaction/commands.h"
#include "interaction/pointer.h"
#include "model/tracks.h"
#include "view/scrollbar.h"
#include "view/scrollbar_mouse.h"
#include "view/trackdisplay.h"

namespace tq {

namespace {

Point in_list(const Prseq& object, Point at) {
    const Rect& part = object.layout[Part::TrackDisplay];
    return {at.x - part.x, at.y - part.y};
}

class ListScrollGesture final : public Gesture {
 public:
    ListScrollGesture(const Pointer& press, double before) : press_(press), before_(before) {}
    bool edits() const override { return false; }

    void step(Prseq& object, const Pointer& to) override {
        const Point at = in_list(object, dragged_to(press_, to));
        TrackDisplay display = trackdisplay_of(object);
        const Rect& place = display.scrollbarrect;
        if (TQScrollbar_Drag(display.scrollbar, at.x - place.x, at.y - place.y) != ScrollbarResult::Nothing)
            show(object, display.scrollbar);
    }

    void commit(Prseq& object) override {
        TQScrollbar_Click(object.trackscrollbar, 0, 0, false);
        prseq_show(object, Change::TrackDisplay);
    }

    void rollback(Prseq& object) override {
        TQScrollbar_SetScrollUnityValue(object.trackscrollbar, before_);
        commit(object);
    }

 private:
    static void show(Prseq& object, const TQScrollbar& bar) {
        object.trackscrollbar = bar;
        prseq_show(object, Change::TrackDisplay);
    }

    Pointer press_;
    double before_;  ///< unity value
};

void press_scrollbar(Prseq& object, TrackDisplay& display, const Pointer& press) {
    const Point at = in_list(object, press.at);
    const Rect& place = display.scrollbarrect;
    const double before = display.scrollbar.scrollunityvalue;
    if (TQScrollbar_Click(display.scrollbar, at.x - place.x, at.y - place.y, true) ==
        ScrollbarResult::Nothing)
        return;
    object.trackscrollbar = display.scrollbar;
    object.gesture = std::make_unique<ListScrollGesture>(press, before);
    prseq_show(object, Change::TrackDisplay);
}

void press_row(Prseq& object, const Track& track, long column) {
    const Atoms shown{track.index, long{!track.visible}}, muted{track.index, long{!track.mute}};
    if (column == TrackNameColumn) prseq_activetrack(object, track.index);
    if (column == TrackShowColumn) prseq_trackvisible(object, tq_sym_visible, shown);
    if (column == TrackMuteColumn) prseq_trackmute(object, tq_sym_mute, muted);
}

bool on_rows(const TrackDisplay& display, Point at) {
    return !TQRectContainsPoint(display.scrollbarrect, at.x, at.y) &&
           !TQRectContainsPoint(display.header, at.x, at.y);
}

}  // namespace

void press_trackdisplay(Prseq& object, const Pointer& press) {
    const Point at = in_list(object, press.at);
    TrackDisplay display = trackdisplay_of(object);
    if (TQRectContainsPoint(display.scrollbarrect, at.x, at.y))
        return press_scrollbar(object, display, press);
    const Track* track = track_at(object, TQ_Prseq_Trackdisplay_WhatTrack(object, at.x, at.y));
    if (track && on_rows(display, at))
        press_row(object, *track, TQ_Prseq_Trackdisplay_WhatColumn(object, at.x, at.y));
}

void doubleclick_trackdisplay(Prseq& object, const Pointer& pointer) {
    const Point at = in_list(object, pointer.at);
    if (!on_rows(trackdisplay_of(object), at)) return;
    if (TQ_Prseq_Trackdisplay_WhatTrack(object, at.x, at.y) < 0) return prseq_addtrack(object, {});
    if (TQ_Prseq_Trackdisplay_WhatColumn(object, at.x, at.y) == TrackNameColumn)
        run_command(object, Command::TrackInspector);
}

}  // namespace tq
