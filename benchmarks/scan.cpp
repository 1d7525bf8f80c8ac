// How long it takes to read a table: the same work through the plain C client and through the library, in one program.
//
//     benchmark_scan                     every loop, interleaved, and a table of times and ratios
//     benchmark_scan --rows 100000       with another number of rows (one million)
//     benchmark_scan --runs 9            the number of runs of each loop, whose median counts (5)
//     benchmark_scan --loop NAME         one loop, once: for a profiler
//     benchmark_scan --one-row           only the loops of one-row selects; run it with the server on one processor
//
// The server is the one that MYDB_SERVER=host:port, MYDB_USER and MYDB_PASSWORD name; scripts/bench.sh starts one.

#include "Measure.h"
#include "ScanLoops.h"
#include "ScanTable.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using bench::Access;
using bench::Sum;
using Loop = bench::Loop<Sum>;

struct Options
{
    unsigned long rows = 1000000;
    int runs = 5;
    std::string loop;
    bool onlyOneRow = false;
};

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

/// A loop whose work is to add up what it reads.
Loop Reading(const char* name, const char* title, const char* baseline, const std::function<Sum()>& read)
{
    const auto sum = std::make_shared<Sum>();
    return {name, title, baseline, nullptr, [=] { *sum = read(); }, [=] { return *sum; }};
}

std::vector<Loop> ScanLoops(const Access& access)
{
    using namespace bench;
    return {
        Reading("plain", "stored, plain client, strtol and strtod", "plain",
                [&] { return PlainStored<StrtolConverter>(access); }),
        Reading("chars", "stored, plain client, from_chars", "plain",
                [&] { return PlainStored<FromCharsConverter>(access); }),
        Reading("position", "stored, library by position", "plain", [&] { return LibraryStored<ByPosition>(access); }),
        Reading("name", "stored, library by name", "plain", [&] { return LibraryStored<ByName>(access); }),
        Reading("literal", "stored, library by name, literals", "plain",
                [&] { return LibraryStored<ByLiteral>(access); }),
        Reading("plain-streamed", "streamed, plain client, strtol and strtod", "plain-streamed",
                [&] { return PlainStreamed<StrtolConverter>(access); }),
        Reading("chars-streamed", "streamed, plain client, from_chars", "plain-streamed",
                [&] { return PlainStreamed<FromCharsConverter>(access); }),
        Reading("position-streamed", "streamed, library by position", "plain-streamed",
                [&] { return LibraryStreamed<ByPosition>(access); }),
    };
}

std::vector<Loop> OneRowLoops(const Access& access, unsigned long selects)
{
    using namespace bench;
    return {
        Reading("plain-one-row", "one row per select, plain client", "plain-one-row",
                [=, &access] { return PlainOneRow(access, selects); }),
        Reading("one-row", "one row per select, library", "plain-one-row",
                [=, &access] { return LibraryOneRow(access, selects); }),
    };
}

} // namespace

int main(int count, char** values)
try {
    const Options options = ReadOptions(count, values);
    const bench::ScanTable table(options.onlyOneRow ? 1 : options.rows, bench::numbersAndTexts);
    const Access& access = table.GetAccess();
    // A profiler's two sizes differ in the number of selects as they differ in the number of rows of the other loops.
    const unsigned long selects = options.loop.empty() ? 20000 : options.rows;
    std::vector<Loop> loops = options.onlyOneRow ? OneRowLoops(access, selects) : ScanLoops(access);
    if (!options.loop.empty())
        return bench::RunOnly(loops, options.loop) ? 0 : 2;
    if (!options.onlyOneRow)
        std::printf("%lu rows of 8 columns, median of %d runs\n", options.rows, options.runs);
    return bench::Measure(loops, options.runs) ? 0 : 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
