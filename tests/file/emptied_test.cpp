// What one document leaves to the next: nothing but the view.
#include "app/script_fixture.h"

namespace tq::test {
namespace {

struct Emptied : ScriptTest {};

std::string with_header(const std::string& rest) {
    return R"({"tq.sorvo":"","header":{"fileversion":100},)" + rest + "}";
}

TEST_F(Emptied, beginsWithTheMeterOfANewBox) {
    const std::string plain = document().substr(document().find("\"meters\""), 60);
    read_document(with_header(
        R"("meters":[{"measure":0,"beats":3,"notevalue":4},{"measure":2,"beats":5,"notevalue":8}])"));
    EXPECT_NE(document().find("\"beats\":5"), std::string::npos);
    read_document(with_header(R"("tracks":[])"));
    EXPECT_EQ(document().substr(document().find("\"meters\""), 60), plain);
}

TEST_F(Emptied, getsAFileOnlyByReadingIt) {
    for (const std::string& not_a_document :
         {folder.file_with("song.mid", "MThd"), folder.file_with("other.json", R"({"header":{}})"),
          folder.file_with("old.json", R"({"tq.sorvo":"","header":{"fileversion":7}})")}) {
        say("event start 0");
        EXPECT_EQ(say(".answer \"" + not_a_document + "\"\nread", "error").size(), 1u) << not_a_document;
        EXPECT_TRUE(says("writeagain", "dialog", "dialog save untitled1.json"))
            << "and not over " << not_a_document;
    }
}

TEST_F(Emptied, readsAllOfEveryNoteWhateverTheLengthSays) {
    read_document(with_header(
        R"("maxtime":1000,"tracks":[{"name":"A","events":[{"start":0,"duration":60000},{"start":5000,"duration":10}]}])"));
    EXPECT_TRUE(says("getmaxtime", "out3 maxtime 62000."));
}

TEST_F(Emptied, valuesThatAFileLacksAreTheDefaults) {
    read_document(with_header(
        R"("tracks":[{"name":"A","paramtypes":[{"Name":"Cut","Minimum":0,"Maximum":9,"Steps":0,"Default":4}],)"
        R"("events":[{"start":0,"duration":60}]}])"));
    EXPECT_NE(document().find(R"("parameters":[{"name":"Cut","value":4.0}])"), std::string::npos)
        << document();
}

}  // namespace
}  // namespace tq::test
