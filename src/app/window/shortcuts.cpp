#include "app/window/shortcuts.h"

#include <QShortcut>
#include <QWidget>
#include <algorithm>
#include <iterator>
#include <vector>

namespace tq {

namespace {

using enum ShortcutScope;
constexpr bool repeats = true;

/// Standard keys are not the same everywhere, and some have none: those that people look for have a row of
/// their own as well.
constexpr struct {
    std::variant<QKeySequence::StandardKey, QKeyCombination> keys;
    Shortcut::What what;
    ShortcutScope scope = ShortcutScope::Window;
    bool repeats = false;
} rows[] = {
    {QKeySequence::New, Command::New},
    {QKeySequence::Open, WindowAction::Open},
    {QKeySequence::Save, Command::Save},
    {QKeySequence::SaveAs, Command::SaveAs},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_S, Command::SaveAs},
    {Qt::CTRL | Qt::Key_R, WindowAction::RunScript},
    {Qt::CTRL | Qt::Key_Period, WindowAction::StopScript},
    {QKeySequence::Quit, WindowAction::Quit},
    {Qt::CTRL | Qt::Key_Q, WindowAction::Quit},
    {QKeySequence::Undo, Command::Undo, Window, repeats},
    {QKeySequence::Redo, Command::Redo, Window, repeats},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Command::Redo, Window, repeats},
    {Qt::CTRL | Qt::Key_Y, Command::Redo, Window, repeats},
    {QKeySequence::Cut, Command::Cut},
    {QKeySequence::Copy, Command::Copy},
    {QKeySequence::Paste, Command::PasteAtPosition},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_V, Command::Paste},
    {QKeySequence::SelectAll, Command::SelectAll},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_A, Command::SelectAllTracks},
    {Qt::CTRL | Qt::Key_D, Command::Duplicate},
    {Qt::Key_Space, Command::PlayOrStop},
    {Qt::CTRL | Qt::Key_K, WindowAction::Console},
    {Qt::CTRL | Qt::Key_Comma, WindowAction::Settings},
    {Qt::CTRL | Qt::Key_H, WindowAction::History},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_E, WindowAction::Events},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_L, WindowAction::Levels},
    {Qt::Key_F11, WindowAction::FullScreen},
    {Qt::Key_F1, WindowAction::Keys},

    {Qt::Key_Home, Command::GoToStart, Canvas},
    {Qt::Key_End, Command::GoToEnd, Canvas},
    {Qt::Key_Escape, Command::SelectNothing, Canvas},
    {Qt::Key_Up, Command::TransposeUp, Canvas, repeats},
    {Qt::Key_Down, Command::TransposeDown, Canvas, repeats},
    {Qt::SHIFT | Qt::Key_Up, Command::OctaveUp, Canvas, repeats},
    {Qt::SHIFT | Qt::Key_Down, Command::OctaveDown, Canvas, repeats},
    {Qt::ALT | Qt::Key_Left, Command::MoveEarlier, Canvas, repeats},
    {Qt::ALT | Qt::Key_Right, Command::MoveLater, Canvas, repeats},
    {Qt::ALT | Qt::SHIFT | Qt::Key_Left, Command::Shorten, Canvas, repeats},
    {Qt::ALT | Qt::SHIFT | Qt::Key_Right, Command::Lengthen, Canvas, repeats},
    {Qt::Key_Return, Command::InsertEvent, Canvas},
    {Qt::Key_Enter, Command::InsertEvent, Canvas},
    {Qt::ALT | Qt::Key_Up, Command::Louder, Canvas, repeats},
    {Qt::ALT | Qt::Key_Down, Command::Softer, Canvas, repeats},
    {Qt::Key_N, Command::TimeSnap, Canvas},
    {Qt::Key_M, Command::MuteTrack, Canvas},
    {Qt::SHIFT | Qt::Key_M, Command::SoloTrack, Canvas},
    {Qt::Key_Q, Command::Quantise, Canvas},
    {Qt::SHIFT | Qt::Key_Q, WindowAction::QuantiseWith, Canvas},
    {Qt::SHIFT | Qt::Key_H, WindowAction::HumaniseWith, Canvas},
    {Qt::SHIFT | Qt::Key_T, WindowAction::Transpose, Canvas},
    {Qt::Key_L, Command::Legato, Canvas},
    {Qt::Key_H, Command::Humanise, Canvas},
    {Qt::Key_R, Command::Reverse, Canvas},
    {Qt::Key_S, Command::Split, Canvas},
    {Qt::Key_J, Command::Join, Canvas},
    {Qt::CTRL | Qt::Key_I, Command::InvertSelection, Canvas},
    {Qt::CTRL | Qt::Key_Up, Command::PreviousTrack, Canvas, repeats},
    {Qt::CTRL | Qt::Key_Down, Command::NextTrack, Canvas, repeats},
    {Qt::Key_1, Command::SelectMode, Canvas},
    {Qt::Key_2, Command::InsertMode, Canvas},
    {Qt::Key_3, Command::SliceMode, Canvas},
    {Qt::Key_4, Command::GlueMode, Canvas},
    {Qt::Key_5, Command::ZoomMode, Canvas},
    {Qt::Key_6, Command::EditBpfMode, Canvas},
    {Qt::Key_7, Command::SelectBpfMode, Canvas},
    {Qt::Key_8, Command::BufferMode, Canvas},
    {Qt::CTRL | Qt::Key_Plus, Command::ZoomIn, Canvas, repeats},
    {Qt::CTRL | Qt::Key_Equal, Command::ZoomIn, Canvas, repeats},
    {Qt::CTRL | Qt::Key_Minus, Command::ZoomOut, Canvas, repeats},
    {Qt::CTRL | Qt::Key_0, Command::ZoomOutAll, Canvas},
    {Qt::CTRL | Qt::Key_E, Command::ZoomNearSelection, Canvas},
    {Qt::Key_F, Command::ZoomToSong, Canvas},
    {Qt::CTRL | Qt::Key_L, Command::LoopSelection, Canvas},
    {Qt::CTRL | Qt::ALT | Qt::Key_L, Command::SelectLoop, Canvas},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_D, Command::RepeatLoop},
    {Qt::Key_F2, WindowAction::RenameTrack, Canvas},
    {Qt::Key_T, WindowAction::TapTempo, Canvas},
};

/// Each is the key of one thing: of two rows, the later one would do nothing.
constexpr bool are_different() {
    for (size_t i = 0; i < std::size(rows); ++i)
        for (size_t j = 0; j < i; ++j)
            if (rows[i].keys.index() == 1 && rows[i].keys == rows[j].keys) return false;
    return true;
}
static_assert(are_different());

constexpr struct {
    const char *name, *text;
} action_rows[] = {
    {"open_file", "Open..."},
    {"revert", "Revert to Saved"},
    {"export_sound", "Export Sound..."},
    {"export_sound_full_level", "Export Sound at Full Level..."},
    {"export_midi", "Export MIDI File..."},
    {"export_picture", "Export Picture..."},
    {"bring_back", "Bring Back the Previous Document"},
    {"unsaved_work", "Unsaved Work..."},
    {"add_sound", "Add Sound..."},
    {"run_script", "Run Script..."},
    {"stop_script", "Stop the Script"},
    {"console", "Console"},
    {"settings", "Settings"},
    {"history", "History"},
    {"rename_track", "Rename..."},
    {"levels", "Volume and Pan..."},
    {"events", "Events"},
    {"full_screen", "Full Screen"},
    {"keys", "Keys and Mouse"},
    {"tap_tempo", "Tap the Tempo"},
    {"quantise_with", "Quantise, Swing..."},
    {"humanise_with", "Humanise..."},
    {"transpose_by", "Transpose..."},
    {"stretch_by", "Stretch..."},
    {"velocities", "Change Velocities..."},
    {"crescendo", "Crescendo..."},
    {"fade", "Fade..."},
    {"select_where", "Select by Value..."},
    {"time_signature", "Time Signature..."},
    {"quit", "Quit"},
};

bool has(const std::vector<Shortcut>& made, const QKeySequence& sequence) {
    return std::ranges::find(made, sequence, &Shortcut::sequence) != made.end();
}

/// Those that the platform has, each once: two of the same would be ambiguous, and do nothing.
std::vector<Shortcut> beginning() {
    std::vector<Shortcut> made;
    for (const auto& row : rows) {
        const QKeySequence sequence = std::visit([](auto key) { return QKeySequence(key); }, row.keys);
        if (!sequence.isEmpty() && !has(made, sequence))
            made.push_back({sequence, row.what, row.scope, row.repeats});
    }
    return made;
}

std::vector<Shortcut>& in_use() {
    static std::vector<Shortcut> made = beginning();
    return made;
}

/// A key that writes something is a text's while one is typed.
bool writes(const QKeySequence& sequence) {
    const QKeyCombination keys = sequence[0];
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return !(keys.keyboardModifiers() & commands) && !(keys.key() >= Qt::Key_F1 && keys.key() <= Qt::Key_F35);
}

/// What has a key already keeps where it acts and whether it repeats.
Shortcut shortcut(const Shortcut::What& what, const QKeySequence& sequence) {
    for (const auto& row : rows)
        if (row.what == what)
            return {sequence, what, writes(sequence) ? ShortcutScope::Canvas : row.scope, row.repeats};
    return {sequence, what, writes(sequence) ? ShortcutScope::Canvas : ShortcutScope::Window};
}

constexpr Shortcut::What wanted_in_dialogs[] = {Command::Undo, Command::Redo, Command::Save,
                                                WindowAction::Quit};

}  // namespace

const char* text_of(WindowAction action) { return action_rows[static_cast<size_t>(action)].text; }

QString key_text(const Shortcut::What& what) {
    for (const Shortcut& row : shortcuts())
        if (row.what == what) return row.sequence.toString(QKeySequence::NativeText);
    return {};
}

const char* name_of(const Shortcut::What& what) {
    if (const auto* command = std::get_if<Command>(&what)) return command_row(*command).name;
    return action_rows[static_cast<size_t>(std::get<WindowAction>(what))].name;
}

std::optional<Shortcut::What> find_by_name(std::string_view name) {
    if (const CommandRow* row = find_command(name)) return row->id;
    for (size_t i = 0; i < std::size(action_rows); ++i)
        if (name == action_rows[i].name) return static_cast<WindowAction>(i);
    return {};
}

void use_keys(std::span<const KeyChange> changes) {
    std::vector<Shortcut>& made = in_use();
    made = beginning();
    for (const KeyChange& change : changes) {
        std::erase_if(made, [&](const Shortcut& row) {
            return row.what == change.what || change.keys.contains(row.sequence);
        });
        for (const QKeySequence& sequence : change.keys)
            if (!sequence.isEmpty() && !has(made, sequence)) made.push_back(shortcut(change.what, sequence));
    }
}

std::span<const Shortcut> shortcuts() { return in_use(); }

void make_shortcuts(QWidget& window, QWidget& canvas, const std::function<void(Shortcut::What)>& act) {
    static constexpr const char* name = "key";
    for (QWidget* widget : {&window, &canvas})
        qDeleteAll(widget->findChildren<QShortcut*>(name, Qt::FindDirectChildrenOnly));
    for (const Shortcut& row : shortcuts()) {
        const bool on_canvas = row.scope == ShortcutScope::Canvas;
        auto* shortcut = new QShortcut(row.sequence, on_canvas ? &canvas : &window);
        shortcut->setObjectName(name);
        shortcut->setContext(on_canvas ? Qt::WidgetShortcut : Qt::WindowShortcut);
        shortcut->setAutoRepeat(row.repeats);
        QObject::connect(shortcut, &QShortcut::activated, &window, [act, what = row.what] { act(what); });
    }
}

void make_dialog_shortcuts(QWidget& dialog, const std::function<void(Shortcut::What)>& act) {
    for (const Shortcut& row : shortcuts()) {
        if (std::ranges::find(wanted_in_dialogs, row.what) == std::end(wanted_in_dialogs)) continue;
        if (row.scope != Window) continue;
        QObject::connect(new QShortcut(row.sequence, &dialog), &QShortcut::activated, &dialog,
                         [act, what = row.what] { act(what); });
    }
}

}  // namespace tq
