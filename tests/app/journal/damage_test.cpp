// Journals that are not whole, or none at all, and disks that take no more.
#include <sys/resource.h>
#include <sys/wait.h>

#include <csignal>
#include <random>

#include "app/journal/journalled.h"
#include "file/random_document.h"

namespace tq::test {
namespace {

namespace fs = std::filesystem;

struct DamagedJournal : Journalled {
    /// The journal of a session that has read a document, edited it and ended.
    fs::path dead_session() {
        Session session;
        std::unique_ptr<Journal> journal = begin(session);
        session.open(folder.file_with("song.json", good_document));
        for (int i = 0; i < 20; ++i) session.send("track_add T" + std::to_string(i));
        session.send(gensym("track_add"), Atoms{gensym("two\nlines")});
        EXPECT_TRUE(journal->drain());
        return journal->folder().path();
    }
    static size_t tracks(const Recovery& recovery) { return recovery.session->box().tracks.size(); }
    static void overwrite(const fs::path& path, const std::string& text) {
        std::ofstream(path, std::ios::binary) << text;
    }
    size_t put_aside() const {
        const fs::path aside = folder.path / "sorvo" / "damaged";
        return fs::exists(aside) ? static_cast<size_t>(std::distance(fs::directory_iterator(aside), {})) : 0;
    }
};

TEST_F(DamagedJournal, isFollowedUpToWhereItIsTorn) {
    const fs::path session = dead_session();
    const std::string whole = text_of_file(session / "journal");
    std::mt19937 random(1);
    size_t least = 100, most = 0;
    for (int i = 0; i < 300; ++i) {
        const size_t rest = whole.size() - journal_head.size();
        const size_t cut = journal_head.size() + (i == 0 ? rest : random() % rest);
        overwrite(session / "journal", whole.substr(0, cut));
        const Recovery recovery = recovered(session);
        least = std::min(least, tracks(recovery));
        most = std::max(most, tracks(recovery));
        EXPECT_TRUE(whole.substr(0, recovery.replay.done).ends_with("\n"))
            << cut << ": what goes on begins on a new line";
    }
    EXPECT_EQ(least, 0u);
    EXPECT_EQ(most, 2 + 21u);
}

TEST_F(DamagedJournal, bringsBackWhatItCanAndGoesOnFromThere) {
    const fs::path session = dead_session();
    std::string text = text_of_file(session / "journal");
    text.replace(text.find("track_add T7"), 5, ".nope");
    overwrite(session / "journal", text);
    {
        Recovery recovery = recovered(session, "no such line: .nope_add");
        EXPECT_EQ(tracks(recovery), 2 + 7u);
        EXPECT_EQ(put_aside(), 0u);
        EXPECT_FALSE(SessionFolder::take(session)) << "somebody holds it";
        std::unique_ptr<Journal> journal = go_on(*recovery.session, recovery);
        ASSERT_TRUE(journal);
        EXPECT_EQ(put_aside(), 1u);
        recovery.session->send("track_add further");
    }
    EXPECT_EQ(tracks(recovered(session)), 2 + 8u);
}

TEST_F(DamagedJournal, withoutTheFileThatWasReadStopsThere) {
    const fs::path session = dead_session();
    for (const fs::directory_entry& entry : fs::directory_iterator(session))
        if (entry.path().filename() != "journal") overwrite(entry.path(), "spoilt");
    EXPECT_EQ(tracks(recovered(session, "could not read \"kept-")), 0u);
}

TEST_F(DamagedJournal, byACrashHasAllBeforeItAndTellsWhatWasRunning) {
    const pid_t child = ::fork();
    if (child == 0) {
        Session session;
        std::unique_ptr<Journal> journal = begin(session);
        for (int i = 0; i < 20; ++i) session.send("track_add T" + std::to_string(i));
        session.host().patch.outlet = [](auto&&...) { std::abort(); };
        session.send(gensym("track_add"), Atoms{gensym("too\nmuch")});
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT);
    DeadSessions dead = find_dead_sessions();
    ASSERT_EQ(dead.sessions.size(), 1u);
    EXPECT_TRUE(text_of_file(dead.sessions[0].folder / "journal").ends_with("\n# in track_add \"too\n"));
    EXPECT_EQ(tracks(recovered(dead.sessions[0].folder)), 20u);
}

TEST_F(DamagedJournal, whoseReplayBreaksTheProgramDownStopsThereTheNextTime) {
    const fs::path path = dead_session();
    if (::fork() == 0) {
        Session session;
        session.host().patch.outlet = [](auto&, int, Symbol, AtomSpan atoms) {
            for (const Atom& atom : atoms)
                if (atom.is_symbol() && atom.as_symbol().text() == "T7") std::abort();
        };
        replay(session, text_of_file(path / "journal"), path);
        std::_Exit(0);
    }
    int status = 0;
    ::wait(&status);
    EXPECT_TRUE(WIFSIGNALED(status));
    {
        Recovery recovery = recovered(path, "broke the program down");
        EXPECT_EQ(tracks(recovery), 2 + 7u);
        go_on(*recovery.session, recovery).reset();
    }
    recovered(path);
}

TEST_F(DamagedJournal, thatIsNoneIsPutAsideWithOneMessage) {
    const fs::path garbage = dead_session(), good = dead_session();
    overwrite(garbage / "journal", std::string(5000, '\0'));
    fs::create_directories(garbage.parent_path() / "empty");
    overwrite(garbage.parent_path() / "file", "no folder");
    DeadSessions dead = find_dead_sessions();
    ASSERT_EQ(dead.sessions.size(), 1u);
    EXPECT_EQ(dead.sessions[0].folder, good);
    EXPECT_EQ(fs::path(dead.sessions[0].document).filename(), "song.json");
    EXPECT_EQ(dead.notes.size(), 1u);
    EXPECT_EQ(put_aside(), 1u);
    EXPECT_TRUE(find_dead_sessions().notes.empty()) << "said once";
}

TEST_F(DamagedJournal, ofSessionsWithoutEditsAndTheOldestOfManyGo) {
    {
        Session session;
        std::unique_ptr<Journal> journal = begin(session);
        session.send("getdirty");
    }
    EXPECT_TRUE(find_dead_sessions().sessions.empty());
    EXPECT_TRUE(fs::is_empty(folder.path / "sorvo/sessions"));
    const fs::path first = dead_session();
    for (int i = 0; i < 20; ++i) dead_session();
    DeadSessions dead = find_dead_sessions();
    EXPECT_EQ(dead.sessions.size(), 20u);
    EXPECT_EQ(dead.notes.size(), 1u);
    EXPECT_FALSE(fs::exists(first));
}

TEST_F(DamagedJournal, byAFullDiskIsSaidOnceAndMadeGoodWhenThereIsRoom) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    Session session;
    std::unique_ptr<Journal> journal = begin(session);
    rlimit small = before;
    small.rlim_cur = 1000;
    ::setrlimit(RLIMIT_FSIZE, &small);
    for (int i = 0; i < 100; ++i) session.send("track_add T" + std::to_string(i));
    EXPECT_FALSE(journal->drain());
    EXPECT_NE(journal->take_fault(), "");
    session.send("track_add T100");
    EXPECT_EQ(journal->take_fault(), "");
    ::setrlimit(RLIMIT_FSIZE, &before);
    const fs::path path = journal->folder().path();
    journal.reset();  // writes what is left
    EXPECT_EQ(tracks(recovered(path)), 101u);
}

}  // namespace
}  // namespace tq::test
