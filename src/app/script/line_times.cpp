#include "app/script/line_times.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "app/patch/bar_beats.h"
#include "app/patch/calls.h"

namespace tq {

namespace {

constexpr double ms_a_minute = 60000;

/// What a word is about, and so how it can be told and whether it is rounded.
enum class Time { Position, Length, Exact };

struct TimeRow {
    std::string_view name;
    std::string_view first_argument;  ///< that makes it this row; empty: any
    Time time;
    size_t first, last;  ///< which words
};
constexpr TimeRow rows[] = {
    {"position", "", Time::Position, 1, 1},
    {"cyclerange", "", Time::Position, 1, 2},
    {"maxtime", "", Time::Position, 1, 1},
    {"split", "", Time::Position, 1, 1},
    {"select_where", "time", Time::Position, 2, 3},
    {"legato", "", Time::Length, 1, 1},
    {"humanise", "", Time::Length, 1, 1},
    {"humanize", "", Time::Length, 1, 1},
    {"quantise", "", Time::Exact, 1, 1},
    {"quantize", "", Time::Exact, 1, 1},
    {".wait", "", Time::Exact, 1, 1},
    {".transport", "", Time::Position, 1, 1},
    {".answer", "", Time::Exact, 2, 2},
    {".choose", "", Time::Exact, 2, 2},
    {".choose", "item", Time::Exact, 4, 4},
};

/// Of an event's parts.
constexpr std::string_view tags[] = {"<note>", "<message>", "<buffer>", "<parameter>", "<bpf>"};

using LineWords = std::span<MessageWord>;

bool is_digit(char c) { return std::isdigit(static_cast<unsigned char>(c)); }
bool is_blank(char c) { return std::isspace(static_cast<unsigned char>(c)); }

/// Digits, and a point among them.
std::optional<double> number_in(std::string_view text) {
    double value = 0;
    const bool begins = !text.empty() && (is_digit(text[0]) || text[0] == '.');
    const auto [end, fault] =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    const bool whole = fault == std::errc() && end == text.data() + text.size();
    return begins && whole ? std::optional(value) : std::nullopt;
}

/// "2b", "0.5b" or "2/3b", in beats.
std::optional<double> beats_in(std::string_view text) {
    if (!text.ends_with('b')) return {};
    text.remove_suffix(1);
    const size_t stroke = text.find('/');
    const std::optional<double> above = number_in(text.substr(0, stroke));
    if (stroke == text.npos || !above) return above;
    const std::optional<double> below = number_in(text.substr(stroke + 1));
    return below && *below > 0 ? std::optional(*above / *below) : std::nullopt;
}

/// Whether a word of the line may be such a time: most lines have none, and are left alone.
bool may_tell_beats(std::string_view line) {
    for (size_t i = 1; i < line.size(); ++i) {
        const bool ends = i + 1 == line.size() || is_blank(line[i + 1]);
        if (ends && line[i] == 'b' && (is_digit(line[i - 1]) || line[i - 1] == '.')) return true;
        if (!ends && line[i] == '@' && is_blank(line[i - 1]) && is_digit(line[i + 1])) return true;
    }
    return false;
}

class LineInMs {
 public:
    LineInMs(LineWords words, const BeatsInTime& beats) : words_(words), beats_(beats) {}

    bool run() {
        const size_t message = !words_.empty() && words_[0].text == ".send" ? 2 : 0;
        if (message >= words_.size()) return false;
        words_ = words_.subspan(message);
        if (words_[0].text == "event") event();
        for (const TimeRow& row : rows)
            if (words_[0].text == row.name && words_.size() > row.first &&
                (row.first_argument.empty() || words_[1].text == row.first_argument))
                for (size_t i = row.first; i <= std::min(row.last, words_.size() - 1); ++i)
                    put(words_[i], row.time);
        return changed_;
    }

 private:
    /// In ms; none when the word is no such time.
    std::optional<double> ms_of_word(const MessageWord& word, Time time) const {
        if (word.literal) return {};
        std::optional<double> ms;
        if (time == Time::Position && word.text.starts_with('@'))
            ms = ms_of_bar_text(beats_.meter, std::string_view(word.text).substr(1));
        else if (const std::optional<double> count = beats_in(word.text))
            ms = *count * ms_a_minute / beats_.tempo;
        return ms && *ms <= longest_time_ms ? ms : std::nullopt;
    }
    /// Whole ms, unless the document has what is between them.
    double kept(double ms) const { return beats_.meter.followstempo ? ms : std::round(ms); }
    std::optional<double> put(MessageWord& word, Time time) {
        const std::optional<double> ms = ms_of_word(word, time);
        if (ms) write(word, time == Time::Exact ? *ms : kept(*ms));
        return ms;
    }
    void write(MessageWord& word, double ms) {
        word.text = fmt::format("{}", ms);
        changed_ = true;
    }

    /// Parts as the box takes them apart; what is between tags that hold no times is passed over.
    void event() {
        MessageWord* length = nullptr;
        std::optional<double> start_ms, length_ms;
        for (size_t i = 1; i < words_.size(); ++i) {
            const std::string& word = words_[i].text;
            const bool more = i + 1 < words_.size();
            if (std::ranges::find(tags, word) != std::end(tags)) {
                const size_t end = end_of_tag(i);
                if (word == "<bpf>") curves(words_.subspan(i + 1, end - i - 1));
                i = end;
            } else if (word == "start" && more) {
                start_ms = put(words_[++i], Time::Position);
            } else if (word == "duration" && more) {
                length = &words_[++i];
                length_ms = put(*length, Time::Length);
            } else if (word == "label") {
                ++i;
            }
        }
        // So that the next one, which starts where this one ends, follows without a gap.
        if (start_ms && length_ms) write(*length, kept(*start_ms + *length_ms) - kept(*start_ms));
    }
    /// The index of the tag that closes the one at `open`, or behind the last word.
    size_t end_of_tag(size_t open) const {
        const std::string close = "</" + words_[open].text.substr(1);
        size_t end = open + 1;
        while (end < words_.size() && words_[end].text != close) ++end;
        return end;
    }
    /// Names, with times and values in turn behind each.
    void curves(LineWords words) {
        enum { Name, PointTime, Value } next = Name;
        for (MessageWord& word : words) {
            const bool number = !word.literal && number_like(word.text);
            if (next == PointTime && (put(word, Time::Length) || number))
                next = Value;
            else
                next = PointTime;  // behind a name or a value
        }
    }
    static bool number_like(std::string_view text) {
        if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
        return number_in(text).has_value();
    }

    LineWords words_;
    const BeatsInTime& beats_;
    bool changed_ = false;
};

std::string in_quotes(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

}  // namespace

std::string line_in_ms(const std::string& line, const BeatsInTime& beats) {
    if (!may_tell_beats(line)) return line;
    std::vector<MessageWord> words = message_words(line);
    if (!LineInMs(words, beats).run()) return line;
    std::string text;
    for (const MessageWord& word : words)
        text += (text.empty() ? "" : " ") + (word.literal ? in_quotes(word.text) : word.text);
    return text;
}

}  // namespace tq
