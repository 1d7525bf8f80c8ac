#pragma once

#include <cstdio>

namespace platform {

/// Opens a file for reading its bytes; the caller closes it with std::fclose. `nativePath` is the path in the system's
/// own form. On Windows that is UTF-8, and what is no UTF-8 is read in the ANSI code page.
///
/// Null when the system refuses; errno says why.
std::FILE* OpenInputFile(const char* nativePath) noexcept;

} // namespace platform
