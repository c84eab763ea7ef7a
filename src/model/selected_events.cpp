#include "model/selected_events.h"

#include <fmt/printf.h>

#include <algorithm>
#include <cmath>

#include "host/round.h"
#include "model/bpfs.h"
#include "model/events.h"
#include "model/tracks.h"
#include "shell/change.h"
#include "shell/prseq.h"
#include "view/maindisplay.h"
#include "view/tiptool.h"
#include "view/zoom.h"

namespace tq {

namespace {

/// Never before 0, and on the time grid when it is on.
double start_at(const Prseq& object, double pagex) {
    const MainDisplay& md = object.maindisplay;
    const double start = std::max(TQ_Prseq_Maindisplay_CalculatePositionFromMouse(object, md, pagex), 0.);
    if (!object.snaptime) return start;
    return TQ_Prseq_Maindisplay_CalculateSnappedPositionFromMouse(md, md.mslabelincrement / 10, start);
}

double held_pitch(double pitch) { return std::clamp(pitch, 0., Prseq::maximumpitch); }

void show_tiptool(Prseq& object, const std::string& text) {
    const Rect& display = object.maindisplay.rect;
    const Point& pointer = object.press.drag;
    TQ_Prseq_Tiptool_Set(object, text, display.x + pointer.x, display.y + pointer.y, display);
}

void move_one(Prseq& object, Event& event) {
    const MainDisplay& md = object.maindisplay;
    const MainPress& press = object.press;
    const double height = md.rowheight;
    const double start = start_at(object, press.drag.x + md.horizontalscroll - press.clickoffset.x);
    const double below = object.snappitch ? height : height - press.clickoffset.y;
    double pitch = held_pitch(TQ_Prseq_Maindisplay_CalculatePitchFromMouse(md, press.drag.y + below));
    if (object.snappitch) pitch = std::ceil(pitch);
    TQ_Prseq_Events_SetEventStart(event, start);
    event.pitch = pitch;
    show_tiptool(object, fmt::sprintf("Event Start: %f ms \nEvent Pitch: %f", start, pitch));
}

/// Where the rectangle around the selection has been dragged to, on the page.
Rect dragged_rect(const Prseq& object) {
    const MainDisplay& md = object.maindisplay;
    const MainPress& press = object.press;
    Rect rect = press.selectionwhenclicked;
    const double scroll_at_press = press.pagepress.x - press.press.x;
    rect.x += scroll_at_press + press.drag.x + md.horizontalscroll - press.pagepress.x;
    rect.y += press.drag.y + md.verticalscroll - press.pagepress.y;
    rect.x = std::max(rect.x, 0.);
    rect.y = std::max(std::min(rect.y, object.keydisplay.totalpagesize - rect.height), 0.);
    return rect;
}

void move_several(Prseq& object, const Track& track) {
    const MainDisplay& md = object.maindisplay;
    const Rect rect = object.press.selectionrect = dragged_rect(object);
    std::vector<EventTimes> times;
    times.reserve(object.press.dragged.size());
    for (const DraggedEvent& dragged : object.press.dragged) {
        Event& event = *dragged.event;
        if (event.track != &track) continue;  // it left during the drag
        times.push_back({dragged.event, start_at(object, rect.x + dragged.offsetx), event.duration});
        const double y = rect.y + dragged.offsety + md.rowheight - md.verticalscroll;
        const double pitch = TQ_Prseq_Maindisplay_CalculatePitchFromMouse(md, y);
        event.pitch = object.snappitch ? jgraphics_round(pitch) : pitch;
    }
    TQ_Prseq_Events_SetEventsTimes(times);
    if (const Event* clicked = object.press.clickedevent.get())
        show_tiptool(object, fmt::sprintf("Clicked Event Start: %ld ms \nClicked Event Pitch: %f",
                                          static_cast<long>(clicked->start), clicked->pitch));
}

template <typename Better>
double best_pitch(const Prseq& object, Better better) {
    auto best =
        std::min_element(object.selection.begin(), object.selection.end(),
                         [&](const EventRef& a, const EventRef& b) { return better(a->pitch, b->pitch); });
    return best == object.selection.end() ? 0 : (*best)->pitch;
}

}  // namespace

Rect TQ_Prseq_Tracks_CalculateBoundingRectOfSelectedEvents(const Prseq& object) {
    if (object.selection.empty()) return {};
    const Rect first = TQ_Prseq_Events_Rect(object, *object.selection.front());
    double left = first.x, top = first.y, right = left, bottom = top;
    for (const EventRef& event : object.selection) {
        const Rect rect = TQ_Prseq_Events_Rect(object, *event);
        left = std::min(left, rect.x);
        top = std::min(top, rect.y);
        right = std::max(right, rect.x + rect.width);
        bottom = std::max(bottom, rect.y + rect.height);
    }
    return {left, top, right - left, bottom - top};
}

void TQ_Prseq_Tracks_CalculateEventsOffsetFromSelectionRectWhenClicked(Prseq& object) {
    MainPress& press = object.press;
    press.dragged.clear();
    press.dragged.reserve(object.selection.size());
    for (const EventRef& event : object.selection) {
        const Rect rect = TQ_Prseq_Events_Rect(object, *event);
        press.dragged.push_back(
            {event, rect.x - press.selectionwhenclicked.x, rect.y - press.selectionwhenclicked.y});
    }
}

double TQ_Prseq_Tracks_GetMinimumPitchOfSelectedEvents(const Prseq& object) {
    return best_pitch(object, std::less<>());
}

double TQ_Prseq_Tracks_GetMaximumPitchOfSelectedEvents(const Prseq& object) {
    return best_pitch(object, std::greater<>());
}

void TQ_Prseq_Tracks_MoveSelectedEventsOnTrack(Prseq& object, long index) {
    object.press.eventsmoved = true;
    const Track* track = track_at(object, index);
    if (track && object.selection.size() == 1)
        move_one(object, *object.selection.front());
    else if (track && !object.selection.empty())
        move_several(object, *track);
    prseq_edited(object, Change::Events);
    prseq_resize_maxtime(object, TQ_Prseq_Tracks_FindLastEventsEnd(track));
}

std::vector<EventRef> TQ_Prseq_Tracks_CopySelectedEventsOnTrack(Prseq& object, long index) {
    std::vector<EventRef> copies;
    Track* track = track_at(object, index);
    if (!track) return copies;
    copies.reserve(object.selection.size());
    for (const EventRef& event : object.selection) {
        EventRef copy = TQ_Prseq_Events_DuplicateEvent(object, *event);
        if (event == object.press.clickedevent) object.press.clickedevent = copy;
        TQ_Prseq_Events_AddBpfsFromExistingBpfTypesOnExistingTrack(*track, *copy);
        TQ_Prseq_Tracks_InsertEvent(object, *track, copy);
        copies.push_back(std::move(copy));
    }
    return copies;
}

void TQ_Prseq_Tracks_DeleteReferenceOfSelectedEventsInTrack(Prseq& object, long index) {
    const Track* track = track_at(object, index);
    if (!track) return;
    const std::vector<Event*>& selected = track->events.selected();
    TQ_Prseq_Tracks_DeleteEventReferences(object, std::vector<EventRef>(selected.begin(), selected.end()));
}

void TQ_Prseq_Tracks_MakeUndoEventsFromSelectedEvents(Prseq& object) {
    TQ_Prseq_Tracks_DestroyUndoEvents(object);
    object.press.undoevents.reserve(object.selection.size());
    for (const EventRef& event : object.selection)
        object.press.undoevents.push_back({event->start, event->duration, event->pitch, event});
}

void TQ_Prseq_Tracks_DestroyUndoEvents(Prseq& object) { object.press.undoevents.clear(); }

}  // namespace tq
