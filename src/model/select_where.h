// Selecting events by what they are, or one by one.
#pragma once

#include <span>

#include "host/symbol.h"

namespace tq {

struct Event;
struct Prseq;

/// Which events are meant.
struct EventsWhere {
    enum class Quality { Pitch, Velocity, Time, Label } quality;
    double low = 0,
           high = 0;    ///< both included; of times in ms: those that start from `low` to before `high`
    Symbol label = {};  ///< the whole of it

    bool takes(const Event& event) const;
};

/// What becomes of the selection: these alone, these as well, without these, these of what is selected.
enum class SelectHow { Only, Add, Remove, Within };

/// Selects events of the active track while that is visible. Nothing but the selection is looked at where
/// that is enough.
void select_where(Prseq& object, const EventsWhere& where, SelectHow how);
/// Selects events of any visible tracks: `Only` deselects those of every other track as well.
void select_events(Prseq& object, std::span<Event* const> events, SelectHow how);
/// Selects nothing but the events of all visible tracks that start from a time to before another, in ms.
void select_all_starting(Prseq& object, double from, double to);
/// What was selected of the active track is not, and the other way round; nothing while it is invisible.
void invert_selection(Prseq& object);

}  // namespace tq
