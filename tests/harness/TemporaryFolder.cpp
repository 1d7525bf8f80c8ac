#include "harness/TemporaryFolder.h"

#include "harness/System.h"

#include <chrono>
#include <system_error>
#include <thread>

namespace harness {

TemporaryFolder::TemporaryFolder() : m_path(MakeFolder()), m_guard(RemoveAtEnd(m_path)) {}

void RemoveFolder(const std::filesystem::path& path)
{
    std::error_code error;
    for (int attempt = 0; attempt < 50 && std::filesystem::exists(path, error); ++attempt) {
        std::filesystem::remove_all(path, error);
        if (error) {
            std::this_thread::sleep_for(
                std::chrono::milliseconds(100)); // a server that is being killed may still write
        }
    }
}

} // namespace harness
