#include "app/sound/event_message.h"

#include <algorithm>
#include <cmath>
#include <string_view>

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

// The pairs of value and time step that follow the name "Pitch".
std::vector<PitchPoint> pitch_curve(AtomSpan curves) {
    std::vector<PitchPoint> points;
    auto atom = std::ranges::find_if(curves, [](const Atom& a) { return is(a, "Pitch"); });
    if (atom == curves.end()) return points;
    double ms = 0;
    for (++atom; curves.end() - atom >= 2 && is_finite_number(atom[0]) && is_finite_number(atom[1]);
         atom += 2) {
        ms += std::max(atom[1].as_double(), 0.0);
        points.push_back({ms, atom[0].as_double()});
    }
    return points;
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
    note.curve = pitch_curve(curves(arguments));
    const auto stays = [&](const PitchPoint& point) { return point.pitch == note.pitch; };
    if (std::ranges::all_of(note.curve, stays)) note.curve.clear();
    return note;
}

}  // namespace tq
