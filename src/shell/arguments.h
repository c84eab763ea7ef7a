// The arguments of a message, taken one after the other. What is wrong is told by the name of the argument.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "host/atom.h"

namespace tq {

/// What is wrong with an argument, for the user.
struct BadArgument {
    std::string text;
};

/// The name of an argument and the values that it may have, both ends included.
struct NumberArgument {
    const char* name;
    double least, most;
};

/// Every member throws BadArgument where the arguments are not what is asked for.
class Arguments {
 public:
    explicit Arguments(AtomSpan atoms) : left_(atoms) {}

    double number(const NumberArgument& argument);
    /// None when there is none, or a word stands in its place.
    std::optional<double> optional_number(const NumberArgument& argument);
    /// Any atom, as text.
    std::string text(const char* name);
    /// All that is left, which must be something, as text.
    std::string rest(const char* name);
    /// The index of a word, which has to be one of these.
    size_t word(const char* name, std::span<const char* const> words);
    /// The same, or the first of them when nothing is left.
    size_t optional_word(const char* name, std::span<const char* const> words);
    /// Whether there is no argument left.
    bool empty() const { return left_.empty(); }
    /// The next argument where it is a word, else nothing; it is not taken.
    std::string word_ahead() const {
        return empty() || !left_.front().is_symbol() ? "" : left_.front().as_symbol().text();
    }
    bool number_follows() const { return !left_.empty() && left_.front().is_number(); }
    /// There must be none left.
    void end() const;

 private:
    Atom take(const char* name);

    AtomSpan left_;
};

}  // namespace tq
