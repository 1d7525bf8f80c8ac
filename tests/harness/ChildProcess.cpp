#include "harness/ChildProcess.h"

#include "harness/System.h"

#include <chrono>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace harness {

constexpr int STOP_TIMEOUT_MILLISECONDS = 20'000;

ChildProcess::ChildProcess(const std::string& program, const std::vector<std::string>& arguments,
                           const std::filesystem::path& outputFile)
    : m_program(StartProgram(FindProgram(program), arguments, outputFile))
{
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
    return *m_exitCode;
}

void ChildProcess::Stop()
{
    if (!IsRunning()) {
        return;
    }
    m_program->AskToEnd();
    if (!HasEndedWithin(STOP_TIMEOUT_MILLISECONDS)) {
        Kill();
    }
}

void ChildProcess::Kill()
{
    if (IsRunning()) {
        m_program->Kill();
        WaitForEnd();
    }
}

bool ChildProcess::HasEndedWithin(int milliseconds)
{
    constexpr int STEP_MILLISECONDS = 5;
    for (int waited = 0; !m_exitCode; waited += STEP_MILLISECONDS) {
        m_exitCode = m_program->ExitCode();
        if (m_exitCode || waited >= milliseconds) {
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(STEP_MILLISECONDS));
    }
    return m_exitCode.has_value();
}

std::string FindProgram(const std::string& program)
{
    if (program.find('/') != std::string::npos) {
        return program;
    }
    std::istringstream folders(ProgramFolders() + ":/usr/sbin:/usr/bin");
    for (std::string folder; std::getline(folders, folder, ':');) {
        const std::string candidate = folder + "/" + program;
        if (!folder.empty() && IsProgram(candidate)) {
            return candidate;
        }
    }
    throw std::runtime_error("the program " + program +
                             " was not found; the server tests need a MariaDB server "
                             "(packages mariadb-server-core and mariadb-client-core)");
}

} // namespace harness
