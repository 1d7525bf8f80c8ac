#include "harness/System.h"
#include "harness/win32/Programs.h"
#include "harness/win32/WineRun.h"

#include <stdexcept>

#include <windows.h>

namespace harness {
namespace {

constexpr UINT KILLED = 128 + 9; // as on POSIX

struct CloseHandleOf
{
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { ::CloseHandle(handle); }
};
using Handle = std::unique_ptr<HANDLE, CloseHandleOf>;

/// A job whose programs are killed when its handle is closed, at the latest with this process.
HANDLE JobThatEndsWithItsHandle()
{
    HANDLE job = ::CreateJobObjectA(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    ::SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

Handle OpenInherited(const wchar_t* path, DWORD access, DWORD disposition)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return Handle(::CreateFileW(path, access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inherited,
                                disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

class WindowsProgram final : public RunningProgram
{
public:
    WindowsProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const std::filesystem::path& outputFile)
        : m_job(JobThatEndsWithItsHandle())
    {
        const Handle output = OpenInherited(outputFile.c_str(), FILE_APPEND_DATA, OPEN_ALWAYS);
        const Handle input = OpenInherited(L"NUL", GENERIC_READ, OPEN_EXISTING);
        STARTUPINFOA start{};
        start.cb = sizeof start;
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdInput = input.get();
        start.hStdOutput = output.get();
        start.hStdError = output.get();
        std::vector<std::string> words = {OwnPath(program).string()};
        words.insert(words.end(), arguments.begin(), arguments.end());
        std::string line = CommandLine(words);
        PROCESS_INFORMATION process{};
        if (!::CreateProcessA(words[0].c_str(), line.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr, nullptr,
                              &start, &process)) {
            throw std::runtime_error(program + " did not start: error " + std::to_string(::GetLastError()));
        }
        m_process.reset(process.hProcess);
        const Handle thread(process.hThread);
        ::AssignProcessToJobObject(m_job.get(), m_process.get());
        ::ResumeThread(thread.get());
    }

    std::optional<int> ExitCode() override
    {
        DWORD code = 0;
        if (::WaitForSingleObject(m_process.get(), 0) != WAIT_OBJECT_0 ||
            !::GetExitCodeProcess(m_process.get(), &code)) {
            return std::nullopt;
        }
        return static_cast<int>(code);
    }
    void AskToEnd() override { Kill(); }
    void Kill() override { ::TerminateProcess(m_process.get(), KILLED); }

private:
    Handle m_job;
    Handle m_process;
};

} // namespace

std::unique_ptr<RunningProgram> StartProgram(const std::string& program, const std::vector<std::string>& arguments,
                                             const std::filesystem::path& outputFile)
{
    if (program.ends_with(".exe")) {
        return std::make_unique<WindowsProgram>(program, arguments, outputFile);
    }
    return StartUnixProgram(program, arguments, outputFile);
}

} // namespace harness
