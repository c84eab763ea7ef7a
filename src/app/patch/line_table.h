// A driver line is a record. A table has one row a record: its name and its fields, each of which reads and
// writes a member. The line's text and its parser are both made of the row, so they cannot disagree.
#pragma once

#include <fmt/format.h>

#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <variant>

#include "app/patch/line_words.h"

namespace tq {

/// A number, written so that it reads back as the same.
template <typename Record, typename Value>
struct Number {
    Value Record::*member;
    const char* what;
    double low = std::numeric_limits<double>::lowest(), high = std::numeric_limits<double>::max();

    void write(const Record& record, std::string& line) const {
        fmt::format_to(std::back_inserter(line), " {}", record.*member);
    }
    void read(Record& record, Words& words) const {
        record.*member = static_cast<Value>(words.number(what, low, high));
    }
};

template <typename Record, typename Value, typename... Limits>
Number(Value Record::*, const char*, Limits...) -> Number<Record, Value>;

/// A word.
template <typename Record>
struct Word {
    std::string Record::*member;
    const char* what;

    void write(const Record& record, std::string& line) const { line += ' ' + message_word(record.*member); }
    void read(Record& record, Words& words) const { record.*member = words.word(what); }
};

template <typename Record>
Word(std::string Record::*, const char*) -> Word<Record>;

/// A last word that may be left out; an empty one is.
template <typename Record>
struct LastWord {
    std::string Record::*member;
    const char* what;

    void write(const Record& record, std::string& line) const {
        if (!(record.*member).empty()) line += ' ' + message_word(record.*member);
    }
    void read(Record& record, Words& words) const {
        if (words.more()) record.*member = words.word(what);
    }
};

template <typename Record>
LastWord(std::string Record::*, const char*) -> LastWord<Record>;

/// A word that is there or not.
template <typename Record>
struct Flag {
    bool Record::*member;
    const char* word;

    void write(const Record& record, std::string& line) const {
        if (record.*member) line += std::string(" ") + word;
    }
    void read(Record& record, Words& words) const { record.*member = words.take(word); }
};

template <typename Record>
Flag(bool Record::*, const char*) -> Flag<Record>;

/// All words that follow.
template <typename Record>
struct LastWords {
    Atoms Record::*member;

    void write(const Record& record, std::string& line) const {
        if (!(record.*member).empty()) line += ' ' + atom_gettext(record.*member);
    }
    void read(Record& record, Words& words) const { record.*member = words.rest(); }
};

template <typename Record>
LastWords(Atoms Record::*) -> LastWords<Record>;

/// All words that follow, of which there is at least one.
template <typename Record>
struct SomeWords {
    Atoms Record::*member;
    const char* what;

    void write(const Record& record, std::string& line) const { line += ' ' + atom_gettext(record.*member); }
    void read(Record& record, Words& words) const {
        record.*member = words.rest();
        if ((record.*member).empty()) throw ScriptFault{"", 0, fmt::format("missing: {}", what)};
    }
};

template <typename Record>
SomeWords(Atoms Record::*, const char*) -> SomeWords<Record>;

/// A last number that may be left out.
template <typename Record>
struct LastNumber {
    std::optional<double> Record::*member;
    const char* what;
    double low, high;

    void write(const Record& record, std::string& line) const {
        if (record.*member) fmt::format_to(std::back_inserter(line), " {}", *(record.*member));
    }
    void read(Record& record, Words& words) const {
        if (words.more()) record.*member = words.number(what, low, high);
    }
};

template <typename Record>
LastNumber(std::optional<double> Record::*, const char*, double, double) -> LastNumber<Record>;

/// One of two words.
template <typename Record>
struct Either {
    bool Record::*member;
    const char *yes, *no;

    void write(const Record& record, std::string& line) const {
        line += std::string(" ") + (record.*member ? yes : no);
    }
    void read(Record& record, Words& words) const {
        const std::string word = words.word(fmt::format("{} or {}", yes, no).c_str());
        record.*member = word == yes;
        if (word != yes && word != no)
            throw ScriptFault{"", 0, fmt::format("neither {} nor {}: {}", yes, no, word)};
    }
};

template <typename Record>
Either(bool Record::*, const char*, const char*) -> Either<Record>;

template <typename RecordType, typename... Fields>
struct LineRow {
    using Record = RecordType;
    std::string_view name;
    std::tuple<Fields...> fields;
};

/// A row of a table.
template <typename Record, typename... Fields>
constexpr auto line_row(std::string_view name, Fields... fields) {
    return LineRow<Record, Fields...>{name, {fields...}};
}

/// Any record of a table, or one of `More`.
template <typename Table, typename... More>
struct RecordOf;
template <typename... Rows, typename... More>
struct RecordOf<std::tuple<Rows...>, More...> {
    using type = std::variant<More..., typename Rows::Record...>;
};

/// The line that stands for a record of the table.
template <typename Table, typename Record>
std::string text_in_table(const Table& table, const Record& record) {
    std::string text;
    const auto row_writes = [&](const auto& row) {
        if constexpr (std::is_same_v<typename std::decay_t<decltype(row)>::Record, Record>) {
            text = row.name;
            std::apply([&](const auto&... field) { (field.write(record, text), ...); }, row.fields);
        }
    };
    std::apply([&](const auto&... row) { (row_writes(row), ...); }, table);
    return text;
}

/// The record that a line of the table stands for. Throws a ScriptFault when it stands for none.
template <typename Line, typename Table>
Line parsed_by_table(const Table& table, std::string_view text) {
    Words words(text);
    const std::string name = words.word("a name");
    std::optional<Line> line;
    const auto row_reads = [&](const auto& row) {
        if (name != row.name) return false;
        typename std::decay_t<decltype(row)>::Record record;
        std::apply([&](const auto&... field) { (field.read(record, words), ...); }, row.fields);
        words.end();
        line = std::move(record);
        return true;
    };
    const bool found = std::apply([&](const auto&... row) { return (row_reads(row) || ...); }, table);
    if (!found) throw ScriptFault{"", 0, "no such line: " + name};
    return *std::move(line);
}

}  // namespace tq
