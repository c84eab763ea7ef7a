#include "app/script/script.h"

#include <fmt/format.h>

#include <cctype>
#include <istream>
#include <ostream>

#include "app/script/commands.h"

namespace tq {

namespace {

bool is_driver_line(const std::string& line) {
    return line.size() > 1 && line[0] == '.' && std::isalpha(static_cast<unsigned char>(line[1]));
}

std::string trimmed(const std::string& line) {
    size_t first = line.find_first_not_of(" \t\r"), last = line.find_last_not_of(" \t\r");
    return first == line.npos ? "" : line.substr(first, last - first + 1);
}

}  // namespace

Script::Script(const ScriptOptions& options, std::ostream& out) : out_(out), times_(options.times) {
    jbox_set_size(session_.box(), {options.width, options.height});
    session_.listen(*this);
    session_.host().patch.open_dialog = [this] {
        say("dialog open");
        return take_answer();
    };
    session_.host().patch.save_dialog = [this](const std::string& name) {
        say("dialog save " + name);
        return take_answer();
    };
    options.prepare(session_);
    paint_if_asked();  // a document's view is meant for the box as it is laid out
    if (!options.document.empty()) session_.open(options.document);
    paint_if_asked();
}

void Script::run(std::istream& lines, const std::string& name) {
    std::string line;
    for (long number = 1; std::getline(lines, line); ++number) {
        try {
            run_line(trimmed(line));
        } catch (ScriptFault& fault) {
            fault.file = name;
            fault.line = number;
            throw;
        }
        paint_if_asked();
    }
}

void Script::run_line(const std::string& line) {
    if (line.empty() || line[0] == '#') return;
    if (is_driver_line(line))
        run_command(*this, line);
    else
        session_.send(line);
}

std::optional<std::string> Script::take_answer() {
    if (answers_.empty()) return {};
    std::optional<std::string> answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
}

void Script::paint_if_asked() {
    if (!redraw_asked_) return;
    redraw_asked_ = false;
    painter_.paint(session_.box());
}

void Script::say(const std::string& line) {
    if (times_) out_ << fmt::format("{:.3f} ", session_.host().scheduler.now());
    out_ << line << '\n';
}

/// A plain list goes without its selector.
void Script::say_message(const std::string& from, Symbol selector, AtomSpan atoms) {
    static const Symbol list = gensym("list");
    Atoms words;
    if (selector != list) words.push_back(selector);
    words.insert(words.end(), atoms.begin(), atoms.end());
    say(from + " " + atom_gettext(words));
}

void Script::outlet(int outlet, Symbol selector, AtomSpan atoms) {
    say_message(fmt::format("out{}", outlet), selector, atoms);
}

void Script::dumpout(Symbol selector, AtomSpan atoms) { say_message("dump", selector, atoms); }

void Script::receiver(Symbol name, Symbol selector, AtomSpan atoms) {
    say_message("to " + atom_gettext(Atoms{name}), selector, atoms);
}

void Script::post(const std::string& text) { say("post " + text); }

void Script::error(const Object& object, const std::string& text) {
    say("error " + object_classname(object).text() + ": " + text);
}

}  // namespace tq
