#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QTimer>
#include <QToolButton>
#include <QWheelEvent>

#include "app/midi/files.h"
#include "app/window/wheel.h"
#include "app/window/window_fixture.h"
#include "temporary_folder.h"
#include "view/maindisplay.h"

namespace tq {
namespace {

using test::answer_file_dialog, test::WindowTest;

TEST_F(WindowTest, TheBoxFillsTheWindowAndFollowsItsSize) {
    QSize size = box_widget().size();
    EXPECT_EQ(box.width, size.width());
    EXPECT_EQ(box.height, size.height());
    window.resize(900, 500);
    window.move(30, 40);
    QTest::qWait(20);
    EXPECT_EQ(session.host().view.rect().width, window.width());
    EXPECT_EQ(session.host().view.rect().x, window.geometry().x());
    EXPECT_EQ(box.width, 900);
    EXPECT_EQ(box.maindisplay.rect.width, 900 - 165 - 40 - 15) << "painted at the new size";
}

TEST_F(WindowTest, TheWindowShowsThePictureOfTheBox) {
    session.send("upperdisplaycolor 1 0 0 1");
    QTest::qWait(20);
    QImage picture = box_widget().grab().toImage();
    EXPECT_EQ(picture.pixelColor(picture.width() - 5, 5), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(0, 100), QColor(Qt::black)) << "the border, to the edge";
}

TEST_F(WindowTest, SpaceStartsAndStopsAndTimePasses) {
    press(Qt::Key_Space);
    EXPECT_TRUE(box.playing);
    EXPECT_TRUE(part<QToolButton>("play").isChecked());
    QElapsedTimer clock;
    clock.start();
    while (box.linecursor.position < 200 && clock.elapsed() < 5000) QTest::qWait(10);
    EXPECT_GE(box.linecursor.position, 200);
    EXPECT_LE(box.linecursor.position, static_cast<double>(clock.elapsed()) + 50)
        << "not faster than real time";
    press(Qt::Key_Space);
    EXPECT_FALSE(box.playing);
    EXPECT_FALSE(part<QToolButton>("play").isChecked());
}

TEST_F(WindowTest, KeysReachTheBox) {
    session.send("event start 0 <note> 60 90 </note>");
    session.send("event start 100 <note> 62 90 </note>");
    press(Qt::Key_A);
    EXPECT_EQ(box.tracks[0]->events.selected().size(), 2u);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(box.tracks[0]->events.size(), 0u);
    press(Qt::Key_V);
    press(Qt::Key_Delete);
    press(Qt::Key_Z);
    EXPECT_EQ(box.tracks[0]->events.size(), 2u);
    press(Qt::Key_Z, Qt::ShiftModifier);
    EXPECT_EQ(box.tracks[0]->events.size(), 0u);
}

TEST_F(WindowTest, TheConsoleSendsLinesAndShowsWhatTheBoxSays) {
    EXPECT_TRUE(part<QLineEdit>("console line").isHidden() || !part<QLineEdit>("console line").isVisible());
    press(Qt::Key_K, Qt::ControlModifier);
    EXPECT_TRUE(part<QLineEdit>("console line").isVisible());
    enter("track_add a b");
    enter("mouse nonsense");
    EXPECT_EQ(box.tracks.size(), 1u);
    EXPECT_FALSE(box.playing) << "a blank in a line is not the shortcut";
    EXPECT_TRUE(console_text().contains("> track_add a b"));
    EXPECT_TRUE(console_text().contains("error tq.sorvo: ")) << console_text().toStdString();
    enter("getdirty");
    EXPECT_TRUE(console_text().endsWith("dirty 1")) << console_text().toStdString();
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(part<QLineEdit>("console line").text(), "mouse nonsense");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(part<QLineEdit>("console line").text(), "");
}

TEST_F(WindowTest, TheBarShowsAndSetsWhatTheBoxDoes) {
    session.send("cycle 1");
    QTest::qWait(20);
    EXPECT_TRUE(part<QToolButton>("loop").isChecked());
    QTest::mouseClick(&part<QToolButton>("loop"), Qt::LeftButton);
    EXPECT_FALSE(box.cycle.active);
    session.send("maxtime 90000");
    session.send("position 61234");
    QTest::qWait(20);
    QStringList texts;
    for (QLabel* label : window.findChildren<QLabel*>()) texts << label->text();
    EXPECT_EQ(part<QLineEdit>("position").text(), "01:01.234");
    EXPECT_FALSE(texts.filter("no sound: ").isEmpty());
}

TEST_F(WindowTest, AFileThatCannotBeOpenedIsSaidOnTheConsole) {
    EXPECT_FALSE(window.files().open("/nowhere/at/all.json"));
    EXPECT_TRUE(part<QPlainTextEdit>("console text").isVisible());
    EXPECT_TRUE(console_text().contains("all.json")) << console_text().toStdString();
}

TEST_F(WindowTest, OpeningAsksFirstAndTakesMidiFiles) {
    const test::TemporaryFolder folder;
    ::setenv("XDG_STATE_HOME", folder.path.c_str(), 1);
    const std::string song = folder.file_with(
        "a song.mid", test::text_of(test::midi_file(1, 480, {"00 90 3c 40 83 60 80 3c 00 00 ff 2f 00"})));
    session.send("track_add mine");
    answer_file_dialog("");
    press(Qt::Key_O, Qt::ControlModifier);
    ASSERT_EQ(box.tracks.size(), 1u);
    EXPECT_EQ(box.tracks[0]->name, "mine") << "cancelled";
    answer_file_dialog(QString::fromStdString(song));
    part<QToolButton>("open").click();
    ASSERT_EQ(box.tracks.size(), 1u);
    EXPECT_EQ(box.tracks[0]->events.size(), 1u);
}

TEST_F(WindowTest, TheWheelScrollsUnderThePointer) {
    session.send("zoom_vert 0.2");
    QTest::qWait(20);
    double before = box.maindisplay.verticalscroll;
    QPointF at(600, 300);
    QWheelEvent down(at, at, QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                     false);
    QApplication::sendEvent(&box_widget(), &down);
    QTest::qWait(20);
    EXPECT_NEAR(box.maindisplay.verticalscroll, before + 3 * box.maindisplay.rowheight, 1e-6);
}

TEST_F(WindowTest, ControlAndTheWheelZoomUnderThePointer) {
    session.send("zoom_hor 0.2");
    session.send("zoom_vert 0.2");
    session.send("scroll_hor 0.5");
    const auto turn = [&](QPoint pixels, QPoint angle, Qt::KeyboardModifiers held) {
        const QPointF at(600, 300);
        QWheelEvent event(at, at, pixels, angle, Qt::NoButton, held, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&box_widget(), &event);
    };
    const auto ms = [&] {
        const MainDisplay& md = box.maindisplay;
        return TQ_Prseq_Maindisplay_CalculatePositionFromMouse(box, md,
                                                               600 - md.rect.x + md.horizontalscroll);
    };
    const double division = box.maindisplay.horizontalzoom, row = box.maindisplay.rowheight, under = ms();
    turn({}, {0, 120}, Qt::ControlModifier);
    EXPECT_NEAR(box.maindisplay.horizontalzoom, division * 1.25, 1e-9);
    EXPECT_NEAR(ms(), under, 1e-6);
    EXPECT_EQ(box.maindisplay.rowheight, row);
    for (int i = 0; i < 4; ++i) turn({}, {0, -30}, Qt::ControlModifier);
    EXPECT_NEAR(box.maindisplay.horizontalzoom, division, 1e-9) << "a touchpad, bit by bit";
    turn({}, {0, 120}, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_NEAR(box.maindisplay.rowheight, row * 1.25, 1e-9);
    turn({}, {-120, 0}, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_NEAR(box.maindisplay.rowheight, row, 1e-9) << "where shift turns the wheel sideways by itself";
    turn({0, -40}, {}, Qt::ControlModifier);
    EXPECT_NEAR(box.maindisplay.horizontalzoom, division / 1.25, 1e-9);
    EXPECT_NEAR(box.maindisplay.rowheight, row, 1e-9);
}

TEST_F(WindowTest, ThePointerReachesTheBoxWithoutAButton) {
    QTest::mouseMove(&box_widget(), QPoint(600, 300));
    QTest::qWait(20);
    EXPECT_EQ(box.hover.part, Part::MainDisplay);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&box_widget(), &leave);
    EXPECT_EQ(box.hover.part, Part::None);
    QEnterEvent enter(QPointF(600, 300), QPointF(600, 300), QPointF(600, 300));
    QApplication::sendEvent(&box_widget(), &enter);
    EXPECT_EQ(box.hover.part, Part::MainDisplay) << "without having moved";
}

TEST(Wheel, NotchesAndPixelsAreTurnedIntoUnits) {
    constexpr double unit = 0.039062;
    MainDisplay md;
    md.rowheight = 10;
    md.bigbarsize = 200;
    EXPECT_EQ(wheel_delta({0, 120}, {}, false, md), (WheelDelta{0, 3 * unit}));
    EXPECT_EQ(wheel_delta({-120, 0}, {}, false, md), (WheelDelta{-unit, 0}));
    EXPECT_EQ(wheel_delta({0, 120}, {}, true, md), (WheelDelta{unit, 0}));
    EXPECT_EQ(wheel_delta({0, 40}, {0, 25}, false, md), (WheelDelta{0, unit * 2.5}));
    EXPECT_EQ(wheel_delta({40, 0}, {50, 0}, false, md), (WheelDelta{unit * 0.25, 0}));
}

}  // namespace
}  // namespace tq
