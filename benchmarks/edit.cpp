// How long it takes to write rows one by one: the same work through the plain C client and through the library, in one
// program.
//
//     benchmark_edit                     every loop, interleaved, and a table of times and ratios
//     benchmark_edit --statements 5000   with another number of statements in each run (20,000)
//     benchmark_edit --runs 9            the number of runs of each loop, whose median counts (5)
//     benchmark_edit --engine InnoDB     with tables of another storage engine (MEMORY)
//     benchmark_edit --loop NAME         one loop, once: for a profiler; also the texts that are built and not sent
//
// The server is the one that MYDB_SERVER=host:port, MYDB_USER and MYDB_PASSWORD name; scripts/bench.sh starts one. Run
// it with the server on one processor: the two take turns.

#include "EditLoops.h"
#include "EditTables.h"
#include "Measure.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

namespace {

using bench::Access;
using bench::EditTables;
using bench::Target;
using Loop = bench::Loop<std::string>;

struct Options
{
    unsigned long statements = 20000;
    int runs = 5;
    std::string engine = "MEMORY";
    std::string loop;
};

Options ReadOptions(int count, char** values)
{
    Options options;
    for (int i = 1; i + 1 < count; i += 2) {
        const std::string option = values[i];
        if (option == "--statements")
            options.statements = std::strtoul(values[i + 1], nullptr, 10);
        else if (option == "--runs")
            options.runs = std::atoi(values[i + 1]);
        else if (option == "--engine")
            options.engine = values[i + 1];
        else if (option == "--loop")
            options.loop = values[i + 1];
    }
    return options;
}

using Write = void (*)(const Access&, const Target&, unsigned long);
using Build = void (*)(const Access&, unsigned long);

class Loops
{
public:
    Loops(const EditTables& tables, unsigned long count) : m_tables(tables), m_count(count) {}

    std::vector<Loop> Writing() const
    {
        using namespace bench;
        return {
            Inserting("plain-insert", "INSERT, plain client", "plain-insert", PlainInserts, personTable),
            Inserting("insert", "INSERT, library", "plain-insert", LibraryInserts, personTable),
            Updating("plain-update", "UPDATE, plain client", "plain-update", PlainUpdates, personTable),
            Updating("update", "UPDATE, library", "plain-update", LibraryUpdates, personTable),
            Inserting("plain-audited-insert", "INSERT with audit columns, plain client", "plain-audited-insert",
                      PlainInserts, auditedTable),
            Inserting("audited-insert", "INSERT with audit columns, library", "plain-audited-insert", LibraryInserts,
                      auditedTable),
            Updating("plain-audited-update", "UPDATE with audit columns, plain client", "plain-audited-update",
                     PlainUpdates, auditedTable),
            Updating("audited-update", "UPDATE with audit columns, library", "plain-audited-update", LibraryUpdates,
                     auditedTable),
        };
    }

    std::vector<Loop> Building() const
    {
        using namespace bench;
        return {Only("key", BuildKeys), Only("clause", BuildClauses), Only("changes", BuildChanges),
                Only("set-list", BuildSetLists), Only("date", FormatDates)};
    }

private:
    Loop Inserting(const char* name, const char* title, const char* baseline, Write write, const Target& target) const
    {
        return {name,
                title,
                baseline,
                [=, this] { m_tables.Empty(target.table); },
                [=, this] { write(m_tables.GetAccess(), target, m_count); },
                [=, this] { return m_tables.Contents(target.table); }};
    }

    Loop Updating(const char* name, const char* title, const char* baseline, Write write, const Target& target) const
    {
        Loop loop = Inserting(name, title, baseline, write, target);
        loop.prepare = [=, this] { m_tables.FillWithKeys(target.table, m_count); };
        return loop;
    }

    Loop Only(const char* name, Build build) const
    {
        return {name, name, name, nullptr, [=, this] { build(m_tables.GetAccess(), m_count); }, nullptr};
    }

    const EditTables& m_tables;
    unsigned long m_count;
};

} // namespace

int main(int count, char** values)
try {
    const Options options = ReadOptions(count, values);
    const EditTables tables(options.engine);
    const Loops loops(tables, options.statements);
    if (!options.loop.empty())
        return bench::RunOnly(loops.Writing(), options.loop) || bench::RunOnly(loops.Building(), options.loop) ? 0 : 2;
    std::printf("%lu statements, %s, median of %d runs\n", options.statements, options.engine.c_str(), options.runs);
    return bench::Measure(loops.Writing(), options.runs) ? 0 : 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
