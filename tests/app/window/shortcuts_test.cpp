// Keys: the shortcuts, the page that lists them, and what follows of them for the pointer.
#include "app/window/shortcuts.h"

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QTreeWidget>

#include "app/script_fixture.h"
#include "app/window/key_changes.h"
#include "app/window/keys.h"
#include "app/window/pixmap.h"
#include "app/window/window_fixture.h"
#include "interaction/key_commands.h"
#include "view/pictures.h"

namespace tq::test {
namespace {

struct Heard : CallListener {
    explicit Heard(Session& session) : session_(session) { session.listen_to_calls(this); }
    ~Heard() override { session_.listen_to_calls(nullptr); }
    void calling(const SessionCall& call) override { lines.push_back(line_text(call)); }
    void called() override {}
    Lines lines;

 private:
    Session& session_;
};

struct ShortcutsTest : WindowTest {
    void press_all(const QKeySequence& keys) {
        QTest::keyClick(window.focusWidget(), keys[0].key(), keys[0].keyboardModifiers());
    }
    /// Without asking the platform, which has no pointer here.
    void point_at(Part part) {
        const Rect& rect = box.layout[part];
        const QPoint middle = QPointF(rect.x + rect.width / 2, rect.y + rect.height / 2).toPoint();
        QCursor::setPos(box_widget().mapToGlobal(middle));
        QTest::mouseMove(&box_widget(), middle);
    }
};

TEST(Shortcuts, EachDoesItsOwnAndTextsKeepTheirKeys) {
    QWidget window;
    QWidget canvas(&window);
    QLineEdit line(&window);
    canvas.setFocusPolicy(Qt::StrongFocus);
    std::vector<Shortcut::What> done;
    make_shortcuts(window, canvas, [&](const Shortcut::What& what) { done.push_back(what); });
    window.show();
    window.activateWindow();  // the platform of the tests does not do so by itself
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto after = [&](QWidget& focus, const Shortcut& row) {
        done.clear();
        focus.setFocus();
        const QKeyCombination keys = row.sequence[0];
        QTest::keyClick(&focus, keys.key(), keys.keyboardModifiers());
        return done;
    };
    for (const Shortcut& row : shortcuts()) {
        EXPECT_EQ(after(canvas, row), std::vector{row.what}) << row.sequence.toString().toStdString();
        EXPECT_TRUE(row.scope == ShortcutScope::Window || after(line, row).empty())
            << row.sequence.toString().toStdString();
    }
    const Shortcut redo{QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), Command::Redo};
    EXPECT_EQ(after(canvas, redo), std::vector{redo.what});
}

TEST_F(ShortcutsTest, TheConsoleKeepsWhatIsTyped) {
    session.send("event start 0 <note> 60 90 </note>");
    session.call(CommandCall{"select_all"});
    press(Qt::Key_K, Qt::ControlModifier);
    auto& line = part<QLineEdit>("console line");
    const std::string before = document_of(session);
    QTest::keyClicks(&line, "12 x");
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Home, Qt::Key_Delete, Qt::Key_End, Qt::Key_Return})
        QTest::keyClick(&line, key);
    EXPECT_TRUE(console_text().contains("> 2 x")) << console_text().toStdString();
    EXPECT_TRUE(line.hasFocus());
    EXPECT_EQ(document_of(session), before);
    EXPECT_EQ(box.maindisplay.mousemode, MouseMode::Select);
}

TEST_F(ShortcutsTest, WhatCannotBeDoneChangesNothing) {
    session.send("event start 0 <note> 60 90 </note>");
    press(Qt::Key_A);
    press(Qt::Key_C, Qt::ControlModifier);
    press(Qt::Key_Escape);
    for (const char* message : {"", "track_visible 0 0", "zoom_out_all", "undoredo_clear"}) {
        if (*message) session.send(message);
        for (const Shortcut& row : shortcuts()) {
            const auto* command = std::get_if<Command>(&row.what);
            if (!command || command_row(*command).enabled(box)) continue;
            if (*command == Command::Save) continue;  // asks for a file
            const std::string before = document_of(session);
            press_all(row.sequence);
            EXPECT_TRUE(document_of(session) == before) << command_row(*command).name << " " << message;
        }
    }
    EXPECT_FALSE(console_text().contains("error")) << console_text().toStdString();
    session.send("track_visible 0 1");
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box.tracks[0]->events.size(), 2u) << "what was copied first is still there";
}

TEST_F(ShortcutsTest, KeysEditTheSelection) {
    session.send("event start 0 duration 100 <note> 60 90 </note>");
    session.send("event start 400 duration 400 <note> 60 90 </note>");
    session.send("position 200");
    press(Qt::Key_A);
    const EventList& events = box.tracks[0]->events;
    press(Qt::Key_L);
    EXPECT_EQ(events.first()->duration, 400);
    press(Qt::Key_S);
    EXPECT_EQ(events.size(), 3u);
    press(Qt::Key_J);
    EXPECT_EQ(events.size(), 1u);
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(events.first()->velocity, 95);
    press(Qt::Key_I, Qt::ControlModifier);
    EXPECT_TRUE(events.selected().empty());
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box.history.items.back()->name(), "Scale Event Velocity");
    EXPECT_EQ(events.first()->velocity, 90);
}

TEST_F(ShortcutsTest, APageListsTheKeys) {
    session.send("event start 0 <note> 60 90 </note>");
    press(Qt::Key_A);
    press(Qt::Key_F1);
    press(Qt::Key_F1);
    const QList<QDialog*> pages = window.findChildren<QDialog*>();
    ASSERT_EQ(pages.size(), 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == pages[0]; }));
    EXPECT_FALSE(pages[0]->isModal());
    QStringList cells, keys;
    for (QTreeWidgetItemIterator item(pages[0]->findChild<QTreeWidget*>()); *item; ++item) {
        cells << (*item)->text(1);
        keys += (*item)->text(0).split(", ");
    }
    const auto expect_listed = [&](const QKeySequence& sequence, const QString& text) {
        const QString key = sequence.toString(QKeySequence::NativeText);
        EXPECT_TRUE(sequence.isEmpty() || keys.contains(key)) << key.toStdString();
        EXPECT_TRUE(cells.contains(text) || cells.contains(text + " mode")) << text.toStdString();
    };
    const Session blank;
    const auto text = [&](Command command) {
        return QString::fromStdString(command_row(command).text(blank.box()));
    };
    for (const KeyCommand& row : key_commands())
        for (const QKeySequence& sequence : key_sequences({row.code, row.modifiers}))
            expect_listed(sequence, text(row.command));
    for (const Shortcut& row : shortcuts())
        if (const auto* command = std::get_if<Command>(&row.what))
            expect_listed(row.sequence, text(*command));
        else
            expect_listed(row.sequence, text_of(std::get<WindowAction>(row.what)));
    EXPECT_TRUE(cells.contains("Undo") && cells.contains("Delete") && keys.contains("Backspace"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(pages[0]->isVisible());
    window.activateWindow();  // the platform of the tests does not do so by itself
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    press(Qt::Key_Delete);
    EXPECT_EQ(box.tracks[0]->events.size(), 0u) << "keys go to the canvas again";
}

/// What a person does on the page behind F1.
struct KeysPageTest : ShortcutsTest {
    ~KeysPageTest() override { use_keys({}); }
    QTreeWidgetItem* row(const char* text) {
        const auto rows = page().findItems(text, Qt::MatchExactly | Qt::MatchRecursive, 1);
        return rows.isEmpty() ? nullptr : rows.front();
    }
    QTreeWidget& page() { return *window.findChild<QDialog*>("keys page")->findChild<QTreeWidget*>(); }
    /// With no key, the button of this text is pressed.
    void change(const char* text, QKeyCombination key, const char* button = "OK") {
        QTimer::singleShot(50, [=] {
            QWidget* question = QApplication::activeModalWidget();
            if (key.key() != Qt::Key_unknown)
                QTest::keyClick(question->findChild<QLineEdit*>(), key.key(), key.keyboardModifiers());
            for (auto* choice : question->findChildren<QPushButton*>())
                if (choice->text().remove('&') == button) QTest::mouseClick(choice, Qt::LeftButton);
        });
        emit page().itemActivated(row(text), 0);
    }
    /// The platform of the tests does not go back to it by itself.
    void press_in_window(Qt::Key key) {
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        press(key);
    }
    std::string file() const { return text_of_file(state.file("sorvo/keys")); }
};

TEST_F(KeysPageTest, AKeyIsChangedForGood) {
    session.send("event start 0 duration 100 <note> 60 90 </note>");
    session.send("event start 300 duration 200 <note> 60 90 </note>");
    press(Qt::Key_A);
    press(Qt::Key_R);
    const std::string reversed = box.history.items.back()->name();
    press(Qt::Key_Up);
    press(Qt::Key_Down);
    press(Qt::Key_F1);
    change("Reverse", Qt::Key_Up);  // another's until now
    ASSERT_TRUE(row("Reverse"));
    EXPECT_EQ(row("Reverse")->text(0), "Up");
    EXPECT_EQ(row("Transpose Up")->text(0), "");
    press_in_window(Qt::Key_Up);
    EXPECT_EQ(box.history.items.back()->name(), reversed) << "the key is another's now";
    EXPECT_NE(file().find("\nreverse Up\n"), std::string::npos) << file();
    std::vector<std::string> faults;
    EXPECT_EQ(kept_keys(faults).size(), 1u);
    EXPECT_TRUE(faults.empty());
    change("Reverse", {}, "No Key");
    EXPECT_NE(file().find("\nreverse none\n"), std::string::npos) << file();
    change("Reverse", {}, "Restore Defaults");
    EXPECT_EQ(row("Reverse")->text(0), "R");
    press_in_window(Qt::Key_Up);
    EXPECT_EQ(box.tracks[0]->events.first()->pitch, 61);
}

TEST(KeyChanges, WhatIsWrongIsToldAndKept) {
    const StateFolder folder;
    std::vector<std::string> faults;
    const KeyChanges changes = parse_key_changes(
        "# mine\nquantise Ctrl+Q; F5\nsing Ctrl+S\n\nlegato\nsplit Nonsense+3\nkeys none\n", faults);
    EXPECT_EQ(faults,
              (std::vector<std::string>{"line 3: there is no command \"sing\"", "line 5: no key is given",
                                        "line 6: \"Nonsense+3\" is no key"}));
    ASSERT_EQ(changes.size(), 2u);
    EXPECT_EQ(changes[0].keys.size(), 2);
    EXPECT_TRUE(changes[1].keys.isEmpty());
    std::string fault;
    std::filesystem::create_directories(folder.path / "sorvo");
    folder.file_with("sorvo/keys", "# mine\nsing Ctrl+S\nlegato G");
    EXPECT_TRUE(
        keep_key(Command::Legato, QList<QKeySequence>{QKeySequence("B"), QKeySequence("Ctrl+,")}, fault));
    EXPECT_EQ(text_of_file(folder.file("sorvo/keys")), "# mine\nsing Ctrl+S\nlegato B; Ctrl+,\n");
}

TEST_F(ShortcutsTest, TheCursorFollowsTheModeThatAKeyChooses) {
    point_at(Part::MainDisplay);
    EXPECT_EQ(box_widget().cursor().shape(), Qt::ArrowCursor);
    const Heard heard(session);
    press(Qt::Key_2);
    QTest::qWait(30);
    EXPECT_EQ(heard.lines, Lines({".command insert_mode"})) << "where the pointer is leaves no traces";
    EXPECT_EQ(box_widget().cursor().pixmap().size(), QSize(16, 16));
    EXPECT_EQ(box_widget().cursor().hotSpot(), QPoint(4, 15));
    point_at(Part::KeyDisplay);
    EXPECT_EQ(box_widget().cursor().shape(), Qt::ArrowCursor);
    press(Qt::Key_3);
    QTest::qWait(30);
    EXPECT_EQ(box_widget().cursor().shape(), Qt::ArrowCursor);
}

TEST(Pixmaps, AreAsSharpAsTheScreen) {
    const SurfaceRef pencil = bundled_picture(gensym("cursor_pencil32.png"));
    ASSERT_TRUE(pencil);
    const QPixmap once = pixmap_of(*pencil, 1), twice = pixmap_of(*pencil, 2);
    EXPECT_EQ(once.size() * 2, twice.size());
    EXPECT_EQ(once.deviceIndependentSize(), twice.deviceIndependentSize());
    const QImage stretched = once.toImage().scaled(twice.size());
    EXPECT_NE(stretched, twice.toImage().convertToFormat(stretched.format())) << "drawn for that size";
    EXPECT_EQ(icon_of(*pencil).pixmap(QSize(16, 16), 2).size(), QSize(32, 32));
}

}  // namespace
}  // namespace tq::test
