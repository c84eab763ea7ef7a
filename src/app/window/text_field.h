// Controls that are typed into: what was typed is said when the control is left, or on Return.
#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>
#include <utility>

#include "app/window/field_control.h"

namespace tq {

/// What a line and a text of lines have in common.
template <typename Edit>
class TypedField : public Edit, public FieldControl {
 public:
    QWidget& widget() override { return *this; }
    void display(const Field& field) override;
    void finish() override;

 protected:
    explicit TypedField(FieldUser user) : user_(std::move(user)) {}

    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

    virtual QString text_to_show(const Field& field) const;
    /// It differs from what is shown.
    virtual void say(const QString& text);

    const FieldUser& user() const { return user_; }
    const QString& shown() const { return shown_; }
    bool typing() const { return typing_; }
    void begin_typing();
    void take_back();

 private:
    FieldUser user_;
    QString shown_;
    bool typing_ = false;
    const void* about_ = nullptr;  ///< what it is typed for
};

class LineField : public TypedField<QLineEdit> {
 public:
    explicit LineField(const FieldUser& user);
};

/// Return begins a line, and with Ctrl it says what was typed; Tab leaves.
class MemoField final : public TypedField<QPlainTextEdit> {
 public:
    explicit MemoField(const FieldUser& user);
};

}  // namespace tq
