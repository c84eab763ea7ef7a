// Calls as text.
#include <algorithm>
#include <array>
#include <cctype>

#include "app/patch/calls.h"
#include "host/host.h"

namespace tq {

namespace {

struct ModifierName {
    const char* name;
    Modifier bit;
};
constexpr std::array modifier_names{
    ModifierName{"command", modifier_command}, ModifierName{"shift", modifier_shift},
    ModifierName{"control", modifier_control}, ModifierName{"option", modifier_option}};

/// In the order of MouseCall::Kind.
constexpr std::array<std::string_view, 6> mouse_kinds{"down", "drag", "up", "move", "double", "leave"};

constexpr const char* blanks = " \t\r\n";

/// What would be read as a driver's line or as a comment is escaped.
std::string escaped(std::string text) {
    if (text[0] == '#' || is_driver_line(text)) text.insert(0, 1, '\\');
    return text;
}

std::string message_line(const MessageCall& call) {
    if (!call.text.empty()) return escaped(call.text.substr(call.text.find_first_not_of(blanks)));
    std::string text = escaped(message_word(call.selector.text()));
    if (!call.arguments.empty()) text += ' ';
    return text + atom_gettext(call.arguments);
}

}  // namespace

void write_modifiers(unsigned modifiers, std::string& line) {
    for (const ModifierName& row : modifier_names)
        if (modifiers & row.bit) line += std::string(" ") + row.name;
}

unsigned read_modifiers(Words& words) {
    unsigned modifiers = 0;
    while (words.more()) {
        const std::string name = words.word("a modifier");
        const auto row = std::ranges::find(modifier_names, name, &ModifierName::name);
        if (row == modifier_names.end()) throw ScriptFault{"", 0, "no modifier: " + name};
        modifiers |= row->bit;
    }
    return modifiers;
}

void MouseKind::write(const MouseCall& call, std::string& line) const {
    line += ' ';
    line += mouse_kinds[static_cast<size_t>(call.kind)];
}

void MouseKind::read(MouseCall& call, Words& words) const {
    const std::string name = words.word("what the mouse does");
    const auto kind = std::ranges::find(mouse_kinds, name);
    if (kind == mouse_kinds.end()) throw ScriptFault{"", 0, "the mouse does not do this: " + name};
    call.kind = static_cast<MouseCall::Kind>(kind - mouse_kinds.begin());
}

void MouseButton::write(const MouseCall& call, std::string& line) const {
    if (call.right) line += " right";
}

void MouseButton::read(MouseCall& call, Words& words) const {
    call.right = words.take("right");
    if (!call.right) words.take("left");
}

void PlaceOfWindow::write(const CloseCall& call, std::string& line) const {
    if (call.position) fmt::format_to(std::back_inserter(line), " {} {}", call.position->x, call.position->y);
}

void PlaceOfWindow::read(CloseCall& call, Words& words) const {
    constexpr double far = 1e6;
    if (!words.more()) return;
    const double x = words.number("X", -far, far);
    call.position = Point{x, words.number("Y", -far, far)};
}

void SoundOfFormat::write(const SoundCall& call, std::string& line) const {
    if (!call.format) return;
    line += fmt::format(" {} {} {}", call.format->frames, call.format->channels, call.format->rate);
    if (!call.file.empty()) line += ' ' + message_word(call.file);
}

void SoundOfFormat::read(SoundCall& call, Words& words) const {
    if (!words.more()) return;
    call.format =
        SoundFormat{static_cast<long>(words.number("frames", 0, 1e9)),
                    static_cast<long>(words.number("channels", 1, 1024)), words.number("rate", 1, 1e9)};
    if (words.more()) call.file = words.word("a file");
    constexpr double most_samples = 1 << 28;
    if (static_cast<double>(call.format->frames) * static_cast<double>(call.format->channels) > most_samples)
        throw ScriptFault{"", 0, "too much sound"};
}

std::string line_text(const SessionCall& call) {
    const auto text = [](const auto& record) {
        if constexpr (std::is_same_v<std::decay_t<decltype(record)>, MessageCall>)
            return message_line(record);
        else
            return text_in_table(call_rows, record);
    };
    return std::visit(text, call);
}

bool is_driver_line(std::string_view line) {
    return line.size() > 1 && line[0] == '.' && std::isalpha(static_cast<unsigned char>(line[1]));
}

MessageCall parse_message(std::string_view text) { return message_of(atom_setparse(text)); }

MessageCall message_of(Atoms atoms) {
    if (atoms.empty()) return {};
    if (atoms.front().is_symbol())
        return {atoms.front().as_symbol(), Atoms(atoms.begin() + 1, atoms.end()), {}};
    if (atoms.size() > 1) return {gensym("list"), std::move(atoms), {}};
    return {gensym(atoms.front().is_int() ? "int" : "float"), std::move(atoms), {}};
}

SoundCall sound_call(const Host& host, Symbol name) {
    const Buffer* buffer = buffer_named(host, name);
    if (!buffer) return {name.text(), {}, ""};
    return {name.text(), buffer->use()->format(), buffer->path()};
}

}  // namespace tq
