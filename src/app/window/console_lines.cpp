#include "app/window/console_lines.h"

#include <algorithm>

#include "app/window/console.h"
#include "app/window/console_words.h"
#include "app/window/main_window.h"
#include "app/window/message_advice.h"

namespace tq {

namespace {

std::string word_of(const std::vector<MessageWord>& words, size_t index) {
    return index < words.size() ? words[index].text : "";
}

}  // namespace

ConsoleLines::ConsoleLines(MainWindow& window, Console& console) : WindowLines(window), console_(console) {}

void ConsoleLines::run(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) add(line);
    run_lines();
}

/// The dialogs that are opened elsewhere are not the console's business.
void ConsoleLines::say(const std::string& line) {
    if (running_) console_.say(line);
}

void ConsoleLines::run_one(const std::string& line) {
    console_.say("> " + line);
    const std::vector<MessageWord> words = message_words(line);
    if (words.empty() || line[0] == '#') return;
    running_ = true;
    if (words[0].text == "help" && !is_understood(gensym("help")))
        for (const std::string& text : help_on(word_of(words, 1))) console_.say(text);
    else if (is_driver_line(line))
        run_driver_line(line);
    else
        run_message(line);
    running_ = false;
}

void ConsoleLines::run_message(const std::string& line) {
    const MessageCall message = parse_message(line);
    const bool begins_with_number = atom_setparse(line).front().is_number();
    std::vector<std::string> advice = advice_on(session().box(), message, begins_with_number);
    run_line(line);
    if (!begins_with_number && !is_understood(message.selector))
        if (const std::string meant = nearest_name(message_names(), message.selector.text()); !meant.empty())
            advice = {"did you mean \"" + meant + "\"?"};
    for (const std::string& text : advice) console_.say(text);
}

void ConsoleLines::run_driver_line(const std::string& line) {
    const std::vector<MessageWord> words = message_words(line);
    const std::string name = word_of(words, 0);
    const bool is_command = name == ".command";
    const Names names = is_command ? command_names() : driver_line_names();
    const std::string wanted = word_of(words, is_command);
    try {
        if (is_of_journals(name)) throw ScriptFault{"", 0, "only journals have the line " + name};
        run_line(line);
    } catch (const ScriptFault& fault) {
        console_.say("error: " + fault.what);
    }
    if (is_of_journals(name) || std::ranges::find(names, wanted) != names.end()) return;
    if (const std::string meant = nearest_name(names, wanted); !meant.empty())
        console_.say("did you mean \"" + meant + "\"?");
}

}  // namespace tq
