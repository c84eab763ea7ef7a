#include "app/script/session_printer.h"

#include <fmt/format.h>

#include <ostream>

namespace tq {

std::string said_text(const std::string& from, Symbol selector, AtomSpan atoms) {
    static const Symbol list = gensym("list");
    Atoms words;
    if (selector != list) words.push_back(selector);
    words.insert(words.end(), atoms.begin(), atoms.end());
    return from + " " + atom_gettext(words);
}

SessionPrinter::SessionPrinter(Session& session, std::ostream& out, bool times)
    : session_(session), scheduler_(session.host().scheduler), out_(out), times_(times) {
    session.listen(*this);
}

void SessionPrinter::say(const std::string& line) {
    out_ << (times_ ? fmt::format("{:.3f} {}\n", scheduler_.now(), line) : line + '\n');
}

void SessionPrinter::say_message(const std::string& from, Symbol selector, AtomSpan atoms) {
    say(said_text(from, selector, atoms));
}

void SessionPrinter::outlet(int outlet, Symbol selector, AtomSpan atoms) {
    if (session_.hushed && is_report(outlet)) return;
    say_message(fmt::format("out{}", outlet), selector, atoms);
}

void SessionPrinter::dumpout(Symbol selector, AtomSpan atoms) { say_message("dump", selector, atoms); }

void SessionPrinter::receiver(Symbol name, Symbol selector, AtomSpan atoms) {
    say_message("to " + atom_gettext(Atoms{name}), selector, atoms);
}

void SessionPrinter::post(const std::string& text) {
    if (!session_.hushed) say("post " + text);
}

void SessionPrinter::error(const Object& object, const std::string& text) {
    if (!session_.hushed) say("error " + object_classname(object).text() + ": " + text);
}

}  // namespace tq
