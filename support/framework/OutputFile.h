#pragma once

#include "framework/CFile.h"
#include "text/UtCString.h"

namespace framework {

/// Creates the file, or empties the one that is there, and keeps others from opening it. "files/NativePath.h" says how
/// paths are read. False, and `file` stays closed, when the system refuses and without memory. Whoever gets true calls
/// Close or Abort: the framework's own CFile leaves a file open that it has not opened itself.
bool CreateFileToWrite(CFile& file, const UtCString& path) noexcept;

} // namespace framework
