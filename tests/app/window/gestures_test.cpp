// What a person does with the mouse, as it comes from the platform.
#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QTimer>
#include <QWindow>

#include "app/window/window_fixture.h"
#include "view/maindisplay.h"
#include "view/menu_bar.h"

namespace tq::test {
namespace {

struct Gestures : WindowTest {
    Gestures() {
        for (const char* message : {"zoom_animation 0", "zoom_hor 0", "zoom_vert 0.02", "scroll_vert 0.5",
                                    "snaptime 0", "snappitch 1"})
            session.send(message);
    }

    /// In the window: a time and the middle of a row.
    QPoint at(double ms, double pitch) {
        const MainDisplay& md = box.maindisplay;
        const Point p =
            TQ_Prseq_Maindisplay_CalculateDisplayPositionFromStartAndPitch(box, md, ms, pitch + 0.5);
        return in_window({md.rect.x + p.x, md.rect.y + p.y - md.verticalscroll});
    }
    QPoint in_window(Point p) { return box_widget().mapTo(&window, QPointF(p.x, p.y).toPoint()); }
    QWindow* native() { return window.windowHandle(); }
    void press_at(QPoint place, Qt::MouseButton button = Qt::LeftButton,
                  Qt::KeyboardModifiers held = Qt::NoModifier) {
        QTest::mouseMove(native(), place);
        QTest::mousePress(native(), button, held, place);
    }
    void drag_to(QPoint place) { QTest::mouseMove(native(), place); }
    void release_at(QPoint place) { QTest::mouseRelease(native(), Qt::LeftButton, {}, place); }
    void drag(QPoint from, QPoint to) {
        press_at(from);
        drag_to((from + to) / 2);
        drag_to(to);
        release_at(to);
    }
    /// In the menu that is open next: lets the button go there, and clicks a line. Then `more` happens first.
    static void choose(
        const QString& text, const std::function<void()>& more = [] {}) {
        QTimer::singleShot(20, [=] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!menu) return choose(text, more);
            more();
            for (QAction* action : menu->actions())
                if (action->text() == text)
                    return QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {},
                                             menu->actionGeometry(action).center());
            ADD_FAILURE() << "no line " << text.toStdString();
            menu->close();
        });
    }
    void add(double start, double duration, double pitch) {
        session.send("event start " + std::to_string(start) + " duration " + std::to_string(duration) +
                     " <note> " + std::to_string(pitch) + " 90 </note>");
        session.send("undoredo_dump");  // the burst is over
    }
    const EventList& events() { return box.tracks.at(0)->events; }
    Event& first() { return *events().first(); }
    /// A pixel, in ms.
    double pixel() { return box.timelinelength / box.maindisplay.rect.width; }
};

TEST_F(Gestures, CtrlDragsCopiesWhereDesktopsKeepAltForWindows) {
    add(1000, 1000, 60);
    const QPoint from = at(1500, 60), to = at(3500, 60);
    QTest::mousePress(&box_widget(), Qt::LeftButton, Qt::ControlModifier,
                      box_widget().mapFrom(&window, from));
    QMouseEvent move(QEvent::MouseMove, box_widget().mapFrom(&window, to), window.mapToGlobal(to),
                     Qt::NoButton, Qt::LeftButton, Qt::ControlModifier);
    QApplication::sendEvent(&box_widget(), &move);
    QTest::mouseRelease(&box_widget(), Qt::LeftButton, Qt::ControlModifier,
                        box_widget().mapFrom(&window, to));
    ASSERT_EQ(events().size(), 2u);
    EXPECT_EQ(first().start, 1000);
    EXPECT_EQ(box.history.items.back()->name(), "Copy Event");
}

TEST_F(Gestures, InsertingDraggingAndResizing) {
    press(Qt::Key_2);
    drag(at(1000, 60), at(3000, 62));
    ASSERT_EQ(events().size(), 1u);
    EXPECT_NEAR(first().start, 1000, pixel());
    EXPECT_NEAR(first().duration, 2000, 2 * pixel());
    EXPECT_EQ(first().pitch, 62);
    press(Qt::Key_1);
    const double duration = first().duration;
    drag(at(2000, 62), at(4000, 65));
    EXPECT_NEAR(first().start, 3000, 2 * pixel());
    EXPECT_EQ(first().pitch, 65);
    EXPECT_EQ(first().duration, duration);
    drag(at(first().end() - pixel(), 65), at(8000, 65));
    EXPECT_NEAR(first().end(), 8000, 2 * pixel());
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(first().duration, duration);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NEAR(first().start, 1000, pixel());
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_NEAR(first().start, 3000, 2 * pixel());
    press(Qt::Key_D, Qt::ControlModifier);
    ASSERT_EQ(events().size(), 2u);
    EXPECT_EQ(events().next(first())->start, first().end());
}

TEST_F(Gestures, EscapeInTheMiddleOfADragPutsBack) {
    add(1000, 2000, 60);
    press_at(at(2000, 60));
    drag_to(at(5000, 70));
    ASSERT_EQ(first().pitch, 70);
    press(Qt::Key_Escape);
    EXPECT_EQ(first().start, 1000);
    EXPECT_EQ(first().pitch, 60);
    drag_to(at(6000, 50));
    release_at(at(6000, 50));
    EXPECT_EQ(first().pitch, 60) << "the rest of the drag is none";
    EXPECT_TRUE(first().selected);
    press(Qt::Key_Escape);
    EXPECT_FALSE(first().selected);
}

TEST_F(Gestures, ADragBesideEventsSelectsThem) {
    add(1000, 500, 60);
    add(2000, 500, 64);
    add(7000, 500, 64);
    drag(at(500, 66), at(3000, 58));
    EXPECT_EQ(events().selected().size(), 2u);
    EXPECT_FALSE(events().last()->selected);
}

TEST_F(Gestures, TheMenuBarOpensItsMenus) {
    add(1000, 500, 60);
    const Rect edit = TQ_Prseq_Menu_CalculateMenuDisplaySize(box.menufontsize).titles[1];
    choose("Select All");
    press_at(in_window({edit.x + edit.width / 2, edit.y + edit.height / 2}));
    EXPECT_EQ(events().selected().size(), 1u);
}

TEST_F(Gestures, TheContextMenuChoosesAModeWhilePlaybackGoesOn) {
    add(1000, 500, 60);
    press(Qt::Key_Space);
    double when_opened = -1, when_chosen = -1;
    choose("Insert", [&] {
        when_opened = box.linecursor.position;
        QTest::qWait(150);
        when_chosen = box.linecursor.position;
        QWidget* menu = QApplication::activePopupWidget();
        QTest::mouseRelease(menu->windowHandle(), Qt::RightButton, {}, menu->rect().topLeft());
    });
    press_at(at(5000, 64), Qt::RightButton);
    press(Qt::Key_Space);
    EXPECT_GE(when_chosen - when_opened, 100);
    EXPECT_EQ(box.maindisplay.mousemode, MouseMode::Insert);
    EXPECT_FALSE(box.gesture);
    // The menu took the release: what comes now is a pointer without a button, and then a press as any other.
    drag_to(at(6000, 70));
    EXPECT_EQ(events().size(), 1u);
    EXPECT_EQ(box.hover.part, Part::MainDisplay);
    drag(at(6000, 70), at(7000, 70));
    EXPECT_EQ(events().size(), 2u);
}

TEST_F(Gestures, AClickAddsAPointToTheCurve) {
    add(1000, 4000, 60);
    press(Qt::Key_6);
    ASSERT_EQ(first().bpfs.front()->points.size(), 2u);
    press_at(at(3000, 64));
    release_at(at(3000, 64));
    ASSERT_EQ(first().bpfs.front()->points.size(), 3u);
    EXPECT_NEAR(first().bpfs.front()->points[1].x, 0.5, pixel() / 4000);
    press(Qt::Key_Z);
    EXPECT_EQ(first().bpfs.front()->points.size(), 2u);
}

}  // namespace
}  // namespace tq::test
