#include "app/window/ask_for_key.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <functional>

namespace tq {

namespace {

/// Shows the key that was pressed last.
class KeyCatcher : public QLineEdit {
 public:
    KeyCatcher() {
        setReadOnly(true);
        setPlaceholderText("press it now");
    }
    QKeySequence pressed;
    std::function<void()> caught = [] {};

 protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ShortcutOverride) {
            event->accept();
            return true;
        }
        if (event->type() != QEvent::KeyPress) return QLineEdit::event(event);
        const auto& press = *static_cast<QKeyEvent*>(event);
        if (!is_modifier(press.key())) {
            // What Shift made of a character says it already.
            const bool has_shift = press.modifiers().testFlag(Qt::ShiftModifier) && !is_sign(press);
            Qt::KeyboardModifiers held = press.modifiers() & ~Qt::KeypadModifier;
            held.setFlag(Qt::ShiftModifier, has_shift);
            pressed = QKeySequence(QKeyCombination(held, Qt::Key(press.key())));
            setText(pressed.toString(QKeySequence::NativeText));
            caught();
        }
        return true;
    }

 private:
    static bool is_modifier(int key) {
        return key == 0 || key == Qt::Key_unknown || (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) ||
               key == Qt::Key_AltGr;
    }
    static bool is_sign(const QKeyEvent& press) {
        const QString text = press.text();
        return text.size() == 1 && text[0].isPrint() && !text[0].isLetter() && !text[0].isSpace();
    }
};

}  // namespace

std::optional<KeyAnswer> ask_for_key(QWidget& parent, const QString& what) {
    QDialog dialog(&parent);
    dialog.setObjectName("key question");
    dialog.setWindowTitle("Key");
    auto* edit = new KeyCatcher;
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel |
                                         QDialogButtonBox::RestoreDefaults);
    QPushButton* no_key = buttons->addButton("No Key", QDialogButtonBox::ActionRole);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(new QLabel("Press the key for: " + what));
    layout->addWidget(edit);
    layout->addWidget(buttons);
    QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
    for (QAbstractButton* button : buttons->buttons()) button->setFocusPolicy(Qt::NoFocus);
    ok->setEnabled(false);
    KeyAnswer answer;
    edit->caught = [ok] { ok->setEnabled(true); };
    QObject::connect(ok, &QPushButton::clicked, &dialog, [&] {
        answer = QList<QKeySequence>{edit->pressed};
        dialog.accept();
    });
    QObject::connect(no_key, &QPushButton::clicked, &dialog, [&] {
        answer = QList<QKeySequence>();
        dialog.accept();
    });
    QObject::connect(buttons->button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, &dialog,
                     [&] { dialog.accept(); });
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    edit->setFocus();
    if (dialog.exec() != QDialog::Accepted) return {};
    return answer;
}

}  // namespace tq
