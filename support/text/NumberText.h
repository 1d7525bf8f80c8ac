#pragma once

#include <cstdint>
#include <string_view>

/// Numbers from and to text, independent of the locale.
///
/// Parsing takes the whole text: blanks and tabs around it, an optional "+" or "-", decimal digits; for floating-point
/// numbers also a fraction behind "." (digits before or behind it may be missing, not both) and an exponent. No
/// hexadecimal, no "inf" or "nan". False, with the target untouched, when the text is not such a number or out of the
/// target's range. A floating-point magnitude too small for the target reads as 0 with its sign.
namespace text {

bool ParseInt32(std::string_view text, int32_t& value) noexcept;
bool ParseUInt32(std::string_view text, uint32_t& value) noexcept; ///< "-" fails
bool ParseInt64(std::string_view text, int64_t& value) noexcept;
bool ParseDouble(std::string_view text, double& value) noexcept;
bool ParseFloat(std::string_view text, float& value) noexcept;

} // namespace text
