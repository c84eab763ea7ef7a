#include "host/atom.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace tq {

namespace {

bool is_blank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

/// A token that is all number. Tokens such as "nan", "0x10" or "1e999" are not: they stay symbols.
std::optional<Atom> number_from(std::string_view token) {
    std::string_view digits = token;
    if (!digits.empty() && (digits[0] == '+' || digits[0] == '-')) digits.remove_prefix(1);
    if (digits.empty() || !(std::isdigit(static_cast<unsigned char>(digits[0])) || digits[0] == '.'))
        return {};
    if (token[0] == '+') token.remove_prefix(1);
    const char* end = token.data() + token.size();

    long integer = 0;
    if (auto [stop, fault] = std::from_chars(token.data(), end, integer); stop == end && fault == std::errc())
        return Atom(integer);
    double number = 0;
    auto [stop, fault] = std::from_chars(token.data(), end, number);
    if (stop != end || fault != std::errc() || !std::isfinite(static_cast<float>(number))) return {};
    return Atom(number);
}

void append_float(std::string& out, float number) {
    char digits[64];
    auto [end, fault] = std::to_chars(digits, digits + sizeof digits, number);
    std::string_view shortest(digits, static_cast<size_t>(end - digits));
    size_t mantissa = std::min(shortest.find('e'), shortest.size());
    out += shortest.substr(0, mantissa);
    if (shortest.find('.') == shortest.npos) out += '.';
    out += shortest.substr(mantissa);
}

bool needs_quotes(std::string_view text) {
    return text.empty() || text.find_first_of(" \t\n\r\"\\,;") != text.npos || number_from(text).has_value();
}

void append_symbol(std::string& out, std::string_view text) {
    if (!needs_quotes(text)) {
        out += text;
        return;
    }
    out += '"';
    for (char c : text) {
        if (c == '"' || c == '\\') out += '\\';
        out += c;
    }
    out += '"';
}

template <typename Visit>
void for_each_word(std::string_view text, Visit visit) {
    MessageWord word;
    size_t i = 0;
    while (i < text.size()) {
        if (is_blank(text[i])) {
            ++i;
            continue;
        }
        word.text.clear();
        word.literal = false;
        bool quoted = false;
        for (; i < text.size() && (quoted || !is_blank(text[i])); ++i) {
            if (text[i] == '"') {
                quoted = !quoted;
                word.literal = true;
            } else if (text[i] == '\\' && i + 1 < text.size()) {
                word.text += text[++i];
                word.literal = true;
            } else {
                word.text += text[i];
            }
        }
        visit(word);
    }
}

}  // namespace

long Atom::as_long() const {
    if (is_int()) return integer_;
    if (!is_float()) return 0;
    constexpr float limit = 9.2233720368547758e18F;
    if (number_ >= limit) return std::numeric_limits<long>::max();
    if (number_ <= -limit) return std::numeric_limits<long>::min();
    return static_cast<long>(number_);
}

double Atom::as_double() const {
    if (is_int()) return static_cast<double>(integer_);
    return is_float() ? static_cast<double>(number_) : 0.0;
}

bool operator==(const Atom& a, const Atom& b) {
    if (a.type_ != b.type_) return false;
    switch (a.type_) {
        case Atom::Type::Int:
            return a.integer_ == b.integer_;
        case Atom::Type::Float:
            return a.number_ == b.number_;
        case Atom::Type::Symbol:
            return a.symbol_ == b.symbol_;
    }
    return false;
}

std::string atom_gettext(AtomSpan atoms) {
    std::string out;
    for (const Atom& atom : atoms) {
        if (!out.empty()) out += ' ';
        switch (atom.type()) {
            case Atom::Type::Int:
                out += std::to_string(atom.as_long());
                break;
            case Atom::Type::Float:
                append_float(out, static_cast<float>(atom.as_double()));
                break;
            case Atom::Type::Symbol:
                append_symbol(out, atom.as_symbol().text());
                break;
        }
    }
    return out;
}

std::string message_word(std::string_view text) {
    std::string out;
    append_symbol(out, text);
    return out;
}

std::vector<MessageWord> message_words(std::string_view text) {
    std::vector<MessageWord> words;
    for_each_word(text, [&](const MessageWord& word) { words.push_back(word); });
    return words;
}

Atoms atom_setparse(std::string_view text) {
    Atoms atoms;
    for_each_word(text, [&](const MessageWord& word) {
        std::optional<Atom> number = word.literal ? std::nullopt : number_from(word.text);
        atoms.push_back(number ? *number : Atom(gensym(word.text)));
    });
    return atoms;
}

}  // namespace tq
