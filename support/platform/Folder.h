#pragma once

#include <string>
#include <vector>

namespace platform {

/// Appends the names of what a folder holds, in the order of the system, without "." and "..". An empty path is the
/// working folder. False when the folder cannot be read to its end. Throws std::bad_alloc.
bool ListFolder(const std::string& folder, std::vector<std::string>& names);

/// Whether nothing is at a path, not even a link. False when the system does not tell, and for an empty path.
bool IsNothingAt(const std::string& path);

/// Whether a folder is at a path, or a link to one.
bool IsFolder(const std::string& path);

/// Removes a folder with everything below it, write-protected entries included. Links are removed and never followed,
/// also when the path itself is one or another process puts one in the place of a folder meanwhile. False when
/// something is left.
bool RemoveFolderTree(const std::string& folder) noexcept;

} // namespace platform
