#include "app/script/lines.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace tq {

namespace {

struct OutcomeName {
    FileLine::Kind kind;
    const char* name;
    bool has_text;
};
constexpr std::array outcome_names{OutcomeName{FileLine::Kind::Found, "found", true},
                                   OutcomeName{FileLine::Kind::Missing, "missing", false},
                                   OutcomeName{FileLine::Kind::Read, "read", true},
                                   OutcomeName{FileLine::Kind::Unreadable, "unreadable", true},
                                   OutcomeName{FileLine::Kind::Written, "written", false},
                                   OutcomeName{FileLine::Kind::Unwritable, "unwritable", true}};

constexpr std::string_view cancelled = "cancel";

}  // namespace

void AnsweredFile::write(const AnswerLine& answer, std::string& line) const {
    line += ' ';
    line += !answer.file                ? cancelled
            : *answer.file == cancelled ? "\"cancel\""  // a file of this name
                                        : message_word(*answer.file);
}

void AnsweredFile::read(AnswerLine& answer, Words& words) const {
    const bool cancel = words.next_is(cancelled);
    const std::string file = words.word("a file, or cancel");
    if (!cancel) answer.file = file;
}

void ChosenItem::write(const ChooseLine& choice, std::string& line) const {
    if (!choice.text) {
        line += std::string(" ") += cancelled;
    } else {
        if (choice.index) line += fmt::format(" item {}", *choice.index);
        const bool reserved = !choice.index && (*choice.text == cancelled || *choice.text == "item");
        line += reserved ? " \"" + *choice.text + '"' : ' ' + message_word(*choice.text);
    }
}

void ChosenItem::read(ChooseLine& choice, Words& words) const {
    const bool cancel = words.next_is(cancelled), item = words.next_is("item");
    const std::string word = words.word("an item, or cancel");
    if (cancel) return;
    if (item) choice.index = static_cast<long>(words.number("index", 0, 1e6));
    choice.text = item ? words.word("an item") : word;
}

void Picture::write(const PaintLine& paint, std::string& line) const {
    if (!paint.file.empty() || paint.ratio) line += ' ' + message_word(paint.file);
    if (paint.ratio) line += fmt::format(" {}", *paint.ratio);
}

void Picture::read(PaintLine& paint, Words& words) const {
    if (words.more()) paint.file = words.word("a file");
    if (words.more()) paint.ratio = words.number("pixel ratio", 0.5, 4);
}

void OutcomeOfFile::write(const FileLine& outcome, std::string& line) const {
    const auto row = std::ranges::find(outcome_names, outcome.kind, &OutcomeName::kind);
    line += std::string(" ") + row->name;
    if (row->has_text) line += ' ' + message_word(outcome.text);
}

void OutcomeOfFile::read(FileLine& outcome, Words& words) const {
    const std::string name = words.word("what comes of a file");
    const auto row = std::ranges::find(outcome_names, name, &OutcomeName::name);
    if (row == outcome_names.end()) throw ScriptFault{"", 0, "nothing that can come of a file: " + name};
    outcome.kind = row->kind;
    if (row->has_text) outcome.text = words.word("a file, or a reason");
}

DriverLine parse_line(std::string_view text) {
    if (!is_driver_line(text)) return parse_message(text);
    return parsed_by_table<DriverLine>(line_rows, text);
}

}  // namespace tq
