// What is painted of the buffers that events link to.
#include <cmath>

#include "host/host.h"
#include "model/tracks.h"
#include "view/buffer_shape.h"
#include "view/draw_buffers.h"
#include "view/maindisplay.h"
#include "view_fixture.h"

namespace tq {
namespace {

/// Loud in its first half, silent in its second; two channels, of which the second is silent.
SoundRef half_loud(double ms) {
    const auto frames = static_cast<long>(ms * 44.1);
    std::vector<float> samples(static_cast<size_t>(frames) * 2);
    for (long i = 0; i < frames / 2; ++i) samples[static_cast<size_t>(2 * i)] = i % 2 ? 0.9f : -0.9f;
    return SoundRef(new Sound(2, 44100, std::move(samples)));
}

struct BufferPaint : ViewTest {
    BufferPaint() {
        send("new_track_color 0", "track_add one");
        resize(1000, 700);
        send("zoom_vert 0.3", "showbpfs 0");
        set(half_loud(1000));
    }
    void set(const SoundRef& sound) { buffer_set(session.host(), gensym("b"), sound); }
    Event& event() { return *box.tracks[0]->events.at(0); }
    Rect where() {
        const Rect r = EventView(box, 1).rect_of(event());
        return {r.x + box.maindisplay.rect.x, r.y + box.maindisplay.rect.y, r.width, r.height};
    }
    void link(double duration) {
        see("event start 500 duration " + std::to_string(duration) +
            " <note> 66 100 </note> <buffer> b </buffer>");
    }
    void range(double start, double end) {
        event().make_link().start = start;
        event().make_link().end = end;
        see(Change::Events);
    }
    int darkness(double x, double y) const {
        const unsigned p = pixel(x, y);
        return 765 - static_cast<int>((p >> 16 & 255) + (p >> 8 & 255) + (p & 255));
    }
    /// Whether the waveform of the first channel is seen at a part of the event's width.
    bool loud_at(double part) {
        const Rect r = where();
        return darkness(r.x + r.width * part, r.y + r.height * 0.2) > 500;
    }
};

TEST_F(BufferPaint, TheWaveformIsWhereItSounds) {
    link(1000);
    ASSERT_GT(where().height, 20);
    EXPECT_TRUE(loud_at(0.2));
    EXPECT_TRUE(loud_at(0.45));
    EXPECT_FALSE(loud_at(0.55));
    const Rect r = where();
    EXPECT_LT(darkness(r.x + r.width * 0.2, r.y + r.height * 0.9), 500) << "the second channel is silent";
    range(250, 750);
    EXPECT_TRUE(loud_at(0.2));
    EXPECT_FALSE(loud_at(0.3)) << "the range's quarter of a second is over";
    event().make_link().adapt = true;
    range(250, 750);
    EXPECT_TRUE(loud_at(0.4)) << "fills the event";
    EXPECT_FALSE(loud_at(0.6));
}

TEST_F(BufferPaint, IsLeftOutWithoutABufferAndWhenItIsNotShown) {
    link(1000);
    EXPECT_TRUE(buffer_remove(session.host(), gensym("b")));
    paint();
    EXPECT_FALSE(loud_at(0.2)) << "a buffer that goes is seen to go";
    set(half_loud(1000));
    session.host().scheduler.run_due();
    paint();
    EXPECT_TRUE(loud_at(0.2)) << "and to come back";
    set(SoundRef(new Sound(1, 1000, std::vector<float>(1000))));
    paint();
    EXPECT_FALSE(loud_at(0.2)) << "and to be another";
    set(SoundRef(new Sound(1, 1000, {})));
    paint();
    set(half_loud(1000));
    send("showbuffers 0");
    see(Change::Events);
    EXPECT_FALSE(loud_at(0.2));
    EXPECT_FALSE(box.buffers.find(gensym("b"))->image) << "what is not painted costs nothing";
}

TEST_F(BufferPaint, ShapesSayWhatIsCutAndWhatIsLeft) {
    link(1000);
    const EventView view(box, 1);
    const Rect rect{100, 50, 200, 30};
    const double ppms = view.pixels_per_ms;
    struct Row {
        double duration, start, end;
        bool adapt;
        double source_x, source_width, width;  ///< negative: a number of ms
        bool start_arrow, end_arrow, range_end;
    };
    const Row rows[] = {{1000, 0, 1000, false, 0, 1, -1000, false, false, false},
                        {500, 0, 1000, false, 0, 0.5, 200, false, true, false},
                        {500, 250, 1000, false, 0.25, 0.5, 200, true, true, false},
                        {2000, 0, 1000, false, 0, 1, -1000, false, false, true},
                        {2000, 500, 800, false, 0.5, 0.3, -300, true, true, true},
                        {2000, 500, 800, true, 0.5, 0.3, 200, true, true, true},
                        {500, 0, 1000, true, 0, 1, 200, false, true, false}};
    for (const Row& row : rows) {
        SCOPED_TRACE(std::to_string(row.duration) + " " + std::to_string(row.start) + " " +
                     std::to_string(row.end));
        event().duration = row.duration;
        event().make_link().start = row.start;
        event().make_link().end = row.end;
        event().make_link().adapt = row.adapt;
        const auto shape = build_buffer_shape(view, event(), rect);
        ASSERT_TRUE(shape);
        EXPECT_DOUBLE_EQ(shape->source.x, row.source_x);
        EXPECT_DOUBLE_EQ(shape->source.width, row.source_width);
        EXPECT_DOUBLE_EQ(shape->destination.width, row.width < 0 ? -row.width * ppms : row.width);
        EXPECT_EQ(shape->start_arrow, row.start_arrow);
        EXPECT_EQ(shape->end_arrow, row.end_arrow);
        EXPECT_EQ(shape->range_end, row.range_end);
    }
    event().make_link().length = 0;
    EXPECT_FALSE(build_buffer_shape(view, event(), rect));
}

TEST_F(BufferPaint, OnlyWhatIsSeenIsDrawn) {
    const EventView view(box, 1);
    auto part = visible_part(view, {.source = {0, 0, 1, 1}, .destination = {-1e6, 0, 2e6, 30}});
    ASSERT_TRUE(part);
    EXPECT_EQ(part->destination.x, -1);
    EXPECT_EQ(part->destination.width, view.width + 2);
    EXPECT_NEAR(part->source.x, 0.5, 1e-5);
    part = visible_part(view, {.source = {-0.5, 0, 2, 1}, .destination = {0, 0, 200, 30}});
    ASSERT_TRUE(part) << "a range that reaches out of the buffer at both ends";
    EXPECT_DOUBLE_EQ(part->destination.x, 50);
    EXPECT_DOUBLE_EQ(part->destination.width, 100);
    EXPECT_DOUBLE_EQ(part->source.width, 1);
    EXPECT_FALSE(visible_part(view, {.source = {1.5, 0, 1, 1}, .destination = {0, 0, 200, 30}}));
    EXPECT_FALSE(visible_part(view, {.source = {0, 0, 0, 1}, .destination = {0, 0, 200, 30}}));
    EXPECT_FALSE(visible_part(view, {.source = {0.5, 0, -0.25, 1}, .destination = {0, 0, -50, 30}}))
        << "reversed";
    EXPECT_FALSE(visible_part(view, {.source = {0, 0, 1, 1}, .destination = {view.width + 10, 0, 200, 30}}));
}

TEST_F(BufferPaint, TheEndOfARangeAndItsArrowsAreMarked) {
    link(2000);
    const Rect r = where();
    const double end = r.x + 1000 * EventView(box, 1).pixels_per_ms;
    EXPECT_GT(darkness(end, r.y + r.height * 0.9), darkness(end + 1, r.y + r.height * 0.9) + 300)
        << "a dark line, and a light one beside it";
    range(100, 1000);
    const double y = r.y + r.height - 6;
    EXPECT_GT(darkness(r.x + 5, y), 550) << "an arrow, as there is more before the range";
    range(0, 900);
    EXPECT_GT(darkness(r.x + 900 * EventView(box, 1).pixels_per_ms - 6, y), 550) << "and after it";
}

TEST(BufferOverview, HasTheExtremesOfEveryChannel) {
    for (const long frames : {1L, 10L, 3999L, 4001L, 7999L, 100000L}) {
        std::vector<float> samples(static_cast<size_t>(frames), 0.5f);
        samples.back() = -1;
        const SurfaceRef image =
            TQ_Prseq_Buffer_MakeSurfaceFromBuffer(*SoundRef(new Sound(1, 44100, std::move(samples))));
        ASSERT_TRUE(image);
        EXPECT_EQ(image->size(), (Size{4000, 512}));
        auto dark = [&](int x, int y) { return surface_pixel(*image, x, y) == 0xff000000; };
        auto anywhere = [&](int from, int to, int y) {
            while (from < to && !dark(from, y)) ++from;
            return from < to;
        };
        EXPECT_TRUE(dark(0, 256)) << "the line of silence";
        EXPECT_EQ(anywhere(0, 3000, 130), frames > 2) << frames;
        EXPECT_FALSE(anywhere(0, 4000, 126)) << frames;
        EXPECT_TRUE(anywhere(3990, 4000, 500)) << "the last frame is the last column's, of " << frames;
        EXPECT_FALSE(anywhere(0, 3000, 300)) << frames;
    }
    EXPECT_FALSE(TQ_Prseq_Buffer_MakeSurfaceFromBuffer(*SoundRef(new Sound(1, 44100, {}))));
}

}  // namespace
}  // namespace tq
