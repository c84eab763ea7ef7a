#include "app/window/console.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <QAction>
#include <QApplication>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSettings>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "app/patch/kept_list.h"
#include "app/script/known_words.h"
#include "app/script/session_printer.h"
#include "app/window/shortcuts.h"
#include "host/object.h"
#include "shell/instance.h"

namespace tq {

namespace {

constexpr int kept_lines = 5000;
constexpr int soon_ms = 40;
constexpr int longest_paste = 1 << 20;  // characters

constexpr KeptList kept_history("console", 500);

/// What edits a text is the console's while it has the focus; files and windows are the window's.
bool edits(const Shortcut::What& what) {
    using enum Command;
    const auto* command = std::get_if<Command>(&what);
    return command && *command != New && *command != Save && *command != SaveAs;
}

bool is_of_console(const QKeyEvent& event) {
    return std::ranges::any_of(shortcuts(), [&](const Shortcut& row) {
        return edits(row.what) && row.sequence == QKeySequence(event.keyCombination());
    });
}

bool is_typed(const QKeyEvent& event) {
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return !(event.modifiers() & commands) && !event.text().isEmpty() && event.text()[0].isPrint();
}

}  // namespace

Console::Console(Session& session)
    : session_(session), text_(new QPlainTextEdit), line_(new QLineEdit), history_(kept_history.lines()) {
    text_->setReadOnly(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text_->setMaximumBlockCount(kept_lines);
    text_->setObjectName("console text");
    line_->setObjectName("console line");
    line_->setMaxLength(longest_paste);
    line_->setPlaceholderText(
        "a message to the box, such as: event start 0 duration 500 <note> 60 100 </note>, or: help");
    for (QWidget* widget : {static_cast<QWidget*>(text_), static_cast<QWidget*>(line_)}) {
        widget->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        widget->installEventFilter(this);
    }
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(text_);
    auto* row = new QHBoxLayout;
    row->addWidget(line_);
    row->addWidget(make_filter());
    layout->addLayout(row);
    connect(line_, &QLineEdit::returnPressed, this, [this] { enter(); });
    // Line ends come with what is pasted or dropped. The line edit has to be done with it first.
    connect(line_, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (text.contains('\n')) QTimer::singleShot(0, this, [this] { enter(); });
    });
    soon_.setSingleShot(true);
    connect(&soon_, &QTimer::timeout, this, [this] { say_what_waits(); });
    session.listen(*this);
}

QToolButton* Console::make_filter() {
    auto* button = new QToolButton;
    button->setObjectName("console filter");
    button->setText("Show");
    button->setToolTip("What shows of that which leaves the box");
    button->setFocusPolicy(Qt::NoFocus);
    button->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(button);
    for (int i = 0; i < outlets; ++i)
        shown_[static_cast<size_t>(i)] =
            menu->addAction(QString::fromStdString(fmt::format("Outlet {}: {}", i, prseq_assist('o', i))));
    shown_.back() = menu->addAction("What receivers get");
    for (QAction* action : shown_) action->setCheckable(true);
    button->setMenu(menu);
    return button;
}

void Console::keep(QSettings& settings) const {
    for (size_t i = 0; i < shown_.size(); ++i)
        settings.setValue(QString("console/shows%1").arg(i), shown_[i]->isChecked());
}

void Console::restore(const QSettings& settings) {
    for (size_t i = 0; i < shown_.size(); ++i)
        shown_[i]->setChecked(settings.value(QString("console/shows%1").arg(i)).toBool());
}

/// Whatever its size is now, what was said last is seen.
void Console::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    QTimer::singleShot(
        0, this, [this] { text_->verticalScrollBar()->setValue(text_->verticalScrollBar()->maximum()); });
}

void Console::say(const std::string& text) {
    say_what_waits();
    text_->appendPlainText(QString::fromStdString(text));
}

/// What comes fast is shown together.
void Console::say_soon(const std::string& text) {
    waiting_.append(QString::fromStdString(text));
    if (waiting_.size() > kept_lines) waiting_.removeFirst();
    if (!soon_.isActive()) soon_.start(soon_ms);
}

void Console::say_what_waits() {
    if (!waiting_.isEmpty()) text_->appendPlainText(waiting_.join('\n'));
    waiting_.clear();
}

void Console::post(const std::string& text) {
    if (!session_.hushed) say(text);
}

void Console::error(const Object& object, const std::string& text) {
    if (!session_.hushed) say("error " + object_classname(object).text() + ": " + text);
}

void Console::dumpout(Symbol selector, AtomSpan atoms) { say(selector.text() + " " + atom_gettext(atoms)); }

void Console::outlet(int outlet, Symbol selector, AtomSpan atoms) {
    if (session_.hushed && is_report(outlet)) return;
    if (outlet < outlets && shown_[static_cast<size_t>(outlet)]->isChecked())
        say_soon(said_text(fmt::format("out{}", outlet), selector, atoms));
}

void Console::receiver(Symbol name, Symbol selector, AtomSpan atoms) {
    if (shown_.back()->isChecked()) say_soon(said_text("to " + atom_gettext(Atoms{name}), selector, atoms));
}

void Console::enter() {
    const QString text = line_->text();
    line_->clear();
    recalled_ = -1;
    if (text.size() >= longest_paste)
        return say("error: this is too long to be pasted; nothing of it was done");
    std::vector<std::string> lines;  // empty ones, too: they count
    for (const QString& line : text.split('\n')) lines.push_back(line.trimmed().toStdString());
    std::vector<std::string> kept = lines;
    std::erase(kept, "");
    if (kept.empty()) return;
    kept_history.add(kept);
    kept_history.put_first(history_, kept);
    entered(lines);
}

/// Steps back in what was entered, and forth to what was being typed.
void Console::recall(int step) {
    if (recalled_ < 0) typed_ = line_->text();
    recalled_ = std::clamp(recalled_ + step, -1, static_cast<int>(history_.size()) - 1);
    line_->setText(recalled_ < 0 ? typed_ : QString::fromStdString(history_[static_cast<size_t>(recalled_)]));
}

/// As far as it is certain; a second time, what is possible is listed.
void Console::complete() {
    const QString before = line_->text().left(line_->cursorPosition());
    const Names names = completions(before.toStdString());
    const QString word = before.mid(before.lastIndexOf(' ') + 1);
    const QString common = QString::fromStdString(common_beginning(names));
    if (names.size() == 1)
        line_->insert(common.mid(word.size()) + " ");
    else if (common.size() > word.size())
        line_->insert(common.mid(word.size()));
    else if (!names.empty())
        say(fmt::format("{}", fmt::join(names, " ")));
}

bool Console::take_key(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Up:
            recall(1);
            return true;
        case Qt::Key_Down:
            recall(-1);
            return true;
        case Qt::Key_Tab:
            complete();
            return true;
        case Qt::Key_Escape:
            escaped();
            return true;
        default:
            return false;
    }
}

/// Shortcuts that edit leave the console its keys. What is typed while the text has the focus goes to the
/// line.
bool Console::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && is_of_console(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (watched == line_ && take_key(key)) return true;
        if (watched == text_ && is_typed(key)) {
            line_->setFocus();
            return QApplication::sendEvent(line_, event);
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace tq
