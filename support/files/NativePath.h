#pragma once

#include "text/UtCString.h"

#include <string>

namespace files {

/// The path as the services of the platform take it: in UTF-8, with the system's own separators.
///
/// Paths of this library are written as on Windows: "\" separates, "/" does too, and letter case does not matter. On
/// POSIX each component that does not exist as spelled is looked up in its folder ignoring case; from the first
/// component that is not found at all, the rest keeps its spelling, so the result can name a file to be created. A
/// trailing separator is kept. Empty for an empty path, for one that holds a zero byte (no such file) and when memory
/// runs out.
std::string NativePath(const UtCString& path) noexcept;

} // namespace files
