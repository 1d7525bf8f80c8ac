// Writes what the library answers to very many questions into files, one for each section:
//
//   same_answers FOLDER          one line in some, and a digest of all lines of a block
//   same_answers FOLDER --all    every line; to find the one that makes a digest differ
//
// The files of two systems are compared byte for byte (compare.sh). The folder is made and has to be empty or its own.

#include "differential/Sections.h"

#include <chrono>
#include <cstdio>
#include <cstring>

namespace {

using differential::Report;

struct Section
{
    const char* name;
    void (*write)(Report& report, const std::filesystem::path& folder);
    int writtenOneIn;
};

constexpr Section sections[] = {
    {"days", differential::WriteDays, 100},
    {"times", differential::WriteTimes, 20},
    {"date-texts", differential::WriteDateTexts, 10},
    {"local-times", differential::WriteLocalTimes, 10},
    {"variants", differential::WriteVariants, 10},
    {"number-formats", differential::WriteNumberFormats, 20},
    {"numbers", differential::WriteNumbers, 20},
    {"formats", differential::WriteFormats, 20},
    {"lists", differential::WriteLists, 10},
    {"code-points", differential::WriteCodePoints, 1000},
    {"malformed-texts", differential::WriteMalformedTexts, 100},
    {"guids", differential::WriteGuids, 1},
    {"ini-files", differential::WriteIniFiles, 1},
};

bool Run(const Section& section, const std::filesystem::path& folder, bool writesAll)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    const std::filesystem::path work = folder / section.name;
    std::filesystem::create_directories(work);
    Report report(folder / (std::string(section.name) + ".txt"), writesAll ? 1 : section.writtenOneIn);
    section.write(report, work);
    std::filesystem::remove_all(work);
    const bool isWritten = report.Close();
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    std::printf("%-16s %5.1f s%s\n", section.name, seconds, isWritten ? "" : ", could not be written");
    return isWritten;
}

} // namespace

int main(int count, char** arguments)
{
    if (count < 2) {
        std::fprintf(stderr, "usage: same_answers FOLDER [--all]\n");
        return 2;
    }
    const std::filesystem::path folder = std::filesystem::absolute(arguments[1]);
    const bool writesAll = count > 2 && std::strcmp(arguments[2], "--all") == 0;
    bool isWritten = true;
    for (const Section& section : sections)
        isWritten &= Run(section, folder, writesAll);
    return isWritten ? 0 : 1;
}
