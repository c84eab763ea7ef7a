// What driver lines take, in words, from the fields of their rows.
#pragma once

#include <string>

#include "app/script/lines.h"

namespace tq {

inline std::string in_brackets(const std::string& text) { return "[" + text + "]"; }

/// A field that says what it is. Those that have more to say have a row of their own below.
template <typename Field>
std::string usage_of(const Field& field) {
    return field.what;
}
template <typename Record>
std::string usage_of(const LastWord<Record>& field) {
    return in_brackets(field.what);
}
template <typename Record>
std::string usage_of(const LastNumber<Record>& field) {
    return in_brackets(field.what);
}
template <typename Record>
std::string usage_of(const Flag<Record>& field) {
    return in_brackets(field.word);
}
template <typename Record>
std::string usage_of(const Either<Record>& field) {
    return std::string(field.yes) + "|" + field.no;
}
template <typename Record>
std::string usage_of(const LastWords<Record>&) {
    return "[words]";
}
template <typename Record>
std::string usage_of(const Modifiers<Record>&) {
    return "[shift] [control] [option] [command]";
}
inline std::string usage_of(const MouseKind&) { return "down|drag|up|move|double|leave"; }
inline std::string usage_of(const MouseButton&) { return "[left|right]"; }
inline std::string usage_of(const PlaceOfWindow&) { return "[X Y]"; }
inline std::string usage_of(const SoundOfFormat&) { return "[frames channels rate [a file]]"; }
inline std::string usage_of(const AnsweredFile&) { return "a file, or cancel"; }
inline std::string usage_of(const ChosenItem&) { return "an item, or cancel"; }
inline std::string usage_of(const Picture&) { return "[a file [pixel ratio]]"; }
inline std::string usage_of(const OutcomeOfFile&) { return "outcome [a file, or a reason]"; }

/// ".wheel X, Y, DX, DY": the name of a row, and its fields one after the other.
template <typename Row>
std::string usage_of_row(const Row& row) {
    std::string text(row.name);
    const auto add = [&](const auto& field) { text += (text == row.name ? " " : ", ") + usage_of(field); };
    std::apply([&](const auto&... field) { (add(field), ...); }, row.fields);
    return text;
}

}  // namespace tq
