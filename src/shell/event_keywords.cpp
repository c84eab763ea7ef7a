#include "shell/event_keywords.h"

#include <algorithm>

#include "instance/symbols.h"

namespace tq {

namespace {

struct TagRow {
    Symbol open, close;
    EventKeywords::Component EventKeywords::*component;
};

const TagRow tags[] = {
    {tq_sym_tag_note_open, tq_sym_tag_note_close, &EventKeywords::note},
    {tq_sym_tag_message_open, tq_sym_tag_message_close, &EventKeywords::message},
    {tq_sym_tag_buffer_open, tq_sym_tag_buffer_close, &EventKeywords::buffer},
    {tq_sym_tag_parameter_open, tq_sym_tag_parameter_close, &EventKeywords::parameter},
    {tq_sym_tag_bpf_open, tq_sym_tag_bpf_close, &EventKeywords::bpf},
};

const TagRow* tag_opened_by(Symbol symbol) {
    auto row =
        std::find_if(std::begin(tags), std::end(tags), [&](const TagRow& r) { return r.open == symbol; });
    return row == std::end(tags) ? nullptr : row;
}

/// Reads the value of a keyword; false when the keyword is not one or its value is of the wrong kind.
bool take_value(EventKeywords& keywords, Symbol keyword, const Atom& value) {
    if (keyword == tq_sym_start && value.is_number())
        keywords.start = value.as_double();
    else if (keyword == tq_sym_duration && value.is_number())
        keywords.duration = value.as_double();
    else if (keyword == tq_sym_track && value.is_number())
        keywords.track = value.as_long();
    else if (keyword == tq_sym_id && value.is_int())
        keywords.id = value.as_long();
    else if (keyword == tq_sym_label && value.is_symbol())
        keywords.label = value.as_symbol();
    else
        return false;
    return true;
}

}  // namespace

void EventKeywords::Component::add(AtomSpan piece) {
    if (!given) {
        atoms = piece;
        given = true;
        return;
    }
    if (joined.empty()) joined.assign(atoms.begin(), atoms.end());
    joined.insert(joined.end(), piece.begin(), piece.end());
    atoms = joined;
}

bool EventKeywords::Component::has_name() const {
    return std::any_of(atoms.begin(), atoms.end(), [](const Atom& atom) { return atom.is_symbol(); });
}

EventKeywords parse_event_keywords(AtomSpan atoms) {
    EventKeywords keywords;
    for (size_t i = 0; i < atoms.size(); ++i) {
        if (!atoms[i].is_symbol()) {
            keywords.passed_over.push_back(atoms[i]);
            continue;
        }
        Symbol symbol = atoms[i].as_symbol();
        if (const TagRow* tag = tag_opened_by(symbol)) {
            size_t end = i + 1;
            while (end < atoms.size() && !(atoms[end] == Atom(tag->close))) ++end;
            if (end == atoms.size()) keywords.unclosed = tag->open;
            (keywords.*tag->component).add(atoms.subspan(i + 1, end - i - 1));
            i = end;
        } else if (i + 1 < atoms.size() && take_value(keywords, symbol, atoms[i + 1])) {
            ++i;
        } else {
            keywords.passed_over.push_back(atoms[i]);
        }
    }
    return keywords;
}

}  // namespace tq
