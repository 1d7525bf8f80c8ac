#pragma once

#include <string>

namespace platform {

/// The path from its drive or share on, with "\\" alone, without "." and "..", and without a separator at its end.
/// Empty for an empty path.
std::wstring FullPath(const std::wstring& path);

} // namespace platform
