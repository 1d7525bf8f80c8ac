#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Converts between two encodings that iconv knows by name. What the target lacks and what is malformed becomes "?",
/// one for each character or byte sequence. False, and `result` untouched, when one of the names is unknown.
bool Recode(std::string_view text, const char* from, const char* to, std::string& result);

} // namespace platform
