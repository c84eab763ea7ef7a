// Undoable edits of the selected events, of all visible tracks where those of several are selected. Each is
// one step of the history, and none when it changes nothing. Times that are computed are as kept_time() says;
// no event gets shorter than 1 ms.
#pragma once

#include <optional>

#include "edits/time_grid.h"
#include "host/symbol.h"

namespace tq {

struct Prseq;

struct Quantisation {
    enum class Ends { Starts, Ends, Both };
    GridStep grid = {};        ///< at least 1 ms
    double strength = 1;       ///< 0 to 1: how far events go towards the lines
    double swing = 0;          ///< 0 to 1: how late every second line is, of half of the grid
    Ends what = Ends::Starts;  ///< starts take their events with them; ends stay behind their starts
};
void quantise_selection(Prseq& object, const Quantisation& how);

/// Each event lasts until `gap` ms before the next start of a selected one on its track; those that start
/// together end together, and the last ones stay as they are.
void legato_selection(Prseq& object, double gap);

/// Times from the selection's start on, and durations, become `factor` times as long; `factor` is above 0.
/// False, and nothing happens, when that would lead beyond what a timeline can hold.
bool stretch_selection(Prseq& object, double factor);

/// What came last comes first: each event ends as far before the selection's end as it started after its
/// start, and its curves run backwards.
void reverse_selection(Prseq& object);

struct Humanisation {
    double time = 10;               ///< ms that an event gets earlier or later by, at most
    double velocity = 5;            ///< the same of its velocity
    std::optional<long> seed = {};  ///< from 0 on; none: the host's chance
};
void humanise_selection(Prseq& object, const Humanisation& how);

/// Velocities become `factor` times as high, and higher by `offset`, within 0 to 127.
void scale_velocities(Prseq& object, double factor, double offset);
/// Velocities go evenly from that at the first start to that at the last one.
void ramp_velocities(Prseq& object, double from, double to);

/// What is drawn in the events' curves of a name is multiplied by a straight line over the selection.
struct Fade {
    Symbol curve;
    double from = 1, to = 1;  ///< unity
    double level = 127;       ///< of the curves, 0 to 127, that a track gets which has none of that name
};
void fade_selection(Prseq& object, const Fade& how);

/// Cuts the events that sound at a position in ms, without one at the play position. Both parts are selected.
void split_selection(Prseq& object, std::optional<double> position);
/// Makes one event of each row of events on a track that have the same pitch, and touch or overlap; it is
/// selected.
void join_selection(Prseq& object);

}  // namespace tq
