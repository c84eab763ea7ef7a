// Painting values in the parameter display: 1000 pixels for 10 s, a lane of 80 pixels, events 100 pixels
// apart.
#include "history/undoredo.h"
#include "host/modifiers.h"
#include "interaction/mouse.h"
#include "model/parameters.h"
#include "model/tracks.h"
#include "view/view_fixture.h"

namespace tq {
namespace {

struct ParameterGestureTest : ViewTest {
    ParameterGestureTest() {
        resize(1000 + 165 + 40 + 15, 600);
        see("parameterdisplay 1", "zoom_out_all", "track_add");
        for (int i = 1; i <= 6; ++i)
            send("event start " + std::to_string(i * 1000) + " duration 50 <note> 60 " + std::to_string(i) +
                 " </note>");
        pause();
    }
    /// Until a burst of messages is over.
    void pause() {
        Scheduler& scheduler = session.host().scheduler;
        scheduler.run_until(scheduler.now() + 1000);
    }
    Track& track() { return *box.tracks[0]; }
    /// A point of the lane, in the box.
    Point in_box(double x, double y) const {
        const Rect& lane = box.layout[Part::ParameterDisplay];
        return {lane.x + x, lane.y + y};
    }
    void press(double x, double y, unsigned modifiers = 0) {
        const Point at = in_box(x, y);
        prseq_mousedown(box, at.x, at.y, modifiers | modifier_left_button);
    }
    void drag(double x, double y, unsigned modifiers = 0) {
        const Point at = in_box(x, y);
        prseq_mousedrag(box, at.x, at.y, modifiers | modifier_left_button);
    }
    void release() { prseq_mouseup(box, 0, 0, modifier_left_button); }
    using Values = std::vector<double>;
    Values values() {
        Values all;
        track().events.for_each(
            [&](const Event& e) { all.push_back(event_value(e, track().displayedparameter)); });
        return all;
    }
    std::string last_edit() const { return TQ_Prseq_Undoredo_UndoMenu(box).value_or(""); }
};

TEST_F(ParameterGestureTest, ThePressSetsTheValueOfTheBarItHits) {
    for (const auto& [y, velocity] :
         {std::pair{0., 127.}, {40., 63.5}, {79.9, 127 * (0.1 / 80)}, {20., 95.25}}) {
        press(103, y);
        EXPECT_NEAR(values()[0], velocity, 1e-9) << y;
        release();
    }
    EXPECT_EQ(values()[1], 2);
    EXPECT_EQ(last_edit(), "Change Events Velocity");
    send("undo");
    EXPECT_NEAR(values()[0], 127 * (0.1 / 80), 1e-9);
    send("redo");
    EXPECT_EQ(values()[0], 95.25);
}

/// Each bar is 5 pixels wide, and a chord is one bar.
TEST_F(ParameterGestureTest, DrawnByTimeTheLineIsWhereThePointerWent) {
    send("lane_by_time 1");
    for (const char* pitch : {"64", "67"})
        send("event start 3000 duration 50 <note> " + std::string(pitch) + " 3 </note>");
    send("event start 3030 duration 50 <note> 70 7 </note>");
    pause();
    const Values before = values();
    press(250, 0);
    release();
    EXPECT_EQ(values(), before) << "no bar is there";
    press(302, 40);
    release();
    EXPECT_EQ(values(), (Values{1, 2, 63.5, 63.5, 63.5, 7, 4, 5, 6})) << "the whole chord";
    press(304, 20);
    release();
    EXPECT_EQ(values()[5], 95.25) << "the bar that is seen there";
    send("undo");
    send("undo");
    press(150, 0);
    drag(550, 80);
    EXPECT_EQ(values(),
              (Values{1, 111.125, 79.375, 79.375, 79.375, 127 * (1 - 153. / 400), 47.625, 15.875, 6}))
        << "on the line in time, from where it was pressed";
    release();
    EXPECT_EQ(last_edit(), "Change Events Velocity");
    send("undo");
    EXPECT_EQ(values(), before);
    press(302, 40);
    drag(502, 0, modifier_shift);
    EXPECT_EQ(values(), (Values{1, 2, 127, 127, 127, 7, 4, 5, 6})) << "held with shift, the chord alone";
    release();
}

TEST_F(ParameterGestureTest, ADragFillsInWhatItSkipsOnAStraightLine) {
    press(103, 40);
    drag(502, 0);
    EXPECT_EQ(values(), (Values{63.5, 2, 3, 4, 127, 6})) << "the press is no sample";
    drag(110, 200);
    EXPECT_EQ(values(), (Values{0, 31.75, 63.5, 95.25, 127, 6}));
    drag(302, -50);
    EXPECT_EQ(values(), (Values{0, 63.5, 127, 95.25, 127, 6}));
    drag(250, 0);
    EXPECT_EQ(values(), (Values{0, 63.5, 127, 95.25, 127, 6})) << "beside the bars";
    release();
    send("undo");
    EXPECT_EQ(values(), (Values{1, 2, 3, 4, 5, 6})) << "one step of the history";
    send("redo");
    EXPECT_EQ(values(), (Values{0, 63.5, 127, 95.25, 127, 6}));
}

TEST_F(ParameterGestureTest, WithShiftItStaysWithTheEventOfThePress) {
    press(101, 40);
    drag(504, 20, modifier_shift);
    drag(900, 0, modifier_shift);
    EXPECT_EQ(values(), (Values{127, 2, 3, 4, 5, 6}));
    release();
    press(250, 40);
    drag(504, 20, modifier_shift);
    EXPECT_EQ(values(), (Values{127, 2, 3, 4, 5, 6})) << "the press was on none";
}

TEST_F(ParameterGestureTest, ParametersComeToRestOnTheirSteps) {
    send("track_parameter_add Pan 0 10 0 3");
    track().displayedparameter = gensym("Pan");
    press(101, 0);
    EXPECT_EQ(values()[0], 10);
    drag(101, 79);
    drag(501, 0);
    EXPECT_EQ(values(), (Values{0, 5, 5, 10, 10, 0}));
    release();
    EXPECT_EQ(last_edit(), "Change Events Parameter");
    send("undo");
    EXPECT_EQ(values(), (Values{0, 0, 0, 0, 0, 0}));
}

TEST_F(ParameterGestureTest, OneEventIsCalledOne) {
    send("track_add", "track_active 1", "event start 1000 <note> 60 9 </note>");
    press(101, 0);
    release();
    EXPECT_EQ(last_edit(), "Change Event Velocity");
}

TEST_F(ParameterGestureTest, APressOnNoBarIsAStepThatChangesNothing) {
    prseq_setdirtyflag(box, false);
    const auto items = [this] { return box.history.items.size(); };
    const size_t before = items();
    press(250, 40);
    drag(260, 10);
    release();
    EXPECT_EQ(items(), before + 1);
    EXPECT_EQ(last_edit(), "Change Events Velocity");
    EXPECT_EQ(values(), (Values{1, 2, 3, 4, 5, 6}));
    EXPECT_FALSE(prseq_getdirtyflag(box)) << "the document is the one in its file";
    press(101, 40, modifier_control);
    release();
    EXPECT_EQ(items(), before + 1) << "that is for the menu";
}

TEST_F(ParameterGestureTest, WithoutATrackOrOnAHiddenOneNothingIsSet) {
    send("track_visible 0 0");
    press(101, 0);
    drag(301, 0);
    release();
    EXPECT_EQ(values(), (Values{1, 2, 3, 4, 5, 6}));
    send("track_delete 0");
    const size_t items = box.history.items.size();
    press(101, 0);
    drag(301, 0);
    release();
    EXPECT_EQ(box.history.items.size(), items);
}

TEST_F(ParameterGestureTest, CanBeTakenBackAndIsEndedByAnEdit) {
    prseq_setdirtyflag(box, false);
    press(101, 0);
    drag(601, 0);
    roll_back_gesture(box);
    EXPECT_EQ(values(), (Values{1, 2, 3, 4, 5, 6}));
    EXPECT_FALSE(prseq_getdirtyflag(box));
    press(101, 0);
    send("track_delete 0");
    drag(301, 0);
    release();
    send("undo", "undo");
    EXPECT_EQ(values(), (Values{1, 2, 3, 4, 5, 6}));
}

TEST_F(ParameterGestureTest, RedrawsTheLaneAloneAndTellsTheValue) {
    prseq_setdirtyflag(box, false);
    paint();
    press(101, 20);
    EXPECT_TRUE(box.tiptool.visible);
    EXPECT_EQ(box.tiptool.text, "95.25");
    EXPECT_EQ(box.tiptool.constrain, box.layout[Part::ParameterDisplay]);
    EXPECT_EQ(layers_painted(),
              "parameterdisplayBG_layer parameterdisplay_layer upperdisplay_layer tiptool_layer")
        << "it is dirty now";
    drag(101, 0);
    EXPECT_EQ(layers_painted(), "parameterdisplayBG_layer parameterdisplay_layer tiptool_layer");
    release();
    EXPECT_FALSE(box.tiptool.visible);
}

}  // namespace
}  // namespace tq
