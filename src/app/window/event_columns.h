// The columns of the list of events: what each shows of an event, what it is sorted by, what typing changes.
#pragma once

#include <QString>
#include <optional>
#include <span>

#include "host/atom.h"

namespace tq {

struct Event;
struct Prseq;

struct EventColumn {
    const char* title;
    int width;  ///< at first, pixels
    Qt::AlignmentFlag side;
    QString (*text)(const Prseq& box, const Event& event);
    /// What the column is sorted by: a number or, where there is none, a word.
    double (*number)(const Event& event);
    Symbol (*word)(const Event& event);
    /// What an "event" message says for the cell to become what was typed; none where that is no value. None:
    /// the column cannot be edited.
    std::optional<Atoms> (*edit)(const Prseq& box, const Event& event, const QString& typed);
};

/// From the left. Each event is on a track.
std::span<const EventColumn> event_columns();

}  // namespace tq
