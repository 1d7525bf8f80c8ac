#include "harness/System.h"
#include "harness/TemporaryFolder.h"

#include <cerrno>
#include <system_error>

#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace harness {
namespace {

constexpr int LIFELINE_OF_GUARD = 3;

/// In the guard process: waits for the end of the program that holds the other end, then cleans up.
[[noreturn]] void WaitAndRemove(int lifeline, const std::filesystem::path& path)
{
    ::setsid(); // not reached by the interrupt key
    ::dup2(lifeline, LIFELINE_OF_GUARD);
    ::close_range(LIFELINE_OF_GUARD + 1, ~0U, 0); // connections and pipes of the program end with the program
    const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int stream : {0, 1, 2}) {
        ::dup2(nothing, stream); // whoever reads the program's output must not wait for the guard
    }
    char byte = 0;
    while (::read(LIFELINE_OF_GUARD, &byte, 1) < 0 && errno == EINTR) {
    }
    RemoveFolder(path);
    ::_exit(0);
}

/// A small process that only waits for the end of the program; a copy of the program (a death test) has none.
class FolderGuard
{
public:
    explicit FolderGuard(const std::filesystem::path& path) : m_path(path), m_owner(::getpid())
    {
        int ends[2] = {-1, -1};
        if (::pipe2(ends, O_CLOEXEC) != 0) {
            throw std::system_error(errno, std::generic_category(), "making a pipe");
        }
        m_guard = ::fork();
        if (m_guard < 0) {
            throw std::system_error(errno, std::generic_category(), "starting the guard of a temporary folder");
        }
        if (m_guard == 0) {
            ::close(ends[1]);
            WaitAndRemove(ends[0], m_path);
        }
        ::close(ends[0]);
        m_lifeline = ends[1];
    }
    FolderGuard(const FolderGuard&) = delete;
    FolderGuard& operator=(const FolderGuard&) = delete;
    ~FolderGuard()
    {
        if (::getpid() != m_owner) {
            return;
        }
        ::kill(m_guard, SIGKILL);
        ::waitpid(m_guard, nullptr, 0);
        ::close(m_lifeline);
        RemoveFolder(m_path);
    }

private:
    std::filesystem::path m_path;
    pid_t m_owner;
    pid_t m_guard = -1;
    int m_lifeline = -1; ///< closed by the system when this program ends, however it ends
};

} // namespace

std::filesystem::path MakeFolder()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "mydb_test_XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), "making the folder " + pattern);
    }
    return pattern;
}

std::shared_ptr<void> RemoveAtEnd(const std::filesystem::path& folder)
{
    return std::make_shared<FolderGuard>(folder);
}

} // namespace harness
