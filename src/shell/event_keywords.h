// What an "event" message says, before anything is done about it.
#pragma once

#include <optional>

#include "host/atom.h"

namespace tq {

/// The components of an "event" message. Spans point into the message, or into `joined` where a component
/// came in several pieces.
struct EventKeywords {
    std::optional<long> id, track;
    std::optional<double> start, duration;  ///< ms
    std::optional<Symbol> label;
    struct Component {
        AtomSpan atoms;
        Atoms joined;
        bool given = false;
        void add(AtomSpan piece);
        /// Whether any of the atoms is a symbol: a list of names and numbers without a name says nothing.
        bool has_name() const;
    };
    Component note, message, buffer, parameter, bpf;
    Symbol unclosed;    ///< a tag that was opened and not closed: it has taken all that follows
    Atoms passed_over;  ///< what is no keyword, and none's value
};

/// Reads the keywords in any order; atoms that are no keywords are passed over, later values override earlier
/// ones, and further lists of one kind are appended.
EventKeywords parse_event_keywords(AtomSpan atoms);

}  // namespace tq
