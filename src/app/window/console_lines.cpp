#include "app/window/console_lines.h"

#include <QFileDialog>
#include <algorithm>

#include "app/script/known_words.h"
#include "app/script/message_advice.h"
#include "app/window/console.h"
#include "app/window/main_window.h"

namespace tq {

namespace {

std::string word_of(const std::vector<MessageWord>& words, size_t index) {
    return index < words.size() ? words[index].text : "";
}

}  // namespace

ConsoleLines::ConsoleLines(MainWindow& window, Console& console)
    : WindowLines(window, "console"), console_(console) {
    console.escaped = [this] { stop(); };
}

/// ".stop" does not wait for others.
void ConsoleLines::run(const std::vector<std::string>& lines) {
    if (lines == std::vector<std::string>{line_text(StopLine{})}) {
        console_.say("> " + lines.front());
        return stop();
    }
    for (size_t i = 0; i < lines.size(); ++i) add(lines[i], static_cast<long>(i) + 1);
    run_lines();
}

bool ConsoleLines::choose_and_run() {
    const QString path = QFileDialog::getOpenFileName(&window_, "Run Script", {}, "All files (*)");
    if (!path.isEmpty()) run({".run " + message_word(path.toStdString())});
    return !path.isEmpty();
}

/// The dialogs that are opened elsewhere are not the console's business.
void ConsoleLines::say(const std::string& line) {
    if (speaking()) console_.say(line);
}

void ConsoleLines::run_entered(const std::string& line, const ScriptPlace& place) {
    if (line.empty()) return;
    if (quiet().on()) return run_scripted(line, place);
    console_.say("> " + line);
    const std::vector<MessageWord> words = message_words(line);
    if (words.empty() || line[0] == '#') return;
    if (const std::optional<std::string> name = name_to_help_with(line))
        for (const std::string& text : help_on(*name)) console_.say(text);
    else if (is_driver_line(line))
        run_driver_line(line, place);
    else
        run_message(line, place);
}

void ConsoleLines::run_scripted(const std::string& line, const ScriptPlace& place) {
    if (is_driver_line(line))
        if (const std::string name = word_of(message_words(line), 0); is_of_journals(name))
            throw ScriptFault{place.file, place.line, "only journals have the line " + name};
    run_line(line, place);
}

void ConsoleLines::tell_fault(const ScriptFault& fault, bool in_script) {
    console_.say("error: " + (in_script ? text_of({fault.file, fault.line}) + ": " : "") + fault.what);
}

/// What it says stands on the console by now.
void ConsoleLines::tell_complaint(const ScriptPlace& place, const std::string&) {
    console_.say("  at " + text_of(place));
}

void ConsoleLines::run_message(const std::string& line, const ScriptPlace& place) {
    const MessageCall message = parse_message(in_ms(line));
    const bool begins_with_number = atom_setparse(line).front().is_number();
    std::vector<std::string> advice = advice_on(session().box(), message, begins_with_number);
    run_line(line, place);
    if (!begins_with_number && !is_understood(message.selector))
        if (const std::string meant = nearest_name(message_names(), message.selector.text()); !meant.empty())
            advice = {"did you mean \"" + meant + "\"?"};
    for (const std::string& text : advice) console_.say(text);
}

void ConsoleLines::run_driver_line(const std::string& line, const ScriptPlace& place) {
    const std::vector<MessageWord> words = message_words(line);
    const std::string name = word_of(words, 0);
    const bool is_command = name == ".command";
    const Names names = is_command ? command_names() : driver_line_names();
    const std::string wanted = word_of(words, is_command);
    try {
        run_scripted(line, place);
    } catch (const ScriptFault& fault) {
        tell_fault(fault, false);
    }
    if (is_of_journals(name) || std::ranges::find(names, wanted) != names.end()) return;
    if (const std::string meant = nearest_name(names, wanted); !meant.empty())
        console_.say("did you mean \"" + meant + "\"?");
}

}  // namespace tq
