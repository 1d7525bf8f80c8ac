#include "harness/System.h"

#include "harness/win32/WineRun.h"

#include <cstdlib>
#include <ctime>
#include <stdexcept>

#include <winsock2.h>

#include <windows.h>

#include <psapi.h>

namespace harness {
namespace {

constexpr std::string_view UNIX_DRIVE = "Z:";

PROCESS_MEMORY_COUNTERS MemoryCounters()
{
    PROCESS_MEMORY_COUNTERS counters{};
    ::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters);
    return counters;
}

std::wstring Wide(std::string_view utf8)
{
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end())).wstring();
}

} // namespace

const char* const temporaryFolderVariable = "TMP";
const char* const fullFile = "Z:\\dev\\full";

unsigned long ProcessId()
{
    return ::GetCurrentProcessId();
}

void ChangeEnvironment(const char* name, const char* value)
{
    const std::wstring wideName = Wide(name);
    const std::wstring wideValue = Wide(value != nullptr ? value : "");
    ::_wputenv_s(wideName.c_str(), wideValue.c_str());
    // The line above takes an empty value for none.
    ::SetEnvironmentVariableW(wideName.c_str(), value != nullptr ? wideValue.c_str() : nullptr);
    ::_tzset();
}

size_t MemoryInUse()
{
    return MemoryCounters().PagefileUsage;
}

size_t PeakMemory()
{
    return MemoryCounters().PeakWorkingSetSize;
}

unsigned int FreePort()
{
    WSADATA sockets;
    if (::WSAStartup(MAKEWORD(2, 2), &sockets) != 0) {
        throw std::runtime_error("there are no sockets");
    }
    const SOCKET probe = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    int size = sizeof address;
    const bool bound = ::bind(probe, reinterpret_cast<sockaddr*>(&address), size) == 0 &&
                       ::getsockname(probe, reinterpret_cast<sockaddr*>(&address), &size) == 0;
    ::closesocket(probe);
    ::WSACleanup();
    if (!bound) {
        throw std::runtime_error("no free port on the loopback address");
    }
    return ::ntohs(address.sin_port);
}

std::string ProgramFolders()
{
    return "/usr/local/sbin:/usr/local/bin";
}

bool IsProgram(const std::string& serverPath)
{
    return std::filesystem::is_regular_file(OwnPath(serverPath));
}

bool RunsServersAsRoot()
{
    char name[256];
    DWORD size = sizeof name;
    return ::GetUserNameA(name, &size) != 0 && std::string(name) == "root";
}

std::filesystem::path OwnPath(const std::string& serverPath)
{
    std::filesystem::path path = serverPath.starts_with('/') ? std::string(UNIX_DRIVE) + serverPath : serverPath;
    return path.make_preferred();
}

std::string ServerPath(const std::filesystem::path& ownPath)
{
    const std::string path = ownPath.generic_string();
    return path.starts_with(UNIX_DRIVE) ? path.substr(UNIX_DRIVE.size()) : path;
}

} // namespace harness
