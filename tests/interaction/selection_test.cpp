// Selecting, hitting and dragging events with the mouse, in a view of 1000 pixels for 10 s and rows of 8
// pixels.
#include "model/selection.h"

#include <cmath>

#include "history/undoredo.h"
#include "host/modifiers.h"
#include "interaction/hit_test.h"
#include "interaction/mouse.h"
#include "model/bpf_editor.h"
#include "model/events.h"
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
    /// A point of an event's rectangle in the box.
    Point point(const EventRef& event, double dx, double dy) const {
        const Rect r = rect(event), display = box.maindisplay.rect;
        return {display.x + r.x + dx, display.y + r.y + dy - box.maindisplay.verticalscroll};
    }
    void press(Point at, unsigned modifiers = 0) {
        pressed = at;
        prseq_mousedown(box, at.x, at.y, modifiers | modifier_left_button);
    }
    /// To a point of the box.
    void drag(Point to, unsigned modifiers = 0) {
        prseq_mousedrag(box, to.x, to.y, modifiers | modifier_left_button);
    }
    /// By pixels from the press.
    void drag(double dx, double dy, unsigned modifiers = 0) {
        drag(Point{pressed.x + dx, pressed.y + dy}, modifiers);
    }
    void release() { prseq_mouseup(box, 0, 0, modifier_left_button); }
    std::optional<std::string> last_edit() const { return TQ_Prseq_Undoredo_UndoMenu(box); }
    Point pressed;
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
    const Point above = point(a, -10, -6), edge_of_b = point(b, 0, 2), at_c = point(c, 5, -5);
    press(above, modifier_shift);
    drag(edge_of_b, modifier_shift);
    EXPECT_EQ(list(), (std::vector<EventRef>{b, c})) << "touching edges count";
    drag(point(c, -5, 3), modifier_shift);
    EXPECT_TRUE(box.maindisplay.marqueeactive);
    drag(above, modifier_shift);
    EXPECT_EQ(list(), (std::vector<EventRef>{a, c})) << "what the marquee has left is as it was";
    release();
    EXPECT_FALSE(box.maindisplay.marqueeactive);
    press(above);
    EXPECT_TRUE(list().empty());
    drag(Point{edge_of_b.x - 1, edge_of_b.y});
    EXPECT_EQ(list(), std::vector<EventRef>{a});
    drag(at_c);
    roll_back_gesture(box);
    EXPECT_TRUE(list().empty());
    EXPECT_EQ(last_edit(), "Add Track") << "selecting is no edit";
}

TEST_F(SelectionTest, ThePressedCornerOfTheMarqueeStaysOnItsSpotOfThePage) {
    const Rect display = box.maindisplay.rect;
    press({display.x + 100, display.y + 50});
    const double scrolled = box.maindisplay.verticalscroll;
    send("scroll_vert 0.4");
    drag(Point{display.x + 40, display.y + 90});
    const double moved = scrolled - box.maindisplay.verticalscroll;
    EXPECT_NEAR(box.maindisplay.marquee.x, 40, 1e-6);
    EXPECT_NEAR(box.maindisplay.marquee.width, 60, 1e-6);
    EXPECT_NEAR(box.maindisplay.marquee.y, std::min(50 + moved, 90.), 1e-6);
    EXPECT_NEAR(box.maindisplay.marquee.height, std::abs(40 - moved), 1e-6);
}

TEST_F(SelectionTest, OneEventIsDraggedWithinTheTimelineAndThePitches) {
    EventRef event = add(1000, 500, 60);
    press(point(event, 10, 3));
    drag(100, -2 * box.maindisplay.rowheight);
    EXPECT_NEAR(event->start, 1000 + 100 / pixels_per_ms, 1e-6);
    EXPECT_NEAR(event->pitch, 62, 1e-9);
    EXPECT_EQ(box.tiptool.text.substr(0, 13), "Event Start: ");
    drag(-5000, -50);
    EXPECT_EQ(event->start, 0);
    for (int i = 0; i < 2; ++i) {
        send(i == 0 ? "scroll_vert 0" : "scroll_vert 1");  // the view moves, the drag goes on
        drag(Point{pressed.x, i == 0 ? 0. : 600.});
        EXPECT_EQ(event->pitch, i == 0 ? 131 : 0);
    }
    send("scroll_vert 0.5");
    box.snaptime = box.snappitch = true;
    drag(7.3, -1);
    const double grid = box.maindisplay.mslabelincrement / 10;
    EXPECT_NEAR(event->start / grid, std::round(event->start / grid), 1e-9);
    EXPECT_EQ(event->pitch, 60);
    release();
    EXPECT_EQ(last_edit(), "Move Event");
    EXPECT_FALSE(box.tiptool.visible);
    send("undo");
    EXPECT_EQ(event->start, 1000);
    EXPECT_EQ(event->pitch, 60);
}

TEST_F(SelectionTest, SeveralEventsStayTogetherAtTheEdges) {
    EventRef low = add(1000, 500, 50), high = add(2000, 500, 120), other = add(1500, 500, 60);
    select({low, high});
    send("scroll_vert 0.6");
    press(point(low, 10, 3));
    send("scroll_vert 0");
    drag(Point{pressed.x, box.maindisplay.rect.y});
    EXPECT_NEAR(high->pitch, 131, 1e-9);
    EXPECT_NEAR(low->pitch, 61, 1e-9);
    drag(-900, 0);
    EXPECT_NEAR(low->start, 0, 1e-9);
    EXPECT_NEAR(high->start, 1000, 1e-6);
    send("scroll_vert 0.6");
    drag(1000 * pixels_per_ms, 0);
    EXPECT_NEAR(low->start, 2000, 1e-6);
    EXPECT_EQ(track().events.at(0), other.get()) << "the track keeps its order";
    EXPECT_EQ(box.tiptool.text.substr(0, 37), "Clicked Event Start: 2000 ms \nClicked");
    drag(Point{2000, pressed.y});
    EXPECT_GE(box.timelinelength, high->end());
}

TEST_F(SelectionTest, WithOptionCopiesAreDragged) {
    EventRef a = add(1000, 500, 60), b = add(2000, 500, 62);
    select({a, b});
    press(point(b, 10, 3));
    drag(30, 0);
    drag(50, 0, modifier_option);
    EXPECT_EQ(a->start, 1000) << "even when they were dragged before";
    ASSERT_EQ(list().size(), 2u);
    EXPECT_NEAR(box.selection[1]->start, 2000 + 50 / pixels_per_ms, 1e-6);
    EXPECT_EQ(box.selection[1]->bpfs.size(), 1u);
    release();
    EXPECT_EQ(track().events.size(), 4u);
    EXPECT_EQ(last_edit(), "Copy Events");
    send("undo");
    EXPECT_EQ(track().events.size(), 2u);
}

TEST_F(SelectionTest, EdgesResizeTheSelectionByTheSame) {
    EventRef a = add(1000, 1000, 60), b = add(3000, 500, 62);
    select({a, b});
    press(point(a, rect(a).width - 2, 3));
    drag(100, 0);
    const double longer = a->duration - 1000;
    EXPECT_NEAR(longer, 98 / pixels_per_ms, 1e-6) << "the end is where the pointer is";
    EXPECT_NEAR(b->duration, 500 + longer, 1e-6);
    drag(-5000, 0);
    EXPECT_EQ(a->duration, 1);
    release();
    EXPECT_EQ(last_edit(), "Change Events Duration");
    send("undo");
    select({a});
    press(point(a, 2, 3));
    drag(5000, 0);
    EXPECT_EQ(a->start, 1999) << "its end stays, and 1 ms before it";
    EXPECT_EQ(a->duration, 1);
    release();
    EXPECT_EQ(last_edit(), "Change Event Start");
}

TEST_F(SelectionTest, AGestureEndsWhenAnythingElseIsDone) {
    EventRef event = add(1000, 500, 60);
    auto begin = [&] {
        press(point(event, 10, 3));
        drag(100, 0);
    };
    begin();
    const double moved = event->start;
    send("undo");
    EXPECT_EQ(event->start, 1000) << "the drag itself is undone";
    drag(200, 0);
    EXPECT_EQ(event->start, 1000) << "the button is still down, but nothing is dragged";
    send("redo");
    EXPECT_EQ(event->start, moved);
    begin();
    prseq_focuslost(box);
    drag(900, 0);
    EXPECT_EQ(last_edit(), "Move Event");
    EXPECT_NEAR(event->start, moved + 100 / pixels_per_ms, 1e-6);
    begin();
    send("read nothing");  // empties the document
    drag(50, 0);
    release();
    EXPECT_TRUE(box.tracks.empty());
    EXPECT_FALSE(last_edit());
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

TEST_F(SelectionTest, AnEditedEventThatLeavesIsNotEditedAnyMore) {
    send("event start 1000 duration 4000 <note> 60 90 </note>", "mouse_mode edit_bpf");
    session.host().scheduler.run_until(session.host().scheduler.now() + 100);
    paint();
    const Point inside = point(track().events.first(), 50, 4);
    const unsigned edited = pixel(inside.x, inside.y);
    for (const char* leave : {"undo", "redo", "track_add B"}) {
        see(leave);
        const bool there = std::string(leave) == "redo";
        EXPECT_EQ(bpf_edited_event(box) != nullptr, there) << leave;
        EXPECT_EQ(pixel(inside.x, inside.y) == edited, there) << "no ghost is painted";
    }
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
