// The inspectors' windows, worked with by mouse and keys.
#include "app/window/inspector_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTableWidget>
#include <QTimer>
#include <QToolButton>
#include <QWheelEvent>

#include "app/script_fixture.h"
#include "app/window/window_fixture.h"
#include "temporary_folder.h"
#include "view/maindisplay.h"
#include "view/menu_bar.h"

namespace tq::test {
namespace {

struct InspectorWindows : WindowTest {
    InspectorWindows() {
        for (const char* message :
             {"zoom_animation 0", "zoom_hor 0", "zoom_vert 0.02", "scroll_vert 0.5", "track_add Piano",
              "track_bpf_add Gain 0 10 5", "event start 1000 duration 2000 label lead <note> 60 90 </note>",
              "event start 4000 duration 500 <note> 64 80 </note>"})
            session.send(message);
        session.send("undoredo_dump");  // the burst is over
        select(0);
    }

    void select(size_t index) {
        const MainDisplay& md = box.maindisplay;
        const Point p = TQ_Prseq_Maindisplay_CalculateDisplayPositionFromStartAndPitch(
            box, md, event(index).start + event(index).duration / 2, event(index).pitch + 0.5);
        const QPointF at(md.rect.x + p.x, md.rect.y + p.y - md.verticalscroll);
        session.call(CommandCall{"select_nothing"});
        QTest::mouseMove(&box_widget(), at.toPoint());
        QTest::mouseClick(&box_widget(), Qt::LeftButton, {}, at.toPoint());
        ASSERT_EQ(box.tracks[0]->events.selected(), std::vector{&event(index)});
    }
    Event& event(size_t index = 0) { return *box.tracks[0]->events.at(index); }
    /// The steps that can be undone.
    long items() const { return box.history.cursor + 1; }

    QWidget* form() {
        for (QWidget* each : window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            if (each->isWindow() && each->isVisible() && dynamic_cast<InspectorWindow*>(each)) return each;
        return nullptr;
    }
    QWidget& open(const char* message) {
        session.send(message);
        activate(*form());
        return *form();
    }
    static void activate(QWidget& widget) {
        widget.activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &widget; }));
    }
    template <typename Widget>
    Widget& control(const char* name) {
        return *form()->findChild<Widget*>(name);
    }
    QLineEdit& line(const char* name) { return control<QLineEdit>(name); }
    void type(const char* name, const char* text, int end = Qt::Key_Return) {
        QLineEdit& edit = line(name);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, text);
        if (end) QTest::keyClick(&edit, static_cast<Qt::Key>(end));
    }
    void undo() { QTest::keyClick(form()->focusWidget(), Qt::Key_Z, Qt::ControlModifier); }
};

TEST_F(InspectorWindows, OpenFromTheMenuAndCloseAsWindowsDo) {
    const Rect file = TQ_Prseq_Menu_CalculateMenuDisplaySize(box.menufontsize).titles[0];
    QTimer::singleShot(20, [] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        for (QAction* action : menu->actions())
            if (action->text() == "Document Inspector")
                return QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {},
                                         menu->actionGeometry(action).center());
        menu->close();
    });
    const QPointF title(file.x + file.width / 2, file.y + file.height / 2);
    QTest::mouseMove(&box_widget(), title.toPoint());
    QTest::mouseClick(&box_widget(), Qt::LeftButton, {}, title.toPoint());
    ASSERT_TRUE(form());
    EXPECT_EQ(form()->windowTitle(), "tq.sorvo Document Inspector");
    const Patcher& patcher = *box.inspectors[InspectorKind::Document].patcher;
    EXPECT_EQ(form()->size(), QSizeF(patcher.size.width, patcher.size.height).toSize());
    const QSize screen = window.screen()->size();
    EXPECT_EQ(form()->pos(),
              QPoint((screen.width() - form()->width()) / 2, (screen.height() - form()->height()) / 2));
    activate(*form());
    QTest::keyClick(form(), Qt::Key_Escape);
    EXPECT_FALSE(form());
    EXPECT_FALSE(box.inspectors[InspectorKind::Document].open());

    activate(window);
    box_widget().setFocus();
    press(Qt::Key_I);
    ASSERT_TRUE(form());
    EXPECT_EQ(form()->windowTitle(), "tq.sorvo Event Inspector");
    activate(*form());
    QTest::keyClick(form(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(box.inspectors[InspectorKind::Event].open());

    open("track_inspector_open");
    session.send("track_inspector_close");
    EXPECT_FALSE(form());
    const TemporaryFolder folder;  // what was not saved is kept there
    ::setenv("XDG_STATE_HOME", folder.path.c_str(), 1);
    open("track_inspector_open");
    QTest::keyClick(form(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(form());
    EXPECT_FALSE(box.inspectors[InspectorKind::Track].open());
}

TEST_F(InspectorWindows, TextsAreSaidWhenTheyAreLeft) {
    open("event_inspector_open");
    const std::string before = document_of(session);
    type("eventEd_label", "x y", 0);
    EXPECT_EQ(document_of(session), before);
    EXPECT_FALSE(box.playing);
    session.send("event id 1 velocity 33");
    EXPECT_EQ(line("eventEd_label").text(), "x y") << "other fields are written meanwhile";
    QTest::keyClick(&line("eventEd_label"), Qt::Key_Escape);
    EXPECT_EQ(line("eventEd_label").text(), "lead");
    ASSERT_TRUE(form()) << "that took back what was typed";
    type("eventEd_label", "a b");
    EXPECT_EQ(event().label, gensym("a b"));
    undo();
    EXPECT_EQ(event().label, gensym("lead"));
    EXPECT_EQ(line("eventEd_label").text(), "lead");
    QTest::keyClick(&line("eventEd_label"), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(line("eventEd_label").text(), "a b");
    type("eventEd_label", "left", Qt::Key_Tab);
    EXPECT_EQ(event().label, gensym("left"));
    type("eventEd_label", "mine", 0);
    session.send("event id 1 label other");
    EXPECT_EQ(line("eventEd_label").text(), "other") << "the document wins";
    type("eventEd_label", "typed", 0);
    form()->close();
    EXPECT_EQ(event().label, gensym("typed")) << "what was typed is not lost";

    open("event_inspector_open");
    session.call(FieldCall{"eventEd_selector", "value", {3}});
    auto& message = control<QPlainTextEdit>("eventEd_message");
    message.setFocus();
    QTest::keyClicks(&message, "set 1");
    EXPECT_TRUE(event().message.empty());
    QTest::keyClick(&message, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(event().message, gensym("set 1"));
}

TEST_F(InspectorWindows, WhatIsTypedForAnEventIsNotGivenToAnother) {
    session.send("event id 2 label lead");
    open("event_inspector_open");
    type("eventEd_label", "first", 0);
    select(1);
    QTest::keyClick(&line("eventEd_label"), Qt::Key_Return);
    EXPECT_EQ(event(0).label, gensym("lead"));
    EXPECT_EQ(event(1).label, gensym("lead"));
    EXPECT_EQ(line("eventEd_label").text(), "lead");
}

TEST_F(InspectorWindows, NumbersAreTypedDraggedAndStepped) {
    open("event_inspector_open");
    EXPECT_EQ(line("eventEd_start").text(), "1000");
    type("eventEd_start", "1500,5");
    EXPECT_EQ(event().start, 1500.5);
    EXPECT_EQ(line("eventEd_start").text(), "1500.5");
    for (const char* wrong : {"nonsense", "", "1 2", "1e999"}) {
        type("eventEd_start", wrong);
        EXPECT_EQ(line("eventEd_start").text(), "1500.5") << wrong;
    }
    type("eventEd_velocity", "300");
    EXPECT_EQ(line("eventEd_velocity").text(), "127");
    undo();
    undo();
    EXPECT_EQ(event().start, 1000);

    QLineEdit& pitch = line("eventEd_pitch");
    const long before = items();
    QTest::mousePress(&pitch, Qt::LeftButton, {}, QPoint(20, 12));
    for (const int y : {2, -8, -18}) QTest::mouseMove(&pitch, QPoint(20, y));
    EXPECT_EQ(pitch.text(), "63");
    EXPECT_FLOAT_EQ(static_cast<float>(event().pitch), 63) << "while it is dragged";
    EXPECT_EQ(items(), before);
    QTest::mouseRelease(&pitch, Qt::LeftButton, {}, QPoint(20, -18));
    EXPECT_EQ(items(), before + 1);
    undo();
    EXPECT_EQ(event().pitch, 60);
    EXPECT_EQ(pitch.text(), "60");

    pitch.setFocus();
    QTest::mousePress(&pitch, Qt::LeftButton, {}, QPoint(20, 12));
    QTest::mouseMove(&pitch, QPoint(20, 2));
    EXPECT_EQ(pitch.text(), "61");
    QTest::keyClick(&pitch, Qt::Key_Escape);
    QTest::mouseMove(&pitch, QPoint(20, -20));
    QTest::mouseRelease(&pitch, Qt::LeftButton, {}, QPoint(20, -20));
    ASSERT_TRUE(form()) << "Escape puts back what is dragged";
    EXPECT_EQ(pitch.text(), "60");
    EXPECT_EQ(items(), before);
    QTest::keyClick(&pitch, Qt::Key_Up);
    EXPECT_EQ(pitch.text(), "60.1");
    QTest::keyClick(&pitch, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(pitch.text(), "59.1");
    QWheelEvent wheel({20, 12}, pitch.mapToGlobal(QPointF(20, 12)), {}, {0, 120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&pitch, &wheel);
    EXPECT_EQ(pitch.text(), "59.2");
}

TEST_F(InspectorWindows, TheTrackIsChosenItsColourAndItsSwitches) {
    open("track_inspector_open");
    const Track& track = *box.tracks[0];
    auto& toggle = control<QCheckBox>("trackdiscardnoteoutput");
    QTest::mouseClick(&toggle, Qt::LeftButton, {}, QPoint(8, 12));
    EXPECT_TRUE(track.discardnoteoutput);
    box.tracks[0]->discardnoteoutput = false;
    session.call(CommandCall{"showlabels"});
    EXPECT_FALSE(toggle.isChecked()) << "it follows the document";

    auto& strip = control<QWidget>("trackcolor_jsui");
    const double before = track.hue;
    const long items_before = items();
    QTest::mousePress(&strip, Qt::LeftButton, {}, QPoint(60, 12));
    QTest::mouseMove(&strip, QPoint(100, 12));
    EXPECT_EQ(track.hue, before) << "not before the button is released";
    QTest::mouseRelease(&strip, Qt::LeftButton, {}, QPoint(118, 12));
    EXPECT_EQ(items(), items_before + 1);
    const double dragged = track.hue;
    EXPECT_NEAR(dragged, (100 - 36) / (strip.width() - 36.), 0.01);
    strip.setFocus();
    QTest::keyClick(&strip, Qt::Key_Right);
    EXPECT_NEAR(track.hue, dragged + 0.005, 1e-6);
    undo();
    undo();
    EXPECT_EQ(track.hue, before);
    QTest::keyClick(&strip, Qt::Key_Space);
    EXPECT_FALSE(box.playing);
}

TEST_F(InspectorWindows, TablesAreTypedInAndGrow) {
    open("track_inspector_open");
    QTabBar& tabs = control<QTabBar>("trackEd_selector");
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    EXPECT_EQ(box.inspectors[InspectorKind::Track].page, 1);
    auto& field = control<QWidget>("trackbpfs");
    ASSERT_TRUE(field.isVisible());
    EXPECT_FALSE(line("trackname").isVisible());
    auto& cells = *field.findChild<QTableWidget*>();
    const auto type_cell = [&](int row, int column, const char* text) {
        cells.setFocus();
        cells.setCurrentCell(row, column);
        QTest::keyClick(&cells, Qt::Key_Return);
        QTest::keyClicks(QApplication::focusWidget(), text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QApplication::processEvents();  // an editor closes after its key
        return cells.item(row, column)->text();
    };
    const Track& track = *box.tracks[0];
    EXPECT_EQ(type_cell(1, 2, "20"), "20");
    EXPECT_EQ(track.bpftypes[1]->maximum, 20);
    EXPECT_EQ(type_cell(1, 2, "many"), "20");
    EXPECT_EQ(type_cell(0, 0, "Bend"), "Pitch") << "is what it is";
    EXPECT_EQ(type_cell(1, 0, "Loud 1"), "Loud 1");
    EXPECT_EQ(track.bpftypes[1]->name, gensym("Loud 1"));
    EXPECT_EQ(cells.currentRow(), 1);
    undo();
    EXPECT_EQ(cells.item(1, 0)->text(), "Gain");

    QTest::mouseClick(field.findChild<QToolButton*>("add row"), Qt::LeftButton);
    ASSERT_EQ(track.bpftypes.size(), 3u);
    ASSERT_EQ(cells.rowCount(), 3);
    EXPECT_EQ(cells.currentRow(), 2);
    cells.setCurrentCell(1, 0);
    QTest::mouseClick(field.findChild<QToolButton*>("delete row"), Qt::LeftButton);
    ASSERT_EQ(track.bpftypes.size(), 2u);
    EXPECT_EQ(track.bpftypes[1]->name, gensym("Bpftype"));
    undo();
    EXPECT_EQ(cells.rowCount(), 3);

    session.call(CloseCall{"track", {}});
    open("document_inspector_open");
    session.call(FieldCall{"documentEd_selector", "value", {1}});
    QTest::mouseClick(control<QWidget>("documentEd_signature").findChild<QToolButton*>("add row"),
                      Qt::LeftButton);
    EXPECT_EQ(box.meter.barregions.size(), 2u) << "the next bar";
}

TEST_F(InspectorWindows, TheCurveIsChosenAndItsPointsAreTyped) {
    open("event_inspector_open");
    session.call(FieldCall{"eventEd_selector", "value", {2}});
    auto& menu = control<QComboBox>("eventEd_bpftypes");
    EXPECT_EQ(menu.count(), 2);
    menu.setFocus();
    QTest::keyClick(&menu, Qt::Key_Down);
    EXPECT_EQ(box.tracks[0]->activebpfindex, 1);
    auto& cells = *control<QWidget>("eventEd_bpfeditor").findChild<QTableWidget*>();
    ASSERT_EQ(cells.rowCount(), 2);
    EXPECT_EQ(cells.item(1, 0)->text(), "2000");
    const long before = items();
    cells.setFocus();
    cells.setCurrentCell(0, 1);
    QTest::keyClick(&cells, Qt::Key_7);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(cells.item(0, 1)->text(), "7");
    EXPECT_EQ(items(), before + 1);
    EXPECT_EQ(cells.currentColumn(), 1);
    undo();
    EXPECT_EQ(cells.item(0, 1)->text(), "5");
}

TEST_F(InspectorWindows, ShowOneEventAndComeBackWhereTheyWere) {
    open("event_inspector_open");
    EXPECT_TRUE(line("eventEd_label").isVisible());
    session.call(CommandCall{"select_all"});
    EXPECT_FALSE(line("eventEd_label").isVisible());
    EXPECT_TRUE(form()->isVisible());
    select(1);
    EXPECT_TRUE(line("eventEd_label").isVisible());
    EXPECT_EQ(line("eventEd_pitch").text(), "64");
    EXPECT_FALSE(line("eventEd_bufferstart").isEnabled()) << "there is no buffer";
    QTabBar& tabs = control<QTabBar>("eventEd_selector");
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    form()->move(40, 50);
    form()->close();
    QTest::qWait(20);
    open("event_inspector_open");
    EXPECT_EQ(form()->pos(), QPoint(40, 50));
    EXPECT_EQ(control<QTabBar>("eventEd_selector").currentIndex(), 1);
    EXPECT_TRUE(line("eventEd_buffer").isVisible());
    EXPECT_FALSE(line("eventEd_label").isVisible());
}

TEST(InspectorsOfASession, ThatCameBackAreShown) {
    auto session = std::make_unique<Session>();
    session->send("track_add Piano");
    session->send("track_inspector_open");
    MainWindow window(Loudspeaker{nullptr, "not in a test"}, std::move(session));
    window.show();
    auto* name = window.findChild<QLineEdit*>("trackname");
    ASSERT_TRUE(name);
    EXPECT_TRUE(QTest::qWaitFor([&] { return name->isVisible(); }));
    EXPECT_EQ(name->text(), "Piano");
}

}  // namespace
}  // namespace tq::test
