// Each line's text parses back to an equal record: rows of the table are filled with what a seed chooses.
#include "app/script/lines.h"

#include <gtest/gtest.h>

#include <bit>
#include <random>
#include <sstream>

#include "app/script/framed_lines.h"

namespace tq {
namespace {

struct Filler {
    std::mt19937_64 random{7};

    size_t below(size_t count) { return random() % count; }
    std::string word() {
        static const std::string words[] = {
            "a",     "",  "two words", "\"q\\",    "7",  "1e5",      "cancel",
            ".wait", "#", "ä",         "\xff\xfe", "\n", "a\nb\r\n", std::string(1, '\0'),
            ";",     "in"};
        return words[below(std::size(words))] + (below(3) ? "" : words[below(std::size(words))]);
    }
    double number(double low, double high) {
        for (;;) {
            const double any = std::bit_cast<double>(random()),
                         part = static_cast<double>(below(1 << 30)) / (1 << 30);
            const double value = below(2) ? any : low + (high / 4 - low / 4) * 4 * part;
            if (value >= low && value <= high) return value;
        }
    }
    template <typename R, typename T>
    void fill(R& record, const Number<R, T>& field) {
        record.*field.member = static_cast<T>(number(field.low, field.high));
    }
    template <typename R>
    void fill(R& record, const Word<R>& field) {
        record.*field.member = word();
    }
    template <typename R>
    void fill(R& record, const LastWord<R>& field) {
        record.*field.member = word();
    }
    template <typename R>
    void fill(R& record, const LastNumber<R>& field) {
        if (below(2)) record.*field.member = number(field.low, field.high);
    }
    template <typename R>
    void fill(R& record, const Either<R>& field) {
        record.*field.member = below(2);
    }
    template <typename R>
    void fill(R& record, const Flag<R>& field) {
        record.*field.member = below(2);
    }
    template <typename R>
    void fill(R& record, const Modifiers<R>& field) {
        if (below(2)) record.*field.member = modifier_shift | modifier_option;
    }
    void fill(MouseCall& record, const MouseKind&) { record.kind = static_cast<MouseCall::Kind>(below(5)); }
    void fill(MouseCall& record, const MouseButton&) { record.right = below(2); }
    template <typename R>
    void fill(R& record, const LastWords<R>& field) {
        for (size_t i = below(4); i > 0; --i)
            (record.*field.member).push_back(below(2) ? Atom(gensym(word())) : Atom(number(-1e6, 1e6)));
    }
    template <typename R>
    void fill(R& record, const SomeWords<R>& field) {
        (record.*field.member) = {Atom(gensym(word()))};
        if (below(2)) (record.*field.member).emplace_back(number(-1e6, 1e6));
    }
    void fill(CloseCall& record, const PlaceOfWindow&) {
        if (below(2)) record.position = {number(-9999, 9999), number(-9999, 9999)};
    }
    void fill(SoundCall& record, const SoundOfFormat&) {
        if (below(2)) return;
        record.format =
            SoundFormat{static_cast<long>(below(1000)), static_cast<long>(1 + below(9)), number(1, 1e9)};
        record.file = word();
    }
    void fill(ChooseLine& record, const ChosenItem&) {
        if (below(3) == 0) return;
        record.text = word();
        if (below(2)) record.index = static_cast<long>(below(100));
    }
    void fill(PaintLine& record, const Picture&) {
        record.file = word();
        if (below(2)) record.ratio = number(0.5, 4);
    }
    void fill(AnswerLine& record, const AnsweredFile&) {
        if (below(2)) record.file = word();
    }
    void fill(FileLine& record, const OutcomeOfFile&) {
        record.kind = static_cast<FileLine::Kind>(below(6));
        using enum FileLine::Kind;
        if (record.kind != Missing && record.kind != Written) record.text = word();
    }
};

/// Of a file, as the driver takes it.
DriverLine read_back(const std::string& text) {
    std::string file, line;
    append_framed(file, text);
    std::istringstream stream(file);
    long number = 0;
    EXPECT_TRUE(read_framed(stream, line, number));
    return parse_line(line);
}

/// A file is read in parts of 4096 bytes.
TEST(Lines, ofAnyLengthAreTakenWhole) {
    std::string file;
    std::vector<std::string> lines;
    for (const size_t length : {0, 1, 4094, 4095, 4096, 8189, 8190, 8191, 100000, 4095}) {
        lines.emplace_back(length, 'x');
        if (length > 1) lines.back()[length / 2] = '\0';
        append_framed(file, lines.back());
    }
    file.pop_back();
    std::istringstream stream(file);
    std::string line;
    long number = 0;
    for (const std::string& expected : lines) {
        ASSERT_TRUE(read_framed(stream, line, number));
        EXPECT_EQ(line, expected) << number;
    }
    EXPECT_FALSE(read_framed(stream, line, number));
}

TEST(Lines, comeBackFromTheirText) {
    Filler filler;
    size_t lines = 0;
    const auto check = [&](const auto& row) {
        for (int i = 0; i < 300; ++i, ++lines) {
            typename std::decay_t<decltype(row)>::Record record;
            std::apply([&](const auto&... field) { (filler.fill(record, field), ...); }, row.fields);
            const std::string text = line_text(record);
            EXPECT_EQ(read_back(text), DriverLine(record)) << text;
        }
    };
    std::apply([&](const auto&... row) { (check(row), ...); }, line_rows);
    EXPECT_EQ(lines, 300 * std::tuple_size_v<decltype(line_rows)>);
}

TEST(Lines, ofMessagesComeBackFromTheirText) {
    Filler filler;
    for (int i = 0; i < 2000; ++i) {
        MessageCall call{gensym(filler.word()), {}, {}};
        for (size_t atoms = filler.below(4); atoms > 0; --atoms) {
            if (filler.below(2))
                call.arguments.emplace_back(gensym(filler.word()));
            else if (filler.below(2))
                call.arguments.emplace_back(static_cast<long>(filler.random()));
            else
                call.arguments.emplace_back(filler.number(-1e30, 1e30));
        }
        EXPECT_EQ(read_back(line_text(call)), DriverLine(call)) << line_text(call);
    }
}

}  // namespace
}  // namespace tq
