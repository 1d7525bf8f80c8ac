#pragma once

#include <string>

namespace platform {

/// Deletes a file. A link is removed and never followed; a folder is left alone. `nativePath` is the path in the
/// system's own form. False when nothing was deleted, also when nothing was there.
bool RemoveFile(const std::string& nativePath) noexcept;

} // namespace platform
