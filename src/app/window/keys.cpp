#include "app/window/keys.h"

#include <QKeyEvent>

#include "host/modifiers.h"
#include "interaction/key_commands.h"

namespace tq {

unsigned modifiers_of(Qt::KeyboardModifiers held) {
    constexpr struct {
        Qt::KeyboardModifier key;
        Modifier bit;
    } rows[] = {{Qt::ControlModifier, modifier_command},
                {Qt::ShiftModifier, modifier_shift},
                {Qt::MetaModifier, modifier_control},
                {Qt::AltModifier, modifier_option}};
    unsigned bits = 0;
    for (const auto& row : rows)
        if (held.testFlag(row.key)) bits |= row.bit;
    return bits;
}

std::optional<KeyPress> key_press(const QKeyEvent& event) {
    const unsigned modifiers = modifiers_of(event.modifiers());
    switch (event.key()) {
        case Qt::Key_Backspace:
        case Qt::Key_Delete:
            return KeyPress{key_backspace, modifiers};
        case Qt::Key_Left:
            return KeyPress{key_left, modifiers};
        case Qt::Key_Right:
            return KeyPress{key_right, modifiers};
        default:
            if (event.key() < Qt::Key_Exclam || event.key() > Qt::Key_AsciiTilde) return {};
            return KeyPress{QChar(event.key()).toLower().unicode(), modifiers};
    }
}

}  // namespace tq
