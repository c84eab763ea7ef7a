#include "app/patch/perform.h"

#include <algorithm>

namespace tq {

double end_of_events(const Prseq& box) {
    double end = 0;
    for (const TrackRef& track : box.tracks) end = std::max(end, track->events.latest_end());
    return end;
}

void play_through(Session& session) {
    session.send("cycle 0");
    session.send("int 1");
    Scheduler& scheduler = session.host().scheduler;
    const double end = scheduler.now() + end_of_events(session.box());
    while (session.box().playing && scheduler.now() < end)
        scheduler.run_until(scheduler.next_due().value_or(end));
    if (session.box().playing) session.send("int 0");
}

}  // namespace tq
