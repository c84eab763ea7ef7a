// What changes the timeline: its loop and its length.
#pragma once

namespace tq {

struct Prseq;

/// Message "cycle": the loop is on for values above 0.
void prseq_cycle(Prseq& object, long active);
/// Message "cyclerange": the loop's start and end in ms, held within the timeline; the start may lie after
/// the end.
void prseq_cyclerange(Prseq& object, double start, double end);
/// The loop's start alone, in ms: what dragging it does.
void move_cycle_start(Prseq& object, double start);
/// Message "maxtime": extends the timeline when it is shorter than `ms` (see extend_timeline()); reports its
/// length in any case.
void prseq_maxtime(Prseq& object, double ms);

}  // namespace tq
