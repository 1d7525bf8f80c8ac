#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace harness {

/// A program that has been started, as its system knows it. In a copy of the process that started it (a death test) it
/// counts as ended and is left alone.
class RunningProgram
{
public:
    virtual ~RunningProgram() = default;
    virtual std::optional<int> ExitCode() = 0; ///< nullopt: it runs
    virtual void AskToEnd() = 0;
    virtual void Kill() = 0;
};

/// One program that this process started. It is killed when this process ends without stopping it, and only this
/// process (not a copy of it, as in a death test) ever ends it. Nothing else is ever signalled.
///
/// On Windows a program whose name does not end in ".exe" is one of the Unix system that Wine runs on, such as the
/// server. This process has to run under scripts/wine.sh then, which kills it at the end.
class ChildProcess
{
public:
    /// Starts `program` (found as FindProgram does) with its output and errors appended to `outputFile`.
    ChildProcess(const std::string& program, const std::vector<std::string>& arguments,
                 const std::filesystem::path& outputFile);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess(); ///< as Stop

    bool IsRunning();
    /// Waits for the end by itself; the exit code, or 128 and the signal's number.
    int WaitForEnd();
    /// Asks it to end, waits up to 20 seconds, then kills it. A Windows program cannot be asked and is killed.
    void Stop();
    /// Ends it at once, as a crash would.
    void Kill();

private:
    bool HasEndedWithin(int milliseconds);

    std::unique_ptr<RunningProgram> m_program;
    std::optional<int> m_exitCode;
};

/// The full path of a program in PATH, /usr/sbin or /usr/bin; a name with a "/" is a path already. Throws
/// std::runtime_error with the name when there is none.
std::string FindProgram(const std::string& program);

} // namespace harness
