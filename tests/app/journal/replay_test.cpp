// What a journal tells is done again: the same session comes of it, to the last thing that it says.
#include <gtest/gtest.h>

#include <sstream>

#include "app/journal/journalled.h"
#include "app/journal/random_session.h"
#include "app/script/session_printer.h"
#include "file/document_writer.h"

namespace tq::test {
namespace {

/// A session, and all that it says with the times at which it does.
struct HeardSession {
    Session session;
    std::ostringstream said;
    SessionPrinter printer{session, said, true};
};

/// All that a session has, as far as it can be asked; the history as well.
std::string state_of(HeardSession& heard) {
    heard.said.str("");
    heard.session.send("undoredo_dump");
    const Prseq& box = heard.session.box();
    std::ostringstream state;
    state.precision(17);
    state << without(TQ_Prseq_Json_MakeDictionary(box, true), "date") << heard.said.str()
          << heard.session.host().scheduler.now() << ' ' << box.info.filename << ' ' << box.info.folder << ' '
          << prseq_getdirtyflag(box) << ' ' << box.eventcounter << ' ' << box.playing << ' '
          << box.linecursor.position << ' ' << itm_getticks(*box.transport) << ' '
          << itm_gettempo(*box.transport) << ' ' << box.horscrollbar.scrollvalue << ' '
          << box.maindisplay.horizontalzoom << ' ' << box.width << ' ' << box.focus << ' '
          << heard.session.feedback << ' ' << heard.session.host().random();
    return state.str();
}

/// Without what is said of the files of sounds: a replay looks for none.
Lines said_by_box(const HeardSession& heard) {
    Lines lines = lines_of(heard.said.str());
    std::erase_if(lines, [](const std::string& line) {
        return line.find("error tq.sorvo: no sound for") != line.npos ||
               line.find("error tq.sorvo: could not read") != line.npos;
    });
    return lines;
}

void go_the_same_way_after_a_replay(unsigned seed) {
    TemporaryFolder files;
    HeardSession first, second;
    RandomSession random(first.session, files, seed);
    second.session.host().random.seed(seed);  // what chance does is told by the journal as well
    std::unique_ptr<Journal> journal = Journalled::begin(first.session);
    for (int i = 0; i < 120; ++i) random.act();
    first.session.send("getdirty");  // what was painted before is told with a call
    const std::string text = Journalled::text_of(*journal);
    for (const auto& file : std::filesystem::directory_iterator(files.path))
        std::filesystem::remove(file);  // a replay needs none of them
    const Replay replayed = replay(second.session, text, journal->folder().path());
    ASSERT_EQ(replayed.fault, "") << text.substr(replayed.done, 200);
    ASSERT_TRUE(same_lines(said_by_box(second), said_by_box(first)));
    ASSERT_TRUE(same_lines(lines_of(state_of(second)), lines_of(state_of(first))));
    ASSERT_TRUE(std::filesystem::is_empty(files.path)) << "a replay writes nothing";
    for (HeardSession* heard : {&first, &second}) {
        std::mt19937 further(seed);
        for (int i = 0; i < 10; ++i) heard->session.send(random_message(further, true));
        heard->session.send("undoredo -1");
    }
    ASSERT_TRUE(same_lines(lines_of(state_of(second)), lines_of(state_of(first))));
}

/// Whoever hears the box and answers it by a call.
struct Meddler : SessionListener {
    explicit Meddler(Session& session) : own(session) { session.listen(*this); }
    void outlet(int outlet, Symbol, AtomSpan) override {
        if (outlet == OutletPlaying) own.send("track_add T" + std::to_string(++count));
        if (outlet == OutletTrackInfo && count % 3 == 0) own.call(WheelCall{250, 150, 0, double(++count)});
    }
    Session& own;
    int count = 0;
};

TEST_F(Journalled, callsThatAreMadeInsideOthersComeBackInTheirTurn) {
    HeardSession first, second;
    second.session.host().random.seed(1);
    std::unique_ptr<Journal> journal = begin(first.session);
    Meddler meddler(first.session);
    for (const char* message : {"track_add A", "event start 0 duration 9", "event start 10 duration 9",
                                "int 1", "track_color 0.5", "track_add B"})
        first.session.send(message);
    first.session.host().scheduler.run_until(500);
    first.session.send("int 0");
    EXPECT_GT(meddler.count, 3);
    EXPECT_EQ(replay(second.session, text_of(*journal), journal->folder().path()).fault, "");
    EXPECT_TRUE(same_lines(said_by_box(second), said_by_box(first)));
    EXPECT_TRUE(same_lines(lines_of(state_of(second)), lines_of(state_of(first))));
}

TEST_F(Journalled, aPointerThatOnlyPassesOverTheBoxIsNotTold) {
    using Kind = MouseCall::Kind;
    Session session;
    std::unique_ptr<Journal> journal = begin(session);
    session.call(MouseCall{Kind::Down, 300, 200});
    session.call(MouseCall{Kind::Up, 300, 200});
    const std::string before = text_of(*journal);
    EXPECT_NE(before.find(".mouse up 300 200"), std::string::npos);
    session.call(MouseCall{Kind::Move, 310, 210});
    EXPECT_EQ(session.box().hover.at, (Point{310, 210})) << "the box is told";
    session.call(MouseCall{Kind::Leave, -1, 210});
    EXPECT_EQ(session.box().hover.part, Part::None);
    EXPECT_EQ(text_of(*journal), before);
}

TEST_F(Journalled, sessionsComeBackAsTheyWere) {
    constexpr unsigned runs = 300;
    for (unsigned seed = 1; seed <= runs && !HasFatalFailure(); ++seed) {
        SCOPED_TRACE(seed);
        go_the_same_way_after_a_replay(seed);
    }
}

TEST_F(Journalled, aSessionThatEndsInTheMiddleOfADragComesBackAsIfTheDragHadEndedThere) {
    std::filesystem::path dead;
    {
        Session session;
        std::unique_ptr<Journal> journal = begin(session);
        for (const char* line : {"mouse_mode insert", "snaptime 0", "zoom_hor 0"}) session.send(line);
        const Rect display = session.box().maindisplay.rect;
        const double y = display.y + 50;
        using enum MouseCall::Kind;
        session.call(MouseCall{Down, display.x + 20, y});
        session.call(MouseCall{Drag, display.x + 60, y});
        session.call(MouseCall{Up, display.x + 60, y});
        session.send("mouse_mode select");
        session.call(MouseCall{Down, display.x + 40, y});
        session.call(MouseCall{Drag, display.x + 70, y});
        dead = folder.file("dead");
        std::filesystem::create_directory(dead);
        text_of(*journal);
        std::filesystem::copy(journal->folder().path(), dead, std::filesystem::copy_options::recursive);
    }
    for (int life = 0; life < 2; ++life) {
        Recovery back = recovered(dead);
        Session& session = *back.session;
        const Event& event = *session.box().tracks.at(0)->events.first();
        const double moved = event.start;
        std::unique_ptr<Journal> journal = go_on(session, back);
        session.call(MouseCall{MouseCall::Kind::Drag, 5, 5});
        EXPECT_EQ(event.start, moved) << "nobody holds the button";
        session.send("undo");
        EXPECT_LT(event.start, moved);
        session.send("redo");
        EXPECT_EQ(event.start, moved);
        text_of(*journal);
    }
}

}  // namespace
}  // namespace tq::test
