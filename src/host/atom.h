// The values that messages are made of, and their text.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/symbol.h"

namespace tq {

/// An int, a float or a symbol. A float atom holds single precision: what goes in is rounded to it.
class Atom {
 public:
    enum class Type : unsigned char { Int, Float, Symbol };

    Atom() : Atom(0L) {}
    Atom(long value) : integer_(value), type_(Type::Int) {}
    Atom(int value) : Atom(static_cast<long>(value)) {}
    Atom(double value) : number_(static_cast<float>(value)), type_(Type::Float) {}
    Atom(tq::Symbol value) : symbol_(value), type_(Type::Symbol) {}

    Type type() const { return type_; }
    bool is_int() const { return type_ == Type::Int; }
    bool is_float() const { return type_ == Type::Float; }
    bool is_number() const { return type_ != Type::Symbol; }
    bool is_symbol() const { return type_ == Type::Symbol; }

    /// A float is truncated towards zero and held within what a long holds; a symbol counts as 0.
    long as_long() const;
    /// An int is widened; a symbol counts as 0.
    double as_double() const;
    /// A number counts as the empty symbol.
    tq::Symbol as_symbol() const { return is_symbol() ? symbol_ : tq::Symbol(); }

    friend bool operator==(const Atom& a, const Atom& b);

 private:
    union {
        long integer_;
        float number_;
        tq::Symbol symbol_;
    };
    Type type_;
};

using Atoms = std::vector<Atom>;
using AtomSpan = std::span<const Atom>;

/// The text of atoms, separated by blanks; atom_setparse() of it gives the same atoms back.
/// Floats are the shortest text that reads back as the same single-precision number and always have a
/// point; symbols that would read as something else are quoted.
std::string atom_gettext(AtomSpan atoms);

/// One word of a message text.
struct MessageWord {
    std::string text;
    bool literal = false;  ///< quoted or escaped: a symbol, whatever it looks like
};
std::vector<MessageWord> message_words(std::string_view text);
/// A text as one word of a message text, in quotes if need be.
std::string message_word(std::string_view text);

/// The atoms of a message text: ints, floats and symbols between blanks; "…" holds a symbol together, a
/// backslash takes the next character as it is. A number that no atom can hold is a symbol.
Atoms atom_setparse(std::string_view text);

}  // namespace tq
