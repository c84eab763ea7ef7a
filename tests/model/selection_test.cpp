// Selecting, hitting and moving events in a view of 1000 pixels for 10 s and rows of 8 pixels.
#include "model/selection.h"

#include <cmath>

#include "history/recorders.h"
#include "host/modifiers.h"
#include "interaction/main_press.h"
#include "model/events.h"
#include "model/hit_test.h"
#include "model/selected_events.h"
#include "model/tracks.h"
#include "view/maindisplay.h"
#include "view/tiptool.h"
#include "view/view_fixture.h"

namespace tq {
namespace {

struct SelectionTest : ViewTest {
    SelectionTest() {
        resize(1000 + 165 + 40 + 15, 600);
        see("zoom_out_all", "scroll_vert 0.5", "track_add");
        pixels_per_ms = TQ_Prseq_Maindisplay_CalculateMouseFromPosition(box, box.maindisplay, 1);
    }
    EventRef add(long start, long duration, double pitch) {
        EventRef event = TQ_Prseq_Events_MakeEvent(box, start, pitch, 80, duration, {}, {});
        conform_event_to(track(), *event);
        TQ_Prseq_Tracks_InsertEvent(box, track(), event);
        return event;
    }
    Track& track() { return *box.tracks[0]; }
    Rect rect(const EventRef& event) const { return TQ_Prseq_Events_Rect(box, *event); }
    Event* hit(double x, double y) { return TQ_Prseq_Tracks_GetClickedEventInTrack(box, track(), x, y); }
    std::vector<EventRef> list() {
        TQ_Prseq_Tracks_MakeLinkedListFromAllSelectedEvents(box, 0);
        return box.selection;
    }
    void select(const std::vector<EventRef>& events) {
        TQ_Prseq_Tracks_DeselectAllEventsInTrack(box, 0);
        TQ_Prseq_Tracks_SelectEventsFromLinkedList(box, events);
    }
    void set_marquee(const Rect& of, double by = 0) {
        box.maindisplay.marquee = {of.x - by, of.y - by - box.maindisplay.verticalscroll, of.width + 2 * by,
                                   of.height + 2 * by};
        box.maindisplay.marqueescroll = box.maindisplay.verticalscroll;
    }
    /// Presses a selected event `at` pixels from its origin.
    void press(const EventRef& event, Point at) {
        list();
        const Rect r = rect(event), display = box.maindisplay.rect;
        TQ_Prseq_Maindisplay_Click(box, display.x + r.x + at.x,
                                   display.y + r.y + at.y - box.maindisplay.verticalscroll);
        box.press.clickedevent = event;
        box.press.clickoffset = at;
        box.press.selectionwhenclicked = TQ_Prseq_Tracks_CalculateBoundingRectOfSelectedEvents(box);
        TQ_Prseq_Tracks_CalculateEventsOffsetFromSelectionRectWhenClicked(box);
        TQ_Prseq_Tracks_MakeUndoEventsFromSelectedEvents(box);
    }
    void drag(double dx, double dy) {
        box.press.drag = {box.press.press.x + dx, box.press.press.y + dy};
        TQ_Prseq_Tracks_MoveSelectedEventsOnTrack(box, 0);
    }
    double pixels_per_ms;
};

TEST_F(SelectionTest, AnEventIsHitUpToItsEdgesAndTheFirstOfSeveral) {
    EventRef first = add(1000, 1000, 60), over = add(1500, 1000, 60), thin = add(5000, 0, 60);
    const Rect r = rect(first);
    EXPECT_EQ(hit(r.x, r.y), first);
    EXPECT_EQ(hit(r.x + r.width, r.y + r.height), first);
    EXPECT_EQ(hit(r.x + r.width + 0.5, r.y), over);
    EXPECT_EQ(hit(r.x - 0.5, r.y), nullptr);
    EXPECT_EQ(hit(r.x, r.y + r.height + 0.5), nullptr);
    EXPECT_EQ(hit(rect(thin).x + 3, r.y), thin) << "no event is narrower than that";
    EXPECT_EQ(hit(rect(thin).x + 3.5, r.y), nullptr);
    EXPECT_EQ(TQ_Prseq_Tracks_GetClickedEventIndexInTrack(box, track(), rect(over).x + rect(over).width, r.y),
              1);
    EXPECT_EQ(TQ_Prseq_Tracks_GetClickedEventIndexInTrack(box, track(), 0, 0), -1);
    send("track_visible 0 0");
    EXPECT_EQ(hit(r.x, r.y), nullptr);
}

TEST_F(SelectionTest, ParametersAreGrabbedByTheirLeftEdge) {
    EventRef event = add(1000, 5000, 60);
    add(8000, 10, 60);
    box.layout[Part::ParameterDisplay].height = 80;
    const double x = rect(event).x;
    auto clicked = [&](double dx, double y) {
        return TQ_Prseq_Tracks_GetClickedParameterEventInTrack(box, track(), x + dx, y);
    };
    auto dragged = [&](double dx) {
        return TQ_Prseq_Tracks_GetDraggedParameterEventInTrack(box, track(), x + dx, 500);
    };
    EXPECT_EQ(clicked(0, 0), event);
    EXPECT_EQ(clicked(5, 80), event);
    EXPECT_EQ(clicked(6, 10), nullptr);
    EXPECT_EQ(clicked(-1, 10), nullptr);
    EXPECT_EQ(clicked(2, 81), nullptr);
    EXPECT_EQ(dragged(14), event);
    EXPECT_EQ(dragged(15), nullptr);
}

TEST_F(SelectionTest, TheListIsThatOfTheFlagsInTheTracksOrder) {
    std::vector<EventRef> events;
    for (long i = 0; i < 100; ++i) events.push_back(add(i * 10, 100, 60));
    select({events[70], events[3], events[40]});
    EXPECT_EQ(list(), (std::vector<EventRef>{events[3], events[40], events[70]}));
    TQ_Prseq_Tracks_SelectAllEvents(box, 0);
    TQ_Prseq_Tracks_DeselectEvent(box, 0, 99);
    TQ_Prseq_Tracks_DeselectEvent2(*events[0], box);
    EXPECT_EQ(list(), std::vector<EventRef>(events.begin() + 1, events.end() - 1));
    EXPECT_EQ(TQ_Prseq_Tracks_GetEventSelection(box, 0, 0), 0);
    EXPECT_EQ(TQ_Prseq_Tracks_GetEventSelection(box, 0, 1), 1);
    EXPECT_EQ(TQ_Prseq_Tracks_GetEventSelection(box, 0, 100), -1);
    EXPECT_EQ(TQ_Prseq_Tracks_GetEventSelection(box, 7, 0), -1);
    send("track_visible 0 0");
    EXPECT_TRUE(list().empty());
    TQ_Prseq_Tracks_DeselectAllEventsInTrack(box, 0);
    TQ_Prseq_Tracks_SelectAllEvents(box, 0);
    TQ_Prseq_Tracks_SelectEvent(box, 0, 5);
    EXPECT_EQ(events[5]->selected, false) << "events of an invisible track are never selected";
}

TEST_F(SelectionTest, AMarqueeSelectsWhatItTouchesAndTogglesItWithShift) {
    EventRef a = add(1000, 500, 60), b = add(2000, 500, 60), c = add(3000, 500, 70);
    select({a, c});
    TQ_Prseq_Tracks_SetSelectedWhenClickedStatusOfEvents(box, 0);
    Rect marquee = rect(a);
    marquee.width = rect(b).x - marquee.x;  // to the very edge of b
    set_marquee(marquee);
    TQ_Prseq_Tracks_SelectEventsInMarquee(box, 0, modifier_shift);
    EXPECT_EQ(list(), (std::vector<EventRef>{b, c}));
    set_marquee({0, rect(c).y, 1, 1});
    TQ_Prseq_Tracks_SelectEventsInMarquee(box, 0, modifier_shift);
    EXPECT_EQ(list(), (std::vector<EventRef>{a, c})) << "what the marquee has left is as it was";
    set_marquee(marquee, -0.5);
    TQ_Prseq_Tracks_SelectEventsInMarquee(box, 0, 0);
    EXPECT_EQ(list(), std::vector<EventRef>{a});
}

TEST_F(SelectionTest, TheMarqueeSpansFromThePressOnThePage) {
    const Rect display = box.maindisplay.rect;
    TQ_Prseq_Maindisplay_Click(box, display.x + 100, display.y + 50);
    box.press.drag = {40, 90};
    box.maindisplay.verticalscroll += 16;
    TQ_Prseq_Maindisplay_SetMarqueeRect(box);
    EXPECT_EQ(box.maindisplay.marquee, (Rect{40, 34, 60, 56}));
    EXPECT_EQ(box.maindisplay.marqueescroll, box.maindisplay.verticalscroll);
}

TEST_F(SelectionTest, OneEventIsDraggedWithinTheTimelineAndThePitches) {
    EventRef event = add(1000, 500, 60);
    select({event});
    press(event, {2, 3});
    drag(100, -2 * box.maindisplay.rowheight);
    EXPECT_NEAR(event->start, 1000 + 100 / pixels_per_ms, 1e-6);
    EXPECT_NEAR(event->pitch, 62, 1e-9);
    EXPECT_EQ(box.tiptool.text.substr(0, 13), "Event Start: ");
    drag(-5000, -5000);
    EXPECT_EQ(event->start, 0);
    EXPECT_EQ(event->pitch, 131);
    drag(0, 5000);
    EXPECT_EQ(event->pitch, 0);
    box.snaptime = box.snappitch = true;
    drag(7.3, -1);
    const double grid = box.maindisplay.mslabelincrement / 10;
    EXPECT_NEAR(event->start / grid, std::round(event->start / grid), 1e-9);
    EXPECT_EQ(event->pitch, 60);
    EXPECT_TRUE(box.press.eventsmoved);
    TQ_Prseq_Undoredo_AddUndoRedoItem_MoveEvents(box, box.press.undoevents);
    send("undo");
    EXPECT_EQ(event->start, 1000);
    EXPECT_EQ(event->pitch, 60);
}

TEST_F(SelectionTest, SeveralEventsStayTogetherAtTheEdges) {
    EventRef low = add(1000, 500, 50), high = add(2000, 500, 120), other = add(1500, 500, 60);
    select({low, high});
    press(low, {0, 0});
    EXPECT_EQ(TQ_Prseq_Tracks_GetMinimumPitchOfSelectedEvents(box), 50);
    EXPECT_EQ(TQ_Prseq_Tracks_GetMaximumPitchOfSelectedEvents(box), 120);
    drag(0, -40 * box.maindisplay.rowheight);
    EXPECT_NEAR(high->pitch, 131, 1e-9);
    EXPECT_NEAR(low->pitch, 61, 1e-9);
    drag(-900, 0);
    EXPECT_NEAR(low->start, 0, 1e-9);
    EXPECT_NEAR(high->start, 1000, 1e-6);
    drag(1000 * pixels_per_ms, 0);
    EXPECT_NEAR(low->start, 2000, 1e-6);
    EXPECT_EQ(track().events.at(0), other.get()) << "the track keeps its order";
    EXPECT_EQ(box.tiptool.text, "Clicked Event Start: 2000 ms \nClicked Event Pitch: 50.000000");
    EXPECT_GE(box.timelinelength, high->end());
}

TEST_F(SelectionTest, CopiesAreMadeInPlaceAndUnselected) {
    EventRef a = add(1000, 500, 60), b = add(2000, 500, 62);
    select({a, b});
    press(b, {0, 0});
    std::vector<EventRef> copies = TQ_Prseq_Tracks_CopySelectedEventsOnTrack(box, 0);
    ASSERT_EQ(copies.size(), 2u);
    EXPECT_EQ(box.press.clickedevent, copies[1]);
    EXPECT_EQ(copies[1]->start, 2000);
    EXPECT_EQ(copies[1]->bpfs.size(), 1u);
    EXPECT_EQ(list(), (std::vector<EventRef>{a, b}));
    EXPECT_EQ(track().events.size(), 4u);
}

TEST_F(SelectionTest, ModesForCurvesChooseTheEventThatIsEdited) {
    send("mouse_mode edit_bpf");
    EXPECT_EQ(box.bpfeditingevent, nullptr);
    EventRef only = add(1000, 500, 60);
    send("mouse_mode edit_bpf");
    EXPECT_EQ(box.bpfeditingevent, only);
    EXPECT_TRUE(box.bpfeditor && box.showbpfs);
    send("mouse_mode zoom");
    EXPECT_TRUE(box.bpfeditor) << "zooming goes on editing";
    EventRef second = add(2000, 500, 60);
    send("mouse_mode select_bpf");
    EXPECT_EQ(box.bpfeditingevent, only) << "there are several now";
    select({second});
    send("mouse_mode edit_bpf");
    EXPECT_EQ(box.bpfeditingevent, second);
    EXPECT_EQ(list(), std::vector<EventRef>{second});
    send("mouse_mode slice");
    EXPECT_FALSE(box.bpfeditor);
    EXPECT_EQ(box.maindisplay.mousemode, MouseMode::Slice);
    send("mouse_mode sideways");
    EXPECT_EQ(box.maindisplay.mousemode, MouseMode::Slice);
}

TEST_F(SelectionTest, TheTiptoolStaysInsideItsRectangle) {
    const Rect display = box.maindisplay.rect;
    TQ_Prseq_Tiptool_Set(box, "one\ntwo\nthree", display.x + display.width, display.y + display.height,
                         display);
    paint();
    const unsigned yellow = 0xffffc9;
    EXPECT_EQ(pixel(display.x + display.width - 3, display.y + display.height - 3), yellow);
    EXPECT_NE(pixel(display.x + display.width + 1, display.y + display.height - 3), yellow);
    TQ_Prseq_Tiptool_Set(box, "", 0, 0, display);
    paint();
    EXPECT_NE(pixel(display.x + display.width - 3, display.y + display.height - 3), yellow);
}

}  // namespace
}  // namespace tq
