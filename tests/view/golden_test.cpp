// What each display looks like, in every variant that there is.
#include "golden.h"

#include <cmath>

#include "host/buffer.h"
#include "host/host.h"
#include "interaction/mouse_modes.h"
#include "view/eventview.h"
#include "view/layout.h"
#include "view/zoom.h"
#include "view_fixture.h"

namespace tq {
namespace {

using test::looks_like;

struct GoldenTest : ViewTest {
    GoldenTest() {
        // Colours by default are drawn by lot; these follow from the track.
        send("new_track_color 0", "track_add Melody", "track_color 0.55", "track_add Bass", "track_color 0.1",
             "track_add Sounds", "track_color 0.8", "track_active 0");
        size(480, 320);
    }
    void size(double width, double height) { session.call(SizeCall{width, height}); }
    void note(int track, double start, double duration, double pitch, const std::string& more = "") {
        send("event track " + std::to_string(track) + " start " + std::to_string(start) + " duration " +
             std::to_string(duration) + " " + more + " <note> " + std::to_string(pitch) + " 100 </note>");
    }
    void song() {
        for (int i = 0; i < 8; ++i) note(0, i * 500, 400, 60 + i * 7 % 12);
        for (int i = 0; i < 4; ++i) note(1, i * 1000, 1000, 57 + i % 2 * 5);
        see_times(5000, 12, 74);
    }
    /// From the beginning on so many ms, in rows of so many pixels, a pitch at the top.
    void see_times(double duration, double height, double top_pitch) {
        show_times(0, duration);
        show_rows(height, top_pitch);
    }
    /// Rows of so many pixels, the row of a pitch at the top.
    void show_rows(double height, double top_pitch) {
        const TQScrollbar& bar = box.vertscrollbar;
        prseq_vertzoom(box, (height / 8 - bar.minimumzoom) / (bar.maximumzoom - bar.minimumzoom));
        const double page = 132 * height, shown = box.maindisplay.rect.height;
        prseq_vertscroll(box, page > shown ? (131 - top_pitch) * height / (page - shown) : 0);
    }
    /// From a time on, so many ms.
    void show_times(double start, double duration) {
        const TQScrollbar& bar = box.horscrollbar;
        const double zoom = box.maindisplay.rect.width / duration * box.timelinelength *
                            box.maindisplay.horizontalzoomcoefficient;
        prseq_horzoom(box, (zoom - bar.minimumzoom) / (bar.maximumzoom - bar.minimumzoom));
        const double rest = box.timelinelength - duration;
        prseq_horscroll(box, rest > 0 ? start / rest : 0);
    }
    void select(size_t track, size_t event) {
        Track& of = *box.tracks[track];
        of.events.select(*of.events.at(event), true);
        prseq_show(box, Change::Events);
    }
    void mouse(MouseCall::Kind kind, double x, double y, unsigned modifiers = 0) {
        session.call(MouseCall{kind, x, y, false, modifiers});
    }
    void expect_golden(const std::string& name, double ratio = 1) {
        EXPECT_TRUE(looks_like(*paint(ratio), name));
    }
};

TEST_F(GoldenTest, TimeTypes) {
    song();
    send("cyclerange 1000 2500", "cycle 1", "position 1250");
    expect_golden("time-msecs");
    set_time_display_type(box, TimeDisplayType::MinutesSeconds);
    send("cycle 0");
    expect_golden("time-minutes-seconds");
    set_time_display_type(box, TimeDisplayType::BarsBeats);
    expect_golden("time-bars-beats");
    show_times(1000, 1500);
    expect_golden("time-bars-beats-zoomed");
}

TEST_F(GoldenTest, HiddenDisplays) {
    song();
    send("trackdisplay 0");
    expect_golden("without-tracks");
    send("keydisplay 0", "menudisplay 0", "focusdisplay 0", "dirtydisplay 0", "notelanes 0", "border 0");
    expect_golden("without-anything");
    send("parameterdisplay 1");
    expect_golden("lane-only");
}

TEST_F(GoldenTest, ZoomLimits) {
    song();
    send("zoom_out_all");
    expect_golden("zoomed-out");
    send("zoom_hor 1", "scroll_hor 0");
    expect_golden("zoomed-in-time");
    send("zoom_vert 1");
    show_rows(box.maindisplay.rect.height, 60);
    expect_golden("zoomed-in");
}

TEST_F(GoldenTest, SelectedAndInactive) {
    song();
    select(0, 2);
    select(0, 3);
    expect_golden("selected");
    send("track_active 1");
    expect_golden("other-track-active");
    send("track_visible 0 0", "track_mute 1 1");
    expect_golden("hidden-and-mute");
}

TEST_F(GoldenTest, LabelsAndMessagesAtRowHeights) {
    send("showbpfs 0");
    note(0, 200, 1500, 62, "label Verse <message> hello world </message>");
    note(0, 2000, 300, 60,
         "label \"a long label\" <message> a message that is longer than its event </message>");
    note(1, 1200, 900, 58, "label Bass <message> low </message>");
    show_times(0, 3000);
    for (double height : {7., 8., 10., 20.}) {
        show_rows(height, 64);
        expect_golden("texts-at-" + std::to_string(static_cast<int>(height)));
    }
}

TEST_F(GoldenTest, Curves) {
    send("track_bpf_add Gain 0 1 0.5");
    note(0, 200, 1600, 60,
         "<bpf> Pitch 0 0 400 3 1200 -2 1600 0 </bpf> <bpf> Gain 0 0 800 1 1600 0.2 </bpf>");
    note(0, 2000, 900, 64);
    see_times(3000, 16, 68);
    expect_golden("curves");
    send("display_all_bpfs 0");
    expect_golden("curves-active-only");
    send("display_all_bpfs 1");
    select(0, 0);
    send("mouse_mode edit_bpf");
    const BpfRef curve = box.tracks[0]->events.at(0)->activebpf;
    box.bpfediting = {.bpf = curve, .selected = {1}, .currentpoint = 2, .marquee = {}};
    prseq_show(box, Change::Events);
    expect_golden("curves-edited");
    send("mouse_mode select_bpf");
    box.bpfediting = {.bpf = curve, .selected = {1, 2}, .currentpoint = -1, .marquee = {60, 0, 90, 0}};
    prseq_show(box, Change::Events);
    expect_golden("curves-marquee");
    box.bpfeditingevent = nullptr;
    prseq_show(box, Change::MouseMode);
    expect_golden("curves-hint");
}

TEST_F(GoldenTest, Buffers) {
    std::vector<float> samples(44100);
    for (size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<float>(std::sin(static_cast<double>(i) * 0.05) *
                                        (1 - static_cast<double>(i) / 44100));
    buffer_set(session.host(), gensym("hit"), SoundRef(new Sound(1, 44100, std::move(samples))));
    send("track_active 2", "showbpfs 0");
    note(2, 200, 1500, 62, "<buffer> hit </buffer>");    // lasts longer than the sound
    note(2, 200, 400, 60, "<buffer> hit </buffer>");     // cuts it
    note(2, 200, 1500, 58, "<buffer> hit 1 </buffer>");  // has it fitted
    note(2, 200, 800, 56, "<buffer> hit </buffer>");
    box.tracks[2]->events.at(3)->make_link().start = 250;
    box.tracks[2]->events.at(3)->make_link().end = 700;
    note(1, 2000, 900, 60, "<buffer> hit </buffer>");
    see_times(3000, 30, 63);
    expect_golden("buffers");
    show_rows(10, 70);
    expect_golden("buffers-low");
    send("showbuffers 0");
    expect_golden("buffers-hidden");
}

TEST_F(GoldenTest, ParameterLane) {
    song();
    send("parameterdisplay 1");
    for (size_t i = 0; i < 8; ++i)
        box.tracks[0]->events.at(i)->velocity = 16. * static_cast<double>(i + 1) - 1;
    select(0, 5);
    expect_golden("lane-velocity");
    send("track_parameter_add Pan -1 1 0.5 0");
    box.tracks[0]->displayedparameter = gensym("Pan");
    prseq_show(box, Change::Types);
    expect_golden("lane-parameter");
}

TEST_F(GoldenTest, TracksScrolled) {
    for (int i = 0; i < 25; ++i)
        send("track_add \"Track " + std::to_string(i) + "\"", "track_color " + std::to_string(i / 25.));
    expect_golden("tracks");
    session.call(WheelCall{50, 200, 0, -0.039062 * 6});
    expect_golden("tracks-scrolled");
}

TEST_F(GoldenTest, DialogTiptoolAndWhatIsPressed) {
    song();
    session.call(CommandCall{"new"});
    expect_golden("dialog");
    mouse(MouseCall::Kind::Down, box.width / 2, box.height / 2 + 20);  // "Cancel"
    mouse(MouseCall::Kind::Up, 0, 0);
    EXPECT_FALSE(box.modaldialog);
    // Dragging the event that is pressed: beside the pointer, and held at the right and lower edge.
    const Rect& display = box.maindisplay.rect;
    const Rect event = EventView(box, 1).rect_of(*box.tracks[0]->events.at(2));
    const Point at{display.x + event.x + event.width / 2, display.y + event.y + event.height / 2};
    mouse(MouseCall::Kind::Down, at.x, at.y);
    mouse(MouseCall::Kind::Drag, at.x + 40, at.y - 30);
    expect_golden("tiptool");
    mouse(MouseCall::Kind::Drag, display.x + display.width - 4, display.y + display.height - 4);
    expect_golden("tiptool-at-the-corner");
    mouse(MouseCall::Kind::Up, 0, 0);
    send("undo");
    mouse(MouseCall::Kind::Down, display.x + display.width - 60, display.y + 10);
    mouse(MouseCall::Kind::Drag, display.x + 100, display.y + 120);
    expect_golden("marquee");
    mouse(MouseCall::Kind::Up, 0, 0);
    mouse(MouseCall::Kind::Move, display.x + 50, display.y + (74 - 61 + 0.5) * 12);
    send("zoom_hor 0.05");
    const Rect& bar = box.layout[Part::HorScrollbar];
    const Rect& arrow = box.horscrollbar.arrow1;
    mouse(MouseCall::Kind::Down, bar.x + arrow.x + 5, bar.y + 5);
    expect_golden("arrow-pressed");
}

TEST_F(GoldenTest, Sizes) {
    song();
    size(200, 240);
    expect_golden("smallest");
    size(3840, 2160);
    send("zoom_out_all");
    expect_golden("large");
}

TEST_F(GoldenTest, PixelRatios) {
    song();
    send("track_bpf_add Gain 0 1 0.5", "parameterdisplay 1", "cycle 1");
    note(0, 4200, 700, 70, "label Ratio <bpf> Pitch 0 0 350 3 700 0 </bpf>");
    size(400, 300);
    for (double ratio : {1.25, 1.5, 2.})
        expect_golden("ratio-" + std::to_string(static_cast<int>(ratio * 100)), ratio);
}

}  // namespace
}  // namespace tq
