#include "files/RemoveFile.h"

#include "files/NativePath.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace files {

bool RemoveFile(const UtCString& path) noexcept
try {
    const std::string native = NativePath(path);
    std::error_code error;
    return !native.empty() && !fs::is_directory(fs::symlink_status(native, error)) && fs::remove(native, error);
} catch (...) {
    return false;
}

} // namespace files
