// The edits of the selection that put other events in the place of the selected ones.
#include <algorithm>
#include <cmath>
#include <tuple>
#include <vector>

#include "edits/selection_edits.h"
#include "edits/time_grid.h"
#include "history/edit.h"
#include "history/recorders.h"
#include "instance/prseq.h"
#include "model/events.h"
#include "model/selected_events.h"
#include "model/selection.h"
#include "model/slice_glue.h"
#include "model/tracks.h"

namespace tq {

namespace {

/// Events that go, and those that come for them.
struct Exchange {
    std::vector<EventRef> before, after;

    void put(Prseq& object, Track& track, const EventRef& event) {
        TQ_Prseq_Tracks_InsertEvent(object, track, event);
        TQ_Prseq_Tracks_SelectEvent2(object, *event);
        after.push_back(event);
    }
    void make(Edit& edit, const char* name) {
        if (before.empty()) return edit.nothing();
        record_exchanged_events(edit, name, before, after);
        TQ_Prseq_Tracks_DeleteEventReferences(edit.object(), before);
        list_selected_events(edit.object());
    }
};

/// Whether an event goes on where another ends, but for what rounding does to times.
bool follows(double end, const Event& next) {
    constexpr double rounding = 1e-3;  // ms
    return next.start <= end + rounding;
}

bool same_row(const Event& a, const Event& b) { return a.track == b.track && a.pitch == b.pitch; }

}  // namespace

void split_selection(Prseq& object, std::optional<double> position) {
    Edit edit(object, Change::Events);
    Exchange exchange;
    const double at = position.value_or(edited_position(object));
    for (const EventRef& event : all_selected_events(object)) {
        const std::optional<Slices> slices = TQ_Prseq_Events_SliceEvent(object, *event, at);
        if (!slices) continue;
        exchange.before.push_back(event);
        exchange.put(object, *event->track, slices->left);
        exchange.put(object, *event->track, slices->right);
    }
    exchange.make(edit, exchange.before.size() == 1 ? "Split Event" : "Split Events");
}

void join_selection(Prseq& object) {
    Edit edit(object, Change::Events);
    std::vector<EventRef> events = all_selected_events(object);
    // Row by row; in each, as they came: by start.
    std::ranges::stable_sort(events, {},
                             [](const EventRef& e) { return std::tuple(e->track->index, e->pitch); });
    Exchange exchange;
    for (auto first = events.begin(), next = first; first != events.end(); first = next) {
        std::vector<const Event*> joined;
        double end = (*first)->end();
        for (; next != events.end() && same_row(**first, **next) && follows(end, **next); ++next) {
            joined.push_back(next->get());
            end = std::max(end, (*next)->end());
        }
        if (joined.size() < 2) continue;
        exchange.before.insert(exchange.before.end(), first, next);
        exchange.put(object, *(*first)->track, glue_events(object, joined));
    }
    exchange.make(edit, "Join Events");
}

}  // namespace tq
