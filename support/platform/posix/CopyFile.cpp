#include "platform/CopyFile.h"

#include <filesystem>

bool platform::CopyToNewFile(const std::string& from, const std::string& to) noexcept
try {
    std::error_code error;
    return std::filesystem::copy_file(from, to, error);
} catch (...) {
    return false;
}
