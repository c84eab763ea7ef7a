// What a window keeps for the next time, and what it shows where nothing is yet.
#include <QLabel>
#include <QPalette>
#include <QSlider>
#include <QSplitter>
#include <QToolButton>

#include "app/window/surroundings.h"
#include "app/window/window_fixture.h"

namespace tq::test {
namespace {

TEST_F(WindowTest, TheNextWindowLooksAsThisOneDid) {
    window.keep_looks();
    window.resize(900, 600);
    part<QSlider>().setValue(30);
    QTest::mouseClick(&part<QToolButton>("position unit"), Qt::LeftButton);
    const QString unit = part<QToolButton>("position unit").text();
    window.show_console(true);
    auto& splitter = part<QSplitter>();
    splitter.setSizes({splitter.height() - 222, 222});
    window.close();
    MainWindow next{Loudspeaker{nullptr, "not in a test"}};
    next.keep_looks();
    next.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&next));
    EXPECT_EQ(next.size(), QSize(900, 600));
    EXPECT_EQ(next.findChild<QSlider*>()->value(), 30);
    EXPECT_EQ(next.findChild<QToolButton*>("position unit")->text(), unit);
    EXPECT_TRUE(next.findChild<QPlainTextEdit*>("console text")->isVisible());
    EXPECT_NEAR(next.findChild<QSplitter*>()->sizes().last(), 222, 12);
    next.show_console(false);
    next.show_console(true);
    EXPECT_NEAR(next.findChild<QSplitter*>()->sizes().last(), 222, 12) << "as large as it was";
}

TEST_F(WindowTest, AnEmptyCanvasTellsWhatCanBeDone) {
    EXPECT_FALSE(window.findChild<QLabel*>("empty hint")) << "nobody works here by hand";
    window.keep_looks();
    window.refresh();
    auto& hint = part<QLabel>("empty hint");
    EXPECT_TRUE(hint.isVisible());
    EXPECT_TRUE(hint.text().contains("F1"));
    press(Qt::Key_2);
    const Rect& canvas = box.layout[Part::MainDisplay];
    const QPoint middle(int(canvas.x + canvas.width / 2), int(canvas.y + canvas.height / 2));
    EXPECT_EQ(window.childAt(box_widget().mapTo(&window, middle)), &box_widget()) << "the mouse goes through";
    QTest::mouseClick(&box_widget(), Qt::LeftButton, {}, middle);
    ASSERT_EQ(box.tracks.size(), 1u);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !hint.isVisible(); }));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(hint.isVisible());
}

TEST_F(WindowTest, SurroundingsAreDarkWhereThatIsChosen) {
    const auto dark = [] { return QApplication::palette().color(QPalette::Window).lightness() < 100; };
    follow_surroundings();
    EXPECT_FALSE(dark());
    choose_surroundings(Surroundings::Dark);
    EXPECT_TRUE(dark());
    EXPECT_EQ(kept_surroundings(), Surroundings::Dark);
    choose_surroundings(Surroundings::Light);
    EXPECT_FALSE(dark());
}

TEST_F(WindowTest, SoloAndSnapShowInTheBar) {
    session.send("track_add Bass");
    press(Qt::Key_M, Qt::ShiftModifier);
    EXPECT_TRUE(box.tracks[0]->solo);
    auto& solo = part<QToolButton>("solo");
    EXPECT_TRUE(solo.isVisible());
    EXPECT_EQ(solo.text(), "Solo: Bass");
    QTest::mouseClick(&solo, Qt::LeftButton);
    EXPECT_FALSE(box.tracks[0]->solo);
    EXPECT_FALSE(solo.isVisible());
    auto& snap = part<QToolButton>("snap");
    QTest::mouseClick(&snap, Qt::LeftButton, {}, QPoint(5, snap.height() / 2));
    EXPECT_TRUE(box.snaptime);
    session.send("snap_division 3");
    window.refresh();
    EXPECT_EQ(snap.text(), "Snap 1/8 T");
}

}  // namespace
}  // namespace tq::test
