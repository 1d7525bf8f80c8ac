#pragma once

#include <string>
#include <string_view>

namespace platform {

/// A text in a code page of the system (65001 is UTF-8) as UTF-16. What is malformed becomes U+FFFD.
std::wstring ToWide(std::string_view text, unsigned int codePage);

/// UTF-16 as UTF-8; half a surrogate pair becomes U+FFFD.
std::string ToUtf8(std::wstring_view text);

} // namespace platform
