// The modes that edit curves.
#include "interaction/hand.h"
#include "model/bpf_editor.h"

namespace tq::test {
namespace {

struct CurveModes : Hand {
    CurveModes() {
        say("track_add\ntrack_bpf_add Gain 0 10 0");
        add(1000, 5000, 60, "<bpf> Pitch 0 0 1000 1 2000 2 3000 1 5000 0 </bpf>");
        say("mouse_mode edit_bpf");
    }
    /// A point of the edited event: x from 0 to 1, y in rows above its bottom.
    Point in_event(double x, double y) {
        const Event& event = *box().bpfeditingevent;
        const Rect rect = TQ_Prseq_Events_Rect(box(), event);
        const MainDisplay& md = box().maindisplay;
        return {md.rect.x + rect.x + x * rect.width,
                md.rect.y + rect.y + rect.height * (1 - y) - md.verticalscroll};
    }
    /// The points of the curve that is edited: "X,Y" in thousandths, selected ones with a "*".
    std::string points() {
        const CurveOf curve = edited_bpf(box());
        std::string text;
        for (size_t i = 0; curve.bpf && i < curve.bpf->points.size(); ++i) {
            const BpfPoint& p = curve.bpf->points[i];
            text += (i ? " " : "") + whole(p.x * 1000) + "," + whole(p.y * 1000) +
                    (box().bpfediting.is_selected(*curve.bpf, i) ? "*" : "");
        }
        return text;
    }
    std::string marquee(double from, double to, const std::string& held = "") {
        drag(in_event(from, 0.5), in_event(to, 30), held);
        return points();
    }
    void edit_gain() { box().tracks[0]->activebpfindex = 1; }
};

TEST_F(CurveModes, APressBesideThePointsAddsOneAndTheDragMovesIt) {
    EXPECT_EQ(points(), "0,0 200,1000 400,2000 600,1000 1000,0");
    mouse("move", in_event(0.2, 1));
    EXPECT_EQ(cursor(), "cursor 6");
    EXPECT_EQ(box().bpfediting.currentpoint, 1);
    mouse("down", in_event(0.1, 0.5));
    EXPECT_EQ(tip(), "tiptool Pitch Point \\nPosition: 500.000000 ms \\nPitch: 60.500000");
    EXPECT_EQ(points(), "0,0 100,500* 200,1000 400,2000 600,1000 1000,0");
    mouse("drag", in_event(0.9, 3));
    EXPECT_EQ(points(), "0,0 200,3000* 200,1000 400,2000 600,1000 1000,0") << "it stops at its neighbour";
    mouse("drag shift", in_event(0.15, -1.6));
    EXPECT_EQ(points(), "0,0 150,-2000* 200,1000 400,2000 600,1000 1000,0") << "whole semitones";
    release();
    EXPECT_EQ(history(), "Add Track, Insert Event, Add Bpf Point, [Move Bpf Point]");
    say("undo");
    EXPECT_EQ(points(), "0,0 100,500* 200,1000 400,2000 600,1000 1000,0");
    say("undo");
    EXPECT_EQ(points(), "0,0 200,1000 400,2000 600,1000 1000,0") << "nothing else has become selected";
    click(in_event(1.05, 0.5));
    click(in_event(-0.05, 0.5));
    EXPECT_EQ(points(), "0,0 200,1000 400,2000 600,1000 1000,0") << "nothing beside the event";
    say("redo\nredo");
    EXPECT_TRUE(comes_back());
}

TEST_F(CurveModes, ThePointsOfOtherTypesStayInTheirRange) {
    edit_gain();
    click(in_event(0.5, 1.5));
    EXPECT_EQ(points(), "0,0 1000,0") << "outside of the event";
    mouse("down", in_event(0.5, 0.5));
    EXPECT_EQ(tip(), "tiptool Gain Point \\nPosition: 2500.000000 ms \\nValue: 5.000000");
    mouse("drag", in_event(0.5, 4));
    EXPECT_EQ(points(), "0,0 500,1000* 1000,0");
    release();
    say(".command bpf_time_absolute");
    drag(in_event(0, 0), in_event(0.4, -3));
    mouse("down", in_event(0, 0));
    mouse("drag", in_event(0.4, 0.5));
    EXPECT_EQ(tip(), "tiptool Gain Point \\nPosition: 1000.000000 ms \\nValue: 5.000000");
    release();
    EXPECT_EQ(points(), "0,500* 500,1000 1000,0") << "the first point only moves up and down";
}

TEST_F(CurveModes, ShiftDeletesInnerPoints) {
    click(in_event(0.4, 2), " shift");
    EXPECT_EQ(points(), "0,0 200,1000 600,1000 1000,0");
    click(in_event(0, 0), " shift");
    EXPECT_EQ(points(), "0,0* 200,1000 600,1000 1000,0") << "the first is only selected";
    say(".key 97\n.key -7");
    EXPECT_EQ(points(), "0,0 1000,0") << "the ends stay";
    EXPECT_EQ(history(), "Add Track, Insert Event, Delete Bpf Point, [Delete Bpf Points]");
    EXPECT_EQ(events(), "1000+5000@60") << "keys are about points now";
    EXPECT_TRUE(comes_back());
}

TEST_F(CurveModes, AMarqueeSelectsPointsWhateverTheirHeight) {
    say("mouse_mode select_bpf");
    mouse("move", in_event(0.5, 0.5));
    EXPECT_EQ(cursor(), "cursor 7");
    EXPECT_EQ(marquee(0.3, 0.9), "0,0 200,1000 400,2000* 600,1000* 1000,0");
    EXPECT_EQ(box().bpfediting.marquee.width, 0);
    EXPECT_EQ(marquee(0.5, 0.1, " shift"), "0,0 200,1000* 400,2000 600,1000* 1000,0");
    EXPECT_EQ(marquee(0.9, 2), "0,0 200,1000 400,2000 600,1000 1000,0*") << "no farther than the event";
    click(in_event(0.5, 3));
    EXPECT_EQ(points(), "0,0 200,1000 400,2000 600,1000 1000,0");
    EXPECT_EQ(history(), "Add Track, [Insert Event]");
}

TEST_F(CurveModes, SelectedPointsAreDraggedTogetherAsFarAsThereIsRoom) {
    say("mouse_mode select_bpf");
    EXPECT_EQ(marquee(0.15, 0.65), "0,0 200,1000* 400,2000* 600,1000* 1000,0");
    say("mouse_mode edit_bpf");
    mouse("down", in_event(0.4, 2));
    mouse("drag", in_event(0.5, 2.5));
    EXPECT_EQ(points(), "0,0 300,1500* 500,2500* 700,1500* 1000,0");
    mouse("drag", in_event(-1, 2));
    EXPECT_EQ(points(), "0,0 2,1000* 202,2000* 402,1000* 1000,0") << "a pixel short of the point that stays";
    mouse("drag shift", in_event(3, 4));
    EXPECT_EQ(points(), "0,0 598,1000* 798,2000* 998,1000* 1000,0") << "with shift they keep their values";
    release();
    EXPECT_EQ(history(), "Add Track, Insert Event, [Move Bpf Points]");
    // Some that stay stand between those that go.
    say("undo\nmouse_mode select_bpf");
    marquee(0.15, 0.25);
    EXPECT_EQ(marquee(0.55, 0.65, " shift"), "0,0 200,1000* 400,2000 600,1000* 1000,0");
    say("mouse_mode edit_bpf");
    drag(in_event(0.2, 1), in_event(0.9, 1));
    EXPECT_EQ(points(), "0,0 398,1000* 400,2000 798,1000* 1000,0");
    say(".key 97");
    drag(in_event(0.4, 2), in_event(0.5, 3));
    EXPECT_EQ(points(), "0,1000* 398,2000* 400,3000* 798,2000* 1000,1000*") << "all of them: up and down";
    EXPECT_TRUE(comes_back());
}

TEST_F(CurveModes, OptionChoosesTheEvent) {
    add(7000, 1000, 62);
    EXPECT_EQ(points().substr(0, 7), "0,0 200");
    click(7500, 62, " option");
    EXPECT_EQ(points(), "0,0 1000,0");
    EXPECT_EQ(events(), "1000+5000@60 7000+1000@62*");
    click(9000, 62, " option");
    EXPECT_EQ(points(), "0,0 1000,0");
    say("mouse_mode select_bpf");
    click(1500, 60, " option");
    EXPECT_EQ(points().substr(0, 7), "0,0 200");
}

/// What happens to the curve, the event or the document while a point is dragged, or points are marked.
struct CurveDrag : CurveModes, testing::WithParamInterface<const char*> {};

TEST_P(CurveDrag, SurvivesWhatHappensMeanwhile) {
    say(std::string("mouse_mode ") + (std::string(GetParam()).starts_with("select ") ? "select" : "edit") +
        "_bpf");
    mouse("down", in_event(0.3, 0.5));
    mouse("drag", in_event(0.35, 0.7));
    const Point on = in_event(0.5, 0.5);
    const std::string message = GetParam();
    say(message.substr(message.find(' ') + 1));
    mouse("drag", on);
    EXPECT_TRUE(holds_together(box()));
    const std::string now = document_of(script.session());
    mouse("drag", {on.x + 30, on.y + 10});
    if (message.find("zoom") == message.npos) {
        EXPECT_EQ(document_of(script.session()), now) << "what comes then is no part of it";
    }
    release();
    say(".paint");
}

INSTANTIATE_TEST_SUITE_P(Messages, CurveDrag,
                         testing::Values("edit undo", "edit event id 1 <bpf> Pitch 0 0 </bpf>\n.wait 100",
                                         "edit track_delete 0", "edit mouse_mode select_bpf",
                                         "edit track_add", "edit zoom_hor 1", "edit undoredo -1",
                                         "edit undoredo_clear", "edit event id 1 duration 10\n.wait 100",
                                         "edit read nothing", "select undo",
                                         "select event id 1 <bpf> Pitch 0 0 </bpf>\n.wait 100",
                                         "select track_delete 0", "select undoredo -1", "select zoom_hor 1",
                                         "select read nothing"));

}  // namespace
}  // namespace tq::test
