// What keys do while the box has the keyboard.
#pragma once

#include <span>

#include "interaction/commands.h"

namespace tq {

/// Key codes of keys that make no character; others are characters.
enum KeyCode : long { key_backspace = -7, key_left = -11, key_right = -12 };

struct KeyCommand {
    long code;
    unsigned modifiers;  ///< exactly these
    Command command;
    bool (*applies)(const Prseq&) = [](const Prseq&) { return true; };
};
std::span<const KeyCommand> key_commands();

/// A key was pressed, with these modifiers held. One that is no command does nothing.
void prseq_key(Prseq& object, long code, unsigned modifiers);

}  // namespace tq
