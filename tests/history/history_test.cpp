// Undoing everything gives the document of the start, redoing everything that of the end, to the byte.
#include <gtest/gtest.h>

#include <random>
#include <set>

#include "app/script_fixture.h"
#include "file/document_reader.h"
#include "file/document_writer.h"
#include "history/random_message.h"
#include "host/buffer.h"
#include "interaction/random_hand.h"
#include "model/holds_together.h"

namespace tq {
namespace {

using test::document_of, test::holds_together, test::random_message, test::RandomHand;

/// The whole timeline and all pitches in view, so that gestures find the events.
void see_all(Session& session) {
    jbox_set_size(session.box(), {2000, 1200});
    for (const char* message : {"zoom_animation 0", "zoom_out_all"}) session.send(message);
}

void wait(Session& session, double ms) {
    Scheduler& scheduler = session.host().scheduler;
    scheduler.run_until(scheduler.now() + ms);
}

constexpr unsigned runs = 1500;

void expect_to_read_back(const Session& session) {
    Session other;
    std::string fault;
    std::optional<DictionaryFile> written =
        dictionary_parse(TQ_Prseq_Json_MakeDictionary(session.box(), true), fault);
    ASSERT_TRUE(written) << fault;
    ASSERT_TRUE(TQ_Prseq_Json_ParseDictionary(other.box(), written->root()));
    ASSERT_EQ(document_of(other), document_of(session));
}

/// One name of each kind of edit; runs that never make it prove nothing about it.
// clang-format off
const char* const kinds[] = {
    "Add Track", "Delete Track", "Change Active Track", "Change Track Color", "Change Track Name",
    "Insert Events", "Paste Events", "Slice Event", "Glue Events", "Copy Events", "Delete Events",
    "Cut Events", "Move Events", "Modify Events", "Change Event Label", "Change Event Message",
    "Change Event MSP Buffer", "Link MSP Buffer/Event Size", "Change Event MSP Buffer Start",
    "Change Event MSP Buffer End", "Change Events Start", "Change Events Duration", "Change Events Velocity",
    "Change Event Parameter", "Add Parameter Type To Track", "Delete Parameter Type From Track",
    "Change Parameter Type On Track", "Add Bpf Type To Track", "Delete Bpf Type From Track",
    "Change Bpf Type On Track", "Add Bpf Point", "Delete Bpf Points", "Move Bpf Points", "Quantise Events",
    "Legato Events", "Stretch Events", "Reverse Events", "Humanise Events", "Split Event", "Join Events",
    "Scale Events Velocity", "Ramp Events Velocity"};
// clang-format on
std::set<std::string> recorded;

void undo_and_redo_all(unsigned seed) {
    std::mt19937 random(seed);
    Session session;
    buffer_set(session.host(), gensym("sound"), SoundRef(new Sound(1, 1000, std::vector<float>(500))));
    see_all(session);
    RandomHand hand(session, random);
    std::string first = document_of(session);
    for (int i = 0; i < 80; ++i) {
        if (random() % 2)
            hand.edit();
        else
            session.send(random_message(random, true));
        if (random() % 3 == 0) wait(session, 70);
        ASSERT_TRUE(holds_together(session.box()));
    }
    wait(session, 100);
    session.call(FocusCall{false});  // ends what is under way
    session.send("undoredo 1000");   // a key may have undone some
    std::string last = document_of(session);
    for (const auto& item : session.box().history.items) recorded.insert(item->name());
    for (int cycle = 0; cycle < 2; ++cycle) {
        session.send("undoredo -1");
        ASSERT_EQ(document_of(session), first);
        session.send("undoredo 1000");
        ASSERT_EQ(document_of(session), last);
    }
    std::vector<std::string> on_the_way;
    while (session.box().history.cursor >= 0) {
        on_the_way.push_back(document_of(session));
        session.send("undo");
        ASSERT_TRUE(holds_together(session.box()));
    }
    for (auto document = on_the_way.rbegin(); document != on_the_way.rend(); ++document) {
        session.send("redo");
        ASSERT_EQ(document_of(session), *document);
    }
    for (int jump = 0; jump < 6 && !on_the_way.empty(); ++jump) {
        size_t steps_back = random() % on_the_way.size();
        session.send("undoredo " + std::to_string(on_the_way.size() - 1 - steps_back));
        ASSERT_EQ(document_of(session), on_the_way[steps_back]);
    }
    expect_to_read_back(session);
}

TEST(History, undoing_all_gives_the_first_document_and_redoing_all_the_last) {
    for (unsigned seed = 1; seed <= runs && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        undo_and_redo_all(seed);
    }
    for (const char* kind : kinds) EXPECT_TRUE(recorded.contains(kind)) << kind;
}

}  // namespace
}  // namespace tq
