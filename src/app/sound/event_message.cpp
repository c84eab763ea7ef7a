#include "app/sound/event_message.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "app/midi/controllers.h"

namespace tq {

namespace {

bool is(const Atom& atom, std::string_view text) {
    return atom.is_symbol() && atom.as_symbol().text() == text;
}

bool is_finite_number(const Atom& atom) { return atom.is_number() && std::isfinite(atom.as_double()); }

// The curves are the last component, so they are looked for from the end: a message may hold the same tags.
AtomSpan curves(AtomSpan arguments) {
    if (arguments.empty() || !is(arguments.back(), "</bpf>")) return {};
    std::size_t begin = arguments.size() - 1;
    while (begin > 0 && !is(arguments[begin - 1], "<bpf>")) --begin;
    if (begin == 0) return {};
    return arguments.subspan(begin, arguments.size() - 1 - begin);
}

// The pairs of value and time step that `atoms` begin with.
std::vector<CurvePoint> leading_points(AtomSpan atoms) {
    std::vector<CurvePoint> points;
    double ms = 0;
    for (; atoms.size() >= 2 && is_finite_number(atoms[0]) && is_finite_number(atoms[1]);
         atoms = atoms.subspan(2)) {
        ms += std::max(atoms[1].as_double(), 0.0);
        points.push_back({ms, atoms[0].as_double()});
    }
    return points;
}

// Each curve is a name and its points.
void add_curves(PlayedNote& note, AtomSpan curves) {
    for (; !curves.empty(); curves = curves.subspan(1)) {
        if (!curves[0].is_symbol()) continue;
        if (is(curves[0], "Pitch"))
            note.curve = leading_points(curves.subspan(1));
        else if (const auto controller = controller_named(curves[0].as_symbol().text()))
            note.controllers.push_back({*controller, leading_points(curves.subspan(1))});
    }
}

// "<buffer>", a name, three numbers, "</buffer>".
bool is_buffer_component(AtomSpan atoms) {
    return atoms.size() >= 6 && is(atoms[0], "<buffer>") && atoms[1].is_symbol() &&
           std::ranges::all_of(atoms.subspan(2, 3), is_finite_number) && is(atoms[5], "</buffer>");
}

// Where the components after note and message begin: a message may hold anything, but ends with its last tag.
std::size_t behind_message(AtomSpan arguments) {
    std::size_t place = arguments.size() > 2 && is(arguments[2], "<note>") ? 6 : 2;
    if (place >= arguments.size() || !is(arguments[place], "<message>")) return place;
    for (place = arguments.size(); place > 0 && !is(arguments[place - 1], "</message>"); --place) continue;
    return place;
}

}  // namespace

std::optional<OutletList> parse_outlet_list(AtomSpan list) {
    if (list.size() < 2 || !list[0].is_int()) return {};
    const auto kind = is(list[1], "event")  ? std::optional(OutletList::Kind::Event)
                      : is(list[1], "stop") ? std::optional(OutletList::Kind::Stop)
                                            : std::nullopt;
    if (!kind) return {};
    return OutletList{*kind, list[0].as_long(), list.subspan(2)};
}

std::optional<PlayedNote> parse_event_note(AtomSpan arguments) {
    if (arguments.size() < 6 || !is(arguments[0], "duration") || !is(arguments[2], "<note>") ||
        !is(arguments[5], "</note>")) {
        return {};
    }
    const Atom& duration = arguments[1];
    const Atom& pitch = arguments[3];
    const Atom& velocity = arguments[4];
    if (!is_finite_number(duration) || !is_finite_number(pitch) || !is_finite_number(velocity)) return {};
    PlayedNote note;
    note.duration_ms = std::max(duration.as_double(), 0.0);
    note.pitch = pitch.as_double();
    note.velocity = velocity.as_double();
    add_curves(note, curves(arguments));
    const auto stays = [&](const CurvePoint& point) { return point.value == note.pitch; };
    if (std::ranges::all_of(note.curve, stays)) note.curve.clear();
    return note;
}

std::optional<EventBuffer> parse_event_buffer(AtomSpan arguments) {
    if (arguments.size() < 2 || !is(arguments[0], "duration") || !is_finite_number(arguments[1])) return {};
    const std::size_t place = behind_message(arguments);
    if (place > arguments.size() || !is_buffer_component(arguments.subspan(place))) return {};
    const AtomSpan atoms = arguments.subspan(place);
    return EventBuffer{.duration_ms = std::max(arguments[1].as_double(), 0.0),
                       .name = atoms[1].as_symbol(),
                       .start_ms = atoms[2].as_double(),
                       .end_ms = atoms[3].as_double(),
                       .ratio = atoms[4].as_double()};
}

}  // namespace tq
