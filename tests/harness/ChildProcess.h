#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

namespace harness {

/// One program that this process started. It is killed when this process ends without stopping it, and only this
/// process (not a copy of it, as in a death test) ever ends it. Nothing else is ever signalled.
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
    /// Asks it to end, waits up to 20 seconds, then kills it.
    void Stop();
    /// Ends it at once, as a crash would.
    void Kill();

private:
    bool HasEndedWithin(int milliseconds);

    pid_t m_process = -1;
    pid_t m_owner = -1;
    int m_status = 0;
    bool m_ended = false;
};

/// The full path of a program in PATH, /usr/sbin or /usr/bin; a name with a "/" is a path already. Throws
/// std::runtime_error with the name when there is none.
std::string FindProgram(const std::string& program);

} // namespace harness
