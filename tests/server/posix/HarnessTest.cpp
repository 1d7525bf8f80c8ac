#include "harness/ServerProcess.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using harness::RawConnection;
using harness::ServerProcess;
using harness::SqlError;

TEST(TemporaryFolderOfAForkingProgram, StaysWhenACopyOfTheProgramEndsOrderly)
{
    const harness::TemporaryFolder folder;
    const pid_t copy = ::fork();
    if (copy == 0) {
        folder.~TemporaryFolder();
        ::_exit(0);
    }
    ::waitpid(copy, nullptr, 0);
    EXPECT_TRUE(std::filesystem::exists(folder.Path()));
}

/// Runs `work` in a copy of this program, which writes one line and is then killed; returns the line.
template <class Work> std::string LineOfAKilledCopy(Work work)
{
    int ends[2];
    EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    const pid_t copy = ::fork();
    if (copy == 0) {
        const std::string line = work();
        EXPECT_EQ(::write(ends[1], line.data(), line.size()), static_cast<ssize_t>(line.size()));
        ::raise(SIGKILL);
    }
    ::close(ends[1]);
    std::string line(4096, '\0');
    line.resize(static_cast<size_t>(std::max<ssize_t>(::read(ends[0], line.data(), line.size()), 0)));
    ::close(ends[0]);
    ::waitpid(copy, nullptr, 0);
    return line;
}

template <class Condition> bool ComesTrue(Condition condition)
{
    for (int waited = 0; waited < 1000 && !condition(); ++waited) {
        ::usleep(10'000);
    }
    return condition();
}

TEST(TemporaryFolderOfAForkingProgram, IsRemovedWhenTheProgramIsKilled)
{
    const std::filesystem::path path = LineOfAKilledCopy([] {
        auto* const folder = new harness::TemporaryFolder;
        return folder->Path().string();
    });
    ASSERT_NE(path.string(), "");
    EXPECT_TRUE(ComesTrue([&] { return !std::filesystem::exists(path); }));
}

TEST(ServerProcessOfAForkingProgram, EndsAndLeavesNothingWhenTheProgramIsKilled)
{
    const std::string line = LineOfAKilledCopy([] {
        auto* const server = new ServerProcess;
        return std::to_string(server->Tester().port) + " " + server->DataFolder().parent_path().string();
    });
    ASSERT_NE(line, "");
    const harness::ServerAccess tester{"127.0.0.1", static_cast<unsigned int>(std::stoul(line)), "tester", "tester"};
    EXPECT_TRUE(ComesTrue([&] {
        try {
            RawConnection connection(tester);
            return false;
        } catch (const SqlError&) {
            return true;
        }
    }));
    const std::filesystem::path folder = line.substr(line.find(' ') + 1);
    EXPECT_TRUE(ComesTrue([&] { return !std::filesystem::exists(folder); }));
}

} // namespace
