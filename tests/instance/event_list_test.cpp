// The event list against a plain sorted vector.
#include "instance/event_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "instance/track.h"

namespace tq {
namespace {

/// Does everything the slow and certain way.
struct NaiveList {
    std::vector<EventRef> events;

    static bool before(const EventRef& a, const EventRef& b) {
        return a->start != b->start ? a->start < b->start : a->id < b->id;
    }
    void insert(const EventRef& event) {
        events.insert(std::upper_bound(events.begin(), events.end(), event, before), event);
    }
    void erase(const Event& event) {
        std::erase_if(events, [&](const EventRef& e) { return e.get() == &event; });
    }
    /// The first event that `is` says yes to, and the last.
    template <typename Is>
    Event* first(Is is) const {
        auto found = std::find_if(events.begin(), events.end(), [&](const EventRef& e) { return is(*e); });
        return found == events.end() ? nullptr : found->get();
    }
    template <typename Is>
    Event* last(Is is) const {
        auto found = std::find_if(events.rbegin(), events.rend(), [&](const EventRef& e) { return is(*e); });
        return found == events.rend() ? nullptr : found->get();
    }
};

struct Run {
    int starts;     ///< how many different starts there are
    size_t target;  ///< about how many events the list holds
    int operations;
    bool batches;  ///< replaces all events at once now and then
};

std::ostream& operator<<(std::ostream& out, const Run& run) {
    return out << run.starts << " starts, " << run.target << " events, " << run.operations << " operations";
}

class EventListRun : public testing::TestWithParam<Run> {
 protected:
    long below(long count) { return static_cast<long>(random_() % static_cast<unsigned long>(count)); }
    double any_start() { return static_cast<double>(below(GetParam().starts)) - 10; }
    double any_duration() {
        return below(50) == 0 ? static_cast<double>(below(100000)) : static_cast<double>(below(30));
    }
    EventRef make() {
        EventRef event = make_ref<Event>();
        event->id = ++last_id_;
        event->start = any_start();
        event->duration = any_duration();
        return event;
    }
    EventRef any() {
        return naive_.events[static_cast<size_t>(below(static_cast<long>(naive_.events.size())))];
    }

    void operate() {
        bool grow = naive_.events.size() < GetParam().target;
        long what = below(100);
        if (naive_.events.empty() || what < (grow ? 55 : 25)) {
            EventRef event = !out_.empty() && what % 2 ? out_.back() : make();  // some come back
            if (!out_.empty() && event == out_.back()) out_.pop_back();
            list_->insert(event, *track_);
            naive_.insert(event);
        } else if (what < 75) {
            EventRef event = any();
            ASSERT_TRUE(list_->erase(*event));
            ASSERT_FALSE(list_->erase(*event)) << "it is gone";
            ASSERT_EQ(event->track, nullptr);
            naive_.erase(*event);
            out_.push_back(event);
        } else if (what < 99 || !GetParam().batches) {
            EventRef event = any();
            double start = below(3) ? any_start() : event->start, duration = any_duration();
            naive_.erase(*event);
            list_->retime(*event, start, duration);
            ASSERT_EQ(event->start, start);
            naive_.insert(event);
        } else if (below(40) == 0) {
            std::vector<EventRef> events = naive_.events;
            if (below(2)) std::shuffle(events.begin(), events.end(), random_);
            list_->assign(events, *track_);
        }
    }
    void check_queries() {
        const auto& events = naive_.events;
        double start = any_start() + (below(2) ? 0.5 : 0), to = start + static_cast<double>(below(20));
        ASSERT_EQ(list_->size(), events.size());
        ASSERT_EQ(list_->first_at_or_after(start),
                  naive_.first([&](const Event& e) { return e.start >= start; }));
        ASSERT_EQ(list_->last_before(start), naive_.last([&](const Event& e) { return e.start < start; }));
        ASSERT_EQ(list_->at(events.size()), nullptr);
        std::vector<const Event*> touching, expected;
        list_->touching(start, to, [&](const Event& e) { touching.push_back(&e); });
        for (const EventRef& e : events)
            if (e->start <= to && e->end() >= start) expected.push_back(e.get());
        ASSERT_EQ(touching, expected) << "touching " << start << " to " << to;
        if (events.empty()) return;
        auto i = static_cast<size_t>(below(static_cast<long>(events.size())));
        Event& event = *events[i];
        ASSERT_EQ(list_->at(i), &event);
        ASSERT_EQ(list_->index_of(event), static_cast<long>(i));
        ASSERT_EQ(event.track, track_.get());
        ASSERT_EQ(list_->next(event), i + 1 < events.size() ? events[i + 1].get() : nullptr);
        ASSERT_EQ(list_->previous(event), i > 0 ? events[i - 1].get() : nullptr);
        ASSERT_EQ(list_->first(), events.front().get());
        ASSERT_EQ(list_->last(), events.back().get());
        if (out_.empty()) return;
        const Event& gone = *out_[static_cast<size_t>(below(static_cast<long>(out_.size())))];
        auto place = std::lower_bound(events.begin(), events.end(), EventRef(const_cast<Event*>(&gone)),
                                      NaiveList::before);
        ASSERT_EQ(list_->index_of(gone), -1);
        ASSERT_EQ(list_->next(gone), place == events.end() ? nullptr : place->get())
            << "of one that has left";
        ASSERT_EQ(list_->previous(gone), place == events.begin() ? nullptr : place[-1].get());
    }
    void check_all() {
        std::vector<const Event*> all, expected;
        double latest = 0;
        list_->for_each([&](const Event& e) { all.push_back(&e); });
        for (const EventRef& e : naive_.events) {
            expected.push_back(e.get());
            latest = e == naive_.events.front() ? e->end() : std::max(latest, e->end());
        }
        ASSERT_EQ(all, expected);
        ASSERT_EQ(list_->latest_end(), latest);
        for (size_t i = 0; i < expected.size(); i += 7) ASSERT_EQ(list_->at(i), expected[i]);
    }

    std::mt19937 random_{static_cast<unsigned>(GetParam().operations)};
    long last_id_ = 0;
    TrackRef track_ = make_ref<Track>();
    EventList* list_ = &track_->events;
    NaiveList naive_;
    std::vector<EventRef> out_;
};

TEST_P(EventListRun, agreesWithASortedVector) {
    const int often = GetParam().target > 3000 ? 40 : 4;
    for (int i = 0; i < GetParam().operations; ++i) {
        operate();
        if (i % often == 0) check_queries();
        if (i % 4000 == 0) check_all();
        if (HasFatalFailure()) FAIL() << "after operation " << i;
    }
    check_all();
    while (!naive_.events.empty()) {  // and down to nothing
        EventRef event = any();
        ASSERT_TRUE(list_->erase(*event));
        naive_.erase(*event);
        if (naive_.events.size() % 50 == 0) check_queries();
    }
    EXPECT_TRUE(list_->empty());
    check_all();
}

INSTANTIATE_TEST_SUITE_P(Sizes, EventListRun,
                         testing::Values(Run{3, 20, 8000, true}, Run{1, 900, 9000, true},
                                         Run{40, 3000, 15000, false}, Run{100000, 9000, 40000, true},
                                         Run{500, 12000, 36000, false}));

TEST(EventList, letsGoOfItsEvents) {
    EventRef event = make_ref<Event>();
    event->id = 1;
    {
        TrackRef track = make_ref<Track>();
        track->events.insert(event, *track);
        EXPECT_EQ(event->track, track.get());
    }
    EXPECT_EQ(event->track, nullptr);
    EXPECT_EQ(event->use_count(), 1u);
}

}  // namespace
}  // namespace tq
