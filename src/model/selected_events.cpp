#include "model/selected_events.h"

#include <algorithm>
#include <functional>

#include "instance/prseq.h"
#include "model/buffers.h"
#include "model/events.h"
#include "model/timeline.h"
#include "model/tracks.h"

namespace tq {

namespace {

template <typename Better>
double best_pitch(const Prseq& object, Better better) {
    auto best =
        std::min_element(object.selection.begin(), object.selection.end(),
                         [&](const EventRef& a, const EventRef& b) { return better(a->pitch, b->pitch); });
    return best == object.selection.end() ? 0 : (*best)->pitch;
}

}  // namespace

TimeSpan time_span(const std::vector<EventRef>& events) {
    TimeSpan span;
    for (const EventRef& event : events) {
        span.start = std::min(span.start, event->start);
        span.last_start = std::max(span.last_start, event->start);
        span.end = std::max(span.end, event->end());
    }
    return span;
}

double TQ_Prseq_Tracks_GetMinimumPitchOfSelectedEvents(const Prseq& object) {
    return best_pitch(object, std::less<>());
}

double TQ_Prseq_Tracks_GetMaximumPitchOfSelectedEvents(const Prseq& object) {
    return best_pitch(object, std::greater<>());
}

std::vector<EventRef> copy_on_their_tracks(Prseq& object, const std::vector<EventRef>& events, double later) {
    std::vector<EventRef> copies;
    copies.reserve(events.size());
    for (const EventRef& event : events) {
        EventRef copy = TQ_Prseq_Events_DuplicateEvent(object, *event);
        copy->start += later;
        TQ_Prseq_Tracks_InsertEvent(object, *event->track, copy);
        copies.push_back(std::move(copy));
    }
    return copies;
}

UndoEventSnapshot undo_snapshot(Event& event) {
    UndoEventSnapshot snapshot{event.start, event.duration, event.pitch, &event, {}};
    if (event.buffer()) snapshot.bufferend = event.link().end;
    return snapshot;
}

std::vector<UndoEventSnapshot> undo_snapshots(const std::vector<EventRef>& events) {
    std::vector<UndoEventSnapshot> snapshots;
    snapshots.reserve(events.size());
    for (const EventRef& event : events) snapshots.push_back(undo_snapshot(*event));
    return snapshots;
}

void write_event_times(Prseq& object, std::span<const EventTimes> times) {
    TQ_Prseq_Events_SetEventsTimes(times);
    double end = 0;
    for (const EventTimes& t : times) {
        TQ_Prseq_Buffer_CalculateBufferRatio(*t.event);
        end = std::max(end, t.start + t.duration);
    }
    extend_timeline(object, end);
    object.timelinelengthasked = true;
}

void fit_buffer_range(const UndoEventSnapshot& before) {
    if (!before.bufferend || !before.event->buffer()) return;
    BufferRange& now = before.event->make_link();
    const bool fits = now.end - now.start <= before.event->duration;
    now.end = fits ? *before.bufferend : now.start + before.event->duration;
}

void set_snapshots(std::span<const UndoEventSnapshot> snapshots) {
    std::vector<EventTimes> times;
    times.reserve(snapshots.size());
    for (const UndoEventSnapshot& s : snapshots) {
        times.push_back({s.event, s.start, s.duration});
        s.event->pitch = s.pitch;
    }
    TQ_Prseq_Events_SetEventsTimes(times);
    for (const UndoEventSnapshot& s : snapshots) {
        if (s.bufferend && s.event->buffer())
            s.event->make_link().end = std::min(*s.bufferend, s.event->link().length);
        TQ_Prseq_Buffer_CalculateBufferRatio(*s.event);
    }
}

}  // namespace tq
