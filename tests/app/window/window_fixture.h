// A window, and what a person does to its parts.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "app/window/box_widget.h"
#include "app/window/main_window.h"
#include "temporary_folder.h"

namespace tq::test {

/// What a person does in the next file dialog.
inline void answer_file_dialog(const QString& file) {
    QTimer::singleShot(50, [file] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog) return answer_file_dialog(file);
        if (file.isEmpty()) return dialog->reject();
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(file);
        QMetaObject::invokeMethod(dialog, "accept");
    });
}

/// Presses a button of the next question.
inline void answer_question(QMessageBox::StandardButton button) {
    QTimer::singleShot(30, [button] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box) return answer_question(button);
        box->button(button)->click();
    });
}

/// What is kept between sessions is kept here.
struct StateFolder : TemporaryFolder {
    StateFolder() {
        for (const char* variable : {"XDG_STATE_HOME", "XDG_CONFIG_HOME"})
            ::setenv(variable, path.c_str(), 1);
    }
};

struct WindowTest : testing::Test {
    StateFolder state;
    MainWindow window{Loudspeaker{nullptr, "not in a test"}};
    Session& session = window.session();
    Prseq& box = session.box();

    WindowTest() {
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    template <typename Widget>
    Widget& part(const char* name = "") {
        return *window.findChild<Widget*>(name);
    }
    BoxWidget& box_widget() { return window.box(); }
    void press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window.focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    QString console_text() { return part<QPlainTextEdit>("console text").toPlainText(); }
    void enter(const char* line) {
        part<QLineEdit>("console line").setFocus();
        QTest::keyClicks(&part<QLineEdit>("console line"), line);
        QTest::keyClick(&part<QLineEdit>("console line"), Qt::Key_Return);
    }
};

}  // namespace tq::test
