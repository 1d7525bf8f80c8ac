#pragma once

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <sys/resource.h>

// Runs loops that do the same work in turns, and prints what they cost.
namespace bench {

/// One way to do the work. Result is what the loops must agree on.
template <class Result> struct Loop
{
    std::string name;
    std::string title;
    std::string baseline;           ///< the loop that the ratios are of
    std::function<void()> prepare;  ///< before each run, not measured; may be empty
    std::function<void()> run;      ///< the work
    std::function<Result()> result; ///< what the run before came to, not measured
};

struct Cost
{
    double seconds = 0;
    double cpuSeconds = 0; ///< of this process, that is of the client
};

inline double ReadClock(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

template <class Result> Cost RunOnce(const Loop<Result>& loop)
{
    if (loop.prepare)
        loop.prepare();
    const Cost start{ReadClock(CLOCK_MONOTONIC), ReadClock(CLOCK_PROCESS_CPUTIME_ID)};
    loop.run();
    return {ReadClock(CLOCK_MONOTONIC) - start.seconds, ReadClock(CLOCK_PROCESS_CPUTIME_ID) - start.cpuSeconds};
}

inline Cost Median(std::vector<Cost> costs)
{
    const auto middle = [&](double Cost::*part) {
        std::sort(costs.begin(), costs.end(), [=](const Cost& a, const Cost& b) { return a.*part < b.*part; });
        return costs[costs.size() / 2].*part;
    };
    return {middle(&Cost::seconds), middle(&Cost::cpuSeconds)};
}

/// Runs the loops in turns, so that a change of the machine's speed meets all of them, and prints the medians. False
/// when the loops do not agree.
template <class Result> bool Measure(const std::vector<Loop<Result>>& loops, int runs)
{
    std::map<std::string, std::vector<Cost>> costs;
    std::map<std::string, Result> results;
    for (int run = 0; run < runs; ++run) {
        for (const Loop<Result>& loop : loops) {
            costs[loop.name].push_back(RunOnce(loop));
            results[loop.name] = loop.result();
        }
    }
    bool agree = true;
    std::printf("%-46s %9s %6s %9s %6s\n", "loop", "time s", "ratio", "CPU s", "ratio");
    for (const Loop<Result>& loop : loops) {
        const Cost cost = Median(costs[loop.name]);
        const Cost baseline = Median(costs[loop.baseline]);
        std::printf("%-46s %9.3f %6.2f %9.3f %6.2f\n", loop.title.c_str(), cost.seconds,
                    cost.seconds / baseline.seconds, cost.cpuSeconds, cost.cpuSeconds / baseline.cpuSeconds);
        agree = agree && results[loop.name] == results[loop.baseline];
    }
    std::printf(agree ? "All loops agree on the values.\n" : "THE LOOPS DO NOT AGREE ON THE VALUES.\n");
    return agree;
}

inline long PeakMemoryInKiB()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

/// One loop, once: for a profiler. False when there is none of that name.
template <class Result> bool RunOnly(const std::vector<Loop<Result>>& loops, const std::string& name)
{
    for (const Loop<Result>& loop : loops) {
        if (loop.name != name)
            continue;
        RunOnce(loop);
        std::printf("%-20s peak memory %7ld KiB\n", name.c_str(), PeakMemoryInKiB());
        return true;
    }
    return false;
}

} // namespace bench
