// The window's shortcuts: the commands of the box that have one, and what the window does itself.
#pragma once

#include <QKeySequence>
#include <functional>
#include <span>
#include <variant>

#include "interaction/commands.h"

class QWidget;

namespace tq {

enum class WindowAction {
    Open,
    Revert,
    ExportSound,
    ExportMidi,
    ExportPicture,
    BringBack,
    UnsavedWork,
    Console,
    Settings,
    History,
    Events,
    FullScreen,
    Keys,
    TapTempo,
    Quit
};
const char* text_of(WindowAction action);

enum class ShortcutScope {
    Window,
    Canvas  ///< while the box has the focus: whoever types a text keeps these keys
};

struct Shortcut {
    using What = std::variant<Command, WindowAction>;

    std::variant<QKeySequence::StandardKey, QKeyCombination> keys;
    What what;
    ShortcutScope scope = ShortcutScope::Window;
    bool repeats = false;  ///< while the key is held

    /// Empty where the platform has no such standard key.
    QKeySequence sequence() const;
};

/// A sequence may stand there twice, for the same thing.
std::span<const Shortcut> shortcuts();

/// Makes all of them call `act`, each as long as its widget exists.
void make_shortcuts(QWidget& window, QWidget& canvas, const std::function<void(Shortcut::What)>& act);

/// The same for a dialog beside the window: those that make sense while the focus is there.
void make_dialog_shortcuts(QWidget& dialog, const std::function<void(Shortcut::What)>& act);

}  // namespace tq
