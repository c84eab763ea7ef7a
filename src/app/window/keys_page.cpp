#include "app/window/keys_page.h"

#include <QDialog>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include "app/patch/session.h"
#include "app/window/keys.h"
#include "app/window/shortcuts.h"
#include "interaction/key_commands.h"

namespace tq {

namespace {

constexpr int first_width = 640, first_height = 700;

struct MouseRow {
    const char *where, *how, *what;  ///< no place: that of the row above
};
constexpr MouseRow mouse_rows[] = {
    {"Select mode", "click", "selects an event"},
    {"", "Shift-click", "adds an event to the selection, or takes it out"},
    {"", "drag beside events", "selects all that it touches; with Shift, toggles them"},
    {"", "drag an event", "moves the selection; with Alt, copies of it"},
    {"", "drag an edge", "moves the start or the end of the selected events"},
    {"Insert mode", "drag", "inserts an event and sets its length and pitch"},
    {"Slice mode", "click an event", "cuts it there"},
    {"Glue mode", "click an event", "joins it to the next one"},
    {"Zoom mode", "click, Alt-click", "zooms in, zooms out"},
    {"", "drag", "zooms to what it marks"},
    {"Edit Bpf Points mode", "click", "adds a point to the event's curve"},
    {"", "drag a point",
     "moves it, and those that are selected with it; a pitch with Shift by whole semitones"},
    {"", "Shift-click a point", "deletes it"},
    {"", "Alt-click an event", "chooses the event whose curve is edited"},
    {"Select Bpf Points mode", "drag", "selects points; with Shift, toggles them"},
    {"", "Alt-click an event", "chooses the event whose curve is edited"},
    {"Buffer Start/End mode", "drag an event", "moves the start or the end of what it plays of its sound"},
    {"Any mode", "right button", "menu"},
    {"Ruler", "click, drag", "moves the play position"},
    {"", "drag the loop, its edges", "moves the loop, its start or end"},
    {"Parameters", "drag", "sets the values under it; with Shift, only the first event's"},
    {"", "right button", "chooses what is shown"},
    {"Track list", "click", "a name makes the track active, the eye hides it, the speaker mutes it"},
    {"", "double click below the tracks", "new track"},
    {"Scrollbars", "drag", "scrolls; the short slider zooms; with Shift, finely"},
    {"Wheel", "alone, with Shift", "scrolls upright, sideways"},
    {"", "with Ctrl, with Ctrl+Shift", "zooms in time, in pitch, around the pointer"},
};

/// Keys that do the same stand in one row.
struct KeyRow {
    QStringList keys;
    Shortcut::What what;
};
using KeyRows = std::vector<KeyRow>;

void add(KeyRows& rows, const Shortcut::What& what, const QKeySequence& sequence) {
    const QString key = sequence.toString(QKeySequence::NativeText);
    auto row = std::ranges::find(rows, what, &KeyRow::what);
    if (row == rows.end()) row = rows.insert(row, {{}, what});
    if (!key.isEmpty() && !row->keys.contains(key)) row->keys << key;
}

KeyRows window_keys() {
    KeyRows rows;
    for (const Shortcut& row : shortcuts())
        if (row.scope == ShortcutScope::Window) add(rows, row.what, row.sequence());
    return rows;
}

/// The box's own and the shortcuts that need its focus.
KeyRows canvas_keys() {
    KeyRows rows;
    for (const KeyCommand& row : key_commands())
        for (const QKeySequence& sequence : key_sequences({row.code, row.modifiers}))
            add(rows, row.command, sequence);
    for (const Shortcut& row : shortcuts())
        if (row.scope == ShortcutScope::Canvas) add(rows, row.what, row.sequence());
    return rows;
}

/// A command in the words of a box in which nothing was done yet.
QString text_of(Command command, const Prseq& blank) {
    const CommandRow& row = command_row(command);
    const bool is_mode = std::string_view(row.name).ends_with("_mode");
    return QString::fromStdString(row.text(blank)) + (is_mode ? " mode" : "");
}
QString text_of(WindowAction action, const Prseq&) { return text_of(action); }

QString cell(const QString& text) { return "<td>" + text.toHtmlEscaped() + "</td>"; }
QString table(const QString& title, const QString& rows) {
    return "<h3>" + title + "</h3><table width='100%' cellspacing='0' cellpadding='3'>" + rows + "</table>";
}

QString key_table(const QString& title, const KeyRows& keys, const Prseq& blank) {
    QString rows;
    for (const KeyRow& row : keys) {
        const QString text = std::visit([&](auto what) { return text_of(what, blank); }, row.what);
        rows += "<tr>" + cell(row.keys.join(", ")) + cell(text) + "</tr>";
    }
    return table(title, rows);
}

QString mouse_table(const QString& title) {
    QString rows;
    for (const MouseRow& row : mouse_rows)
        rows += "<tr>" + cell(row.where) + cell(row.how) + cell(row.what) + "</tr>";
    return table(title, rows);
}

QString page_text() {
    const Session session;
    const Prseq& blank = session.box();
    return key_table("Keys of the canvas", canvas_keys(), blank) +
           key_table("Keys of the whole window", window_keys(), blank) + mouse_table("Mouse");
}

QDialog* make_page(QWidget& window) {
    auto* page = new QDialog(&window);
    page->setObjectName("keys page");
    page->setWindowTitle("Keys and Mouse");
    auto* text = new QTextBrowser;
    text->setHtml(page_text());
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(text);
    page->resize(first_width, first_height);
    return page;
}

}  // namespace

void show_keys_page(QWidget& window) {
    auto* page = window.findChild<QDialog*>("keys page", Qt::FindDirectChildrenOnly);
    if (!page) page = make_page(window);
    page->show();
    page->raise();
    page->activateWindow();
}

}  // namespace tq
