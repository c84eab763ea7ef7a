// The ways in which documents are read and written: by name, again, and by what the user chooses.
#include "app/patch/kept_copies.h"
#include "app/script_fixture.h"

namespace tq::test {
namespace {

struct Dialogs : ScriptTest {
    std::string chosen = folder.file("chosen.json");
    size_t events() { return say(".show events", "event").size(); }
};

TEST_F(Dialogs, askWhereAnUntitledDocumentGoesAndRememberIt) {
    say("event start 0");
    EXPECT_TRUE(says(".answer " + chosen + "\nwriteagain", "dialog", "dialog save untitled1.json"));
    EXPECT_TRUE(says("getdirty", "dump", "dump dirty 0"));
    say("event start 100");
    EXPECT_TRUE(says("writeagain", "dialog", "")) << "it has a file now";
    say("event start 200");
    EXPECT_TRUE(says("write", "dialog", "dialog save chosen.json")) << "cancelled, for want of an answer";
    EXPECT_TRUE(says("getdirty", "dump", "dump dirty 1"));
    say("readagain");
    EXPECT_EQ(events(), 2u) << "what was written, without what was not";
    EXPECT_TRUE(says("getdirty", "dump", "dump dirty 0"));
}

TEST_F(Dialogs, askWhatToReadAndLeaveTheDocumentEmptyWhenCancelled) {
    say("event start 0\n.answer " + chosen + "\nwrite");
    EXPECT_TRUE(says(".answer cancel\nread", "dialog", "dialog open"));
    EXPECT_EQ(events(), 0u);
    EXPECT_TRUE(says("readagain", "dialog", "dialog open")) << "nothing has a name any more";
    EXPECT_TRUE(says(".answer " + chosen + "\nread", "dialog", "dialog open"));
    EXPECT_EQ(events(), 1u);
}

TEST_F(Dialogs, keepACopyOfADirtyDocumentBeforeItIsEmptied) {
    struct Keeper : PatchFiles {
        using PatchFiles::PatchFiles;
        void keep_copy(const Object&, const std::string& text) override { kept.push_back(text); }
        std::vector<std::string> kept;
    } keeper(script.session().host().patch);
    std::vector<std::string>& kept = keeper.kept;
    say("event start 4321\nread " + chosen);
    ASSERT_EQ(kept.size(), 1u);
    EXPECT_NE(kept[0].find("\"start\": 4321"), std::string::npos);
    say("read " + chosen);
    EXPECT_EQ(kept.size(), 1u) << "an empty document is no loss";

    ::setenv("XDG_STATE_HOME", folder.path.c_str(), 1);
    std::string fault;
    std::optional<std::string> path = keep_copy("song.json", kept[0], fault);
    ASSERT_TRUE(path) << fault;
    EXPECT_TRUE(path->starts_with(folder.file("sorvo/kept/song-"))) << *path;
    say("read \"" + *path + "\"");
    EXPECT_EQ(events(), 1u);
}

}  // namespace
}  // namespace tq::test
