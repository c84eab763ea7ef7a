// Keys of the toolkit as the box knows them.
#pragma once

#include <QKeySequence>
#include <QList>

#include <optional>

class QKeyEvent;

namespace tq {

struct KeyPress {
    long code = 0;           ///< a character, or one of interaction/key_commands.h
    unsigned modifiers = 0;  ///< bits of host/modifiers.h
};

/// The bits of host/modifiers.h for modifier keys that are held.
unsigned modifiers_of(Qt::KeyboardModifiers held);
/// The same for the mouse: Ctrl is Alt as well, since desktops move windows by Alt.
unsigned mouse_modifiers_of(Qt::KeyboardModifiers held);
/// The keys that press one of the box's own.
QList<QKeySequence> key_sequences(const KeyPress& press);
/// None for keys that the box knows nothing of.
std::optional<KeyPress> key_press(const QKeyEvent& event);

}  // namespace tq
