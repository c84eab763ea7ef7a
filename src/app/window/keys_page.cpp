#include "app/window/keys_page.h"

#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include "app/patch/session.h"
#include "app/window/ask_for_key.h"
#include "app/window/key_changes.h"
#include "app/window/keys.h"
#include "app/window/shortcuts.h"
#include "app/window/window_state.h"
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
    {"", "drag an event", "moves the selection; with Ctrl or Alt, copies of it"},
    {"", "drag an edge", "moves the start or the end of the selected events"},
    {"Insert mode", "drag", "inserts an event and sets its length and pitch"},
    {"Slice mode", "click an event", "cuts it there"},
    {"Glue mode", "click an event", "joins it to the next one"},
    {"Zoom mode", "click, Ctrl-click", "zooms in, zooms out"},
    {"", "drag", "zooms to what it marks"},
    {"Edit Bpf Points mode", "click", "adds a point to the event's curve"},
    {"", "drag a point",
     "moves it, and those that are selected with it; a pitch with Shift by whole semitones"},
    {"", "Shift-click a point", "deletes it"},
    {"", "Ctrl-click an event", "chooses the event whose curve is edited"},
    {"Select Bpf Points mode", "drag", "selects points; with Shift, toggles them"},
    {"", "Ctrl-click an event", "chooses the event whose curve is edited"},
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

QString shown(const QKeySequence& sequence) { return sequence.toString(QKeySequence::NativeText); }

void add(KeyRows& rows, const Shortcut::What& what, const QKeySequence& sequence) {
    auto row = std::ranges::find(rows, what, &KeyRow::what);
    if (row == rows.end()) row = rows.insert(row, {{}, what});
    if (const QString key = shown(sequence); !key.isEmpty() && !row->keys.contains(key)) row->keys << key;
}

KeyRows shortcuts_of(ShortcutScope scope) {
    KeyRows rows;
    for (const Shortcut& row : shortcuts())
        if (row.scope == scope) add(rows, row.what, row.sequence);
    return rows;
}

bool is_taken(const QKeySequence& sequence) {
    return std::ranges::any_of(shortcuts(), [&](const Shortcut& row) { return row.sequence == sequence; });
}

/// The box's own, where no shortcut takes them, and the shortcuts that need its focus.
KeyRows canvas_keys() {
    KeyRows rows;
    for (const KeyCommand& row : key_commands())
        for (const QKeySequence& sequence : key_sequences({row.code, row.modifiers}))
            if (!is_taken(sequence)) add(rows, row.command, sequence);
    for (const KeyRow& row : shortcuts_of(ShortcutScope::Canvas))
        for (const QString& key : row.keys) add(rows, row.what, QKeySequence(key, QKeySequence::NativeText));
    return rows;
}

/// What has no key yet.
KeyRows without_keys(const KeyRows& canvas, const KeyRows& window) {
    KeyRows rows;
    const auto add_if_missing = [&](const Shortcut::What& what) {
        for (const KeyRows* with : {&canvas, &window})
            if (std::ranges::find(*with, what, &KeyRow::what) != with->end()) return;
        rows.push_back({{}, what});
    };
    for (const CommandRow& row : commands()) add_if_missing(row.id);
    for (int i = 0; i <= static_cast<int>(WindowAction::Quit); ++i)
        add_if_missing(static_cast<WindowAction>(i));
    return rows;
}

/// A command in the words of a box in which nothing was done yet.
QString text_of(Command command, const Prseq& blank) {
    const CommandRow& row = command_row(command);
    const bool is_mode = std::string_view(row.name).ends_with("_mode");
    return QString::fromStdString(row.text(blank)) + (is_mode ? " mode" : "");
}
QString text_of(WindowAction action, const Prseq&) { return text_of(action); }

constexpr int name_role = Qt::UserRole;

QTreeWidgetItem* add_section(QTreeWidget& tree, const QString& title) {
    auto* section = new QTreeWidgetItem(&tree, {title});
    QFont bold = tree.font();
    bold.setBold(true);
    section->setFont(0, bold);
    section->setFirstColumnSpanned(true);
    section->setExpanded(true);
    return section;
}

void add_keys(QTreeWidget& tree, const QString& title, const KeyRows& keys, const Prseq& blank) {
    QTreeWidgetItem* section = add_section(tree, title);
    for (const KeyRow& row : keys) {
        const QString text = std::visit([&](auto what) { return text_of(what, blank); }, row.what);
        auto* item = new QTreeWidgetItem(section, {row.keys.join(", "), text});
        item->setData(0, name_role, QString(name_of(row.what)));
    }
}

void add_mouse(QTreeWidget& tree) {
    QTreeWidgetItem* section = add_section(tree, "Mouse");
    QString where;
    for (const MouseRow& row : mouse_rows) {
        if (*row.where) where = row.where;
        new QTreeWidgetItem(section, {where + ": " + row.how, row.what});
    }
}

class KeysPage : public QDialog {
 public:
    KeysPage(QWidget& window, std::function<void()> changed)
        : QDialog(&window), changed_(std::move(changed)), search_(new QLineEdit), tree_(new QTreeWidget) {
        setObjectName("keys page");
        setWindowTitle("Keys and Mouse");
        search_->setPlaceholderText("Search");
        search_->setClearButtonEnabled(true);
        tree_->setColumnCount(2);
        tree_->setHeaderLabels({"Press", "Does"});
        tree_->setRootIsDecorated(false);
        tree_->setUniformRowHeights(true);
        tree_->setToolTip("A double click on a command, or Return, changes its keys");
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(search_);
        layout->addWidget(tree_);
        resize(first_width, first_height);
        keep_place(*this, "keys");
        connect(search_, &QLineEdit::textChanged, this, [this] { show_found(); });
        connect(tree_, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) { change(*item); });
        fill();
    }

    void fill() {
        tree_->clear();
        const Session session;
        const Prseq& blank = session.box();
        const KeyRows canvas = canvas_keys(), window = shortcuts_of(ShortcutScope::Window);
        add_keys(*tree_, "Keys of the canvas", canvas, blank);
        add_keys(*tree_, "Keys of the whole window", window, blank);
        add_mouse(*tree_);
        add_keys(*tree_, "Without a key", without_keys(canvas, window), blank);
        tree_->resizeColumnToContents(0);
        show_found();
    }

 private:
    void show_found() {
        const QString wanted = search_->text();
        for (int s = 0; s < tree_->topLevelItemCount(); ++s) {
            QTreeWidgetItem* section = tree_->topLevelItem(s);
            bool any = false;
            for (int i = 0; i < section->childCount(); ++i) {
                QTreeWidgetItem* row = section->child(i);
                const bool found = row->text(0).contains(wanted, Qt::CaseInsensitive) ||
                                   row->text(1).contains(wanted, Qt::CaseInsensitive);
                row->setHidden(!found);
                any = any || found;
            }
            section->setHidden(!any);
        }
    }

    void change(const QTreeWidgetItem& item) {
        const std::string name = item.data(0, name_role).toString().toStdString();
        const std::optional<Shortcut::What> what = find_by_name(name);
        if (!what) return;
        const std::optional<KeyAnswer> answer = ask_for_key(*this, item.text(1));
        if (!answer) return;
        std::string fault;
        if (!keep_key(*what, *answer, fault))
            QMessageBox::warning(this, "sorvo",
                                 "The keys could not be kept: " + QString::fromStdString(fault));
        std::vector<std::string> ignored;  // were told when the window was opened
        use_keys(kept_keys(ignored));
        fill();
        changed_();
    }

    std::function<void()> changed_;
    QLineEdit* search_;
    QTreeWidget* tree_;
};

}  // namespace

void show_keys_page(QWidget& window, const std::function<void()>& changed) {
    auto* page = static_cast<KeysPage*>(window.findChild<QDialog*>("keys page", Qt::FindDirectChildrenOnly));
    if (!page) page = new KeysPage(window, changed);
    page->fill();
    page->show();
    page->raise();
    page->activateWindow();
}

}  // namespace tq
