// How long it takes to dump a table and to copy a database: the same work through the plain C client and through the
// library, in one program.
//
//     benchmark_bulk                     every loop, interleaved, and a table of times and ratios
//     benchmark_bulk --rows 100000       with another number of rows (one million, a file of 190 MB)
//     benchmark_bulk --runs 9            the number of runs of each loop, whose median counts (5)
//     benchmark_bulk --table texts       with a table of texts, a file of 150 MB (numbers)
//     benchmark_bulk --loop NAME         one loop, once: for a profiler
//
// The server is the one that MYDB_SERVER=host:port, MYDB_USER and MYDB_PASSWORD name; scripts/bench.sh starts one.
// Files are written into the folder that TMPDIR names.

#include "BulkLoops.h"
#include "CopyLoops.h"
#include "Measure.h"
#include "MyDbUserInterface.h"
#include "ScanTable.h"

#include "files/UtFile.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using bench::Access;
using Loop = bench::Loop<std::string>;

struct Options
{
    unsigned long rows = 1000000;
    int runs = 5;
    std::string table = "numbers";
    std::string loop;
};

Options ReadOptions(int count, char** values)
{
    Options options;
    for (int i = 1; i + 1 < count; i += 2) {
        const std::string option = values[i];
        if (option == "--rows")
            options.rows = std::strtoul(values[i + 1], nullptr, 10);
        else if (option == "--runs")
            options.runs = std::atoi(values[i + 1]);
        else if (option == "--table")
            options.table = values[i + 1];
        else if (option == "--loop")
            options.loop = values[i + 1];
    }
    return options;
}

/// A folder of its own; removed with the object.
class Folder
{
public:
    Folder() : m_path(std::filesystem::temp_directory_path() / ("mydb-bench-" + std::to_string(::getpid())))
    {
        std::filesystem::create_directory(m_path);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    std::string File(const char* name) const { return (m_path / name).string(); }

private:
    std::filesystem::path m_path;
};

using Dump = void (*)(const Access&, const std::string&);

std::vector<Loop> DumpLoops(const Access& access, const Folder& folder)
{
    const auto loop = [&](const char* name, const char* title, Dump dump) {
        const std::string file = folder.File(name);
        const std::string plain = folder.File("plain-dump");
        return Loop{name,
                    title,
                    "plain-dump",
                    nullptr,
                    [=, &access] { dump(access, file); },
                    [=] { return bench::AreEqualFiles(file, plain) ? "equal" : "not equal"; }};
    };
    return {loop("plain-dump", "dump, plain client", bench::PlainDump),
            loop("dump", "dump, library", bench::LibraryDump)};
}

/// Ends the cleanup of a copy that failed.
class Host final : public MyDbUserInterface
{
public:
    int ShowMessage(const UtCString&, unsigned int) override { return MYDB_ANSWER_OK; }
    void BeginWait() override {}
    void EndWait() override {}
    bool ContinueCleanup(unsigned long filesLeft) override { return filesLeft > 0; }
};

CMyServer ServerWithFiles(const Access& access, const Folder& folder)
{
    CMyServer server = bench::Server(access);
    server.SetDataDir(UtCString(folder.File("data"), UT_ENCODING_UTF8).replace("/", "\\"));
    std::filesystem::create_directories(folder.File("data") + "/DBS/" + access.database);
    return server;
}

/// The connections of the library's copy. The target is open in a database that is dropped before each run.
class Copier
{
public:
    Copier(const Access& access, const Folder& folder, const bench::CopyTarget& target)
        : m_target(target), m_from(ServerWithFiles(access, folder), access.database.c_str()),
          m_to(ServerWithFiles(access, folder), target.Name().c_str())
    {
    }
    void Prepare()
    {
        m_target.Drop();
        m_target.Create();
        if (!m_to.Open(false, ""))
            throw std::runtime_error("the target cannot be opened");
        m_target.Drop();
    }
    void Run() { bench::LibraryCopy(m_from, m_to); }

private:
    const bench::CopyTarget& m_target;
    CMyDatabase m_from;
    CMyDatabase m_to;
};

std::vector<Loop> CopyLoops(const Access& access, const bench::CopyTarget& target, Copier& copier)
{
    const auto checksum = [&] { return target.Checksum(); };
    return {{"plain-copy", "copy, plain client", "plain-copy", [&] { target.Drop(); },
             [&] { bench::PlainCopy(access, target); }, checksum},
            {"copy", "copy, library", "plain-copy", [&] { copier.Prepare(); }, [&] { copier.Run(); }, checksum}};
}

} // namespace

int main(int count, char** values)
try {
    const Options options = ReadOptions(count, values);
    const bench::ScanTable table(options.rows, options.table == "texts" ? bench::texts : bench::numbersAndTexts);
    const Folder folder;
    const Access& access = table.GetAccess();
    const bench::CopyTarget target(access);
    Copier copier(access, folder, target);
    Host host;
    MyDbSetUserInterface(&host);
    std::vector<Loop> loops = DumpLoops(access, folder);
    for (Loop& loop : CopyLoops(access, target, copier))
        loops.push_back(std::move(loop));
    if (!options.loop.empty())
        return bench::RunOnly(loops, options.loop) ? 0 : 2;
    std::printf("%lu rows of %s, median of %d runs\n", options.rows, options.table.c_str(), options.runs);
    return bench::Measure(loops, options.runs) ? 0 : 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
