// Thousands of things that a hand, and messages beside it, do in no order: nothing breaks, and what undo
// takes back redo brings.
#include <gtest/gtest.h>

#include "app/patch/paint_offscreen.h"
#include "app/script_fixture.h"
#include "history/random_message.h"
#include "interaction/random_hand.h"
#include "model/holds_together.h"

namespace tq::test {
namespace {

/// A message changes a track's colour beside the history, an inspector in it: redo brings the latter.
std::string document_without_colors(const Session& session) {
    std::string document = document_of(session);
    while (document.find("\"color\"") != document.npos) document = without(std::move(document), "color");
    return document;
}

/// What undo took back some steps of, redo brings again, whatever else the document has gone through.
testing::AssertionResult undo_and_redo(Session& session, size_t steps) {
    session.call(FocusCall{false});  // ends what is under way
    session.send("undoredo_dump");   // no burst: a message of its own is not recorded
    session.host().scheduler.run_until(session.host().scheduler.now() + 100);
    const std::string before = document_without_colors(session);
    const size_t applied = static_cast<size_t>(session.box().history.cursor + 1);
    for (size_t i = 0; i < std::min(steps, applied); ++i) session.send("undo");
    if (const auto faults = holds_together(session.box()); !faults) return faults;
    for (size_t i = 0; i < std::min(steps, applied); ++i) session.send("redo");
    if (document_without_colors(session) == before) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << same_lines(lines_of(document_without_colors(session)), lines_of(before)).message();
}

void play_about(unsigned seed) {
    std::mt19937 random(seed);
    Session session;
    RandomHand hand(session, random);
    OffscreenPainter painter;
    jbox_set_size(session.box(), {300. + static_cast<double>(random() % 1500), 600});
    session.send(random() % 2 ? "zoom_animation 0" : "zoom_out_all");
    for (int i = 0; i < 120; ++i) {
        if (random() % 3)
            hand.act();
        else
            session.send(random_message(random, false));
        session.host().scheduler.run_until(session.host().scheduler.now() +
                                           static_cast<double>(random() % 120));
        if (random() % 4 == 0) painter.paint(session.box());
        ASSERT_TRUE(holds_together(session.box())) << i;
        if (random() % 6) continue;
        ASSERT_TRUE(undo_and_redo(session, 1 + random() % 4)) << i;
    }
}

TEST(Monkey, breaksNothing) {
    for (unsigned seed = 1; seed <= 100 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        play_about(seed);
    }
}

}  // namespace
}  // namespace tq::test
