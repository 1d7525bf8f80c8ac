#include "harness/System.h"

#include <cstdlib>
#include <stdexcept>

#include <arpa/inet.h>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

namespace harness {

const char* const temporaryFolderVariable = "TMPDIR";
const char* const fullFile = "/dev/full";

unsigned long ProcessId()
{
    return static_cast<unsigned long>(::getpid());
}

void ChangeEnvironment(const char* name, const char* value)
{
    if (value != nullptr) {
        ::setenv(name, value, 1);
    } else {
        ::unsetenv(name);
    }
    ::tzset();
}

size_t MemoryInUse()
{
    const struct mallinfo2 heap = ::mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

size_t PeakMemory()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return static_cast<size_t>(usage.ru_maxrss) * 1024;
}

unsigned int FreePort()
{
    const int probe = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    const bool bound = ::bind(probe, reinterpret_cast<sockaddr*>(&address), size) == 0 &&
                       ::getsockname(probe, reinterpret_cast<sockaddr*>(&address), &size) == 0;
    ::close(probe);
    if (!bound) {
        throw std::runtime_error("no free port on the loopback address");
    }
    return ::ntohs(address.sin_port);
}

std::string ProgramFolders()
{
    const char* const path = std::getenv("PATH");
    return path == nullptr ? "" : path;
}

bool IsProgram(const std::string& serverPath)
{
    return ::access(serverPath.c_str(), X_OK) == 0;
}

bool RunsServersAsRoot()
{
    return ::geteuid() == 0;
}

std::filesystem::path OwnPath(const std::string& serverPath)
{
    return serverPath;
}

std::string ServerPath(const std::filesystem::path& ownPath)
{
    return ownPath.string();
}

} // namespace harness
