// The real program, ended by force while it works: what was done in it comes back, with its history.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "app/journal/recovery.h"
#include "app/journal/window_process.h"
#include "app/script_fixture.h"
#include "file/document_writer.h"
#include "file/random_document.h"

namespace tq::test {
namespace {

using namespace std::chrono_literals;
using Clock = WindowProcess::Clock;

/// How many events 0, 1, 2 … there are, by their starts; −1 when they are others.
long numbered_events(const Session& session) {
    long count = 0;
    bool right = true;
    if (!session.box().tracks.empty())
        session.box().tracks.back()->events.for_each(
            [&](const Event& e) { right = right && e.start == static_cast<double>(10 * count++); });
    return right ? count : -1;
}

/// One session: its folder, and what was done in it.
struct KilledSession {
    explicit KilledSession(bool is_named) : named(is_named) {
        ::signal(SIGPIPE, SIG_IGN);
        ::setenv("XDG_STATE_HOME", folder.path.c_str(), 1);
        folder.file_with("first.json", good_document);
    }
    std::vector<std::string> arguments() const {
        return named ? std::vector<std::string>{"first.json"} : std::vector<std::string>{};
    }
    /// Sends numbered events, each answered, for a while, and saves now and then.
    void edit(WindowProcess& window, std::chrono::milliseconds time) {
        answered_before = window.answers_at().size();
        for (const Clock::time_point end = Clock::now() + time; Clock::now() < end;) {
            window.send("event start " + std::to_string(10 * sent++) + " duration 5 <note> 60 100 </note>");
            window.send("getdirty");
            if (sent % 50 == 0) window.send("write saved.json");
            if (sent % 10 == 0) std::this_thread::sleep_for(5ms);
        }
    }
    /// How many of them had been answered a while before now.
    long answered(const WindowProcess& window, std::chrono::milliseconds before) const {
        const std::vector<Clock::time_point> at = window.answers_at();
        return std::count_if(at.begin() + static_cast<long>(answered_before), at.end(),
                             [&](Clock::time_point t) { return t < Clock::now() - before; });
    }
    std::optional<Recovery> recovered() const {
        DeadSessions dead = find_dead_sessions();
        EXPECT_TRUE(dead.notes.empty());
        if (dead.sessions.size() != 1) return {};
        return recover(dead.sessions[0].folder);
    }
    void expect_a_whole_file() const {
        if (!std::filesystem::exists(folder.file("saved.json"))) return;
        Session session;
        EXPECT_TRUE(session.open(folder.file("saved.json")));
        const long events = numbered_events(session);
        EXPECT_GE(events, 0);
        EXPECT_LE(events, sent);
    }
    /// Undoing everything gives the document of the start, but for the scroll: what has played followed its
    /// cursor.
    void expect_the_history(Session& session) const {
        Session first;
        if (named) first.open(folder.file_with("0.json", good_document));
        session.send("undoredo -1");
        auto lines = [](const Session& of) { return lines_of(without(document_of(of), "horizontalscroll")); };
        EXPECT_TRUE(same_lines(lines(session), lines(first)));
    }

    TemporaryFolder folder;
    bool named;
    long sent = 0;
    size_t answered_before = 0;
};

TEST(Kill, atAnyMomentLosesAtMostTheLastSecond) {
    const unsigned seed = std::random_device{}();
    std::mt19937 random(seed);
    for (int run = 0; run < 20 && !testing::Test::HasFailure(); ++run) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", run " << run);
        KilledSession killed(run % 2);
        WindowProcess window(killed.folder, killed.arguments());
        window.send("track_add numbered");
        ASSERT_TRUE(window.wait()) << text_of_file(killed.folder.file("errors"));
        killed.folder.file_with("first.json", "changed");  // nobody needs it any more
        killed.edit(window, std::chrono::milliseconds(50 + random() % 1950));
        const long certain = killed.answered(window, 1s);
        window.kill();
        std::optional<Recovery> recovery = killed.recovered();
        killed.expect_a_whole_file();
        if (!recovery) {
            EXPECT_EQ(certain, 0);
            continue;
        }
        EXPECT_EQ(recovery->replay.fault, "");
        EXPECT_GE(numbered_events(*recovery->session), certain);
        killed.expect_the_history(*recovery->session);
    }
}

TEST(Kill, aSecondTimeLosesNothingEither) {
    KilledSession killed(true);
    for (int life = 0; life < 3; ++life) {
        WindowProcess window(killed.folder,
                             life == 0 ? killed.arguments() : std::vector<std::string>{"--recover"});
        if (life == 0) window.send("track_add numbered");
        ASSERT_TRUE(window.wait()) << text_of_file(killed.folder.file("errors"));
        killed.edit(window, 150ms);
        window.send(".answer other.json\nwrite\nint 1");
        ASSERT_TRUE(window.wait());
        std::this_thread::sleep_for(1s);
        window.kill();
    }
    std::optional<Recovery> recovery = killed.recovered();
    ASSERT_TRUE(recovery);
    EXPECT_EQ(recovery->replay.fault, "");
    EXPECT_EQ(numbered_events(*recovery->session), killed.sent);
    EXPECT_EQ(recovery->session->box().info.filename, "other.json") << "what a dialog answered";
    EXPECT_FALSE(prseq_getdirtyflag(recovery->session->box()));
    EXPECT_TRUE(recovery->session->box().playing);
    killed.expect_the_history(*recovery->session);
}

TEST(Kill, bringsTheViewBackAsWell) {
    KilledSession killed(true);
    WindowProcess window(killed.folder, killed.arguments());
    std::mt19937 random(1);
    auto pick = [&](int count) { return std::to_string(random() % static_cast<unsigned>(count)); };
    for (int i = 0; i < 40; ++i) {
        const std::string lines[] = {".size 7" + pick(99) + " 5" + pick(99),
                                     ".wheel 400 300 0." + pick(99) + " 0",
                                     ".wheel 400 300 0 -0." + pick(99),
                                     "zoom_in",
                                     "zoom_out",
                                     "zoom_hor 0." + pick(99),
                                     "position " + pick(20000),
                                     "int " + pick(2),
                                     ".tempo 9" + pick(99),
                                     "event start " + pick(60000) + " duration 50"};
        window.send(lines[random() % std::size(lines)]);
        std::this_thread::sleep_for(std::chrono::milliseconds(random() % 60));
    }
    window.send("int 0");
    std::this_thread::sleep_for(700ms);  // until a zoom is over
    window.send(".show document");
    ASSERT_TRUE(window.wait());
    std::this_thread::sleep_for(500ms);
    window.kill();
    const std::string said = window.said();
    const size_t at = said.find("document {") + sizeof "document";
    std::optional<Recovery> recovery = killed.recovered();
    ASSERT_TRUE(recovery);
    EXPECT_EQ(without(TQ_Prseq_Json_MakeDictionary(recovery->session->box(), false), "date"),
              without(said.substr(at, said.find('\n', at) - at), "date"));
}

TEST(Kill, isNotWhatAQuitIs) {
    KilledSession quit(false), other(false);
    ::setenv("XDG_STATE_HOME", quit.folder.path.c_str(), 1);
    WindowProcess beside(quit.folder, {});
    beside.send("track_add beside");
    ASSERT_TRUE(beside.wait());
    {
        WindowProcess window(quit.folder, quit.arguments());
        window.send("track_add numbered");
        ASSERT_TRUE(window.wait());
        EXPECT_TRUE(find_dead_sessions().sessions.empty()) << "both live";
        EXPECT_EQ(window.quit(), 0);
    }
    EXPECT_TRUE(find_dead_sessions().sessions.empty()) << "nothing is left of the one that was closed";
    EXPECT_FALSE(std::filesystem::is_empty(quit.folder.path / "sorvo/kept")) << "it was not saved";
    ASSERT_TRUE(beside.wait()) << "the other one goes on";
    std::this_thread::sleep_for(500ms);
    beside.kill();
    ASSERT_EQ(find_dead_sessions().sessions.size(), 1u);
    EXPECT_EQ(quit.recovered()->session->box().tracks[0]->name, "beside");
}

TEST(Kill, cannotHarmAProgramWithoutAStateFolder) {
    KilledSession killed(false);
    killed.folder.file_with("sorvo", "in the way");
    WindowProcess window(killed.folder, {});
    window.send("track_add A");
    ASSERT_TRUE(window.wait());
    EXPECT_NE(window.said().find("post this session has no journal"), std::string::npos) << window.said();
    EXPECT_EQ(window.quit(), 0);
}

}  // namespace
}  // namespace tq::test
