#pragma once

#include "text/UtCString.h"

namespace files {

/// Deletes a file. A link is removed and never followed; a folder is left alone. False when nothing was deleted, also
/// when nothing was there.
bool RemoveFile(const UtCString& path) noexcept;

} // namespace files
