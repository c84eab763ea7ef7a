// Every message of the class, with arguments that fit and arguments that do not.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "app/script_fixture.h"
#include "shell/instance.h"

namespace tq::test {
namespace {

struct MessageRow {
    const char *message, *good;  ///< arguments that it takes; as few as it can do with
    bool needs_all;              ///< without the last argument it says that they are bad
};

// clang-format off
constexpr MessageRow messages[] = {
    {"zoom_vert", "0.5", true}, {"zoom_hor", "0.5", true}, {"scroll_vert", "0.5", true},
    {"scroll_hor", "0.5", true}, {"zoom_in", "", false}, {"zoom_out", "", false},
    {"zoom_to_selection", "", false}, {"zoom_out_all", "", false}, {"cyclerange", "100 200.5", true},
    {"cycle", "1", true}, {"mouse_mode", "insert", false}, {"track_active", "0", true},
    {"track_add", "", false}, {"track_delete", "1", true}, {"track_color", "0.25", true},
    {"track_bpf_add", "Gain 0 1 0", true}, {"track_parameter_add", "Cut 0 1 0 0", true},
    {"track_dump", "", false}, {"position", "100", true}, {"undo", "", false}, {"redo", "", false},
    {"undoredo", "0", true}, {"undoredo_clear", "", false}, {"undoredo_dump", "", false},
    {"maxtime", "10000", true}, {"read", "", false}, {"readagain", "", false}, {"write", "", false},
    {"writeagain", "", false}, {"int", "0", true}, {"dump_selected", "", false}, {"getdirty", "", false},
    {"getmaxtime", "", false}, {"getcycle", "", false}, {"getcyclerange", "", false},
    {"document_inspector_open", "", false}, {"document_inspector_close", "", false},
    {"track_inspector_open", "", false}, {"track_inspector_close", "", false},
    {"event_inspector_open", "", false}, {"event_inspector_close", "", false}};
// clang-format on

struct Messages : ScriptTest {
    Messages() { say("new_track_color 0\ntrack_add A\ntrack_add B"); }
};

std::string without_last_word(const std::string& words) {
    size_t blank = words.rfind(' ');
    return blank == words.npos ? "" : words.substr(0, blank);
}

TEST_F(Messages, areAllTriedHere) {
    const std::set<std::string> lists{"event",
                                      "track_visible",
                                      "track_mute",
                                      "track_destination",
                                      "quantise",
                                      "quantize",
                                      "legato",
                                      "stretch",
                                      "reverse",
                                      "humanise",
                                      "humanize",
                                      "split",
                                      "join",
                                      "velocity_scale",
                                      "velocity_ramp",
                                      "transpose",
                                      "time_signature",
                                      "curve_fade",
                                      "select_where",
                                      "select_invert",
                                      "event_delete",
                                      "time_display_type",
                                      "track_solo",
                                      "track_bpf_active",
                                      "track_level",
                                      "loop_repeat",
                                      "loop_insert",
                                      "loop_delete",
                                      "loop_swap",
                                      "track_name",
                                      "stretch_to_tempo",
                                      "document_title",
                                      "document_author",
                                      "document_memo",
                                      "event_select",
                                      "event_show"};  // they judge their atoms
                                                      // themselves
    for (const Method& method : prseq_class().methods()) {
        const std::string& name = method.name.text();
        EXPECT_TRUE(lists.contains(name) ||
                    std::ranges::find(messages, name, &MessageRow::message) != std::end(messages))
            << name;
    }
}

TEST_F(Messages, takeTheirArgumentsAndIgnoreMore) {
    for (const MessageRow& row : messages) {
        SCOPED_TRACE(row.message);
        std::string message = std::string(row.message) + " " + row.good;
        EXPECT_TRUE(says(message, "error", ""));
        if (!row.needs_all) continue;
        EXPECT_TRUE(says(message + " surplus 1 2.5", "error", ""));
    }
}

TEST_F(Messages, sayWhichArgumentsAreBad) {
    for (const MessageRow& row : messages) {
        if (!row.needs_all) continue;
        SCOPED_TRACE(row.message);
        std::string complaint =
            std::string("error tq.sorvo: bad arguments for message \"") + row.message + "\"";
        std::string few = without_last_word(row.good);
        std::string before = document();
        EXPECT_TRUE(says(std::string(row.message) + " " + few, "error", complaint)) << "too few";
        EXPECT_TRUE(says(std::string(row.message) + " " + few + " word", "error", complaint))
            << "a word for a number";
        EXPECT_EQ(document(), before);
    }
    for (const std::string bad :
         {"track_bpf_add 1 0 1 0", "mouse_mode", "mouse_mode 1", "track_add 7", "read 7"})
        EXPECT_TRUE(
            says(bad, "error",
                 "error tq.sorvo: bad arguments for message \"" + bad.substr(0, bad.find(' ')) + "\""));
    EXPECT_TRUE(says("mouse_mode sideways", "error", "error tq.sorvo: mouse mode does not exist"));
}

TEST_F(Messages, thatNobodyKnowsAreNamed) {
    EXPECT_TRUE(says("nonsense 1 2", "error tq.sorvo: doesn't understand \"nonsense\""));
    EXPECT_TRUE(says("getnonsense", "error tq.sorvo: doesn't understand \"getnonsense\""));
    EXPECT_TRUE(says("1 2 3", "error tq.sorvo: doesn't understand \"list\""));
    EXPECT_TRUE(says("0.9", "out0 0 stop\nout0 1 stop")) << "a float is cut to the int 0, which stops";
}

TEST_F(Messages, holdZoomAndScrollWithinTheirRange) {
    for (auto [given, stored] :
         {std::pair{"-0.5", "0."}, {"0", "0."}, {"0.25", "0.25"}, {"1", "1."}, {"2", "1."}, {"1e30", "1."}}) {
        const std::string v = given, s = stored;
        EXPECT_TRUE(says("zoom_hor " + v + "\nzoom_vert " + v + "\nscroll_hor " + v + "\nscroll_vert " + v +
                             "\n.show view",
                         "view " + s + " " + s + " " + s + " " + s))
            << v;
    }
}

TEST_F(Messages, extendTheTimelineToWholeSecondsWithTwoToSpare) {
    for (auto [asked, length] : {std::pair{"8000", "10000."},
                                 {"10000", "10000."},
                                 {"10200", "12000."},
                                 {"11900", "12000."},
                                 {"12000.5", "14000."},
                                 {"14500", "17000."},
                                 {"-5", "17000."},
                                 {"10900", "17000."}})
        EXPECT_TRUE(says(std::string("maxtime ") + asked, "maxtime", std::string("out3 maxtime ") + length))
            << asked;
    EXPECT_TRUE(says("maxtime 17001", "zoomhor", "out3 zoomhor 0.04"));
}

TEST_F(Messages, tellWhetherTheDocumentDiffersFromItsFile) {
    for (auto [message, dirty] : {std::pair{"track_mute 0 1", "1"},
                                  {"track_visible 0 1", "1"},
                                  {"event start 0", "1"},
                                  {"event id 77", "1"},
                                  {"track_color 0.2", "1"},
                                  {"track_bpf_add G 0 1 0", "1"},
                                  {"track_bpf_add G 0 1 0", "0"},
                                  {"track_parameter_add P 0 1 0 0", "1"},
                                  {"track_parameter_add P 0 1 0 0", "0"},
                                  {"track_delete 1", "1"},
                                  {"track_delete 9", "0"},
                                  {"event", "0"},
                                  {"position 100", "0"},
                                  {"zoom_hor 0.5", "0"},
                                  {"track_dump", "0"},
                                  {"track_add", "1"}}) {
        say("write \"" + folder.file("clean.json") + "\"");
        EXPECT_TRUE(says("getdirty", "dump dirty 0"));
        EXPECT_TRUE(says(std::string(message) + "\ngetdirty", "dump", std::string("dump dirty ") + dirty))
            << message;
    }
    EXPECT_TRUE(says("read\ngetdirty", "dump", "dump dirty 0"));
}

TEST_F(Messages, emptyTheDocumentButKeepTheView) {
    say("event start 99000\nzoom_hor 0.5\nscroll_vert 0.25\nread");
    std::string emptied = document();
    EXPECT_NE(emptied.find(R"("tracks":[],"maxtime")"), emptied.npos) << emptied << " has no activetrack";
    EXPECT_TRUE(says(".show view", "view 0.5 0.02 0. 0.25"));
    EXPECT_TRUE(says("track_dump", "out2 tracks clear\nout2 tracks bpf clear\nout2 tracks done"));
    EXPECT_EQ(box().info.title, "No Title");
    EXPECT_EQ(box().activetrack, -1);
}

TEST_F(Messages, inAnyMixtureDoNoHarm) {
    const char* words[] = {"-1",       "0",         "1",
                           "2",        "7",         "0.5",
                           "1e30",     "-1e30",     "9223372036854775807",
                           "Pitch",    "\"\"",      "<note>",
                           "</note>",  "<bpf>",     "<parameter>",
                           "<buffer>", "<message>", "start",
                           "duration", "track",     "id",
                           "Gain"};
    std::mt19937 random(11);
    const std::vector<Method>& methods = prseq_class().methods();
    size_t sent = 0;
    for (int i = 0; i < 6000; ++i) {
        const std::string& name = methods[random() % methods.size()].name.text();
        if (name == "write" || name == "maxtime" || name == "int") continue;
        std::string line = name == "read" && i % 16 ? "event" : name;
        for (auto count = random() % 9; count > 0; --count)
            line += std::string(" ") + words[random() % std::size(words)];
        say(line);
        ++sent;
    }
    EXPECT_GT(sent, 4000u);
    say(".show document");
}

TEST(Instance, thatGoesAwayWhilePlayingIsNotCalledAgain) {
    Host host;
    EXPECT_EQ(prseq_new(host, {}), nullptr) << "without a dictionary there is no box";
    int calls = 0;
    host.patch.outlet = [&](auto&&...) { ++calls; };
    auto box = prseq_new(host, BoxDictionary{});
    for (const char* message :
         {"event start 50", "event start 100", "cyclerange 20 80", "cycle 1", "zoom_in", "int 1"}) {
        MessageCall parsed = parse_message(message);
        ASSERT_TRUE(object_method_typed(*box, parsed.selector, parsed.arguments)) << message;
    }
    host.scheduler.run_until(60);
    ASSERT_GT(calls, 0);
    calls = 0;
    box.reset();
    host.scheduler.run_until(1000);
    EXPECT_EQ(calls, 0);
}

struct WindowReports : ScriptTest {};

TEST_F(WindowReports, tellWhereTheWindowIsWhenItHasMoved) {
    EXPECT_EQ(say(".window 10 20 300.5 400"), Lines{"out3 patcherwindow_rect 10. 20. 300.5 400."});
    EXPECT_EQ(say(".window 10 20 300.5 400"), Lines());
    prseq_detach_patcherview(box());
    EXPECT_EQ(say(".window 11 20 300 400"), Lines());
}

}  // namespace
}  // namespace tq::test
