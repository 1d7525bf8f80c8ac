#pragma once

#include <filesystem>
#include <string>

namespace files {

/// A native path, which is in UTF-8 on every system, for the standard library, which reads plain text as it pleases.
/// Throws for malformed UTF-8 where the system's names are UTF-16.
inline std::filesystem::path FileSystemPath(const std::string& nativePath)
{
    return std::u8string(nativePath.begin(), nativePath.end());
}

/// The other way round.
inline std::string NativeText(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

} // namespace files
