#pragma once

#include <filesystem>

#include <sys/types.h>

namespace harness {

/// A folder of its own under the system's temporary directory, readable by this user only. It is removed with the
/// object and, when the test program crashes or is killed, by a small process that only waits for that. A copy of the
/// program (a death test) never removes it.
class TemporaryFolder
{
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    const std::filesystem::path& Path() const { return m_path; }

private:
    void StartGuard();

    std::filesystem::path m_path;
    pid_t m_owner;
    pid_t m_guard = -1;
    int m_lifeline = -1; ///< closed by the system when this program ends, however it ends
};

} // namespace harness
