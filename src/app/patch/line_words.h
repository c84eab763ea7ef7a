// The words of a driver line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/atom.h"

namespace tq {

/// A line that is not understood, or does not fit what happens.
struct ScriptFault {
    std::string file;
    long line = 0;
    std::string what;
};

/// The words of a line, taken one by one. What does not fit throws a ScriptFault without file and line.
class Words {
 public:
    explicit Words(std::string_view line) : words_(message_words(line)) {}

    bool more() const { return next_ < words_.size(); }
    /// Whether the next word is this one, without quotes.
    bool next_is(std::string_view word) const {
        return more() && !words_[next_].literal && words_[next_].text == word;
    }
    /// Takes the next word if it is this one.
    bool take(std::string_view word) {
        const bool there = next_is(word);
        next_ += there;
        return there;
    }
    std::string word(const char* what);
    /// In double precision.
    double number(const char* what, double low, double high);
    /// All words that are left.
    Atoms rest();
    void end() const;

 private:
    std::vector<MessageWord> words_;
    size_t next_ = 0;
};

}  // namespace tq
