#pragma once

#include <string>

namespace platform {

/// Copies a regular file, with what the system lets be done with it, to a path where nothing is; a link is followed.
/// Both paths are in the system's own form. False when that failed, also because something is at the path: that stays,
/// and what the copy itself has created is gone again.
bool CopyToNewFile(const std::string& from, const std::string& to) noexcept;

} // namespace platform
