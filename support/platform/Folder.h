#pragma once

#include <string>
#include <vector>

namespace platform {

/// Appends the names of what a folder holds, in the order of the system, without "." and "..". An empty path is the
/// working folder. False when the folder cannot be read to its end. Throws std::bad_alloc.
bool ListFolder(const std::string& folder, std::vector<std::string>& names);

/// Removes a folder with everything below it, write-protected entries included. Links are removed and never followed,
/// also when another process puts one in the place of a folder meanwhile. False when something is left.
bool RemoveFolderTree(const std::string& folder) noexcept;

} // namespace platform
