#pragma once

#include <filesystem>
#include <memory>

namespace harness {

/// A folder of its own under the system's temporary directory, readable by this user only. It is removed with the
/// object and, when the test program crashes or is killed, by a process that waits for that: a small one of its own, or
/// scripts/wine.sh. A copy of the program (a death test) never removes it.
class TemporaryFolder
{
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
    std::shared_ptr<void> m_guard; ///< removes the folder
};

/// Removes a folder; tries again for some seconds when somebody still writes there.
void RemoveFolder(const std::filesystem::path& path);

} // namespace harness
