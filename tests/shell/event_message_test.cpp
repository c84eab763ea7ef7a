// The "event" message: every keyword, every complaint.
#include <gtest/gtest.h>

#include "app/script_fixture.h"

namespace tq::test {
namespace {

struct EventMessages : ScriptTest {
    EventMessages() { say("new_track_color 0"); }
    void make_types() {
        say("track_add A\ntrack_bpf_add Gain 0 1 0\ntrack_bpf_add Pan -1 1 0\n"
            "track_parameter_add Cut 0 1000 250 0\ntrack_parameter_add Res 0 1 0.5 0");
    }
    /// What stands behind a key of an event of the written document.
    std::string written(const std::string& key, size_t event = 0) {
        std::string text = document();
        size_t at = text.find("\"events\":[");
        for (size_t i = 0; i <= event; ++i) at = text.find("{\"start\"", at + 1);
        at = text.find("\"" + key + "\":", at) + key.size() + 3;
        if (text[at] == '[') {
            size_t end = at, depth = 0;
            do depth += text[end] == '[' ? 1 : text[end] == ']' ? -1UL : 0;
            while (++end < text.size() && depth > 0);
            return text.substr(at, end - at);
        }
        return text.substr(at, text.find_first_of(",}", at) - at);
    }
    testing::AssertionResult complains(const std::string& message, const std::string& complaint) {
        return says(message, "error", complaint.empty() ? "" : "error tq.sorvo: " + complaint);
    }
};

TEST_F(EventMessages, makesAnEventAndTheTrackThatItNeeds) {
    EXPECT_TRUE(says("event start 500 duration 250 <note> 60 100 </note>\n.show events", "event",
                     "event 1 track 0 start 500. duration 250. pitch 60. velocity 100. selected 0"));
    EXPECT_EQ(box().tracks.at(0)->name, "Untitled");
    EXPECT_TRUE(says(".transport 1234.9\nevent <note> 64 </note>\n.show events", "event", R"(
        event 1 track 0 start 500. duration 250. pitch 60. velocity 100. selected 0
        event 2 track 0 start 1234. duration 1000. pitch 64. velocity 0. selected 0)"))
        << "where the transport is, for a second";
}

TEST_F(EventMessages, takesItsKeywordsInAnyOrder) {
    make_types();
    say("junk 7 event");
    say("event </bpf> 5 <note> 61 </note> duration 20.9 label first start 1 nonsense start 30.9 <note> 90 "
        "</note>"
        " label \"the last\" duration <message> a </message> <message> b 2 </message> track 0");
    EXPECT_TRUE(
        says(".show events", "event 1 track 0 start 30. duration 20. pitch 61. velocity 90. selected 0"));
    EXPECT_EQ(written("label"), "\"the last\"");
    EXPECT_EQ(written("message"), "\"a b 2\"");
    say("event start 0 <message> to the end start 99");
    EXPECT_EQ(written("message"), "\"to the end start 99\"") << "a list without an end takes what follows";
}

TEST_F(EventMessages, findsOrMakesItsTrack) {
    EXPECT_TRUE(complains("event track 3 start 0", "no track 3, creating new one"));
    EXPECT_EQ(box().tracks.at(0)->name, "Untitled");
    say("track_add B");
    EXPECT_TRUE(complains("event track 5 start 0", "no track 5, creating new one"));
    EXPECT_TRUE(complains("event track 3.9 start 0", "no track 3, creating new one"));
    EXPECT_TRUE(complains("event track -4 start 1", ""));
    EXPECT_EQ(box().tracks.at(2)->name, "Track 5");
    EXPECT_EQ(box().tracks.at(3)->name, "Track 3");
    Lines events = say(".show events");
    ASSERT_EQ(events.size(), 4u);
    EXPECT_TRUE(events[1].starts_with("event 4 track 0"));
    EXPECT_TRUE(events[2].starts_with("event 2 track 2"));
    EXPECT_TRUE(events[3].starts_with("event 3 track 3"));
}

TEST_F(EventMessages, withoutAPitchTakesTheMiddleOfTheView) {
    say("event start 0\nscroll_vert 0\nevent start 1");
    double low = box().tracks[0]->events.at(0)->pitch, high = box().tracks[0]->events.at(1)->pitch;
    EXPECT_GT(low, 40);
    EXPECT_LT(low, 90);
    EXPECT_GT(high, low) << "scrolled up";
}

TEST_F(EventMessages, changesOnlyWhatItNames) {
    make_types();
    say("event start 100 duration 200 label L <note> 60 100 </note> <message> m </message> <parameter> Cut "
        "700 </parameter>");
    for (auto [message, event] :
         {std::pair{"start 1000", "start 1000. duration 200. pitch 60. velocity 100."},
          {"duration 50.5", "start 1000. duration 50.5 pitch 60. velocity 100."},
          {"<note> </note>", "start 1000. duration 50.5 pitch 60. velocity 100."},
          {"<note> 61.5 </note>", "start 1000. duration 50.5 pitch 61.5 velocity 100."},
          {"<note> 62 7 </note>", "start 1000. duration 50.5 pitch 62. velocity 7."},
          {"label X", "start 1000. duration 50.5 pitch 62. velocity 7."}})
        EXPECT_TRUE(says(std::string("event id 1 ") + message + "\n.show events", "event",
                         std::string("event 1 track 0 ") + event + " selected 0"))
            << message;
    EXPECT_EQ(written("label"), "\"X\"");
    EXPECT_EQ(written("message"), "\"m\"");
    EXPECT_EQ(written("parameters"), R"([{"name":"Cut","value":700.0},{"name":"Res","value":0.5}])");
}

TEST_F(EventMessages, keepsItsTrackUnlessItNamesAnother) {
    make_types();
    say("event start 10 <parameter> Res 1 </parameter> <bpf> Gain 0 1 </bpf>\ntrack_add B\ntrack_bpf_add "
        "Gain 0 1 0.25\n"
        "event start 5\nevent id 1 start 20");
    EXPECT_TRUE(say(".show events").at(0).starts_with("event 1 track 0 start 20."));
    say("event id 1 track 1");
    Lines events = say(".show events");
    EXPECT_TRUE(events.at(0).starts_with("event 2 track 1 start 5."));
    EXPECT_TRUE(events.at(1).starts_with("event 1 track 1 start 20."));
    EXPECT_EQ(written("parameters", 1), "[]") << "the other track has none";
    EXPECT_EQ(written("bpfs", 1), R"([{"name":"Pitch","points":[{"x":0.0,"y":0.0},{"x":1.0,"y":0.0}]},)"
                                  R"({"name":"Gain","points":[{"x":0.0,"y":1.0},{"x":1.0,"y":0.0}]}])");
    say("event id 2 start 30");
    EXPECT_TRUE(say(".show events").at(0).starts_with("event 1 track 1")) << "in start order again";
    EXPECT_TRUE(complains("event id 1 track 9", "no track 9, creating new one"));
    EXPECT_TRUE(say(".show events").at(1).starts_with("event 1 track 2 start 20."));
}

TEST_F(EventMessages, complainsInWords) {
    make_types();
    say("event start 0 duration 1000 <note> 60 100 </note>");
    struct Row {
        const char *message, *complaint;
    };
    const Row complaints[] = {
        {"id 999 start 5", "no event with id 999 "},
        {"id -1", "no event with id -1 "},
        {"id 9223372036854775807", "no event with id 9223372036854775807 "},
        {"id 1 <note> a </note>", "bad arg type after arg \"<note>\" in message event"},
        {"id 1 <note> 60 a </note>", "bad arg type after arg \"<note>\" in message event"},
        {"id 1 <note> 1 2 3 </note>", "bad number of arguments for \"<note>\" component in message event"},
        {"id 1 <buffer> 5 </buffer>", "bad arg type after arg \"<buffer>\" in message event"},
        {"id 1 <buffer> a b </buffer>", "bad arg type after arg \"<buffer>\" in message event"},
        {"id 1 <buffer> a 1.5 </buffer>", "bad arg type after arg \"<buffer>\" in message event"},
        {"id 1 <buffer> a 1 1 </buffer>",
         "bad number of arguments for \"<buffer>\" component in message event"},
        {"id 1 <parameter> Cut 1 5 Res 1 </parameter>",
         "bad arg type after arg \"<parameter>\" in message event"},
        {"id 1 <parameter> Cut loud </parameter>",
         "bad arg type after arg Cut in message event, using default value (250.000000)"},
        {"id 1 <parameter> Nothing 1 </parameter>", ""},
        {"id 1 <parameter> Cut </parameter>", ""},
        {"id 1 <bpf> Nothing 0 1 </bpf>", "Event with id 1 has no Bpf Type named Nothing"},
        {"id 1 <bpf> 0 1 </bpf>", ""},
        {"start 0 <note> a b </note>", "bad arg type after arg \"<note>\" in message event"},
        {"start 0 duration 1000 <bpf> Gain 1500 1 </bpf>",
         "Point Time Value (1500.000000) exceeds the events duration (1000.000000)"},
    };
    for (const Row& row : complaints) {
        Lines expected = lines_of(*row.complaint ? std::string("error tq.sorvo: ") + row.complaint : "");
        Lines said = say(std::string("event ") + row.message, "error");
        if (std::string(row.message).find("<note> a b") != std::string::npos) expected.push_back(expected[0]);
        EXPECT_TRUE(same_lines(said, expected)) << row.message;
    }
    EXPECT_EQ(say(".show events").size(), 3u) << "an unknown identifier makes nothing";
    EXPECT_TRUE(say(".show events")
                    .at(0)
                    .starts_with("event 1 track 0 start 0. duration 1000. pitch 60. velocity 100."));
}

TEST_F(EventMessages, setsParameters) {
    make_types();
    say("event start 0 <parameter> Cut 5000 Res -3 Nothing 1 Cut </parameter>");
    EXPECT_EQ(written("parameters"), R"([{"name":"Cut","value":5000.0},{"name":"Res","value":-3.0}])")
        << "a new event's as given";
    for (const char* value : {"5000", "5000."}) {
        say(std::string("event id 1 <parameter> Unknown 1 Cut ") + value + " Res 0.25 </parameter>");
        EXPECT_EQ(written("parameters"), R"([{"name":"Cut","value":1000.0},{"name":"Res","value":0.25}])")
            << "held in the range";
    }
    say("event id 1 <parameter> Cut loud Res -1 </parameter>");
    EXPECT_EQ(written("parameters"), R"([{"name":"Cut","value":250.0},{"name":"Res","value":0.0}])");
}

TEST_F(EventMessages, setsCurves) {
    make_types();
    say("event start 0 duration 1000 <bpf> Gain 0 0.5 500 1 Pan 0 -1 1000 1 250 0 Pitch 500 2 7 </bpf>");
    EXPECT_EQ(written("bpfs"),
              R"([{"name":"Pitch","points":[{"x":0.0,"y":0.0},{"x":0.5,"y":2.0},{"x":1.0,"y":0.0}]},)"
              R"({"name":"Gain","points":[{"x":0.0,"y":0.5},{"x":0.5,"y":1.0},{"x":1.0,"y":0.0}]},)"
              R"({"name":"Pan","points":[{"x":0.0,"y":0.0},{"x":0.25,"y":0.5},{"x":1.0,"y":1.0}]}])");
    say("event id 1 <bpf> Gain 0 0 500 1 Nothing 0 1 Pan 0 1 9999 -9 </bpf>");
    EXPECT_EQ(written("bpfs"),
              R"([{"name":"Pitch","points":[{"x":0.0,"y":0.0},{"x":0.5,"y":2.0},{"x":1.0,"y":0.0}]},)"
              R"({"name":"Gain","points":[{"x":0.0,"y":0.0},{"x":0.5,"y":1.0},{"x":1.0,"y":0.0}]},)"
              R"({"name":"Pan","points":[{"x":0.0,"y":1.0},{"x":1.0,"y":0.0}]}])");
    say("event start 9 duration 0 <bpf> Pitch 0 1 5 3 </bpf>");
    EXPECT_EQ(written("bpfs", 1).substr(0, 66),
              R"([{"name":"Pitch","points":[{"x":0.0,"y":1.0},{"x":1.0,"y":0.0}]},)" + std::string("{"))
        << "an event without duration";
}

TEST_F(EventMessages, withATrackBelowTheFirstMeanTheFirst) {
    EXPECT_TRUE(complains("event track -7 start 0", "no track 0, creating new one"));
    EXPECT_EQ(box().tracks.at(0)->name, "Untitled");
}

TEST_F(EventMessages, aDumpDoesNotEndTheirBurst) {
    say("track_add A\nundoredo_clear\nevent start 0\nundoredo_dump\nevent start 1\n.wait 100");
    EXPECT_EQ(box().history.items.size(), 1u);
    EXPECT_EQ(box().history.items[0]->name(), "Insert Events");
}

TEST_F(EventMessages, extendTheTimelineToTheirOwnEnd) {
    for (auto [message, length] : {std::pair{"event start 0 duration 20000", "22000."},
                                   {"event start 30000 duration 0", "32000."},
                                   {"event id 1 duration 40000", "42000."},
                                   {"event id 2 start 50000", "52000."},
                                   {"event start 1 duration 60000", "62000."}})
        EXPECT_TRUE(says(std::string(message) + "\ngetmaxtime", "maxtime",
                         std::string("out3 maxtime ") + length + "\nout3 maxtime " + length))
            << message;
}

}  // namespace
}  // namespace tq::test
