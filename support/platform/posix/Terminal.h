#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Writes a UTF-8 text and a line end to standard error, in the encoding of the terminal: that of the user's locale
/// environment (LC_ALL, LC_CTYPE, LANG). Never fails: what cannot be written is lost.
/// Callers with a `UtCString` pass `UtCString(text, UT_ENCODING_UTF8).View()`.
void WriteToTerminal(std::string_view utf8) noexcept;

/// The text in the encoding that the system knows by the name `codeset`, for example "ISO-8859-15". Each character that
/// it lacks, and each malformed sequence, becomes "?". A codeset that the system does not know counts as ASCII.
std::string EncodeForTerminal(std::string_view utf8, const std::string& codeset);

/// The name of the terminal's encoding by the user's locale environment. Where that locale is not installed, the name
/// behind the dot in its name ("de_DE.UTF-8" gives "UTF-8"); "ASCII" where there is none.
std::string TerminalCodeset();

} // namespace platform
