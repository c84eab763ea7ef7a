#include "app/window/shortcuts.h"

#include <QSet>
#include <QShortcut>
#include <QWidget>
#include <algorithm>

namespace tq {

namespace {

using enum ShortcutScope;
constexpr bool repeats = true;

/// Standard keys are not the same everywhere, and some have none: those that people look for have a row of
/// their own as well.
constexpr Shortcut rows[] = {
    {QKeySequence::New, Command::New},
    {QKeySequence::Open, WindowAction::Open},
    {QKeySequence::Save, Command::Save},
    {QKeySequence::SaveAs, Command::SaveAs},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_S, Command::SaveAs},
    {QKeySequence::Quit, WindowAction::Quit},
    {Qt::CTRL | Qt::Key_Q, WindowAction::Quit},
    {QKeySequence::Undo, Command::Undo, Window, repeats},
    {QKeySequence::Redo, Command::Redo, Window, repeats},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Command::Redo, Window, repeats},
    {QKeySequence::Cut, Command::Cut},
    {QKeySequence::Copy, Command::Copy},
    {QKeySequence::Paste, Command::Paste},
    {QKeySequence::SelectAll, Command::SelectAll},
    {Qt::CTRL | Qt::Key_D, Command::Duplicate},
    {Qt::Key_Space, Command::PlayOrStop},
    {Qt::CTRL | Qt::Key_K, WindowAction::Console},
    {Qt::CTRL | Qt::Key_Comma, WindowAction::Settings},
    {Qt::CTRL | Qt::Key_H, WindowAction::History},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_E, WindowAction::Events},
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
    {Qt::Key_Q, Command::Quantise, Canvas},
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
    {Qt::CTRL | Qt::Key_E, Command::ZoomToSelection, Canvas},
    {Qt::CTRL | Qt::Key_L, Command::LoopSelection, Canvas},
    {Qt::Key_T, WindowAction::TapTempo, Canvas},
};

constexpr Shortcut::What wanted_in_dialogs[] = {Command::Undo, Command::Redo, Command::Save,
                                                WindowAction::Quit};

}  // namespace

const char* text_of(WindowAction action) {
    static constexpr const char* texts[] = {"Open...",
                                            "Revert to Saved",
                                            "Export Sound...",
                                            "Export MIDI File...",
                                            "Export Picture...",
                                            "Bring Back the Previous Document",
                                            "Unsaved Work...",
                                            "Console",
                                            "Settings",
                                            "History",
                                            "Events",
                                            "Full Screen",
                                            "Keys and Mouse",
                                            "Tap the Tempo",
                                            "Quit"};
    return texts[static_cast<size_t>(action)];
}

QKeySequence Shortcut::sequence() const {
    return std::visit([](auto key) { return QKeySequence(key); }, keys);
}

std::span<const Shortcut> shortcuts() { return rows; }

void make_shortcuts(QWidget& window, QWidget& canvas, const std::function<void(Shortcut::What)>& act) {
    QSet<QKeySequence> made;  // two of the same would be ambiguous, and do nothing
    for (const Shortcut& row : rows) {
        const QKeySequence sequence = row.sequence();
        if (sequence.isEmpty() || made.contains(sequence)) continue;
        made.insert(sequence);
        const bool on_canvas = row.scope == ShortcutScope::Canvas;
        auto* shortcut = new QShortcut(sequence, on_canvas ? &canvas : &window);
        shortcut->setContext(on_canvas ? Qt::WidgetShortcut : Qt::WindowShortcut);
        shortcut->setAutoRepeat(row.repeats);
        QObject::connect(shortcut, &QShortcut::activated, &window, [act, what = row.what] { act(what); });
    }
}

void make_dialog_shortcuts(QWidget& dialog, const std::function<void(Shortcut::What)>& act) {
    QSet<QKeySequence> made;
    for (const Shortcut& row : rows) {
        const QKeySequence sequence = row.sequence();
        if (std::ranges::find(wanted_in_dialogs, row.what) == std::end(wanted_in_dialogs)) continue;
        if (row.scope != Window || sequence.isEmpty() || made.contains(sequence)) continue;
        made.insert(sequence);
        QObject::connect(new QShortcut(sequence, &dialog), &QShortcut::activated, &dialog,
                         [act, what = row.what] { act(what); });
    }
}

}  // namespace tq
