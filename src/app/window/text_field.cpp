#include "app/window/text_field.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTextCursor>
#include <algorithm>

#include "inspectors/patcher_helpers.h"

namespace tq {

namespace {

QString typed_in(const QLineEdit& edit) { return edit.text(); }
QString typed_in(const QPlainTextEdit& edit) { return edit.toPlainText(); }

void write(QLineEdit& edit, const QString& text) {
    const int cursor = edit.cursorPosition();
    edit.setText(text);
    edit.setCursorPosition(edit.hasFocus() ? cursor : 0);  // a long text is seen from its beginning
}
void write(QPlainTextEdit& edit, const QString& text) {
    const QSignalBlocker quiet(edit);
    const int cursor = edit.textCursor().position();
    edit.setPlainText(text);
    QTextCursor where = edit.textCursor();
    where.setPosition(std::min(cursor, static_cast<int>(text.size())));
    edit.setTextCursor(where);
}

bool says(const QLineEdit&, const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}
bool says(const QPlainTextEdit&, const QKeyEvent& key) {
    return (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) &&
           key.modifiers() & Qt::ControlModifier;
}

bool is_undo(const QKeyEvent& key) {
    return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
}

}  // namespace

template <typename Edit>
void TypedField<Edit>::begin_typing() {
    if (!std::exchange(typing_, true)) about_ = user_.subject();
}

template <typename Edit>
void TypedField<Edit>::take_back() {
    typing_ = false;
    write(*this, shown_);
}

template <typename Edit>
void TypedField<Edit>::display(const Field& field) {
    this->setEnabled(field.enabled());
    const QString text = text_to_show(field);
    const bool same = std::exchange(shown_, text) == text && (!typing_ || about_ == user_.subject());
    if (!same || (!typing_ && typed_in(*this) != text)) take_back();
}

template <typename Edit>
void TypedField<Edit>::finish() {
    if (!typing_) return;
    const QString text = typed_in(*this);
    take_back();  // until the field shows what has become of it
    if (text != shown_ && about_ == user_.subject()) say(text);
}

template <typename Edit>
QString TypedField<Edit>::text_to_show(const Field& field) const {
    return QString::fromStdString(TQ_Prseq_Utilities_GetTextAtomsFromSender(field));
}

template <typename Edit>
void TypedField<Edit>::say(const QString& text) {
    user_.does("value", {gensym(text.toStdString())});
}

/// While nothing is being typed, the window's undo is meant; while something is, Escape takes it back.
template <typename Edit>
bool TypedField<Edit>::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (!typing_ && is_undo(key)) {
            event->ignore();
            return false;
        }
        if (typing_ && key.key() == Qt::Key_Escape) {
            event->accept();
            return true;
        }
    }
    return Edit::event(event);
}

template <typename Edit>
void TypedField<Edit>::keyPressEvent(QKeyEvent* event) {
    if (says(*this, *event)) return finish();
    if (event->key() == Qt::Key_Escape && typing_) return take_back();
    Edit::keyPressEvent(event);
}

template <typename Edit>
void TypedField<Edit>::focusOutEvent(QFocusEvent* event) {
    Edit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) finish();
}

template class TypedField<QLineEdit>;
template class TypedField<QPlainTextEdit>;

LineField::LineField(const FieldUser& user) : TypedField(user) {
    connect(this, &QLineEdit::textEdited, this, [this] { begin_typing(); });
}

MemoField::MemoField(const FieldUser& user) : TypedField(user) {
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, [this] { begin_typing(); });
}

}  // namespace tq
