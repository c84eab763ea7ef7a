// The bar: what is typed and pressed in it, and what it shows.
#include "app/window/transport_bar.h"

#include <QDoubleSpinBox>
#include <QToolButton>

#include "app/script_fixture.h"
#include "app/window/level_meter.h"
#include "app/window/position_text.h"
#include "app/window/tap_tempo.h"
#include "app/window/window_fixture.h"

namespace tq::test {
namespace {

struct TransportTest : WindowTest {
    struct Heard : CallListener {
        void calling(const SessionCall& call) override { lines.push_back(line_text(call)); }
        void called() override {}
        Lines lines;
    } heard;
    QLineEdit& position = part<QLineEdit>("position");
    QDoubleSpinBox& tempo = part<QDoubleSpinBox>("tempo");

    TransportTest() { session.listen_to_calls(&heard); }
    ~TransportTest() override { session.listen_to_calls(nullptr); }
    void click(const char* button) { QTest::mouseClick(&part<QToolButton>(button), Qt::LeftButton); }
    void type(QLineEdit& field, const char* text, Qt::Key last = Qt::Key_Return) {
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, last);
    }
};

TEST_F(TransportTest, EverythingIsACallThatJournalsTell) {
    session.send("event start 1000 duration 500 <note> 60 90 </note>");
    session.send("event start 3000 duration 250 <note> 60 90 </note>");
    session.call(CommandCall{"select_all"});
    heard.lines.clear();
    click("play");
    click("play");
    click("go to start");
    click("loop selection");
    type(position, "1:02.5");
    tempo.setValue(90);
    std::erase_if(heard.lines, [](const std::string& line) { return line.starts_with(".focus"); });
    EXPECT_EQ(heard.lines, Lines({".command play_or_stop", ".command play_or_stop", ".command go_to_start",
                                  ".command loop_selection", "position 62500", ".tempo 90"}));
    EXPECT_EQ(box.cycle, (Cycle{1000, 3250, true}));
    click("loop selection");
    EXPECT_TRUE(box.cycle.active) << "and on it stays";
}

TEST_F(TransportTest, ADoubleClickTakesTheWholeTempo) {
    tempo.setValue(120.9);
    auto& line = *tempo.findChild<QLineEdit*>();
    QTest::mouseDClick(&line, Qt::LeftButton, {},
                       QPoint(line.fontMetrics().horizontalAdvance("120.9") - 2, line.height() / 2));
    QTest::keyClicks(&line, "96");
    QTest::keyClick(&line, Qt::Key_Return);
    EXPECT_EQ(tempo.value(), 96);
}

TEST_F(TransportTest, PlayAtTheEndBeginsAnew) {
    session.send("position 10000");
    click("play");
    EXPECT_TRUE(box.playing);
    EXPECT_LT(box.linecursor.position, 5000);
    click("play");
    session.send("position 9000");
    press(Qt::Key_Space);
    EXPECT_GE(box.linecursor.position, 9000) << "not before the end";
}

TEST_F(TransportTest, ThePositionIsTypedInTheFaceThatShows) {
    session.send("maxtime 90000");
    session.send("position 5500");
    const auto shown = [&] {
        QTest::qWait(20);
        return position.text();
    };
    EXPECT_EQ(shown(), "00:05.500");
    click("position unit");
    EXPECT_EQ(shown(), "2.2.500");
    EXPECT_EQ(part<QToolButton>("position unit").text(), "bars.beats");
    type(position, "3.4");
    EXPECT_EQ(box.linecursor.position, 11000);
    click("position unit");
    EXPECT_EQ(shown(), "11000");
    type(position, "nonsense");
    EXPECT_EQ(shown(), "11000");
    type(position, "12", Qt::Key_Escape);
    EXPECT_EQ(shown(), "11000") << "taken back";
    position.setFocus();
    QTest::keyClicks(&position, "9");
    session.send("position 4000");
    window.refresh();
    EXPECT_EQ(position.text().count('9'), 1) << "what is being typed stays";
    position.selectAll();
    QTest::keyClicks(&position, "7000");
    box_widget().setFocus();
    EXPECT_EQ(box.linecursor.position, 7000) << "said when it is left";
}

TEST_F(TransportTest, KeysGoToTheCanvasAfterAField) {
    for (QWidget* field : {static_cast<QWidget*>(&position), static_cast<QWidget*>(&tempo)})
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
            field->setFocus();
            QTest::keyClick(field, key);
            EXPECT_TRUE(box_widget().hasFocus()) << field->objectName().toStdString();
        }
    tempo.setFocus();
    tempo.selectAll();
    QTest::keyClicks(&tempo, "77");
    QTest::keyClick(&tempo, Qt::Key_Escape);
    EXPECT_EQ(itm_gettempo(*box.transport), usual_tempo);
    EXPECT_EQ(tempo.value(), usual_tempo);
    tempo.setFocus();
    tempo.selectAll();
    QTest::keyClicks(&tempo, "77");
    QTest::keyClick(&tempo, Qt::Key_Return);
    EXPECT_EQ(itm_gettempo(*box.transport), 77);
    EXPECT_TRUE(box.tracks.empty()) << "Return has inserted nothing";
}

TEST_F(TransportTest, TwoTapsAreATempo) {
    press(Qt::Key_T);
    QTest::qWait(150);
    EXPECT_TRUE(heard.lines.empty());
    click("tap");
    ASSERT_EQ(heard.lines.size(), 1u);
    EXPECT_TRUE(heard.lines[0].starts_with(".tempo "));
    EXPECT_LE(itm_gettempo(*box.transport), 400);
    EXPECT_GT(itm_gettempo(*box.transport), 60);
}

TEST_F(TransportTest, WithoutSoundThereIsNoMetronomeAndNoLevel) {
    EXPECT_FALSE(part<QToolButton>("metronome").isEnabled());
    EXPECT_FALSE(part<QWidget>("level").isVisible());
}

TEST(TapTempo, IsThatOfTheLastTapsAndBeginsAnewAfterAPause) {
    TapTempo taps;
    EXPECT_FALSE(taps.tap(100));
    EXPECT_EQ(taps.tap(600), 120);
    EXPECT_EQ(taps.tap(1000), 133.3) << "over both";
    for (int i = 1; i <= 8; ++i) taps.tap(1000 + 250 * i);
    EXPECT_EQ(taps.tap(3250), 240) << "of the last ones alone";
    EXPECT_FALSE(taps.tap(6000));
    EXPECT_FALSE(taps.tap(6000)) << "no time between";
}

TEST(PositionText, SaysWhatItReads) {
    const Session session;
    const Meter& meter = session.box().meter;
    using enum TimeFace;
    EXPECT_EQ(position_text(MinutesSeconds, 7200000, meter), "120:00.000");
    EXPECT_EQ(position_text(BarsBeats, 0, meter), "1.1.000");
    const auto value = [&](TimeFace face, const char* text) {
        return position_of_text(face, text, meter).value_or(-1);
    };
    for (const TimeFace face : {Milliseconds, MinutesSeconds, BarsBeats})
        for (const double ms : {0., 999., 61005., 7200000.})
            EXPECT_EQ(position_of_text(face, position_text(face, ms, meter), meter), ms);
    EXPECT_EQ(value(MinutesSeconds, "90"), 90000);
    EXPECT_EQ(value(MinutesSeconds, " 1:00:01.5 "), 3601500);
    EXPECT_EQ(value(BarsBeats, "3"), 8000);
    EXPECT_EQ(value(BarsBeats, "2.1.5"), 4500);
    EXPECT_EQ(value(Milliseconds, "12.5"), 12.5);
    for (const TimeFace face : {Milliseconds, MinutesSeconds, BarsBeats})
        for (const char* text : {"", "x", "-5", "1:", "nan", "inf", "1e300", "1.0.x", "."})
            EXPECT_EQ(value(face, text), -1) << text << " " << unit_of(face);
}

TEST(LevelMeter, FallsAfterAPeakAndLooksOnlyWhileItIsSeen) {
    QWidget window;
    LevelMeter meter;
    meter.setParent(&window);
    meter.resize(100, meter.height());
    meter.show();
    float peak = 0;
    int looks = 0;
    meter.peak = [&] {
        ++looks;
        return std::exchange(peak, 0.f);
    };
    EXPECT_FALSE(meter.looking());
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(meter.shown(), -60);
    peak = 1;
    ASSERT_TRUE(QTest::qWaitFor([&] { return meter.shown() == 0; }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return meter.shown() < -3; }));
    EXPECT_EQ(meter.grab().toImage().pixelColor(1, 1), QColor(Qt::darkGreen));
    window.hide();
    looks = 0;
    QTest::qWait(150);
    EXPECT_EQ(looks, 0);
}

}  // namespace
}  // namespace tq::test
