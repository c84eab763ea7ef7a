#include "edits/timeline_edits.h"

#include "history/edit.h"
#include "instance/prseq.h"
#include "model/timeline.h"
#include "playback/time.h"

namespace tq {

namespace {

/// An edit of the loop, which changes nothing when the loop is then what it was.
template <typename Set>
void edit_cycle(Prseq& object, Set set) {
    const Cycle before = object.cycle;
    Edit edit(object, Edit::Unrecorded{Change::Cycle});
    set(object);
    prseq_show(object, Change::Cycle);
    if (object.cycle == before) edit.nothing();
}

}  // namespace

void prseq_cycle(Prseq& object, long active) {
    edit_cycle(object, [=](Prseq& o) { o.cycle.active = active > 0; });
}

void prseq_cyclerange(Prseq& object, double start, double end) {
    edit_cycle(object, [=](Prseq& o) { set_cycle_range(o, start, end); });
}

void move_cycle_start(Prseq& object, double start) {
    edit_cycle(object, [=](Prseq& o) { set_cycle_start(o, start); });
}

void prseq_maxtime(Prseq& object, double ms) {
    Edit edit(object, Edit::Unrecorded{Change::TimelineLength});
    edit.nothing();
    extend_timeline(object, ms);
    object.timelinelengthasked = true;
}

}  // namespace tq
