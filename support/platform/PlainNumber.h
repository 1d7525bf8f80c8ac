#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The digits of a number rounded half up to four decimals: the last four stand behind the point, zeros in front are
/// gone. Empty for a text that `FormatNumber` refuses.
std::string RoundedDigits(std::string_view number);

/// Those digits as `FormatNumber` writes them.
std::string GroupedNumber(const std::string& digits);

} // namespace platform
