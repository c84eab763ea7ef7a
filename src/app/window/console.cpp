#include "app/window/console.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <algorithm>

#include "host/object.h"

namespace tq {

namespace {

constexpr int kept_lines = 5000;

}  // namespace

Console::Console(Session& session) : text_(new QPlainTextEdit), line_(new QLineEdit) {
    text_->setReadOnly(true);
    text_->setMaximumBlockCount(kept_lines);
    text_->setObjectName("console text");
    line_->setObjectName("console line");
    line_->setPlaceholderText(
        "a message to the box, such as: event start 0 duration 500 <note> 60 100 </note>");
    line_->installEventFilter(this);
    for (QWidget* widget : {static_cast<QWidget*>(text_), static_cast<QWidget*>(line_)})
        widget->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(text_);
    layout->addWidget(line_);
    connect(line_, &QLineEdit::returnPressed, this, &Console::enter);
    session.listen(*this);
}

void Console::post(const std::string& text) { text_->appendPlainText(QString::fromStdString(text)); }

void Console::error(const Object& object, const std::string& text) {
    post("error " + object_classname(object).text() + ": " + text);
}

void Console::dumpout(Symbol selector, AtomSpan atoms) { post(selector.text() + " " + atom_gettext(atoms)); }

void Console::enter() {
    const QString text = line_->text().trimmed();
    line_->clear();
    if (text.isEmpty()) return;
    history_.removeAll(text);
    history_.append(text);
    recalled_ = history_.size();
    post("> " + text.toStdString());
    entered(text.toStdString());
}

void Console::recall(qsizetype step) {
    recalled_ = std::clamp(recalled_ + step, qsizetype{0}, history_.size());
    line_->setText(recalled_ < history_.size() ? history_[recalled_] : QString());
}

/// The arrow keys go through what was entered before.
bool Console::eventFilter(QObject* watched, QEvent* event) {
    if (watched == line_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            recall(key == Qt::Key_Up ? -1 : 1);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace tq
