#include "harness/OpenFile.h"

#include <string>
#include <system_error>
#include <unistd.h>

bool harness::CloseDescriptorOf(const std::filesystem::path& file)
{
    const std::filesystem::path wanted = std::filesystem::canonical(file);
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code error;
        if (std::filesystem::read_symlink(entry.path(), error) == wanted) {
            return ::close(std::stoi(entry.path().filename().string())) == 0;
        }
    }
    return false;
}
