// Whether a document's records agree with each other, whatever was done to it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "instance/prseq.h"
#include "model/bpfs.h"

namespace tq::test {

/// Whether the list knows what its events look like, one by one and by stretches.
inline bool looks_are_right(const EventList& events) {
    struct Visitor {
        EventLooks stretch;
        bool right = true;
        bool enters(double, double, const EventLooks& looks) {
            stretch = looks;
            return true;
        }
        void visit(const EventEntry& entry) {
            right &= entry.look == look_of(*entry.event) && EventLooks(entry.look).within(stretch);
        }
    } visitor;
    events.touching_backwards(-1e300, 1e300, visitor);
    return visitor.right;
}

inline testing::AssertionResult holds_together(const Prseq& box) {
    std::string faults;
    auto must = [&](bool right, const char* what, long of) {
        if (!right) faults += what + (" " + std::to_string(of)) + " is wrong; ";
    };
    long index = 0;
    for (const TrackRef& track : box.tracks) {
        size_t count = 0, selected = 0;
        const Event* before = nullptr;
        must(track->index == index, "the index of track", index);
        ++index;
        track->events.for_each([&](const Event& event) {
            must(event.track == track.get(), "the track of event", event.id);
            must(box.events_by_id.find(event.id) == &event, "the identifier of event", event.id);
            must(!before || std::pair(before->start, before->id) < std::pair(event.start, event.id),
                 "the order of event", event.id);
            must(event.bpfs.size() == track->bpftypes.size(), "the number of curves of event", event.id);
            must(event.parametervalues.size() == track->parametertypes.size(),
                 "the number of values of event", event.id);
            if (!faults.empty()) return;
            for (size_t i = 0; i < event.bpfs.size(); ++i) {
                const BpfPoints& points = event.bpfs[i]->points;
                must(event.bpfs[i]->type == track->bpftypes[i] && points.size() >= 2 &&
                         points.front().x == 0 && points.back().x == 1 &&
                         std::ranges::is_sorted(points, {}, &BpfPoint::x),
                     "a curve of event", event.id);
            }
            for (size_t i = 0; i < event.parametervalues.size(); ++i)
                must(event.parametervalues[i].type == track->parametertypes[i], "a parameter of event",
                     event.id);
            must(!event.selected || track->events.selected().at(event.selectedplace) == &event,
                 "the selection of event", event.id);
            must(event.end() <= box.timelinelength || !std::isfinite(event.end()), "the end of event",
                 event.id);
            selected += event.selected;
            ++count;
            before = &event;
        });
        must(looks_are_right(track->events), "the look of an event of track", track->index);
        must(count == track->events.size(), "the number of events of track", track->index);
        must(selected == track->events.selected().size(), "the selection of track", track->index);
    }
    must(box.activetrack < std::ssize(box.tracks) && box.activetrack >= (box.tracks.empty() ? -1 : 0),
         "the active track", box.activetrack);
    must(box.history.cursor < std::ssize(box.history.items), "the place in the history", box.history.cursor);
    must(std::isfinite(box.timelinelength) && box.timelinelength > 0, "the timeline's length", 0);
    if (faults.empty()) return testing::AssertionSuccess();
    return testing::AssertionFailure() << faults;
}

}  // namespace tq::test
