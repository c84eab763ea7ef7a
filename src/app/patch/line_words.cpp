#include "app/patch/line_words.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

namespace tq {

namespace {

[[noreturn]] void fault(const std::string& what) { throw ScriptFault{"", 0, what}; }

std::optional<double> number_in(const MessageWord& word) {
    const char *begin = word.text.data(), *end = begin + word.text.size();
    if (word.literal) return {};
    if (begin != end && *begin == '+') ++begin;
    double value = 0;
    auto [stop, error] = std::from_chars(begin, end, value);
    const bool number = stop == end && error == std::errc() && std::isfinite(value);
    return number ? std::optional(value) : std::nullopt;
}

}  // namespace

std::string Words::word(const char* what) {
    if (!more()) fault(fmt::format("missing: {}", what));
    return std::move(words_[next_++].text);
}

double Words::number(const char* what, double low, double high) {
    const std::optional<double> value = more() ? number_in(words_[next_]) : std::nullopt;
    if (!value) fault(fmt::format("missing: {}", what));
    if (!(*value >= low && *value <= high))
        fault(fmt::format("{} must lie between {} and {}", what, low, high));
    ++next_;
    return *value;
}

Atoms Words::rest() {
    Atoms atoms;
    for (; more(); ++next_) {
        const MessageWord& word = words_[next_];
        const Atoms parsed = word.literal ? Atoms{gensym(word.text)} : atom_setparse(word.text);
        atoms.insert(atoms.end(), parsed.begin(), parsed.end());
    }
    return atoms;
}

void Words::end() const {
    if (more()) fault("one word too many: " + words_[next_].text);
}

}  // namespace tq
