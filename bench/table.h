// One row a benchmark: name, figure, unit, the yardstick measured beside it, ratio.
#pragma once

#include <fmt/format.h>

#include <cstdio>
#include <ctime>
#include <functional>
#include <string>

namespace bench {

inline double seconds_of(clockid_t clock) {
    timespec t{};
    clock_gettime(clock, &t);
    return double(t.tv_sec) + double(t.tv_nsec) * 1e-9;
}
/// The time of the clock on the wall.
inline double wall_seconds() { return seconds_of(CLOCK_MONOTONIC); }
/// CPU seconds that a piece of work takes in the calling thread.
inline double thread_cpu_of(const std::function<void()>& work) {
    double begin = seconds_of(CLOCK_THREAD_CPUTIME_ID);
    work();
    return seconds_of(CLOCK_THREAD_CPUTIME_ID) - begin;
}

/// CPU seconds that this process has used.
inline double cpu_seconds() { return seconds_of(CLOCK_PROCESS_CPUTIME_ID); }

/// CPU seconds that a piece of work takes.
inline double cpu_of(const std::function<void()>& work) {
    double begin = cpu_seconds();
    work();
    return cpu_seconds() - begin;
}

/// The least CPU seconds of several runs: what the work takes when nobody disturbs it.
inline double best_cpu_of(int runs, const std::function<void()>& work) {
    double best = 1e300;
    for (int i = 0; i < runs; ++i) best = std::min(best, cpu_of(work));
    return best;
}

inline std::string count_name(size_t count) {
    return count >= 1000000 ? std::to_string(count / 1000000) + " M" : std::to_string(count / 1000) + " k";
}

struct Yardstick {
    std::string name;
    double figure = 0;
};

inline void row(const std::string& name, double figure, const std::string& unit,
                const Yardstick& yardstick = {}) {
    std::string beside =
        yardstick.name.empty() ? "" : fmt::format("{} {:.4g}", yardstick.name, yardstick.figure);
    std::string ratio = yardstick.name.empty() ? "" : fmt::format("{:.2f}", figure / yardstick.figure);
    fmt::print("{:<58} {:>10.4g} {:<8} {:<34} {:>7}\n", name, figure, unit, beside, ratio);
    std::fflush(stdout);
}

}  // namespace bench
