// How long it takes to read a table: the same work through the plain C client and through the library, in one program.
//
//     benchmark_scan                     every loop, interleaved, and a table of times and ratios
//     benchmark_scan --rows 100000       with another number of rows (one million)
//     benchmark_scan --runs 9            the number of runs of each loop, whose median counts (5)
//     benchmark_scan --loop NAME         one loop, once: for a profiler
//     benchmark_scan --one-row           only the loops of one-row selects; run it with the server on one processor
//
// The server is the one that MYDB_SERVER=host:port, MYDB_USER and MYDB_PASSWORD name; scripts/bench.sh starts one.

#include "ScanLoops.h"
#include "ScanTable.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <functional>
#include <map>
#include <vector>

namespace {

using bench::Access;
using bench::Sum;

struct Options
{
    unsigned long rows = 1000000;
    int runs = 5;
    std::string loop;
    bool onlyOneRow = false;
};

struct Loop
{
    std::string name;
    std::string title;
    std::string baseline; ///< the loop that the ratios are of
    std::function<Sum()> run;
};

struct Cost
{
    double seconds = 0;
    double cpuSeconds = 0;
};

double Clock(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

Options ReadOptions(int count, char** values)
{
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string option = values[i];
        const char* value = i + 1 < count ? values[i + 1] : "";
        if (option == "--rows")
            options.rows = std::strtoul(value, nullptr, 10);
        else if (option == "--runs")
            options.runs = std::atoi(value);
        else if (option == "--loop")
            options.loop = value;
        else if (option == "--one-row")
            options.onlyOneRow = true;
        i += option == "--one-row" ? 0 : 1;
    }
    return options;
}

std::vector<Loop> ScanLoops(const Access& access)
{
    using namespace bench;
    return {
        {"plain", "stored, plain client, strtol and strtod", "plain",
         [&] { return PlainStored<StrtolConverter>(access); }},
        {"chars", "stored, plain client, from_chars", "plain", [&] { return PlainStored<FromCharsConverter>(access); }},
        {"position", "stored, library by position", "plain", [&] { return LibraryStored<ByPosition>(access); }},
        {"name", "stored, library by name", "plain", [&] { return LibraryStored<ByName>(access); }},
        {"literal", "stored, library by name, literals", "plain", [&] { return LibraryStored<ByLiteral>(access); }},
        {"plain-streamed", "streamed, plain client, strtol and strtod", "plain-streamed",
         [&] { return PlainStreamed<StrtolConverter>(access); }},
        {"chars-streamed", "streamed, plain client, from_chars", "plain-streamed",
         [&] { return PlainStreamed<FromCharsConverter>(access); }},
        {"position-streamed", "streamed, library by position", "plain-streamed",
         [&] { return LibraryStreamed<ByPosition>(access); }},
    };
}

std::vector<Loop> OneRowLoops(const Access& access, unsigned long selects)
{
    using namespace bench;
    return {
        {"plain-one-row", "one row per select, plain client", "plain-one-row",
         [=, &access] { return PlainOneRow(access, selects); }},
        {"one-row", "one row per select, library", "plain-one-row",
         [=, &access] { return LibraryOneRow(access, selects); }},
    };
}

Cost Median(std::vector<Cost> costs)
{
    const auto middle = [&](double Cost::*part) {
        std::sort(costs.begin(), costs.end(), [=](const Cost& a, const Cost& b) { return a.*part < b.*part; });
        return costs[costs.size() / 2].*part;
    };
    return {middle(&Cost::seconds), middle(&Cost::cpuSeconds)};
}

/// Runs the loops in turns, so that a change of the machine's speed meets all of them.
bool Measure(const std::vector<Loop>& loops, int runs)
{
    std::map<std::string, std::vector<Cost>> costs;
    std::map<std::string, Sum> sums;
    for (int run = 0; run < runs; ++run) {
        for (const Loop& loop : loops) {
            const Cost start{Clock(CLOCK_MONOTONIC), Clock(CLOCK_PROCESS_CPUTIME_ID)};
            sums[loop.name] = loop.run();
            costs[loop.name].push_back(
                {Clock(CLOCK_MONOTONIC) - start.seconds, Clock(CLOCK_PROCESS_CPUTIME_ID) - start.cpuSeconds});
        }
    }
    bool agree = true;
    std::printf("%-46s %9s %6s %9s %6s\n", "loop", "time s", "ratio", "CPU s", "ratio");
    for (const Loop& loop : loops) {
        const Cost cost = Median(costs[loop.name]);
        const Cost baseline = Median(costs[loop.baseline]);
        std::printf("%-46s %9.3f %6.2f %9.3f %6.2f\n", loop.title.c_str(), cost.seconds,
                    cost.seconds / baseline.seconds, cost.cpuSeconds, cost.cpuSeconds / baseline.cpuSeconds);
        agree = agree && sums[loop.name] == sums[loop.baseline];
    }
    std::printf(agree ? "All loops read the same values.\n" : "THE LOOPS READ DIFFERENT VALUES.\n");
    return agree;
}

bool RunOne(const std::vector<Loop>& loops, const std::string& name)
{
    for (const Loop& loop : loops) {
        if (loop.name != name)
            continue;
        const Sum sum = loop.run();
        std::printf("%-20s %8llu rows, peak memory %7ld KiB\n", name.c_str(), static_cast<unsigned long long>(sum.rows),
                    bench::PeakMemoryInKiB());
        return true;
    }
    return false;
}

} // namespace

int main(int count, char** values)
try {
    const Options options = ReadOptions(count, values);
    const bench::ScanTable table(options.onlyOneRow ? 1 : options.rows);
    const Access& access = table.GetAccess();
    // A profiler's two sizes differ in the number of selects as they differ in the number of rows of the other loops.
    const unsigned long selects = options.loop.empty() ? 20000 : options.rows;
    std::vector<Loop> loops = options.onlyOneRow ? OneRowLoops(access, selects) : ScanLoops(access);
    if (!options.loop.empty())
        return RunOne(loops, options.loop) ? 0 : 2;
    if (!options.onlyOneRow)
        std::printf("%lu rows of 8 columns, median of %d runs\n", options.rows, options.runs);
    return Measure(loops, options.runs) ? 0 : 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
