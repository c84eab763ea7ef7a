// The bars of the parameter display: how high they are, where, and which are left out.
#include <cmath>
#include <random>

#include "host/graphics.h"
#include "model/selection.h"
#include "model/tracks.h"
#include "view/draw_parameterdisplay.h"
#include "view/maindisplay.h"
#include "view/parameter_bars.h"
#include "view/view_fixture.h"

namespace tq {
namespace {

std::string note(double start, double velocity, const std::string& more = "") {
    return "event start " + std::to_string(start) + " <note> 60 " + std::to_string(velocity) + " </note> " +
           more;
}

/// 1000 pixels for 10 s, a lane of 80 pixels.
struct ParameterDisplay : ViewTest {
    ParameterDisplay() {
        resize(1000 + 165 + 40 + 15, 600);
        see("parameterdisplay 1", "zoom_out_all", "new_track_color 0", "track_add one", "track_active 0");
    }
    Track& track(size_t i = 0) { return *box.tracks[i]; }
    std::vector<ParameterBar> bars(double ratio = 1, int layers = 1) {
        return parameter_bars(box, track(), ratio, layers);
    }
    /// A pixel of the lane.
    unsigned at(double x, double y) {
        const Rect& lane = box.layout[Part::ParameterDisplay];
        return pixel(lane.x + x, lane.y + y);
    }
    void show(const char* parameter) {
        track().displayedparameter = gensym(parameter);
        see(Change::ParameterDisplay);
    }
};

TEST_F(ParameterDisplay, ABarIsAsHighAsItsValue) {
    struct Row {
        double velocity, top, height;
    };
    for (const Row& row : {Row{127, 2, 76}, {63.5, 40, 38}, {1, 77, 1}, {200, 0, 78}, {-30, 78, 2}}) {
        see(note(500, row.velocity));
        ASSERT_EQ(bars().size(), 1u) << row.velocity;
        EXPECT_EQ(bars()[0].rect, (Rect{50, row.top, 5, row.height})) << row.velocity;
        send("undo");
    }
    send(note(500, 0));
    EXPECT_TRUE(bars().empty());
}

TEST_F(ParameterDisplay, ParametersGoFromTheirMinimumToTheirMaximum) {
    send("track_parameter_add Pan -1 1 0 0", "track_parameter_add Flat 3 3 3 0",
         note(500, 127, "<parameter> Pan 0.5 Flat 3 </parameter>"));
    show("Pan");
    ASSERT_EQ(bars().size(), 1u);
    EXPECT_EQ(bars()[0].rect, (Rect{50, 21, 5, 57}));
    EXPECT_EQ(parameter_label(box), "Pan (-1.00-1.00)");
    show("Flat");
    EXPECT_TRUE(bars().empty()) << "an empty range";
    show("Gone");
    EXPECT_TRUE(bars().empty());
    EXPECT_EQ(parameter_label(box), "");
    show("Velocity");
    EXPECT_EQ(parameter_label(box), "Velocity (0.00-127.00)");
}

TEST_F(ParameterDisplay, BarsLieOnWholePixelsAtEveryRatioAndOnlyWhatIsInViewIsThere) {
    send("zoom_hor 0.3", "scroll_hor 0.37");
    for (int i = 0; i < 100; ++i) send(note(i * 97.3, 1 + i));
    const double left = box.maindisplay.horizontalscroll;
    for (double ratio : {1., 1.25, 1.5, 2.}) {
        const auto all = bars(ratio);
        EXPECT_GT(all.size(), 5u);
        EXPECT_LT(all.size(), 95u);
        for (const ParameterBar& bar : all)
            for (double edge : {bar.rect.x, bar.rect.y, bar.rect.width, bar.rect.height})
                EXPECT_NEAR(edge * ratio, std::round(edge * ratio), 1e-6) << ratio;
        EXPECT_GT(all.front().rect.x, -6) << left;
        EXPECT_LE(all.back().rect.x, 1000);
    }
}

TEST_F(ParameterDisplay, IsShadedOnTheActiveTrackFlatOnOthersAndAbsentOnHiddenOnes) {
    send(note(500, 127), "track_add two", "track_active 1", note(2000, 127), note(3000, 127));
    TQ_Prseq_Tracks_SelectEvent2(box, *track(1).events.last());
    paint();
    EXPECT_EQ(at(50, 40), at(54, 40)) << "flat";
    EXPECT_GT(at(200, 40) & 0xff, at(204, 40) & 0xff) << "darker to the right";
    EXPECT_EQ(at(200, 5), at(200, 70));
    EXPECT_NE(at(200, 40), at(300, 40)) << "selected";
    const unsigned ground = at(600, 40);
    EXPECT_EQ(at(205, 40), ground);
    see("track_visible 0 0");
    EXPECT_EQ(at(50, 40), ground);
    see("track_visible 1 0");
    EXPECT_EQ(at(200, 40), ground);
    EXPECT_EQ(at(600, 0), 0x1a1a1au);
    EXPECT_EQ(at(600, 79), 0x1a1a1au);
}

TEST_F(ParameterDisplay, IsDrawnAnewWhenWhatItShowsChanges) {
    paint();
    for (const auto& [message, redrawn] : {std::pair{"scroll_vert 0.2", false},
                                           {"position 500", false},
                                           {"zoom_hor 0.5", true},
                                           {"event start 100 <note> 60 99 </note>", true},
                                           {"track_parameter_add Pan 0 1 0 0", true}}) {
        send(message);
        const std::string layers = layers_painted();
        EXPECT_EQ(layers.find("parameterdisplay_layer") != layers.npos, redrawn) << message;
    }
}

/// Many on the same pixels, selected and not, of all heights, and some that hang down.
TEST_F(ParameterDisplay, WhatIsLeftOutIsNotMissed) {
    std::mt19937 random(7);
    std::vector<EventRef> events;
    for (int i = 0; i < 20000; ++i) {
        EventRef e = make_ref<Event>();
        e->id = i + 1000;
        e->start = static_cast<double>(random() % 1000);
        e->duration = 10;
        e->velocity = static_cast<double>(random() % 160) - 20;
        events.push_back(e);
    }
    TQ_Prseq_Tracks_InsertAllEvents(box, track(), std::move(events));
    track().events.for_each([&](Event& e) {
        if (random() % 3 == 0) TQ_Prseq_Tracks_SelectEvent2(box, e);
    });
    auto draw = [&](int layers, double alpha) {
        SurfaceRef sheet = jgraphics_image_surface_create(200, 80);
        Graphics g(*sheet);
        for (const ParameterBar& bar : bars(1, layers)) {
            jgraphics_set_source_rgba(g, bar.selected && alpha == 1 ? 1 : 0, 0.5, 0.5, alpha);
            jgraphics_rectangle_fill_fast(g, bar.rect);
        }
        return sheet;
    };
    for (const auto& [layers, alpha] : {std::pair{1, 1.}, {5, 0.75}}) {
        const SurfaceRef some = draw(layers, alpha), all = draw(1000000, alpha);
        int most = 0;
        for (int y = 0; y < 80; ++y)
            for (int x = 0; x < 200; ++x)
                for (int shift : {0, 8, 16, 24})
                    most = std::max(most, std::abs(int(surface_pixel(*some, x, y) >> shift & 255) -
                                                   int(surface_pixel(*all, x, y) >> shift & 255)));
        EXPECT_LE(most, alpha == 1 ? 0 : 2);
    }
    EXPECT_LT(bars().size(), 2500u);
    EXPECT_GT(bars(1, 1000000).size(), 19000u);
}

}  // namespace
}  // namespace tq
