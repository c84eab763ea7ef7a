#include "app/window/keys.h"

#include <QKeyEvent>

#include "host/modifiers.h"
#include "interaction/key_commands.h"

namespace tq {

namespace {

constexpr struct {
    Qt::KeyboardModifier key;
    Modifier bit;
} modifier_rows[] = {{Qt::ControlModifier, modifier_command},
                     {Qt::ShiftModifier, modifier_shift},
                     {Qt::MetaModifier, modifier_control},
                     {Qt::AltModifier, modifier_option}};

constexpr struct {
    Qt::Key key;
    long code;
} key_rows[] = {{Qt::Key_Backspace, key_backspace},
                {Qt::Key_Delete, key_backspace},
                {Qt::Key_Left, key_left},
                {Qt::Key_Right, key_right}};

}  // namespace

unsigned modifiers_of(Qt::KeyboardModifiers held) {
    unsigned bits = 0;
    for (const auto& row : modifier_rows)
        if (held.testFlag(row.key)) bits |= row.bit;
    return bits;
}

unsigned mouse_modifiers_of(Qt::KeyboardModifiers held) {
    const unsigned bits = modifiers_of(held);
    return bits & modifier_command ? bits | modifier_option : bits;
}

QList<QKeySequence> key_sequences(const KeyPress& press) {
    Qt::KeyboardModifiers held;
    for (const auto& row : modifier_rows) held.setFlag(row.key, press.modifiers & row.bit);
    QList<QKeySequence> sequences;
    for (const auto& row : key_rows)
        if (row.code == press.code) sequences << QKeySequence(QKeyCombination(held, row.key));
    if (press.code > 0)
        sequences << QKeySequence(QKeyCombination(
            held, static_cast<Qt::Key>(QChar(static_cast<int>(press.code)).toUpper().unicode())));
    return sequences;
}

std::optional<KeyPress> key_press(const QKeyEvent& event) {
    const unsigned modifiers = modifiers_of(event.modifiers());
    for (const auto& row : key_rows)
        if (row.key == event.key()) return KeyPress{row.code, modifiers};
    if (event.key() < Qt::Key_Exclam || event.key() > Qt::Key_AsciiTilde) return {};
    return KeyPress{QChar(event.key()).toLower().unicode(), modifiers};
}

}  // namespace tq
