#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

/// Numbers from text, independent of the locale.
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

// What follows are the short ways for plain digits, as servers send them; everything else goes the careful way.

bool ParseCarefully(std::string_view text, int32_t& value) noexcept;
bool ParseCarefully(std::string_view text, uint32_t& value) noexcept;
bool ParseCarefully(std::string_view text, int64_t& value) noexcept;

/// Eight or four digits at once, the first in the lowest byte; false when one of the bytes is no digit.
template <typename Word> bool ParseDigitWord(Word word, Word& value) noexcept
{
    constexpr Word ones = static_cast<Word>(0x0101010101010101u);
    const Word digits = word ^ ones * 0x30;
    if (((digits | (digits + ones * 6)) & ones * 0xF0) != 0)
        return false;
    Word pairs = (digits * 10 + (digits >> 8)) & static_cast<Word>(0x00FF00FF00FF00FFu);
    pairs = (pairs * 100 + (pairs >> 16)) & static_cast<Word>(0x0000FFFF0000FFFFu);
    if constexpr (sizeof(Word) == 8)
        pairs = (pairs * 10000 + (pairs >> 32)) & 0xFFFFFFFFu;
    value = pairs;
    return true;
}

/// The number that the bytes from `at` to `end`, all of them digits, mean; at least one and at most 18.
inline bool ParseDigits(const char* at, const char* end, uint64_t& value) noexcept
{
    if (at == end || end - at > 18)
        return false;
    uint64_t result = 0;
    if constexpr (std::endian::native == std::endian::little) {
        for (uint64_t word; end - at >= 8; at += 8) {
            std::memcpy(&word, at, sizeof(word));
            if (!ParseDigitWord(word, word))
                return false;
            result = result * 100000000 + word;
        }
        if (end - at >= 4) {
            uint32_t word;
            std::memcpy(&word, at, sizeof(word));
            if (!ParseDigitWord(word, word))
                return false;
            result = result * 10000 + word;
            at += 4;
        }
    }
    for (; at != end; ++at) {
        const unsigned digit = static_cast<unsigned char>(*at) - static_cast<unsigned>('0');
        if (digit > 9)
            return false;
        result = result * 10 + digit;
    }
    value = result;
    return true;
}

inline bool ParseInt32(std::string_view text, int32_t& value) noexcept
{
    const bool isNegative = !text.empty() && text.front() == '-';
    uint64_t magnitude;
    if (!ParseDigits(text.data() + isNegative, text.data() + text.size(), magnitude))
        return ParseCarefully(text, value);
    if (magnitude > uint64_t{INT32_MAX} + isNegative)
        return false;
    value = static_cast<int32_t>(isNegative ? 0 - magnitude : magnitude);
    return true;
}

inline bool ParseUInt32(std::string_view text, uint32_t& value) noexcept
{
    uint64_t magnitude;
    if (!ParseDigits(text.data(), text.data() + text.size(), magnitude))
        return ParseCarefully(text, value);
    if (magnitude > UINT32_MAX)
        return false;
    value = static_cast<uint32_t>(magnitude);
    return true;
}

inline bool ParseInt64(std::string_view text, int64_t& value) noexcept
{
    const bool isNegative = !text.empty() && text.front() == '-';
    uint64_t magnitude;
    if (!ParseDigits(text.data() + isNegative, text.data() + text.size(), magnitude))
        return ParseCarefully(text, value);
    value = static_cast<int64_t>(isNegative ? 0 - magnitude : magnitude);
    return true;
}

} // namespace text
