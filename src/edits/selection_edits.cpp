#include "edits/selection_edits.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <span>
#include <vector>

#include "edits/event_changes.h"
#include "edits/time_grid.h"
#include "history/edit.h"
#include "host/host.h"
#include "instance/prseq.h"
#include "model/bars.h"
#include "model/bpfs.h"
#include "model/selected_events.h"

namespace tq {

namespace {

using Events = std::vector<EventRef>;

/// An edit that changes the selected events, and its step of the history.
template <typename Gather>
void change_selection(Prseq& object, const EditName& name, Gather gather) {
    Edit edit(object, Change::Events);
    EventChanges changes;
    if (const Events events = all_selected_events(object); !events.empty()) gather(events, changes);
    changes.make(edit, name);
}

/// Calls visit(events) for those of each track.
template <typename Visit>
void for_each_track(std::span<const EventRef> events, Visit visit) {
    while (!events.empty()) {
        const Track* track = events.front()->track;
        const auto end = std::ranges::find_if(events, [=](const EventRef& e) { return e->track != track; });
        const auto count = static_cast<size_t>(end - events.begin());
        visit(events.first(count));
        events = events.subspan(count);
    }
}

/// A time that does not move stays what it is to the last bit.
double towards(const Prseq& object, double from, double to, double strength) {
    return from == to || strength == 0 ? from : kept_time(object, std::lerp(from, to, strength));
}

double duration_until(double end, const Event& event, double start) {
    return std::max(end - start, std::min(event.duration, shortest_event));
}

void quantise(const Prseq& object, Event& event, const TimeGrid& grid, const Quantisation& how,
              EventChanges& changes) {
    using enum Quantisation::Ends;
    const double line = how.what == Ends ? event.start : grid.nearest(event.start);
    const double start = towards(object, event.start, line, how.strength);
    if (how.what == Starts) return changes.times(event, start, event.duration);
    double end = grid.nearest(event.end());
    if (end <= line) end = grid.behind(line);
    end = towards(object, event.end(), end, how.strength);
    const bool stays = start == event.start && end == event.end();
    changes.times(event, start, stays ? event.duration : duration_until(end, event, start));
}

/// What holds of a curve at a time of its event, by a line over the selection.
BpfPoints faded(const Event& event, const Bpf& bpf, const TimeSpan& span, const Fade& how) {
    const double length = std::max(span.end - span.start, shortest_event);
    BpfPoints points = bpf.points;
    for (BpfPoint& point : points) {
        const double way = (event.start + point.x * event.duration - span.start) / length;
        point.y *= std::lerp(how.from, how.to, std::clamp(way, 0., 1.));
    }
    return points;
}

}  // namespace

void quantise_selection(Prseq& object, const Quantisation& how) {
    change_selection(object, {"Quantise Event", "Quantise Events"}, [&](const Events& events, auto& changes) {
        const TimeGrid grid(object, how.grid, how.swing);
        for (const EventRef& event : events) quantise(object, *event, grid, how, changes);
    });
}

void legato_selection(Prseq& object, double gap) {
    const auto of_track = [=](std::span<const EventRef> events, EventChanges& changes) {
        auto next = events.begin();
        for (const EventRef& event : events) {
            while (next != events.end() && (*next)->start <= event->start) ++next;
            if (next == events.end()) return;
            changes.times(*event, event->start,
                          std::max((*next)->start - gap - event->start, shortest_event));
        }
    };
    change_selection(object, {"Legato Event", "Legato Events"}, [&](const Events& events, auto& changes) {
        for_each_track(events, [&](auto of_one) { of_track(of_one, changes); });
    });
}

bool stretch_selection(Prseq& object, double factor) {
    bool fits = true;
    change_selection(object, {"Stretch Event", "Stretch Events"}, [&](const Events& events, auto& changes) {
        const TimeSpan span = time_span(events);
        const auto stretched = [&](double ms) {
            return kept_time(object, span.start + (ms - span.start) * factor);
        };
        fits = factor <= 1 || stretched(span.end) <= longest_timeline;
        if (!fits || factor == 1) return;
        for (const EventRef& event : events) {
            const double start = stretched(event->start);
            changes.times(*event, start, duration_until(stretched(event->end()), *event, start));
        }
    });
    return fits;
}

void reverse_selection(Prseq& object) {
    const auto reverse_curves = [](Event& event, EventChanges& changes) {
        for (const BpfRef& bpf : event.bpfs) {
            BpfPoints points(bpf->points.rbegin(), bpf->points.rend());
            for (BpfPoint& point : points) point.x = 1 - point.x;
            changes.points(event, *bpf, std::move(points));
        }
    };
    change_selection(object, {"Reverse Event", "Reverse Events"}, [&](const Events& events, auto& changes) {
        const TimeSpan span = time_span(events);
        for (const EventRef& event : events) {
            const double start = span.start + (span.end - event->end());
            changes.times(*event, towards(object, event->start, start, 1), event->duration);
            reverse_curves(*event, changes);
        }
    });
}

void humanise_selection(Prseq& object, const Humanisation& how) {
    // Seeds that are next to each other begin with numbers that are; later ones are not.
    constexpr unsigned alike = 8;
    std::minstd_rand seeded(static_cast<unsigned>(how.seed.value_or(0)) + 1);
    seeded.discard(alike);
    std::minstd_rand& random = how.seed ? seeded : object.host().random;
    const auto chance = [&](double most) {
        constexpr double middle = std::minstd_rand::max() / 2.;
        return std::round((static_cast<double>(random()) - middle) / middle * most);
    };
    change_selection(object, {"Humanise Event", "Humanise Events"}, [&](const Events& events, auto& changes) {
        for (const EventRef& event : events) {
            changes.times(*event, event->start + chance(how.time), event->duration);
            changes.velocity(*event, event->velocity + chance(how.velocity));
        }
    });
}

void scale_velocities(Prseq& object, double factor, double offset) {
    change_selection(object, {"Scale Event Velocity", "Scale Events Velocity"},
                     [=](const Events& events, auto& changes) {
                         for (const EventRef& event : events)
                             changes.velocity(*event, event->velocity * factor + offset);
                     });
}

void ramp_velocities(Prseq& object, double from, double to) {
    change_selection(object, {"Ramp Event Velocity", "Ramp Events Velocity"},
                     [=](const Events& events, auto& changes) {
                         const TimeSpan span = time_span(events);
                         const double length = span.last_start - span.start;
                         for (const EventRef& event : events) {
                             const double way = length > 0 ? (event->start - span.start) / length : 0;
                             changes.velocity(*event, std::lerp(from, to, way));
                         }
                     });
}

void fade_selection(Prseq& object, const Fade& how) {
    constexpr double full = 127;
    change_selection(object, {"Fade Event", "Fade Events"}, [&](const Events& events, auto& changes) {
        const TimeSpan span = time_span(events);
        for_each_track(events, [&](auto of_one) {
            Track& track = *of_one.front()->track;
            if (!TQ_Prseq_Tracks_GetBpfTypeWithGivenName(track, how.curve))
                changes.new_curves(object, track, {how.curve, 0, full, how.level});
        });
        for (const EventRef& event : events) {
            Bpf& bpf = *TQ_Prseq_Events_GetBpfWithGivenName(*event, how.curve);
            changes.points(*event, bpf, faded(*event, bpf, span, how));
        }
    });
}

}  // namespace tq
