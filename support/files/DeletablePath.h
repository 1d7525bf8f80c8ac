#pragma once

#include "platform/PathRules.h"

#include <string>

namespace files {

/// The path without the separators at its end: with one of them the system would follow a link there.
std::string WithoutTrailingSeparators(std::string nativePath);

/// Whether `UtDeleteDirectory` may touch what the path names: false for an empty path, for the root of a file system or
/// drive however it is written, and when the last component is "." or "..". The path has no separator at its end.
///
/// On Windows, which drops dots and blanks at the end of a name, a last component of nothing else counts as "..".
bool IsDeletable(const std::string& nativePath);

/// Whether a component of a path leads to the folder that it stands in or to the one above, by the rules of a system.
bool IsDotName(const std::string& name, const platform::PathRules& rules) noexcept;

} // namespace files
