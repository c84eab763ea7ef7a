#include <algorithm>
#include <cmath>
#include <random>

#include "host/graphics.h"
#include "model/bars.h"
#include "model/selection.h"
#include "model/tracks.h"
#include "playback/linecursor.h"
#include "view/draw_events.h"
#include "view/draw_overlays.h"
#include "view/gradient.h"
#include "view/layout.h"
#include "view/maindisplay.h"
#include "view/visible_events.h"
#include "view/zoom.h"
#include "view_fixture.h"

namespace tq {
namespace {

unsigned rgb(const Rgba& color) {
    auto byte = [](double v) { return static_cast<unsigned>(v * 255 + 0.5); };
    return byte(color.red) << 16 | byte(color.green) << 8 | byte(color.blue);
}

int channel_distance(unsigned a, unsigned b) {
    int most = 0;
    for (int shift : {0, 8, 16})
        most =
            std::max(most, std::abs(static_cast<int>(a >> shift & 255) - static_cast<int>(b >> shift & 255)));
    return most;
}

/// A note that lasts 500 ms, in message text.
std::string note(double start, double pitch, const std::string& more = "") {
    return "event start " + std::to_string(start) + " duration 500 " + more + " <note> " +
           std::to_string(pitch) + " 100 </note>";
}

struct PaintTest : ViewTest {
    PaintTest() {
        send("new_track_color 0", "track_add one", "track_active 0");
        resize(1000, 700);
        send("zoom_vert 0.03", "showbpfs 0");
    }
    Track& track(size_t i) { return *box.tracks[i]; }
    Event& event(size_t i, size_t of = 0) { return *track(of).events.at(i); }
    /// The event's rectangle in the box.
    Rect where(const Event& e) {
        Rect r = TQ_Prseq_Events_Rect(box, e);
        return {r.x + box.maindisplay.rect.x, r.y - box.maindisplay.verticalscroll + box.maindisplay.rect.y,
                r.width, r.height};
    }
    unsigned pixel_in(const Event& e, double down = 0.5) {
        Rect r = where(e);
        return pixel(r.x + r.width / 2, r.y + r.height * down);
    }
    void expect_fill(unsigned pixel, const Rgba& color, const std::string& what) {
        EXPECT_LE(channel_distance(pixel, rgb(shade(color, 0.9))), 12) << what << std::hex << pixel;
    }
    void expect_fill(const Event& e, const Rgba& color, const std::string& what) {
        expect_fill(pixel_in(e), color, what);
    }
    bool same_picture(const Surface& a, const Surface& b, const Rect& part = {0, 0, 1000, 700}) {
        for (double y = part.y; y < part.y + part.height; ++y)
            for (double x = part.x; x < part.x + part.width; ++x)
                if (surface_pixel(a, int(x), int(y)) != surface_pixel(b, int(x), int(y))) return false;
        return true;
    }
};

TEST_F(PaintTest, AnEventIsShadedInItsTracksColour) {
    see(note(500, 66));
    const Event& e = event(0);
    Rect r = where(e);
    expect_fill(e, track(0).color, "active");
    EXPECT_GT(pixel(r.x + 10, r.y + 2) & 0xff, pixel(r.x + 10, r.y + r.height - 3) & 0xff)
        << "darker at the bottom";
    EXPECT_EQ(pixel(r.x - 2, r.y + 5), rgb(box.maindisplayblackkeycolor));
    EXPECT_NE(pixel(r.x + r.width - 1, r.y + 5), pixel(r.x + 10, r.y + 5)) << "a dark right edge";
}

TEST_F(PaintTest, TracksAreDrawnInTheirColoursTheActiveOneOnTop) {
    see(note(500, 66), "track_add two", "track_active 1", "track_color 0.1", note(500, 66), note(2000, 66));
    expect_fill(event(0, 1), track(1).color, "active on top");
    see("track_active 0");
    expect_fill(event(0, 0), track(0).color, "active on top");
    expect_fill(event(1, 1), track(1).inactivecolor, "not active");
    see("track_visible 1 0");
    EXPECT_GE(channel_distance(pixel_in(event(1, 1)), rgb(shade(track(1).inactivecolor, 0.9))), 20)
        << "hidden";
}

TEST_F(PaintTest, SelectedEventsLieOnTop) {
    send(note(500, 66), note(600, 66));
    TQ_Prseq_Tracks_SelectEvent2(box, event(0));
    see(Change::Events);
    const Rect second = where(event(1));
    expect_fill(pixel(second.x + 10, second.y + second.height / 2), track(0).selectedcolor, "on top");
}

TEST_F(PaintTest, TheSameDocumentGivesTheSamePixels) {
    for (int i = 0; i < 30; ++i) send(note(i * 170, 60 + i % 12, "label n"));
    send("showbpfs 1");
    SurfaceRef first = paint();
    EXPECT_TRUE(same_picture(*first, *paint())) << "composited";
    prseq_show(box, Change::Initialisation);
    EXPECT_TRUE(same_picture(*first, *paint())) << "drawn anew";
    send("scroll_hor 1");
    EXPECT_FALSE(same_picture(*first, *paint()));
    send("scroll_hor 0");
    EXPECT_TRUE(same_picture(*first, *paint())) << "back again";
}

TEST_F(PaintTest, TheRectangleOfAnEventIsTheSameAtEveryRatio) {
    send(note(1234, 66.5));
    unsigned middle[2];
    for (int ratio : {1, 2}) {
        paint(ratio);
        Rect r = where(event(0));
        middle[ratio - 1] = pixel((r.x + 5) * ratio, (r.y + r.height / 2) * ratio);
        EXPECT_NE(pixel((r.x + 5) * ratio, (r.y + r.height / 2) * ratio),
                  pixel((r.x - 3) * ratio, (r.y + 3) * ratio));
    }
    EXPECT_LE(channel_distance(middle[0], middle[1]), 8);
}

TEST_F(PaintTest, LabelsStandAboveEventsWhoseRowsAreHighEnough) {
    send(note(500, 66, "label name"));
    auto label_drawn = [&] {
        Rect r = where(event(0));
        SurfaceRef with = paint();
        see("showlabels 0");
        const bool differs = !same_picture(*with, *picture, {r.x, r.y - 12, 30, 10});
        send("showlabels 1");
        return differs;
    };
    paint();
    EXPECT_GT(box.maindisplay.rowheight, 8);
    EXPECT_TRUE(label_drawn());
    see("zoom_vert 0.");
    EXPECT_LT(box.maindisplay.rowheight, 8);
    EXPECT_FALSE(label_drawn());
}

TEST_F(PaintTest, CurvesAreDrawnOnTheActiveTrackOnly) {
    see("showbpfs 1", note(500, 66, "<bpf> Pitch 0 2 500 2 </bpf>"));
    Rect r = where(event(0));
    auto on_curve = [&] { return pixel(r.x + r.width / 2, r.y + r.height - 2 * r.height); };
    EXPECT_LE(channel_distance(on_curve(), 0x646464), 2) << "two rows above the event";
    see("track_add two", "track_active 1");
    EXPECT_GE(channel_distance(on_curve(), 0x646464), 50);
    see("track_active 0", "display_all_bpfs 0");
    EXPECT_LE(channel_distance(on_curve(), 0x646464), 2);
    send("showbpfs 0");
    see(Change::Events);
    EXPECT_GE(channel_distance(on_curve(), 0x646464), 50);
}

TEST_F(PaintTest, TheBpfLabelNamesTheActiveType) {
    EXPECT_EQ(bpf_label(box), "Bpf: Pitch");
    send("track_bpf_add Gain -1 2 0.5");
    track(0).activebpfindex = 1;
    EXPECT_EQ(bpf_label(box), "Bpf: Gain (-1.00-2.00)");
    track(0).activebpfindex = 7;
    EXPECT_EQ(bpf_label(box), "");
    send("track_delete 0");
    EXPECT_EQ(bpf_label(box), "");
}

TEST_F(PaintTest, TheEditedEventStandsOnADarkCover) {
    see(note(500, 66), note(1500, 66));
    unsigned light = pixel_in(event(1));
    box.bpfeditor = true;
    box.bpfeditingevent = &event(0);
    see(Change::MouseMode);
    expect_fill(event(0), track(0).color, "edited");
    EXPECT_LT(pixel_in(event(1)) & 0xff, light & 0xff);
}

TEST_F(PaintTest, LanesAndGrid) {
    paint();
    const MainDisplay& md = box.maindisplay;
    auto row_color = [&](double pitch) {
        double y = (131 - pitch + 0.5) * md.rowheight - md.verticalscroll + md.rect.y;
        return pixel(md.rect.x + 4, y);
    };
    EXPECT_EQ(row_color(64), rgb(box.maindisplaywhitekeycolor));
    EXPECT_EQ(row_color(66), rgb(box.maindisplayblackkeycolor));
    see("notelanes 0");
    EXPECT_EQ(row_color(66), rgb(box.maindisplaywhitekeycolor));
    double x = TQ_Prseq_Maindisplay_CalculateMouseFromPosition(box, md, 3 * md.mslabelincrement);
    EXPECT_EQ(pixel(md.rect.x + std::floor(x + 0.5), md.rect.y + 40),
              rgb(box.maindisplaymaindivisionlinecolor));
}

TEST_F(PaintTest, BeatsCloserThanAPixelLeaveNoGaps) {
    set_time_display_type(box, TimeDisplayType::BarsBeats);
    send("notelanes 0", "maxtime 600000", "zoom_hor 0");
    prseq_bar(box, 1, 7, 8);
    paint();
    const Rect& display = box.maindisplay.rect;
    for (double x = 4; x < display.width; ++x)
        EXPECT_NE(pixel(display.x + x, display.y + 40), rgb(box.maindisplaywhitekeycolor)) << x;
}

TEST_F(PaintTest, TheBorderIsAllAround) {
    paint();
    for (bool border : {true, false}) {
        see(border ? "border 1" : "border 0");
        for (auto [x, y] : {std::pair{0, 300}, {999, 300}, {500, 0}, {500, 699}})
            EXPECT_EQ(pixel(x, y) == 0, border) << x << " " << y;
    }
}

TEST_F(PaintTest, TheMarqueeIsCutToTheMainDisplay) {
    paint();
    const Rect display = box.maindisplay.rect;
    auto at = [&](double x) { return pixel(display.x + x, display.y + 20); };
    unsigned outside = at(-5), inside = at(20), beyond = at(60);
    box.maindisplay.marqueeactive = true;
    box.maindisplay.marquee = {-50, 10, 100, 30};
    see(Change::Marquee);
    EXPECT_EQ(at(-5), outside);
    EXPECT_NE(at(20), inside);
    EXPECT_EQ(at(60), beyond);
    const Point corner{display.x + display.width, display.y + display.height};
    const auto scrollbars = [&] {
        return std::pair(pixel(corner.x + 2, corner.y - 9), pixel(corner.x - 9, corner.y + 2));
    };
    const auto uncovered = scrollbars();
    box.maindisplay.marquee = {20, 10, 2000, 2000};
    see(Change::Marquee);
    EXPECT_EQ(scrollbars(), uncovered);
    EXPECT_NE(at(60), beyond);
}

struct LineCursorTest : PaintTest {
    /// Where the cursor is in the view, and where the view is on the page, in pages.
    double page() const { return box.maindisplay.horizontalscroll / box.maindisplay.rect.width; }
    void move_to_page(double pages) {
        double ms = TQ_Prseq_Maindisplay_CalculatePositionFromMouse(box, box.maindisplay,
                                                                    pages * box.maindisplay.rect.width);
        TQ_Prseq_LineCursor_SetLineCursorPositionInMsAndRedraw(box, ms);
        paint();
        paint();  // the view moves at the end of a paint
    }
};

TEST_F(LineCursorTest, FollowsByPagesWhilePlaying) {
    see("zoom_hor 0.5");
    move_to_page(2.4);
    EXPECT_EQ(page(), 0) << "not playing";
    box.playing = true;
    for (double at : {2.4, 2.99, 2.0}) {
        move_to_page(at);
        EXPECT_NEAR(page(), 2, 1e-9) << at;
    }
    move_to_page(3.01);
    EXPECT_NEAR(page(), 3, 1e-9);
    box.linecursor.follow = false;
    move_to_page(5.5);
    EXPECT_NEAR(page(), 3, 1e-9);
    send("position 4000");
    EXPECT_NEAR(page(),
                std::floor(4000. / 10000 * box.horscrollbar.totalpagesize / box.maindisplay.rect.width), 1e-9)
        << "a position always shows itself";
    box.linecursor.follow = true;
    box.linecursor.followmode = FollowMode::MiddleStay;
    move_to_page(7.25);
    EXPECT_NEAR(page(), 6.75, 1e-9);
}

TEST_F(LineCursorTest, AtTheEndOfThePageTheViewComesToRest) {
    send("zoom_hor 0.5");
    box.playing = true;
    TQ_Prseq_LineCursor_SetLineCursorPositionInMsAndRedraw(box, 9999);
    paint();
    paint();
    EXPECT_EQ(box.horizontalscroll, 1);
    EXPECT_EQ(layers_painted(), "") << "nothing is asked for again";
}

TEST_F(LineCursorTest, IsDrawnInItsColourWhereTheTimeIs) {
    send("linecursorcolor 0 0 1 1");
    move_to_page(0.5);
    const Rect& display = box.maindisplay.rect;
    EXPECT_EQ(pixel(display.x + display.width / 2, display.y + 50), 0x0000ffu);
    EXPECT_EQ(pixel(display.x + display.width / 2, box.layout[Part::TimeDisplay].y + 2), 0x0000ffu);
    move_to_page(1.5);
    EXPECT_NE(pixel(display.x + display.width / 2, display.y + 50), 0x0000ffu);
}

TEST_F(PaintTest, EachChangeRedrawsTheLayersThatShowIt) {
    paint();
    EXPECT_EQ(layers_painted(), "") << "everything is valid";
    for (auto [message, layers] :
         {std::pair{"zoom_hor 0.2", "horscrollbar_layer maindisplay_layer timedisplay_layer"},
          {"scroll_vert 0.3", "vertscrollbar_layer keydisplay_layer maindisplay_layer"},
          {"zoom_out_all",
           "horscrollbar_layer vertscrollbar_layer keydisplay_layer maindisplay_layer timedisplay_layer"},
          {"cycle 1", "timedisplay_layer"},
          {"position 2000", "linecursor_layer"},
          {"linecursorcolor 0 1 0 1", "linecursor_layer"},
          {"maindisplaywhitekeycolor 1 1 0 1", "maindisplay_layer"},
          {"event start 500 duration 250 <note> 60 100 </note>", "maindisplay_layer"},
          {"track_add three", "trackdisplay_layer maindisplay_layer"},
          {"track_mute 0 1", "trackdisplay_layer"},
          {"track_visible 0 0", "trackdisplay_layer maindisplay_layer"},
          {"maxtime 20000", "horscrollbar_layer maindisplay_layer timedisplay_layer"},
          {"upperdisplaycolor 0.5 0.5 0.5 1", "background_layer upperdisplay_layer"},
          {"showlabels 0", "maindisplay_layer"},
          {"showmessages 0", "maindisplay_layer"},
          {"showbpfs 0", "maindisplay_layer"},
          {"showbuffers 0", "maindisplay_layer"},
          {"display_all_bpfs 0", "maindisplay_layer"},
          {"cyclerange 100 900", "timedisplay_layer"},
          {"mouse_mode slice", "maindisplay_layer upperdisplay_layer"},
          {"mouse_mode select", "maindisplay_layer upperdisplay_layer"},
          {"menufontsize 14", "upperdisplay_layer"},
          {"timedisplaycolor 1 1 1 1", "timedisplay_layer"},
          {"trackdisplaycolor 1 1 1 1", "trackdisplay_layer"},
          {"keydisplaylabelcolor 1 0 0 1", "keydisplay_layer"},
          {"track_color 0.3", "trackdisplay_layer maindisplay_layer"},
          {"undo", "trackdisplay_layer maindisplay_layer"},
          {"parameterdisplay 1",
           "vertscrollbar_layer keydisplay_layer maindisplay_layer parameterdisplayBG_layer "
           "parameterdisplay_layer"},
          {"scroll_hor 0.3",
           "horscrollbar_layer maindisplay_layer timedisplay_layer parameterdisplayBG_layer "
           "parameterdisplay_layer"},
          {"scroll_vert 0.4", "vertscrollbar_layer keydisplay_layer maindisplay_layer"},
          {"event start 700 duration 250 <note> 60 100 </note>", "maindisplay_layer parameterdisplay_layer"},
          {"snaptime 1", ""}}) {
        send(message);
        EXPECT_EQ(layers_painted(), layers) << message;
    }
    set_time_display_type(box, TimeDisplayType::MinutesSeconds);
    EXPECT_EQ(layers_painted(), "maindisplay_layer timedisplay_layer");
    box.maindisplay.mousemode = MouseMode::EditBpf;
    EXPECT_EQ(layers_painted(), "centeredtext_layer");
    ViewTest::resize(900, 600);
    box.layers.drawn.clear();
    ViewTest::resize(901, 600);
    EXPECT_EQ(box.layers.drawn.size(), 9u)
        << "background, horizontal scrollbar, main, time, upper and parameter display, hint, border";
}

struct ShapesTest : PaintTest {
    ShapesTest() { see("zoom_out_all"); }
    /// The events that are painted.
    std::vector<const Event*> shapes(bool curves = false) {
        const EventView view(box, 1);
        const Rect all{0, 0, view.width, view.height};
        Cover cover = cover_around(view, all);
        const ShapeOptions options{.curves = curves};
        std::vector<const Event*> events, selected;
        for (bool is_selected : {true, false})
            for (const VisibleEvent& visible :
                 build_visible_events(track(0), is_selected, view, all, options, cover))
                if (visible.plain || shape_in_view(*visible.entry->event, view, options))
                    (is_selected ? selected : events).push_back(visible.entry->event.get());
        events.insert(events.end(), selected.begin(), selected.end());
        return events;
    }
    Event& add(double start, double length, double pitch) {
        send(note(start, pitch, "duration " + std::to_string(length)));
        return *track(0).events.first_at_or_after(start);
    }
};

TEST_F(ShapesTest, EventsOffScreenAreNotThere) {
    for (double start : {0., 4000., 9000.})
        for (double pitch : {0., 60., 131.}) add(start, 500, pitch);
    EXPECT_EQ(shapes().size(), 9u);
    TQ_Prseq_Zoom_ZoomToGivenZoomAndScroll(box, {0.1, 0.1, 0.45, 0.55});
    ASSERT_EQ(shapes().size(), 1u);
    EXPECT_EQ(shapes()[0]->pitch, 60);
    EXPECT_EQ(shapes()[0]->start, 4000);
}

TEST_F(ShapesTest, ACurveThatReachesIntoTheViewIsThereWithoutItsEvent) {
    send("event start 4000 duration 500 <note> 10 100 </note> <bpf> Pitch 0 0 250 80 500 0 </bpf>");
    TQ_Prseq_Zoom_ZoomToGivenZoomAndScroll(box, {0, 0.1, 0, 0.5});
    EXPECT_EQ(shapes(false).size(), 0u);
    ASSERT_EQ(shapes(true).size(), 1u);
    EXPECT_FALSE(shape_in_view(*shapes(true)[0], EventView(box, 1), {.curves = true})->body);
}

TEST_F(ShapesTest, OfManyEventsOnTheSamePixelsOneIsEnough) {
    std::vector<EventRef> events;
    for (int i = 0; i < 100000; ++i) {
        EventRef e = make_ref<Event>();
        e->id = i + 1000;
        e->start = i * 0.1;
        e->duration = 0.05;
        e->pitch = 60;
        events.push_back(e);
    }
    TQ_Prseq_Tracks_InsertAllEvents(box, track(0), std::move(events));
    const double columns = box.maindisplay.rect.width + 4;
    EXPECT_LE(shapes().size(), static_cast<size_t>(columns));
    EXPECT_GE(shapes().size(), static_cast<size_t>(columns - 10));
    TQ_Prseq_Tracks_SelectEvent2(box, add(5000, 3000, 60));
    EXPECT_TRUE(shapes().back()->selected) << "a selected event is not hidden by others";
}

/// A picture that lasts from paint to paint, where only what changed is painted and a scroll moves what is
/// there: whatever happens, it is the picture that is painted from nothing.
TEST_F(ShapesTest, WhatIsPaintedStepByStepIsWhatIsPaintedAtOnce) {
    std::mt19937 engine(11);
    const auto random = [&](unsigned below) { return static_cast<double>(engine() % below); };
    send("track_add two", "parameterdisplay 1", "zoom_hor 0.01");
    for (int i = 0; i < 300; ++i)
        send(note(random(9000), 50 + random(30), i % 9 == 0 ? "label l" + std::to_string(i) : ""));
    const auto any = [&](unsigned most) { return std::to_string(random(most) / most); };
    for (double ratio : {1., 1.25, 2.}) {
        BoxPicture lasting;
        for (int i = 0; i < 48; ++i) {
            switch (engine() % 9) {
                case 0:
                    send("zoom_vert " + any(100));
                    break;
                case 1:
                    send("zoom_hor " + any(300));
                    break;
                case 2:
                    send(note(random(9000), 40 + random(50)));
                    break;
                case 3:
                    send("position " + std::to_string(random(10000)));
                    break;
                case 4:
                    send("showbpfs " + std::to_string(engine() % 2));
                    break;
                case 5:
                    send("scroll_vert " + any(1000));
                    break;
                case 6:
                    send("cyclerange 0 " + std::to_string(random(10000)));
                    break;
                default:
                    send("scroll_hor " + std::to_string(box.horizontalscroll + random(100) / 3000 - 0.0165));
            }
            prseq_paint(box, lasting, ratio);
            if (i % 4) continue;
            prseq_show(box, Change::Initialisation);
            prseq_show(box, Change::Everything);
            ASSERT_TRUE(same_picture(*lasting.surface(), *paint(ratio), {0, 0, 1000 * ratio, 700 * ratio}))
                << i << " at " << ratio;
        }
    }
}

/// Longer and shorter ones on the same pixel, selected or not, on two tracks, with labels, messages and
/// curves, on rows that overlap: what is left out changes no pixel, at any ratio.
TEST_F(ShapesTest, WhatIsLeftOutIsNotMissed) {
    std::mt19937 random(5);
    send("track_add two", "track_bpf_add Gain 0 1 1");
    for (int i = 0; i < 2500; ++i) {
        std::string text =
            "event track " + std::to_string(random() % 2) + " start " + std::to_string(random() % 4000) +
            " duration " + std::to_string(random() % 300) + " <note> " +
            std::to_string(60 + static_cast<double>(random() % 4) * (random() % 3 ? 1 : 0.5)) + " 99 </note>";
        if (random() % 40 == 0) text += " label name <message> text </message>";
        if (random() % 40 == 0) text += " <bpf> Pitch 0 0 50 2 </bpf>";
        send(text);
    }
    for (const char* view : {"showbpfs 1", "track_active 1", "showbpfs 0", "track_active 0", "zoom_vert 0.1",
                             "zoom_hor 0.001"}) {
        send(view);
        Track& active = track(static_cast<size_t>(box.activetrack));
        for (size_t i = 0; i < active.events.size(); i += 1 + random() % 40)
            active.events.select(*active.events.at(i), true);
        for (double ratio : {1., 1.25, 2.}) {
            SurfaceRef pictures[2];
            for (bool all : {false, true}) {
                pictures[all] = jgraphics_image_surface_create(box.maindisplay.rect.width,
                                                               box.maindisplay.rect.height, ratio);
                Graphics g(*pictures[all]);
                TQ_Prseq_Tracks_DrawEventsOnAllTracks(box, g, all);
            }
            EXPECT_TRUE(same_picture(*pictures[0], *pictures[1], {0, 0, 2000, 1400})) << view << " " << ratio;
        }
    }
    EXPECT_LT(shapes().size(), 1000u) << "something is left out";
}

}  // namespace
}  // namespace tq
