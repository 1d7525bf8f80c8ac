#include "harness/ChildProcess.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace harness {
namespace {

constexpr int STOP_TIMEOUT_MILLISECONDS = 20'000;

/// Between fork and the start of the program: only calls that are safe there.
[[noreturn]] void Become(char* const* arguments, const char* outputFile, pid_t parent)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) {
        ::_exit(127); // the parent ended before the line above
    }
    const int output = ::open(outputFile, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    const int input = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    ::dup2(input, 0);
    ::dup2(output, 1);
    ::dup2(output, 2);
    ::setpgid(0, 0); // the interrupt key reaches the test program only, which then ends this one
    ::execv(arguments[0], arguments);
    ::_exit(127);
}

int ExitCode(int status)
{
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

} // namespace

ChildProcess::ChildProcess(const std::string& program, const std::vector<std::string>& arguments,
                           const std::filesystem::path& outputFile)
    : m_owner(::getpid())
{
    std::vector<std::string> words = {FindProgram(program)};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    const std::string output = outputFile.string();
    m_process = ::fork();
    if (m_process < 0) {
        throw std::system_error(errno, std::generic_category(), "starting " + program);
    }
    if (m_process == 0) {
        Become(pointers.data(), output.c_str(), m_owner);
    }
}

ChildProcess::~ChildProcess()
{
    Stop();
}

bool ChildProcess::IsRunning()
{
    return !HasEndedWithin(0);
}

int ChildProcess::WaitForEnd()
{
    while (!HasEndedWithin(1000)) {
    }
    return ExitCode(m_status);
}

void ChildProcess::Stop()
{
    if (m_ended || ::getpid() != m_owner) {
        return;
    }
    ::kill(m_process, SIGTERM);
    if (!HasEndedWithin(STOP_TIMEOUT_MILLISECONDS)) {
        Kill();
    }
}

void ChildProcess::Kill()
{
    if (m_ended || ::getpid() != m_owner) {
        return;
    }
    ::kill(m_process, SIGKILL);
    WaitForEnd();
}

bool ChildProcess::HasEndedWithin(int milliseconds)
{
    constexpr int STEP_MILLISECONDS = 5;
    for (int waited = 0; !m_ended; waited += STEP_MILLISECONDS) {
        m_ended = ::waitpid(m_process, &m_status, WNOHANG) == m_process;
        if (m_ended || waited >= milliseconds) {
            break;
        }
        ::usleep(STEP_MILLISECONDS * 1000);
    }
    return m_ended;
}

std::string FindProgram(const std::string& program)
{
    if (program.find('/') != std::string::npos)
        return program;
    const char* const path = std::getenv("PATH");
    std::istringstream folders(std::string(path == nullptr ? "" : path) + ":/usr/sbin:/usr/bin");
    for (std::string folder; std::getline(folders, folder, ':');) {
        const std::string candidate = folder + "/" + program;
        if (!folder.empty() && ::access(candidate.c_str(), X_OK) == 0) {
            return candidate;
        }
    }
    throw std::runtime_error("the program " + program +
                             " was not found; the server tests need a MariaDB server "
                             "(packages mariadb-server-core and mariadb-client-core)");
}

} // namespace harness
