// The lines of the script driver: the calls from outside, and what the driver does itself.
#pragma once

#include <optional>
#include <string>
#include <tuple>

#include "app/patch/calls.h"

namespace tq {

/// Lets time pass.
struct WaitLine {
    double ms = 0;
    friend bool operator==(const WaitLine&, const WaitLine&) = default;
};
/// Paints now, into a PNG when there is a file. `ratio` is how many pixels of the picture make one of the
/// box; without, one.
struct PaintLine {
    std::string file;
    std::optional<double> ratio;
    friend bool operator==(const PaintLine&, const PaintLine&) = default;
};
/// Answers the next dialog; without a file, cancels it. `ms` is how long it is open.
struct AnswerLine {
    std::optional<std::string> file;
    std::optional<double> ms;
    friend bool operator==(const AnswerLine&, const AnswerLine&) = default;
};
/// Answers the next pop-up: with an item's text, or, where several have it, its index as well; without,
/// dismisses it. `ms` is how long it is open.
struct ChooseLine {
    std::optional<std::string> text;
    std::optional<long> index;
    std::optional<double> ms;
    friend bool operator==(const ChooseLine&, const ChooseLine&) = default;
};
/// What the next file access will answer.
struct FileLine {
    enum class Kind { Found, Missing, Read, Unreadable, Written, Unwritable };
    Kind kind = Kind::Missing;
    std::string text;  ///< the path found, the file that holds the bytes, or the reason
    friend bool operator==(const FileLine&, const FileLine&) = default;
};
/// What follows was recorded: files are not touched, pictures not painted.
struct ReplayLine {
    friend bool operator==(const ReplayLine&, const ReplayLine&) = default;
};
struct ShowLine {
    std::string what;
    friend bool operator==(const ShowLine&, const ShowLine&) = default;
};
/// Ends the program that listens.
struct QuitLine {
    friend bool operator==(const QuitLine&, const QuitLine&) = default;
};

/// The lines that follow are not answered one by one, or are again.
struct QuietLine {
    bool on = false;
    friend bool operator==(const QuietLine&, const QuietLine&) = default;
};
/// Runs the lines of a file.
struct RunLine {
    std::string file;
    friend bool operator==(const RunLine&, const RunLine&) = default;
};
/// Ends the scripts that are running.
struct StopLine {
    friend bool operator==(const StopLine&, const StopLine&) = default;
};

/// A file's name, or "cancel".
struct AnsweredFile {
    void write(const AnswerLine& answer, std::string& line) const;
    void read(AnswerLine& answer, Words& words) const;
};
/// "TEXT", "item INDEX TEXT" or "cancel".
struct ChosenItem {
    void write(const ChooseLine& choice, std::string& line) const;
    void read(ChooseLine& choice, Words& words) const;
};
/// A picture's file and its pixel ratio, both of which may be left out.
struct Picture {
    void write(const PaintLine& paint, std::string& line) const;
    void read(PaintLine& paint, Words& words) const;
};
/// A word for the kind, and a text where the kind has one.
struct OutcomeOfFile {
    void write(const FileLine& outcome, std::string& line) const;
    void read(FileLine& outcome, Words& words) const;
};

// clang-format off
inline constexpr auto line_rows = std::tuple_cat(call_rows, std::tuple{
    line_row<WaitLine>(".wait", Number{&WaitLine::ms, "ms", 0, longest_time_ms}),
    line_row<PaintLine>(".paint", Picture{}),
    line_row<AnswerLine>(".answer", AnsweredFile{}, LastNumber{&AnswerLine::ms, "ms", 0, longest_time_ms}),
    line_row<ChooseLine>(".choose", ChosenItem{}, LastNumber{&ChooseLine::ms, "ms", 0, longest_time_ms}),
    line_row<FileLine>(".file", OutcomeOfFile{}),
    line_row<ReplayLine>(".replay"),
    line_row<ShowLine>(".show", Word{&ShowLine::what, "what to show"}),
    line_row<QuietLine>(".quiet", Either{&QuietLine::on, "on", "off"}),
    line_row<RunLine>(".run", Word{&RunLine::file, "a file"}),
    line_row<StopLine>(".stop"),
    line_row<QuitLine>(".quit"),
});
// clang-format on

using DriverLine = RecordOf<std::remove_const_t<decltype(line_rows)>, MessageCall>::type;

/// The text of a line that is no call.
template <typename Line>
std::string line_text(const Line& line) requires(!std::is_constructible_v<SessionCall, Line>) {
    return text_in_table(line_rows, line);
}
/// Throws a ScriptFault without file and line when it is not understood.
DriverLine parse_line(std::string_view text);

}  // namespace tq
