// The messages that make and change tracks, and what the track info outlet tells of them.
#include <gtest/gtest.h>

#include "app/script_fixture.h"
#include "edits/type_edits.h"
#include "instance/colors.h"

namespace tq::test {
namespace {

struct TrackMessages : ScriptTest {
    TrackMessages() { say("new_track_color 0"); }
};

TEST_F(TrackMessages, tellAllOfATrack) {
    say("track_add Lead\ntrack_bpf_add Gain 0 2 0.5\ntrack_parameter_add Cut 0 1000 250 5");
    EXPECT_TRUE(says("track_add Next", "out2", R"(
        out2 tracks select 1
        out2 tracks bpf 1 Pitch 0. 131. 0.
        out2 tracks clear
        out2 tracks bpf clear
        out2 tracks set 0 Lead
        out2 tracks color 0 0.46 0.94 0.94
        out2 tracks inactivecolor 0 0.82 0.98 0.98
        out2 tracks visible 0 1
        out2 tracks mute 0 0
        out2 tracks parameter 0 Cut 0. 1000. 250. 5
        out2 tracks bpf 0 Pitch 0. 131. 0. Gain 0. 2. 0.5
        out2 tracks destination ""
        out2 tracks select 1
        out2 tracks set 1 Next
        out2 tracks color 1 0.46 0.94 0.94
        out2 tracks inactivecolor 1 0.82 0.98 0.98
        out2 tracks visible 1 1
        out2 tracks mute 1 0
        out2 tracks bpf 1 Pitch 0. 131. 0.
        out2 tracks destination ""
        out2 tracks select 1
        out2 tracks done)"));
    EXPECT_TRUE(says("track_active 1\ntrack_active 2\ntrack_active -1\ntrack_active 0", "out2", R"(
        out2 tracks select 0
        out2 tracks parameter 0 Cut 0. 1000. 250. 5
        out2 tracks bpf 0 Pitch 0. 131. 0. Gain 0. 2. 0.5)"));
}

TEST_F(TrackMessages, numberTracksThatGetNoName) {
    say("track_add\ntrack_add Named\ntrack_add\ntrack_add \"\"");
    std::string names;
    for (const TrackRef& track : box().tracks) names += track->name + ",";
    EXPECT_EQ(names, "Track 1,Named,Track 2,Track 3,");
    say("track_add " + std::string(254, 'x') + "\xc3\xa4");
    EXPECT_EQ(box().tracks.back()->name, std::string(254, 'x'))
        << "cut before the character that does not fit";
}

TEST_F(TrackMessages, switchTracks) {
    EXPECT_TRUE(says("track_visible 1 0\ntrack_mute foo\ntrack_mute", ""))
        << "without tracks nothing happens";
    say("track_add A\ntrack_add B");
    for (auto [message, said] :
         {std::pair{"track_visible 1 0", "out2 tracks visible 1 0\nout2 tracks done"},
          {"track_visible 5", "out2 tracks visible 1 1\nout2 tracks done"},
          {"track_visible 0 -1", "out2 tracks visible 0 0\nout2 tracks done"},
          {"track_mute 1", "out2 tracks mute 1 1\nout2 tracks done"},
          {"track_mute 0 1", "out2 tracks mute 0 1\nout2 tracks done"},
          {"track_mute 2 1", ""},
          {"track_mute -1 1", ""},
          {"track_visible foo", "error tq.sorvo: bad argument type for message track_visible"},
          {"track_visible 1.", "error tq.sorvo: bad argument type for message track_visible"},
          {"track_mute 1 foo", "error tq.sorvo: bad argument type for message track_mute"},
          {"track_visible 1 2 3", "error tq.sorvo: bad arguments for message track_visible"},
          {"track_mute", "error tq.sorvo: bad arguments for message track_mute"}})
        EXPECT_TRUE(says(message, said)) << message;
}

TEST_F(TrackMessages, deleteTracksAndKeepAnotherActive) {
    say("track_add A\ntrack_add B\ntrack_add C");
    for (int track : {0, 1, 2}) say("event start 0 <note> 60 1 </note> track " + std::to_string(track));
    struct Row {
        const char* message;
        long active;
        const char* events;  ///< identifier and track
    };
    for (const Row& row : {Row{"track_delete 3", 2, "1:0 2:1 3:2 "},
                           {"track_delete -1", 2, "1:0 2:1 3:2 "},
                           {"track_delete 2", 1, "1:0 2:1 "},
                           {"track_delete 0", 1 - 1, "2:0 "},
                           {"track_delete 0", -1, ""},
                           {"track_delete 0", -1, ""}}) {
        say(row.message);
        std::string events;
        for (const TrackRef& track : box().tracks)
            track->events.for_each([&](Event& e) {
                events += std::to_string(e.id) + ":" + std::to_string(e.track->index) + " ";
            });
        EXPECT_EQ(box().activetrack, row.active) << row.message;
        EXPECT_EQ(events, row.events) << row.message;
    }
    EXPECT_TRUE(
        says("track_delete 0", "error", "error tq.sorvo: deletetrack: track number 0 does not exist"));
    EXPECT_TRUE(says("event id 2 start 5", "error", "error tq.sorvo: no event with id 2 "));
}

TEST_F(TrackMessages, sendTracksElsewhere) {
    say("track_add A\ntrack_add B\nundoredo_clear\ntrack_destination gm:48:8\ntrack_destination 0 mine");
    EXPECT_EQ(box().tracks[1]->destination.text(), "gm:48:8") << "the active track's";
    EXPECT_EQ(box().tracks[0]->destination.text(), "mine");
    EXPECT_EQ(box().history.items.size(), 2u);
    EXPECT_EQ(say("track_destination 0 mine"), Lines()) << "nothing changes, nothing is said";
    say("track_destination");
    EXPECT_EQ(box().tracks[1]->destination, Symbol());
    for (const char* wrong : {"track_destination 2 x", "track_destination 0 1", "track_destination a b"})
        EXPECT_EQ(say(wrong), Lines{"error tq.sorvo: bad arguments for message track_destination"}) << wrong;
    EXPECT_EQ(box().tracks[0]->destination.text(), "mine");
}

TEST_F(TrackMessages, colourTracks) {
    say("track_add A\ntrack_color 0");
    EXPECT_TRUE(says("track_dump", "out2 tracks color", "out2 tracks color 0 0.94 0.46 0.46"));
    say("read\nnew_track_color 2\ntrack_add A\ntrack_color 0.85\ntrack_add B\ntrack_add C\ntrack_add D");
    for (auto [track, hue] : {std::pair(1, 0.95), {2, 0.05}, {3, 0.15}})
        EXPECT_NEAR(box().tracks[static_cast<size_t>(track)]->hue, hue, 1e-6) << "a step around the circle";
    say("new_track_color 1\ntrack_add E\ntrack_add F");
    EXPECT_NE(box().tracks[4]->hue, box().tracks[5]->hue);
    for (size_t track : {4u, 5u}) {
        EXPECT_GE(box().tracks[track]->hue, 0);
        EXPECT_LE(box().tracks[track]->hue, 1);
    }
}

TEST_F(TrackMessages, addTypesOnce) {
    EXPECT_TRUE(says("track_bpf_add Gain 0 1 0\ntrack_parameter_add Cut 0 1 0 0", ""))
        << "without tracks nothing happens";
    say("track_add A\nevent start 0\ntrack_bpf_add Gain 0 1 0.25\ntrack_bpf_add Gain 0 1 0.25\ntrack_bpf_add "
        "Gain 0 2 0\n"
        "track_bpf_add Gain 0 3 0\ntrack_bpf_add Pitch 0 1 0\ntrack_parameter_add Cut 0 1 0.5 "
        "3\ntrack_parameter_add Cut 5 9 7 0");
    EXPECT_TRUE(says("track_dump", "out2 tracks bpf 0",
                     "out2 tracks bpf 0 Pitch 0. 131. 0. Gain 0. 1. 0.25 GainBis 0. 2. 0. GainBisBis 0. 3. "
                     "0. Pitch 0. 131. 0."));
    EXPECT_TRUE(says("track_dump", "out2 tracks parameter", "out2 tracks parameter 0 Cut 0. 1. 0.5 3"));
    const Event& event = *box().tracks[0]->events.first();
    ASSERT_EQ(event.bpfs.size(), 4u);
    EXPECT_EQ(event.bpfs[1]->points, BpfPoints({{0, 0.25}, {1, 0.25}})) << "at the type's default";
    ASSERT_EQ(event.parametervalues.size(), 1u);
    EXPECT_EQ(event.parametervalues[0].value, 0.5);
}

TEST_F(TrackMessages, deletingATrackBeforeTheActiveOneLeavesNothingSelected) {
    say("track_add A\ntrack_add B\nevent start 0 <note> 60 0 </note>\ntrack_add C\ntrack_active 1\n.command "
        "select_all\ntrack_delete 0");
    EXPECT_EQ(box().activetrack, 1);
    EXPECT_TRUE(says(".show events", "event",
                     "event 1 track 0 start 0. duration 1000. pitch 60. velocity 0. selected 0"));
}

TEST_F(TrackMessages, aSecondPitchGivesNoEventASecondCurve) {
    say("track_add A\nevent start 0 duration 10\ntrack_bpf_add Pitch 0 1 0\ntrack_bpf_add Gain 0 1 0\n"
        "event start 5 duration 10\ntrack_add B\ntrack_active 0\nevent id 1 track 1\nevent id 1 track "
        "0\n.wait 100");
    for (const char* after : {"dump_selected", "undo", "redo"}) {
        say(after);
        box().tracks[0]->events.for_each([&](const Event& event) {
            ASSERT_EQ(event.bpfs.size(), 2u);
            EXPECT_EQ(event.bpfs[1]->name().text(), "Gain");
        });
    }
}

TEST_F(TrackMessages, renamingAndRangingATypeReachesEveryCurve) {
    say("track_add A\ntrack_bpf_add Gain 0 1 0\n"
        "event start 0 duration 10 <note> 72 0 </note> <bpf> Gain 0 1 </bpf>\n.wait 100");
    change_bpf_type(box(), box().tracks[0], 1, {gensym("Level"), 0, 200, 0});
    EXPECT_TRUE(says(".command select_all", "out1", R"(
        out1 event clear
        out1 event 0 id 1 track 0 start 0 duration 10 <note> 72. 0. </note> <bpf> Pitch 0. 72. 10. 72. Level 0. 200. 10. 0. </bpf>
        out1 event done)"));
    say("undo");
    EXPECT_EQ(box().tracks[0]->events.first()->bpfs[1]->name().text(), "Gain");
}

TEST_F(TrackMessages, giveATrackADestinationThatUndoTakesBack) {
    say("track_add A\ntrack_destination gm:40\ntrack_destination 0 gm:41\ntrack_destination 0 gm:41");
    EXPECT_EQ(box().tracks[0]->destination.text(), "gm:41");
    EXPECT_TRUE(says("undo", "out2 tracks destination", "out2 tracks destination gm:40"));
    say("undo");
    EXPECT_TRUE(box().tracks[0]->destination.empty());
    say("redo");
    EXPECT_EQ(box().tracks[0]->destination.text(), "gm:40");
}

}  // namespace
}  // namespace tq::test
