// The window's shortcuts: the commands of the box that have one, and what the window does itself.
#pragma once

#include <QKeySequence>
#include <QList>

#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "interaction/commands.h"

class QWidget;

namespace tq {

enum class WindowAction {
    Open,
    Revert,
    ExportSound,
    ExportLoudSound,
    ExportMidi,
    ExportPicture,
    BringBack,
    UnsavedWork,
    AddSound,
    RunScript,
    StopScript,
    Console,
    Settings,
    History,
    RenameTrack,
    Levels,
    Events,
    FullScreen,
    Keys,
    TapTempo,
    QuantiseWith,
    HumaniseWith,
    Transpose,
    Stretch,
    Velocities,
    Crescendo,
    FadeCurve,
    SelectWhere,
    TimeSignature,
    Quit
};
const char* text_of(WindowAction action);

enum class ShortcutScope {
    Window,
    Canvas  ///< while the box has the focus: whoever types a text keeps these keys
};

struct Shortcut {
    using What = std::variant<Command, WindowAction>;

    QKeySequence sequence;
    What what;
    ShortcutScope scope = ShortcutScope::Window;
    bool repeats = false;  ///< while the key is held
};
/// The first key that does this, as menus show it; empty: none does.
QString key_text(const Shortcut::What& what);
/// In scripts and among the user's keys.
const char* name_of(const Shortcut::What& what);
/// Null: nothing has that name.
std::optional<Shortcut::What> find_by_name(std::string_view name);

/// What the user wants otherwise: all that presses one thing.
struct KeyChange {
    Shortcut::What what;
    QList<QKeySequence> keys;
};
/// From now on. Keys that are taken for one thing are no other's any more; later changes take precedence.
void use_keys(std::span<const KeyChange> changes);

/// Those in use. Each sequence is not empty and stands there once.
std::span<const Shortcut> shortcuts();

/// Makes all of them call `act`, instead of those that were made before, each as long as its widget exists.
void make_shortcuts(QWidget& window, QWidget& canvas, const std::function<void(Shortcut::What)>& act);

/// The same for a dialog beside the window: those that make sense while the focus is there.
void make_dialog_shortcuts(QWidget& dialog, const std::function<void(Shortcut::What)>& act);

}  // namespace tq
