#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

// For what the library looks up in the root of the file system: a test must neither rely on that nor change it.
namespace harness {

/// Makes a folder the root of this process. An ordinary user may do so in a user namespace of the process's own.
inline bool ChangeRoot(const std::filesystem::path& folder)
{
    const bool isAllowed = ::geteuid() == 0 || ::unshare(CLONE_NEWUSER) == 0;
    return isAllowed && ::chroot(folder.c_str()) == 0 && ::chdir("/") == 0;
}

/// Runs `work` in a copy of this process whose root is `folder`. False when an expectation failed there, or when there
/// may be no such process, which fails the test.
template <class Work> bool InOtherRoot(const std::filesystem::path& folder, Work&& work)
{
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        EXPECT_TRUE(ChangeRoot(folder)) << "neither root nor a user namespace";
        if (!testing::Test::HasFailure())
            work();
        std::fflush(nullptr);
        ::_exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    return child > 0 && ::waitpid(child, &status, 0) == child && status == 0;
}

} // namespace harness
