// Cutting and joining events, and their curves.
#include "model/events.h"

#include <gtest/gtest.h>

#include <random>

#include "app/script_fixture.h"
#include "model/bpfs.h"
#include "model/buffers.h"
#include "model/tracks.h"

namespace tq::test {
namespace {

struct Events : ScriptTest {
    Events() { say("track_add A\ntrack_bpf_add Gain 0 1 0.5"); }

    EventRef make(long start, long duration, BpfPoints gain = {{0, 0.5}, {1, 0.5}}) {
        EventRef event =
            TQ_Prseq_Events_MakeEvent(box(), start, 60, 100, duration, gensym("label"), gensym("message"));
        TQ_Prseq_Events_AddBpfsFromExistingBpfTypesOnExistingTrack(*box().tracks[0], *event);
        event->bpfs[1]->points = std::move(gain);
        TQ_Prseq_Tracks_InsertEvent(box(), 0, event);
        return event;
    }
    static double value_at(const BpfPoints& points, double x) {
        for (size_t i = 1; i < points.size(); ++i)
            if (x <= points[i].x)
                return points[i].x == points[i - 1].x
                           ? points[i].y
                           : points[i - 1].y + (x - points[i - 1].x) / (points[i].x - points[i - 1].x) *
                                                   (points[i].y - points[i - 1].y);
        return points.back().y;
    }
};

TEST_F(Events, areCutWhereThereIsRoom) {
    EventRef event = make(1000, 2000, {{0, 0}, {1, 1}});
    struct Row {
        double position;
        double left, right;  ///< durations; 0: nothing is made
    };
    for (const Row& row : {Row{1005, 0, 0},
                           {1010, 10, 1990},
                           {2000, 1000, 1000},
                           {2999.5, 1999.5, 0.5},
                           {3000, 0, 0},
                           {500, 0, 0},
                           {4000, 0, 0}}) {
        auto slices = TQ_Prseq_Events_SliceEvent(box(), *event, row.position);
        ASSERT_EQ(slices.has_value(), row.left > 0) << row.position;
        if (!slices) continue;
        EXPECT_EQ(slices->left->start, 1000);
        EXPECT_EQ(slices->left->duration, row.left);
        EXPECT_EQ(slices->right->start, row.position);
        EXPECT_EQ(slices->right->duration, row.right);
        EXPECT_NE(slices->left->id, slices->right->id);
        EXPECT_EQ(slices->right->label, event->label);
        EXPECT_EQ(slices->left->track, nullptr);
    }
    auto half = TQ_Prseq_Events_SliceEvent(box(), *event, 2000);
    EXPECT_EQ(half->left->bpfs[1]->points, BpfPoints({{0, 0}, {1, 0.5}}));
    EXPECT_EQ(half->right->bpfs[1]->points, BpfPoints({{0, 0.5}, {1, 1}}));
}

TEST_F(Events, keepTheirCurvesThroughTheCut) {
    std::mt19937 random(3);
    auto unity = [&] { return static_cast<double>(random() % 1001) / 1000; };
    for (int round = 0; round < 300; ++round) {
        BpfPoints points{{0, unity()}};
        for (auto inner = random() % 6; inner > 0; --inner) points.push_back({unity(), unity()});
        points.push_back({1, unity()});
        sort_bpf_points(points);
        EventRef event = make(100, 1000, points);
        double cut = 110 + static_cast<double>(random() % 989);
        auto slices = TQ_Prseq_Events_SliceEvent(box(), *event, cut);
        ASSERT_TRUE(slices);
        for (const Event* part : {slices->left.get(), slices->right.get()}) {
            const BpfPoints& curve = part->bpfs[1]->points;
            ASSERT_GE(curve.size(), 2u);
            ASSERT_EQ(curve.front().x, 0);
            ASSERT_EQ(curve.back().x, 1);
            ASSERT_TRUE(
                std::is_sorted(curve.begin(), curve.end(), [](auto& a, auto& b) { return a.x < b.x; }));
            for (double ms = 3.3; ms < part->duration; ms += part->duration / 7)
                ASSERT_NEAR(value_at(curve, ms / part->duration),
                            value_at(points, (part->start + ms - 100) / 1000), 1e-6)
                    << "round " << round << ", cut at " << cut << ", " << ms << " ms into the part";
        }
    }
}

TEST_F(Events, shareTheirBufferRangeWhenCut) {
    EventRef event = make(1000, 1000);
    BufferLink link;
    link.name = gensym("b");
    link.end = 500;
    set_buffer_link(box(), *event, link);
    auto late = TQ_Prseq_Events_SliceEvent(box(), *event, 1800);
    EXPECT_TRUE(late->right->link().name.empty()) << "the range is over before the cut";
    EXPECT_EQ(late->left->link().end, 500);
    auto early = TQ_Prseq_Events_SliceEvent(box(), *event, 1200);
    EXPECT_EQ(early->left->link().start, 0);
    EXPECT_EQ(early->left->link().end, 200);
    EXPECT_EQ(early->right->link().start, 200);
    EXPECT_EQ(early->right->link().end, 500);
}

TEST_F(Events, areJoinedOverTheTimeOfBoth) {
    EventRef glued = TQ_Prseq_Events_GlueEvents(box(), *make(0, 1000), *make(2000, 1000));
    EXPECT_EQ(glued->start, 0);
    EXPECT_EQ(glued->duration, 3000);
    EXPECT_EQ(glued->bpfs[1]->points, BpfPoints({{0, 0.5}, {1, 0.5}})) << "points on one line are left out";
    EventRef ramp = TQ_Prseq_Events_GlueEvents(box(), *make(0, 1000, {{0, 0}, {1, 1}}),
                                               *make(3000, 1000, {{0, 0}, {1, 0.25}}));
    EXPECT_EQ(ramp->bpfs[1]->points, BpfPoints({{0, 0}, {0.25, 1}, {0.75, 0}, {1, 0.25}}));
}

TEST_F(Events, endAtOneHoweverTheyAreJoined) {
    std::mt19937 random(3);
    auto ms = [&] { return 1 + static_cast<double>(random() % 3000000) / 997; };
    for (int round = 0; round < 3000; ++round) {
        EventRef first = make(0, 1000, {{0, 0}, {0.5, 1}, {1, 0}}), second = make(0, 1000, {{0, 0}, {1, 1}});
        TQ_Prseq_Events_SetEventTimes(*first, ms(), ms());
        TQ_Prseq_Events_SetEventTimes(*second, first->start + ms() / 2, ms());
        const BpfPoints curve = TQ_Prseq_Events_GlueEvents(box(), *first, *second)->bpfs[1]->points;
        ASSERT_EQ(curve.front().x, 0);
        ASSERT_EQ(curve.back().x, 1) << "round " << round;
        ASSERT_TRUE(std::ranges::is_sorted(curve, {}, &BpfPoint::x));
    }
}

TEST_F(Events, areCopiedWithAnIdentifierOfTheirOwn) {
    EventRef event = make(0, 1000);
    event->selected = true;
    EventRef copy = TQ_Prseq_Events_DuplicateEvent(box(), *event);
    EXPECT_EQ(copy->id, event->id + 1);
    EXPECT_FALSE(copy->selected);
    copy->bpfs[1]->points[0].y = 0.75;
    EXPECT_EQ(event->bpfs[1]->points[0].y, 0.5) << "the copy's curves are its own";
}

TEST_F(Events, areFoundBySamePitchAndLoop) {
    EventRef a = make(1000, 5000), b = make(1000, 10), c = make(2000, 100), d = make(3000, 10);
    c->pitch = 61;
    const Track& track = *box().tracks[0];
    EXPECT_EQ(TQ_Prseq_Tracks_FindLastEventsEnd(&track), 3010) << "of the event that starts last";
    EXPECT_EQ(TQ_Prseq_Tracks_FindNextEventWithSamePitchOnTrack(box(), track, *a), d.get());
    EXPECT_EQ(TQ_Prseq_Tracks_FindNextEventWithSamePitchOnTrack(box(), track, *c), nullptr);
    struct Row {
        double start, end;
        const Event *first, *last;
    };
    for (const Row& row : {Row{0, 3000, a.get(), c.get()},
                           {1000, 500, a.get(), nullptr},
                           {1000.5, 5000, c.get(), d.get()},
                           {3001, 1000, nullptr, nullptr}}) {
        std::ostringstream range;
        range << "cyclerange " << row.start << " " << row.end;
        say(range.str());
        EXPECT_EQ(track.loopstartevent.get(), row.first) << range.str();
        EXPECT_EQ(track.loopendevent.get(), row.last) << range.str();
    }
}

TEST(BpfPoints, areInsertedBeforeWhatStandsAtTheirTime) {
    Bpf bpf(make_ref<BpfType>());
    bpf.points = {{0, 0}, {0.5, 0.1}, {1, 1}};
    EXPECT_EQ(TQ_Prseq_Events_AddBpfPoint(bpf, {0.5, 0.9}), 1);
    EXPECT_EQ(TQ_Prseq_Events_AddBpfPoint(bpf, {1.5, 0.9}), -1);
    EXPECT_EQ(bpf.points, BpfPoints({{0, 0}, {0.5, 0.9}, {0.5, 0.1}, {1, 1}}));
    TQ_Prseq_Events_SetBpfFromDictionary({{}, {{1, 0.3}, {0.25, 0.2}, {0.25, 0.4}, {1.25, 1}}}, bpf);
    EXPECT_EQ(bpf.points, BpfPoints({{0, 0}, {0.25, 0.4}, {1, 0.3}}));
}

}  // namespace
}  // namespace tq::test
