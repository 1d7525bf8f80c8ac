#pragma once

#include <string>
#include <string_view>

namespace platform {

/// A text in a code page of the system (65001 is UTF-8) as UTF-16. What is malformed becomes U+FFFD.
std::wstring ToWide(std::string_view text, unsigned int codePage);

/// UTF-8 as UTF-16.
std::wstring ToWide(std::string_view utf8);

/// UTF-16 as UTF-8; half a surrogate pair becomes U+FFFD.
std::string ToUtf8(std::wstring_view text);

/// Room for any path of up to 259 characters in any code page, with the zero behind it.
constexpr int ansiPathSize = 780;

/// A path in the ANSI code page, for the functions that the system has in that form. False when a character is missing
/// there, or the place for it, and when the process reads such paths in another code page (SetFileApisToOEM); then the
/// path's UTF-16 form is the one to use.
bool ToAnsiPath(const wchar_t* path, char (&ansi)[ansiPathSize]) noexcept;

} // namespace platform
