#include "shell/arguments.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace tq {

namespace {

std::string text_of(const Atom& atom) { return atom_gettext({&atom, 1}); }

std::string list_of(std::span<const char* const> words) {
    std::string list;
    for (const char* word : words) list += (list.empty() ? "" : ", ") + std::string(word);
    return list;
}

}  // namespace

Atom Arguments::take(const char* name) {
    if (left_.empty()) throw BadArgument{fmt::format("{} is missing", name)};
    const Atom atom = left_.front();
    left_ = left_.subspan(1);
    return atom;
}

double Arguments::number(const NumberArgument& argument) {
    const Atom atom = take(argument.name);
    const double value = atom.as_double();
    if (!atom.is_number() || value < argument.least || value > argument.most)
        throw BadArgument{fmt::format("{} has to be a number from {} to {}, not {}", argument.name,
                                      argument.least, argument.most, text_of(atom))};
    return value;
}

std::optional<double> Arguments::optional_number(const NumberArgument& argument) {
    return number_follows() ? std::optional(number(argument)) : std::nullopt;
}

std::string Arguments::text(const char* name) {
    const Atom atom = take(name);
    return atom.is_symbol() ? atom.as_symbol().text() : text_of(atom);
}

std::string Arguments::rest(const char* name) {
    if (left_.size() < 2) return text(name);
    return atom_gettext(std::exchange(left_, {}));
}

size_t Arguments::word(const char* name, std::span<const char* const> words) {
    const Atom atom = take(name);
    const auto found = std::ranges::find(words, std::string_view(atom.as_symbol().text()),
                                         [](const char* word) { return std::string_view(word); });
    if (!atom.is_symbol() || found == words.end())
        throw BadArgument{fmt::format("{} has to be one of {}, not {}", name, list_of(words), text_of(atom))};
    return static_cast<size_t>(found - words.begin());
}

size_t Arguments::optional_word(const char* name, std::span<const char* const> words) {
    return left_.empty() ? 0 : word(name, words);
}

void Arguments::end() const {
    if (!left_.empty()) throw BadArgument{fmt::format("{} is not expected there", text_of(left_.front()))};
}

}  // namespace tq
