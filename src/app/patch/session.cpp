#include "app/patch/session.h"

#include <cctype>

#include "app/patch/host_calls.h"
#include "app/patch/import.h"
#include "instance/symbols.h"
#include "instance/utilities.h"
#include "shell/instance.h"

namespace tq {

namespace {

/// The driver's own lines begin with a dot and comments with "#": a message that does is escaped.
std::string driver_line(std::string_view message) {
    const size_t begin = message.find_first_not_of(" \t\r\n");
    if (begin == message.npos) return {};
    const bool escape =
        message[begin] == '#' || (message[begin] == '.' && begin + 1 < message.size() &&
                                  std::isalpha(static_cast<unsigned char>(message[begin + 1])));
    return (escape ? "\\" : "") + std::string(message.substr(begin));
}

/// The text that parse_message() makes this message of.
std::string message_text(Symbol message, AtomSpan atoms) {
    std::string text = atom_gettext(Atoms{message});
    if (!atoms.empty()) text += ' ';
    return text + atom_gettext(atoms);
}

constexpr std::string_view receiver_schemes[] = {"gm:", "midi:", "osc:"};

bool exists_when_named(Symbol name) {
    for (std::string_view scheme : receiver_schemes)
        if (name.text().starts_with(scheme)) return true;
    return false;
}

}  // namespace

Session::Session() {
    host_.random.seed(time_seed());
    box_ = prseq_new(host_, BoxDictionary{});
    wire();
}

Session::~Session() {
    host_.patch = Patch();  // nobody listens to a box that goes away
}

void Session::wire() {
    auto tell = [this](auto what) {
        for (SessionListener* listener : listeners_) what(*listener);
    };
    host_.patch.post = [tell](const Object&, const std::string& text) {
        tell([&](auto& l) { l.post(text); });
    };
    host_.patch.error = [tell](const Object& object, const std::string& text) {
        tell([&](auto& l) { l.error(object, text); });
    };
    host_.patch.dumpout = [tell](Object&, Symbol selector, AtomSpan atoms) {
        tell([&](auto& l) { l.dumpout(selector, atoms); });
    };
    host_.patch.redraw = [tell](Object&) { tell([](auto& l) { l.redraw(); }); };
    host_.patch.outlet = [this, tell](Object&, int outlet, Symbol selector, AtomSpan atoms) {
        tell([&](auto& l) { l.outlet(outlet, selector, atoms); });
        if (feedback && outlet == OutletSystemInfo && selector == tq_sym_ticks && !atoms.empty())
            itm_setticks(*box_->transport, atoms[0].as_double());
    };
    host_.patch.make_receiver = [this](Symbol name) -> std::unique_ptr<Object> {
        return exists_when_named(name) ? relay(name) : nullptr;
    };
}

std::unique_ptr<Object> Session::relay(Symbol name) {
    return std::make_unique<Through>(host_, name, [this, name](Symbol selector, AtomSpan atoms) {
        for (SessionListener* listener : listeners_) listener->receiver(name, selector, atoms);
    });
}

void Session::make_receiver(Symbol name) {
    if (!name.empty() && !symbol_thing(host_, name)) host_.receivers.push_back(relay(name));
}

void Session::send(std::string_view text) {
    call([&] { return driver_line(text); },
         [&] {
             ParsedMessage message = parse_message(text);
             object_method_typed(*box_, message.selector, message.arguments);
         });
}

void Session::send(Symbol message, AtomSpan atoms) {
    call([&] { return driver_line(message_text(message, atoms)); },
         [&] { object_method_typed(*box_, message, atoms); });
}

bool Session::open(const std::string& path) {
    return is_midi_file(path) ? call_import(*this, path) : call_open(*this, path);
}

ParsedMessage parse_message(std::string_view text) {
    Atoms atoms = atom_setparse(text);
    if (atoms.empty()) return {};
    if (atoms.front().is_symbol()) return {atoms.front().as_symbol(), Atoms(atoms.begin() + 1, atoms.end())};
    if (atoms.size() > 1) return {gensym("list"), std::move(atoms)};
    return {gensym(atoms.front().is_int() ? "int" : "float"), std::move(atoms)};
}

}  // namespace tq
