#pragma once

#include <string_view>

namespace platform {

/// Writes a UTF-8 text and a line end to standard error, in the encoding of the terminal: that of the user's locale
/// environment. A character that this encoding lacks, and a malformed byte, become "?". Never fails: what cannot be
/// written is lost. Callers with a `UtCString` pass `UtCString(text, UT_ENCODING_UTF8).View()`.
void WriteToTerminal(std::string_view utf8) noexcept;

} // namespace platform
