// What a person does to a track in the window: its menu where it stands, its name, its levels.
#include <QDoubleSpinBox>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QSlider>
#include <QSpinBox>

#include "app/window/division_menu.h"
#include "app/window/window_fixture.h"
#include "edits/song_edits.h"
#include "model/bpfs.h"
#include "view/icon_menu.h"
#include "view/maindisplay.h"
#include "view/trackdisplay.h"

namespace tq::test {
namespace {

struct TracksTest : WindowTest {
    TracksTest() {
        session.send("track_add Drums");
        session.send("track_add Bass");
        session.send("event track 1 start 0 duration 500 <note> 40 90 </note>");
    }
    QPoint row(long track) const {
        const Rect& list = box.layout[Part::TrackDisplay];
        const Rect name = track_row(trackdisplay_of(box), track);
        return {int(list.x + name.x + 10), int(list.y + name.y + name.height / 2)};
    }
    QDialog& levels() {
        press(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
        return part<QDialog>("track levels");
    }
    double level(const char* name) {
        const Track& track = *box.tracks[1];
        return curve_level(track, *TQ_Prseq_Tracks_GetBpfTypeWithGivenName(track, gensym(name)));
    }
};

TEST_F(TracksTest, ARightPressOnATrackShowsItsMenu) {
    auto& menu = part<QMenu>("Track");
    QTest::mouseClick(&box_widget(), Qt::RightButton, {}, row(0));
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(box.activetrack, 0);
    menu.close();
    QTest::mouseClick(&box_widget(), Qt::RightButton, {}, row(1) + QPoint(105, 0));
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(box.activetrack, 1);
    EXPECT_TRUE(box.tracks[1]->visible) << "the press is the menu's, not the eye's";
    menu.close();
}

/// What a person types in the next question; what stands there by then is its beginning.
void answer_text_question(const QString& beginning, const QString& text) {
    QTimer::singleShot(30, [=] {
        auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        if (!dialog) return answer_text_question(beginning, text);
        EXPECT_EQ(dialog->textValue(), beginning);
        dialog->setTextValue(text);
        dialog->accept();
    });
}

TEST_F(TracksTest, AreRenamedByAKey) {
    answer_text_question("Bass", "808");
    press(Qt::Key_F2);
    EXPECT_EQ(box.tracks[1]->name, "808");
    session.send("undo");
    EXPECT_EQ(box.tracks[1]->name, "Bass");
}

TEST_F(TracksTest, HaveTheirVolumeAndPanAsSliders) {
    QDialog& dialog = levels();
    auto& volume = *dialog.findChild<QSlider*>("Volume");
    auto& pan = *dialog.findChild<QSpinBox*>("Pan number");
    EXPECT_EQ(volume.value(), 100) << "as players begin";
    EXPECT_EQ(pan.value(), 64);
    for (int value = 99; value >= 70; --value) volume.setValue(value);
    EXPECT_EQ(level("Volume"), 70);
    QTest::keyClicks(&pan, "9");
    pan.setValue(90);
    EXPECT_EQ(level("Pan"), 90);
    session.send("undo");
    session.send("undo");
    window.refresh();
    EXPECT_EQ(volume.value(), 100) << "the drag was one step";
    EXPECT_EQ(box.tracks[1]->bpftypes.size(), 1u);
    session.send("track_active 0");
    session.send("track_bpf_add Volume -60 0 -30");
    window.refresh();
    EXPECT_EQ(volume.value(), 64) << "in the controller's steps";
    volume.setValue(127);
    EXPECT_EQ(box.tracks[0]->bpftypes.back()->default_, 0);
    session.send("track_delete 0");
    session.send("track_delete 0");
    window.refresh();
    EXPECT_FALSE(dialog.isEnabled());
}

TEST_F(TracksTest, AndNotesAreCalledByTheirValues) {
    const std::pair<std::pair<long, long>, const char*> texts[] = {
        {{0, 4}, "ruler"},  {{1, 4}, "1/4"},     {{4, 4}, "1/16"}, {{3, 4}, "1/8 T"},
        {{6, 4}, "1/16 T"}, {{12, 4}, "1/32 T"}, {{2, 8}, "1/16"}, {{5, 4}, "5 to a beat"}};
    for (const auto& [snap, text] : texts) EXPECT_EQ(division_text(snap.first, snap.second), text);
}

TEST_F(TracksTest, ThePointersPlaceIsToldInMusiciansWords) {
    session.send("track_destination 0 gm:drums");
    session.send("bars_follow_tempo 1");
    session.call(TempoCall{104});
    session.send("time_display_type bars");
    const auto told_at = [&](double ms, double pitch) {
        const Rect& display = box.maindisplay.rect;
        const Point p = TQ_Prseq_Maindisplay_CalculateDisplayPositionFromStartAndPitch(box, box.maindisplay,
                                                                                       ms, pitch + 0.5);
        QTest::mouseMove(&box_widget(),
                         QPoint(int(display.x + p.x), int(display.y + p.y - box.maindisplay.verticalscroll)));
        QTest::qWait(10);
        return part<QLabel>("pointer").text().toStdString();
    };
    EXPECT_TRUE(told_at(2307.7 + 600, 60).starts_with("2.2.0")) << told_at(2307.7 + 600, 60);
    EXPECT_TRUE(told_at(100, 61).ends_with("  C#3"));
    session.send("track_active 0");
    session.send("scroll_vert 0.9");
    EXPECT_TRUE(told_at(100, 38).ends_with("  D1 Acoustic Snare")) << told_at(100, 38);
    const Rect icon = icon_rect(box, 1);
    const Rect& display = box.layout[Part::UpperDisplay];
    EXPECT_EQ(box_widget().tip_at(QPoint(int(display.x + icon.x + 3), int(display.y + icon.y + 3))),
              "Insert (2)");
    EXPECT_EQ(box_widget().tip_at(QPoint(5, 300)), "");
}

/// Documents hold their tempo, so a change of it alone is a change.
TEST_F(TracksTest, ASongsTempoIsNotLost) {
    session.send("write " + state.file("song.json"));
    for (const char* follows : {"1", "0"}) {
        session.send(std::string("events_follow_tempo ") + follows);
        session.send("writeagain");
        window.refresh();
        EXPECT_FALSE(window.isWindowModified());
        part<QDoubleSpinBox>("tempo").setValue(*follows == '1' ? 92 : 88);
        EXPECT_TRUE(window.isWindowModified());
    }
}

/// Longer songs are seen whole again by the same key.
TEST_F(TracksTest, AreSeenWholeHoweverLongTheyGet) {
    press(Qt::Key_0, Qt::ControlModifier);
    QTest::qWait(700);
    session.send("maxtime 90000");
    press(Qt::Key_0, Qt::ControlModifier);
    QTest::qWait(700);
    EXPECT_LE(box.maindisplay.horizontalzoom, box.maindisplay.minimumhorizontalzoom * 1.001);
    press(Qt::Key_F);
    QTest::qWait(700);
    EXPECT_GT(box.maindisplay.horizontalzoom, box.maindisplay.minimumhorizontalzoom * 10);
}

}  // namespace
}  // namespace tq::test
