#include "harness/System.h"

#include <cstdio>

#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

namespace harness {
namespace {

/// An ordinary user may change the root in a user namespace of the process's own.
bool ChangeRoot(const std::filesystem::path& folder)
{
    const bool isAllowed = ::geteuid() == 0 || ::unshare(CLONE_NEWUSER) == 0;
    return isAllowed && ::chroot(folder.c_str()) == 0 && ::chdir("/") == 0;
}

bool WorkInRoot(const std::filesystem::path& folder, const std::function<bool()>& work)
{
    if (ChangeRoot(folder)) {
        return work();
    }
    std::fputs("the root cannot be changed: neither root nor a user namespace\n", stderr);
    return false;
}

} // namespace

bool RunInRoot(const std::filesystem::path& folder, const std::function<bool()>& work)
{
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        const bool succeeded = WorkInRoot(folder, work);
        std::fflush(nullptr);
        ::_exit(succeeded ? 0 : 1);
    }
    int status = -1;
    return child > 0 && ::waitpid(child, &status, 0) == child && status == 0;
}

} // namespace harness
