// How a message or a driver's line is used, as docs/messages.md writes it: words in capitals are arguments,
// brackets hold what may be left out, `|` stands between words of which one is given, `…` behind what may be
// repeated.
#pragma once

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <functional>
#include <sstream>

#include "app/script_fixture.h"

namespace tq::test {

struct UsageWord {
    Lines choices;
    int brackets = 0;
    bool repeated = false;

    bool is_argument() const { return std::isupper(static_cast<unsigned char>(choices.front().front())); }
    /// Whether the argument is a word; other arguments are numbers.
    bool takes_words() const {
        static const Lines words{"NAME",    "TEXT", "MODE", "FILE", "CHANGE",
                                 "COMMAND", "ATOM", "PART", "VALUE"};
        return std::ranges::find(words, choices.front()) != words.end();
    }
};

struct Usage {
    std::vector<UsageWord> words;
    std::string file = "file";  ///< what stands for FILE in examples

    explicit Usage(const std::string& text) {
        std::istringstream stream(text);
        int open = 0;
        for (std::string word; stream >> word;) {
            UsageWord next;
            for (; word.front() == '['; word.erase(0, 1)) ++open;
            next.brackets = open;
            for (; word.back() == ']'; word.pop_back()) --open;
            static const std::string more = "…";
            next.repeated = word.ends_with(more);
            if (next.repeated) word.resize(word.size() - more.size());
            if (word.empty()) continue;
            std::istringstream choices(word);
            for (std::string choice; std::getline(choices, choice, '|');) next.choices.push_back(choice);
            words.push_back(next);
        }
    }
    const std::string& name() const { return words.front().choices.front(); }
    size_t needed() const {
        return static_cast<size_t>(std::ranges::count(words, 0, &UsageWord::brackets)) - 1;
    }
    /// How many examples show every choice at least once.
    size_t choices() const {
        size_t most = 1;
        for (const UsageWord& word : words) most = std::max(most, word.choices.size());
        return most;
    }

    struct Example {
        size_t choice = 0;
        bool all = false;        ///< with what may be left out
        size_t left_out = 0;     ///< so many words at the end
        bool wrong_end = false;  ///< the last argument is a number for a word, or a word for a number
    };
    std::string example(const Example& wanted) const {
        Lines line;
        std::string wrong;
        for (const UsageWord& word : words) {
            if (word.brackets && !wanted.all) continue;
            const std::string& choice = word.choices[wanted.choice % word.choices.size()];
            const bool argument = std::isupper(static_cast<unsigned char>(choice.front()));
            wrong = word.takes_words() ? "1" : "word";
            line.push_back(!argument ? choice : choice == "FILE" ? file : word.takes_words() ? "word" : "1");
        }
        line.resize(line.size() - wanted.left_out);
        if (wanted.wrong_end) line.back() = wrong;
        std::string text;
        for (const std::string& word : line) text += (text.empty() ? "" : " ") + word;
        return text;
    }
    /// Whether words that were said are such a line.
    bool fits(const Lines& said) const {
        for (size_t i = 0; i < words.size(); ++i) {
            if (words[i].repeated) return true;
            if (i >= said.size()) return false;
            if (!words[i].is_argument()) {
                if (said[i] != words[i].choices.front()) return false;
            } else if (!words[i].takes_words()) {
                char* end = nullptr;
                std::strtod(said[i].c_str(), &end);
                if (said[i].empty() || *end) return false;
            }
        }
        return said.size() == words.size();
    }
};

}  // namespace tq::test
