// "Dirty" means that the document differs from what was last read or written, whatever was done in between.
#include <gtest/gtest.h>

#include <random>

#include "app/script_fixture.h"
#include "history/random_message.h"
#include "interaction/random_hand.h"

namespace tq::test {
namespace {

struct Dirty : ScriptTest {
    Dirty() { say("new_track_color 0\ntrack_add A\ntrack_add B\nevent start 0 duration 100\n.wait 100"); }
    std::string file = folder.file("saved.json");
    void save() { say("write \"" + file + "\""); }
    bool dirty() { return say("getdirty").at(0) == "dump dirty 1"; }
};

TEST_F(Dirty, becomesWhatDiffersFromItsFile) {
    for (const char* edit :
         {"event id 1 label x", ".command select_all\n.command delete", "track_add", "track_delete 0",
          "track_active 0", "track_color 0.9", "track_mute 1", "track_visible 0", "track_bpf_add Gain 0 1 0",
          "track_parameter_add Cut 0 1 0 0", "cycle 1", "cyclerange 100 200", "maxtime 99000"}) {
        save();
        EXPECT_FALSE(dirty());
        say(edit);
        EXPECT_TRUE(dirty()) << edit;
    }
    save();
    for (const char* none : {"cyclerange 100 200", "maxtime 5000", "track_active 7", "scroll_hor 0.5",
                             "zoom_in", "showlabels 0", ".command copy", "undoredo_dump", "position 100"}) {
        say(none);
        EXPECT_FALSE(dirty()) << none;
    }
}

TEST_F(Dirty, isNotTheDocumentThatUndoAndRedoBringBack) {
    say("event id 1 label x\n.wait 100");
    save();
    say("event id 1 label y\n.wait 100");
    say("undo");
    EXPECT_FALSE(dirty()) << "as it was saved";
    say("undo");
    EXPECT_TRUE(dirty()) << "before it was saved";
    say("redo");
    EXPECT_FALSE(dirty());
    say("undo\ntrack_mute 1\nredo");
    EXPECT_TRUE(dirty()) << "muted meanwhile, which no undo knows";
    save();
    say("event start 50000");
    save();
    say(".wait 100");
    EXPECT_FALSE(dirty()) << "the burst ends after the document was saved";
    say("undo\nredo");
    EXPECT_FALSE(dirty());
    say("event start 90000\n.wait 100\nundo");
    EXPECT_TRUE(dirty()) << "the timeline has grown for it, and stays so";
}

/// All that a file holds, without when it was written and how the document is looked at.
std::string saved_of(const Session& session) {
    std::string document = TQ_Prseq_Json_MakeDictionary(session.box(), true);
    for (const char* key :
         {"date", "showlabels", "showmessages", "showbpfs", "showallbpfs", "showbuffers", "linecursorfollow",
          "timedisplaytype", "verticalzoom", "horizontalzoom", "verticalscroll", "horizontalscroll"})
        document = without(document, key);
    return document;
}

TEST(DirtyRuns, neverCallADifferentDocumentClean) {
    TemporaryFolder folder;
    size_t clean = 0;
    for (unsigned seed = 1; seed <= 150 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        Session session;
        jbox_set_size(session.box(), {2000, 1200});
        RandomHand hand(session, random);
        std::string saved = saved_of(session);
        for (int i = 0; i < 60; ++i) {
            if (random() % 2)
                hand.edit();
            else
                session.send(random_message(random, false));
            if (random() % 3 == 0) session.host().scheduler.run_until(session.host().scheduler.now() + 70);
            if (random() % 12 == 0) {
                session.send("write \"" + folder.file("run.json") + "\"");
                saved = saved_of(session);
            }
            const Prseq& box = session.box();
            const bool blank = box.tracks.empty() && box.info.filename.empty();  // nothing to be saved
            if (blank || prseq_getdirtyflag(box)) continue;
            ++clean;
            ASSERT_EQ(saved_of(session), saved);
        }
    }
    EXPECT_GT(clean, 1000u) << "it is not always dirty either";
}

}  // namespace
}  // namespace tq::test
