#include "harness/System.h"

#include <cerrno>
#include <csignal>
#include <system_error>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace harness {
namespace {

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

int ExitCodeOf(int status)
{
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

class Child final : public RunningProgram
{
public:
    Child(pid_t process, pid_t owner) : m_process(process), m_owner(owner) {}

    std::optional<int> ExitCode() override
    {
        int status = 0;
        if (::getpid() != m_owner || ::waitpid(m_process, &status, WNOHANG) == m_process) {
            return ExitCodeOf(status);
        }
        return std::nullopt;
    }
    void AskToEnd() override { ::kill(m_process, SIGTERM); }
    void Kill() override { ::kill(m_process, SIGKILL); }

private:
    pid_t m_process;
    pid_t m_owner;
};

} // namespace

std::unique_ptr<RunningProgram> StartProgram(const std::string& program, const std::vector<std::string>& arguments,
                                             const std::filesystem::path& outputFile)
{
    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    const std::string output = outputFile.string();
    const pid_t owner = ::getpid();
    const pid_t process = ::fork();
    if (process < 0) {
        throw std::system_error(errno, std::generic_category(), "starting " + program);
    }
    if (process == 0) {
        Become(pointers.data(), output.c_str(), owner);
    }
    return std::make_unique<Child>(process, owner);
}

} // namespace harness
