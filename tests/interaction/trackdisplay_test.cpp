// The track list with the mouse. It is 165 wide from y = 24; rows of 20 begin below its header of 16.
#include "view/trackdisplay.h"
#include "app/script_fixture.h"
#include "instance/prseq.h"

namespace tq::test {
namespace {

struct TrackDisplayTest : ScriptTest {
    TrackDisplayTest() { say(".size 1000 324\ntrack_add\ntrack_add\ntrack_add"); }
    void click(double x, double y) {
        say(".mouse down " + std::to_string(x) + " " + std::to_string(24 + y));
        say(".mouse up " + std::to_string(x) + " " + std::to_string(24 + y));
    }
    void add_tracks(int count) {
        for (int i = 0; i < count; ++i) say("track_add");
    }
};

TEST_F(TrackDisplayTest, NamesChooseEyesHideAndSpeakersMute) {
    click(50, 16 + 30);
    EXPECT_EQ(box().activetrack, 1);
    click(112, 16 + 10);
    EXPECT_FALSE(box().tracks[0]->visible);
    click(136, 16 + 50);
    EXPECT_TRUE(box().tracks[2]->mute);
    click(112, 16 + 10);
    EXPECT_TRUE(box().tracks[0]->visible);
    EXPECT_EQ(box().activetrack, 1) << "switches choose nothing";
    say("undo");
    EXPECT_EQ(box().activetrack, 2);
    for (auto [x, y] :
         {std::pair{50., 16 + 20.}, {50., 10.}, {50., 16 + 61.}, {100., 16 + 10.}, {150., 300.}})
        click(x, y);
    EXPECT_EQ(box().activetrack, 2) << "edges, the header, and below the rows";
}

TEST_F(TrackDisplayTest, ADoubleClickBelowTheRowsAddsATrack) {
    for (const char* on : {"50 65", "50 30", "155 200"}) say(std::string(".mouse double ") + on);
    EXPECT_EQ(box().tracks.size(), 3u) << "a row, the header, the scrollbar";
    say(".mouse double 50 200");
    ASSERT_EQ(box().tracks.size(), 4u);
    EXPECT_EQ(box().tracks[3]->name, "Track 4");
}

TEST_F(TrackDisplayTest, TheListScrollsByKnobAndWheelAndRowsAreHitWhereTheyAre) {
    EXPECT_FALSE(trackdisplay_of(box()).scrollbar.knobexists);
    say(".mouse down 155 100\n.mouse drag 155 200\n.wheel 50 100 0 -0.39062");
    EXPECT_EQ(trackdisplay_of(box()).scroll, 0) << "there is nothing to scroll";
    say(".mouse up 0 0");
    add_tracks(17);
    const TrackDisplay list = trackdisplay_of(box());
    EXPECT_EQ(list.alltracksheight, 400);
    EXPECT_NEAR(list.scrollbar.knobsize / list.scrollbar.scrollbox.height, 284 / 400., 1e-9);
    say(".wheel 50 100 0 -0.078124");
    EXPECT_NEAR(trackdisplay_of(box()).scroll, 40, 1e-9) << "two rows";
    click(50, 16 + 10);
    EXPECT_EQ(box().activetrack, 2);
    say(".mouse down 155 150\nevent start 0 <note> 60 90 </note>\n.mouse drag 155 1000");
    EXPECT_NEAR(trackdisplay_of(box()).scroll, 116, 1e-9) << "an edit does not end it";
    say(".mouse drag 155 -1000");
    EXPECT_EQ(trackdisplay_of(box()).scroll, 0);
    say(".mouse drag 155 250 shift\n.mouse up 0 0");
    EXPECT_NEAR(trackdisplay_of(box()).scroll, 40 + 116 / list.scrollbar.knobrange, 1e-6);
}

TEST_F(TrackDisplayTest, OnlyTheRowsInViewAreVisited) {
    add_tracks(17);
    const auto rows = [&] {
        const TrackRows r = visible_track_rows(box(), trackdisplay_of(box()));
        return std::pair{r.first, r.last};
    };
    EXPECT_EQ(rows(), (std::pair{0L, 15L})) << "14 rows and a part of the fifteenth";
    say(".wheel 50 100 0 -39");
    EXPECT_EQ(rows(), (std::pair{5L, 20L})) << "a part of the sixth to the last";
    say(".size 1000 240\n.paint");
    for (int i = 0; i < 18; ++i) say("track_delete 0");
    EXPECT_EQ(rows(), (std::pair{0L, 2L}));
}

TEST_F(TrackDisplayTest, WhatTheListShowsIsDrawnAnew) {
    say(".paint\n.show layers");
    const auto layer_drawn = [&](const std::string& line) {
        say(line + "\n.paint");
        return say(".show layers")[0].find("trackdisplay_layer") != std::string::npos;
    };
    for (const char* line : {"track_active 0", "track_mute 1 1", "track_visible 1 0", "track_color 0.3",
                             "track_delete 2", "undo", "trackdisplaycolor 1 0 0 1"})
        EXPECT_TRUE(layer_drawn(line)) << line;
    for (const char* line : {"zoom_hor 0.3", "event start 0 <note> 60 90 </note>", "cycle 1", "position 100"})
        EXPECT_FALSE(layer_drawn(line)) << line;
}

}  // namespace
}  // namespace tq::test
