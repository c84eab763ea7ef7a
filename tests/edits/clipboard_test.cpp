// Copying, cutting and pasting, and structural edits that come back with the very same events.
#include "edits/clipboard.h"

#include <gtest/gtest.h>

#include "app/patch/session.h"
#include "edits/event_edits.h"
#include "edits/type_edits.h"
#include "history/undoredo.h"
#include "model/bpfs.h"
#include "model/selection.h"
#include "model/tracks.h"

namespace tq {
namespace {

using Names = std::vector<std::string>;

struct ClipboardTest : testing::Test, SessionListener {
    Session session;
    Prseq& box = session.box();
    Names errors;

    ClipboardTest() { session.listen(*this); }
    void error(const Object&, const std::string& text) override { errors.push_back(text); }
    template <typename... Messages>
    void send(const Messages&... messages) {
        (session.send(messages), ...);
    }
    void settle() { session.host().scheduler.run_until(session.host().scheduler.now() + 100); }
    Track& track(size_t index) { return *box.tracks.at(index); }
    EventRef event(size_t t, size_t index) { return track(t).events.at(index); }
    void select_all() {
        settle();
        TQ_Prseq_Tracks_SelectAllEvents(box, box.activetrack);
    }
    void copy_all() {
        select_all();
        TQ_Prseq_Clipboard_CopySelection(box);
    }
    Names history() {
        Names names;
        for (const auto& item : box.history.items) names.push_back(item->name());
        return names;
    }
};

TEST_F(ClipboardTest, PastesIntoTheActiveTrackWhereThingsWereInTime) {
    send("event start 1000 <note> 60 90 </note>", "event start 1500 label x <note> 62 90 </note>");
    copy_all();
    send("track_add");
    TQ_Prseq_Clipboard_PasteSelection(box);
    ASSERT_EQ(track(1).events.size(), 2u);
    EXPECT_EQ(event(1, 0)->start, 1000);
    EXPECT_EQ(event(1, 1)->start, 1500);
    EXPECT_EQ(event(1, 1)->label.text(), "x");
    EXPECT_GT(event(1, 0)->id, event(0, 1)->id);
    EXPECT_EQ(track(1).events.selected().size(), 2u);
    EXPECT_EQ(history(), (Names{"Add Track", "Insert Events", "Add Track", "Paste Events"}));
    TQ_Prseq_Clipboard_PasteSelection(box);
    EXPECT_EQ(track(1).events.size(), 4u);
    EXPECT_EQ(track(1).events.selected().size(), 2u) << "only what was pasted last";
}

TEST_F(ClipboardTest, CutTakesOutWhatPasteBringsBackAnew) {
    for (int i = 0; i < 3; ++i) send("event start " + std::to_string(i * 100) + " <note> 60 90 </note>");
    select_all();
    EventRef first = event(0, 0);
    TQ_Prseq_Clipboard_CutSelection(box);
    EXPECT_TRUE(track(0).events.empty());
    EXPECT_EQ(history().back(), "Cut Events");
    TQ_Prseq_Clipboard_PasteSelection(box);
    EXPECT_EQ(track(0).events.size(), 3u);
    EXPECT_NE(event(0, 0), first);
    send("undoredo 1");
    EXPECT_EQ(event(0, 0), first) << "undoing the cut brings back the very event";
    TQ_Prseq_Clipboard_CutSelection(box);
    EXPECT_EQ(history().size(), 3u) << "the events came back selected";
    TQ_Prseq_Clipboard_CutSelection(box);
    EXPECT_EQ(history().size(), 3u) << "there is nothing to cut";
    EXPECT_EQ(TQ_Prseq_Clipboard_GetItemToPaste(box), nullptr) << "and the clipboard is empty";
}

TEST_F(ClipboardTest, APasteIntoNoTrackMakesOne) {
    send("event start 100 <note> 60 90 </note>");
    copy_all();
    send("track_delete 0");
    TQ_Prseq_Clipboard_PasteSelection(box);
    EXPECT_EQ(track(0).name, "Untitled");
    send("undo");
    ASSERT_EQ(box.tracks.size(), 1u);
    EXPECT_TRUE(track(0).events.empty());
    send("undo");
    EXPECT_TRUE(box.tracks.empty());
    send("undoredo 100");
    EXPECT_EQ(track(0).events.size(), 1u);
}

TEST_F(ClipboardTest, AddsTheTypesThatTheFirstEventNeeds) {
    send("track_add", "track_bpf_add vol 0 2 1", "track_parameter_add cut 0 10 5 0");
    send(
        "event start 0 duration 1000 <note> 60 90 </note> <bpf> vol 0 0.5 500 2 </bpf> <parameter> cut 7 "
        "</parameter>");
    copy_all();
    send("track_add", "event start 0 <note> 30 90 </note>");
    settle();
    const size_t before = history().size();
    TQ_Prseq_Clipboard_PasteSelection(box);
    Names names = history();
    EXPECT_EQ(Names(names.begin() + static_cast<long>(before), names.end()),
              (Names{"Add Bpf Type To Track", "Add Parameter Type To Track", "Paste Event"}));
    EventRef pasted = track(1).events.selected().at(0);
    ASSERT_EQ(pasted->bpfs.size(), 2u);
    EXPECT_EQ(pasted->bpfs[1]->points, event(0, 0)->bpfs[1]->points);
    EXPECT_EQ(pasted->parametervalues[0].value, 7);
    TQ_Prseq_Clipboard_PasteSelection(box);
    EXPECT_EQ(track(1).bpftypes.size(), 2u) << "the types are there now";
}

TEST_F(ClipboardTest, ATypeOfTheSameNameWithAnotherRangeStays) {
    send("track_add", "track_bpf_add vol 0 2 1",
         "event start 0 duration 1000 <note> 60 90 </note> <bpf> vol 0 0.5 500 2 </bpf>");
    copy_all();
    send("track_add", "track_bpf_add vol 0 127 0");
    for (int i = 0; i < 2; ++i) {
        TQ_Prseq_Clipboard_PasteSelection(box);
        ASSERT_EQ(track(1).bpftypes.size(), 3u);
        EventRef pasted = track(1).events.selected().at(0);
        EXPECT_EQ(pasted->bpfs[2]->name().text(), "volBis");
        EXPECT_EQ(pasted->bpfs[2]->points, event(0, 0)->bpfs[1]->points)
            << "the curve is of the type with its range";
        EXPECT_EQ(pasted->bpfs[1]->points, flat_points(0));
    }
}

TEST_F(ClipboardTest, OnlyTheSelectModeCopiesAndOnlyCurveEditingDoesNotPaste) {
    TQ_Prseq_Clipboard_PasteSelection(box);
    EXPECT_TRUE(box.tracks.empty()) << "nothing was ever copied";
    send("event start 100 <note> 60 90 </note>");
    copy_all();
    send("mouse_mode edit_bpf");
    EXPECT_EQ(TQ_Prseq_Clipboard_GetItemToPaste(box), nullptr);
    send("mouse_mode insert");
    EXPECT_NE(TQ_Prseq_Clipboard_GetItemToPaste(box), nullptr);
    TQ_Prseq_Clipboard_CutSelection(box);
    EXPECT_EQ(track(0).events.size(), 1u);
    EXPECT_EQ(TQ_Prseq_Clipboard_GetItemToPaste(box), nullptr)
        << "in other modes the clipboard is only emptied";
    send("mouse_mode nowhere");
    EXPECT_EQ(errors, Names{"mouse mode does not exist"});
}

TEST_F(ClipboardTest, LaterStepsFindTheEventsThatEarlierOnesBringBack) {
    send("event start 0 duration 1000 <note> 60 90 </note>");
    settle();
    EventRef whole = event(0, 0);
    std::optional<Slices> slices = slice_event(box, whole, 400);
    ASSERT_TRUE(slices);
    send("event id " + std::to_string(slices->right->id) + " label changed");
    settle();
    EventRef glued = glue_event_to_next(box, slices->left);
    ASSERT_TRUE(glued);
    send("event id " + std::to_string(glued->id) + " label glued");
    settle();
    EXPECT_EQ(history(), (Names{"Add Track", "Insert Event", "Slice Event", "Modify Event", "Glue Events",
                                "Modify Event"}));
    send("undoredo 1");
    EXPECT_EQ(event(0, 0), whole);
    EXPECT_EQ(track(0).events.size(), 1u);
    send("undoredo 3");
    EXPECT_EQ(event(0, 0), slices->left);
    EXPECT_EQ(event(0, 1), slices->right);
    EXPECT_EQ(slices->right->label.text(), "changed");
    send("undoredo 5");
    EXPECT_EQ(event(0, 0), glued);
    EXPECT_EQ(glued->label.text(), "glued");
    send("undo");
    EXPECT_TRUE(glued->label.empty());
}

TEST_F(ClipboardTest, CurvesComeBackWithTheirTypeToWhoeverRefersToThem) {
    send("track_add", "track_bpf_add vol 0 2 1", "event start 0 duration 1000 <note> 60 90 </note>");
    settle();
    BpfRef curve = event(0, 0)->bpfs[1];
    BpfPoints before = curve->points;
    add_bpf_point(box, {event(0, 0), curve}, {0.5, 0.25});
    delete_bpf_type(box, &track(0), 1);
    EXPECT_EQ(event(0, 0)->bpfs.size(), 1u);
    send("undo");
    ASSERT_EQ(event(0, 0)->bpfs[1], curve);
    send("undo");
    EXPECT_EQ(curve->points, before);
    send("redo");
    EXPECT_EQ(event(0, 0)->bpfs[1]->points.size(), 3u);
}

}  // namespace
}  // namespace tq
