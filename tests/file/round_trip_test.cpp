// What is written is what is read.
#include <gtest/gtest.h>

#include "app/script_fixture.h"
#include "file/document_messages.h"
#include "file/document_writer.h"
#include "file/random_document.h"
#include "model/holds_together.h"

namespace tq::test {
namespace {

std::string written(const Session& session) {
    return without(TQ_Prseq_Json_MakeDictionary(session.box(), true), "date");
}

struct Documents : ScriptTest {};

TEST_F(Documents, comeBackByteForByte) {
    size_t events = 0;
    for (unsigned seed = 1; seed <= 150; ++seed) {
        Session first, second;
        RandomDocument(seed).make(first);
        for (const TrackRef& track : first.box().tracks) events += track->events.size();
        first.send("write \"" + folder.file("d.json") + "\"");
        ASSERT_FALSE(prseq_getdirtyflag(first.box()));
        ASSERT_TRUE(second.open(folder.file("d.json"))) << "seed " << seed;
        ASSERT_FALSE(prseq_getdirtyflag(second.box()));
        ASSERT_TRUE(same_lines(lines_of(written(second)), lines_of(written(first)))) << "seed " << seed;
    }
    EXPECT_GT(events, 3000u);
}

TEST_F(Documents, haveEveryKeyReadAndWritten) {
    read_document(good_document);
    std::string json = document();
    for (
        const char* piece :
        {R"("header":{"fileversion":100,"title":"Song","author":"Me",)",
         R"({"name":"Lead","mute":1,"solo":1,"visible":0,"color":0.25,"destination":"gm:3","discard_note_output":1,"discard_default_pitch_bpf_output":1,)",
         R"("paramtypes":[{"Name":"Cut","Minimum":0.0,"Maximum":1000.0,"Steps":5,"Default":250.0,"ID":7}],)",
         R"("bpftypes":[{"name":"Gain","minvalue":-1.0,"maxvalue":2.0,"defaultvalue":0.5}],)",
         R"({"start":500,"duration":250,"pitch":60.5,"velocity":100.0,"label":"L","message":"m 1","buffer":"kick","bufferadapt":1,"bufferstart":10.0,"bufferend":90.0,)",
         R"("parameters":[{"name":"Cut","value":700.0}],"bpfs":[{"name":"Pitch","points":[{"x":0.0,"y":0.0},{"x":0.5,"y":2.0},{"x":1.0,"y":-1.0}]},)",
         R"({"name":"Gain","points":[{"x":0.0,"y":0.25},{"x":1.0,"y":1.0}]}]})",
         R"({"name":"Bass","mute":0,"solo":0,"visible":1,)", R"("activetrack":0,"maxtime":20000.0,)",
         R"("meters":[{"measure":0,"beats":3,"notevalue":4},{"measure":4,"beats":7,"notevalue":8}],)",
         R"("showlabels":0,"showmessages":1,"showbpfs":0,"showallbpfs":1,"showbuffers":0,"linecursorfollow":1,"timedisplaytype":2,)",
         R"("verticalzoom":0.125,"horizontalzoom":0.25,"verticalscroll":0.5,"horizontalscroll":0.75,)",
         R"("cycle":{"cyclestart":1000,"cycleend":3000,"cycleactive":1}})"})
        EXPECT_NE(json.find(piece), json.npos) << piece << "\nis not in\n" << json;
    EXPECT_EQ(json.find(R"("name":"Pitch","minvalue")"), json.npos)
        << "the type that every track has is not written";
    EXPECT_LT(json.find(R"("start":100,)"), json.find(R"("start":500,)")) << "in start order";
}

TEST_F(Documents, reportTheViewAndTheLoopTheyBring) {
    Lines said = say("read \"" + folder.file_with("d.json", good_document) + "\"", "out3");
    EXPECT_TRUE(same_lines({said.end() - 6, said.end()}, lines_of(R"(
        out3 zoomvert 0.125
        out3 zoomhor 0.25
        out3 scrollvert 0.5
        out3 scrollhor 0.75
        out3 cyclerange 1000 3000
        out3 cycle 1)")));
}

TEST_F(Documents, areWrittenInWholeMilliseconds) {
    say("cyclerange 1500.7 2000.9\nevent start 10 duration 20\nevent id 1 start 99.9 duration 0.9");
    EXPECT_NE(document().find(R"("cycle":{"cyclestart":1500,"cycleend":2000,)"), std::string::npos);
    EXPECT_NE(document().find(R"({"start":99,"duration":0,)"), std::string::npos);
    EXPECT_EQ(document().find("\n"), std::string::npos);
}

TEST_F(Documents, giveTracksWithoutANameToTheActiveOne) {
    read_document(R"({"tq.sorvo":1,"header":{"fileversion":100.0},"tracks":[
        {"mute":1,"events":[{"start":1}]},{"name":"A"},{"solo":1,"events":[{"start":2},{}]},null,7,{"name":5}]})");
    EXPECT_TRUE(says(".show events", "event", R"(
        event 2 track 0 start 0. duration 0. pitch 0. velocity 0. selected 0
        event 1 track 0 start 2. duration 0. pitch 0. velocity 0. selected 0)"));
    EXPECT_TRUE(box().tracks.at(0)->solo);
    EXPECT_FALSE(box().tracks.at(0)->mute);
}

TEST_F(Documents, repairCurvesWithoutEnds) {
    read_document(R"({"tq.sorvo":"","header":{"fileversion":100},"tracks":[{"name":"A","events":[
        {"bpfs":[{"name":"Pitch","points":[{"x":0.75,"y":1},{"x":-1,"y":9},{"y":4},{"x":0.5,"y":2},{"x":2,"y":9},{"x":"0"},null]},
                 {"name":"Unknown","points":[]}]}]}]})");
    const Event& event = *box().tracks.at(0)->events.first();
    ASSERT_EQ(event.bpfs.size(), 1u);
    EXPECT_EQ(event.bpfs[0]->points, BpfPoints({{0, 0}, {0.5, 2}, {0.75, 1}, {1, 0}}));
}

TEST_F(Documents, nameCurveTypesThatHaveNone) {
    read_document(
        R"({"tq.sorvo":"","header":{"fileversion":100},"tracks":[{"name":"A","bpftypes":[{"maxvalue":1}],
        "events":[{"bpfs":[{"points":[{"x":0,"y":1},{"x":1,"y":1}]}]}]}]})");
    EXPECT_EQ(box().tracks.at(0)->bpftypes.at(1)->name.text(), "Bpftype");
    EXPECT_TRUE(holds_together(box()));
}

}  // namespace
}  // namespace tq::test
