// Logical time, and positions on the transport.
#include "host/scheduler.h"

#include <gtest/gtest.h>

#include "host/box.h"
#include "host/host.h"
#include "shell/instance.h"

namespace tq {
namespace {

struct SchedulerTest : testing::Test {
    Host host;
    Scheduler& scheduler = host.scheduler;
    std::unique_ptr<Prseq> owner = prseq_new(host, BoxDictionary{});
    std::string log;
    Scheduler::Callback note(const std::string& name) {
        return [this, name] { log += name + "@" + std::to_string(static_cast<int>(scheduler.now())) + " "; };
    }
};

TEST_F(SchedulerTest, callsInOrderOfDueTimeThenOfAsking) {
    scheduler.schedule_at(30, *owner, note("c"));
    scheduler.schedule_at(10, *owner, note("a"));
    scheduler.schedule_at(30, *owner, note("d"));
    scheduler.schedule_at(30, *owner, note("b"), Scheduler::Rank::Position);
    auto cancelled = scheduler.schedule_at(20, *owner, note("x"));
    scheduler.cancel(cancelled);
    scheduler.cancel(cancelled);
    EXPECT_EQ(scheduler.next_due(), 10);
    scheduler.run_until(29.9);
    EXPECT_EQ(log, "a@10 ");
    scheduler.schedule_at(5, *owner, note("late"));
    scheduler.run_until(40);
    EXPECT_EQ(log, "a@10 late@29 b@30 c@30 d@30 ");
    EXPECT_EQ(scheduler.now(), 40);
    EXPECT_EQ(scheduler.next_due(), std::nullopt);
}

TEST_F(SchedulerTest, runsLowPriorityWorkBetweenMoments) {
    scheduler.schedule_at(10, *owner, [&] {
        note("a")();
        scheduler.defer_low(*owner, note("low"));
        scheduler.schedule_at(10, *owner, note("b"));
    });
    scheduler.schedule_at(20, *owner, note("c"));
    scheduler.run_until(100);
    EXPECT_EQ(log, "a@10 b@10 low@10 c@20 ");
}

TEST_F(SchedulerTest, forgetsThoseWhoGoAway) {
    auto other = prseq_new(host, BoxDictionary{});
    scheduler.schedule_at(10, *other, note("x"));
    scheduler.defer_low(*other, note("y"));
    scheduler.schedule_at(10, *owner, note("a"));
    other.reset();
    scheduler.run_until(20);
    EXPECT_EQ(log, "a@10 ");
}

TEST_F(SchedulerTest, countsTicksThroughTempoPausesAndJumps) {
    Itm& itm = itm_getnamed(host, {});
    itm_resume(itm);
    scheduler.run_until(1000);
    EXPECT_EQ(itm_getticks(itm), 960);
    itm_settempo(itm, 60);
    scheduler.run_until(2000);
    EXPECT_EQ(itm_getticks(itm), 1440);
    itm_pause(itm);
    scheduler.run_until(5000);
    EXPECT_EQ(itm_getticks(itm), 1440);
    itm_setticks(itm, 100);
    itm_resume(itm);
    scheduler.run_until(5100);
    EXPECT_EQ(itm_getticks(itm), 148);
    for (double ms = 0; ms < 5000; ms += 0.123)
        ASSERT_EQ(itm_tickstoms(itm, itm_mstoticks(itm, on_time_grid(ms))), on_time_grid(ms))
            << "there and back";
}

}  // namespace
}  // namespace tq
