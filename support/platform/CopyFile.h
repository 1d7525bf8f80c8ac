#pragma once

#include <string>

namespace platform {

/// Copies a regular file, with what the system lets be done with it, to a path where nothing is; a link is followed.
/// Both paths are in the system's own form. False when that failed, and then a part of the copy may be there.
bool CopyToNewFile(const std::string& from, const std::string& to) noexcept;

} // namespace platform
