#pragma once

#include <string>

namespace files {

/// The path without the separators at its end: with one of them the system would follow a link there.
std::string WithoutTrailingSeparators(std::string nativePath);

/// Whether `UtDeleteDirectory` may touch what the path names: false for an empty path, for the root of a file system or
/// drive however it is written, and when the last component is "." or "..". The path has no separator at its end.
bool IsDeletable(const std::string& nativePath);

} // namespace files
