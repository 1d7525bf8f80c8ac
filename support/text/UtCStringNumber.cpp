#include "text/CodePoints.h"
#include "text/NumberText.h"
#include "text/UtCString.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

constexpr int mostDecimals = 100;
constexpr size_t longestPlainDouble = 312 + mostDecimals;

/// The bytes of a text when it is ASCII-compatible, else a converted copy of them; for parsing numbers.
template <typename F> bool WithAsciiBytes(const UtCString& text, F parse) noexcept
{
    if (!text::IsUtf16(text.GetEncodingType()))
        return parse(text.View());
    return parse(UtCString(text, UT_ENCODING_UTF8).View());
}

template <typename Parsed, typename Target>
bool ConvertWith(const UtCString& text, bool (*parse)(std::string_view, Parsed&) noexcept, Target& value) noexcept
{
    return WithAsciiBytes(text, [&](std::string_view bytes) {
        Parsed parsed;
        if (!parse(bytes, parsed))
            return false;
        value = static_cast<Target>(parsed);
        return true;
    });
}

std::chars_format NotationOf(double value) noexcept
{
    const double magnitude = std::fabs(value);
    const bool isPlain = magnitude == 0 || (magnitude >= 0.00001 && magnitude < 1e15);
    return isPlain ? std::chars_format::fixed : std::chars_format::scientific;
}

/// A negative 32-bit number that was widened with its sign reads as the 32-bit number that it was.
uint64_t AsUnsigned32(uint64_t value) noexcept
{
    // KEPT K-61: the unsigned long of -1 is 4294967295, also where that type has 64 bits.
    return value >= 0xFFFFFFFF80000000u ? value & 0xFFFFFFFFu : value;
}

} // namespace

template <typename T> void UtCString::AssignNumber(T value) noexcept
{
    char digits[24];
    const char* const end = std::to_chars(digits, digits + sizeof(digits), value).ptr;
    AssignCharText({digits, static_cast<size_t>(end - digits)});
}

UtCString::UtCString(short value, eUtEncodingType encoding) noexcept : UtCString(encoding)
{
    AssignNumber(value);
}

UtCString::UtCString(int value, eUtEncodingType encoding) noexcept : UtCString(encoding)
{
    AssignNumber(value);
}

UtCString::UtCString(unsigned int value, eUtEncodingType encoding) noexcept : UtCString(encoding)
{
    AssignNumber(value);
}

UtCString::UtCString(long value, eUtEncodingType encoding) noexcept : UtCString(encoding)
{
    AssignNumber(value);
}

UtCString::UtCString(unsigned long value, eUtEncodingType encoding) noexcept : UtCString(encoding)
{
    AssignNumber(AsUnsigned32(value));
}

UtCString::UtCString(__int64 value, eUtEncodingType encoding) noexcept : UtCString(encoding)
{
    AssignNumber(value);
}

UtCString::UtCString(unsigned __int64 value, eUtEncodingType encoding) noexcept : UtCString(encoding)
{
    AssignNumber(value);
}

UtCString::UtCString(double value, eUtEncodingType encoding) noexcept : UtCString(encoding)
{
    char digits[40];
    const char* const end = std::to_chars(digits, digits + sizeof(digits), value, NotationOf(value)).ptr;
    AssignCharText({digits, static_cast<size_t>(end - digits)});
}

UtCString::UtCString(double value, int width, eUtEncodingType encoding) noexcept : UtCString(encoding)
{
    char digits[longestPlainDouble];
    const int decimals = std::clamp(width, 0, mostDecimals);
    const char* const end =
        std::to_chars(digits, digits + sizeof(digits), value, std::chars_format::fixed, decimals).ptr;
    AssignCharText({digits, static_cast<size_t>(end - digits)});
}

bool UtCString::Convert(int& value) const noexcept
{
    return ConvertWith<int32_t>(*this, &text::ParseInt32, value);
}

bool UtCString::Convert(long& value) const noexcept
{
    return ConvertWith<int32_t>(*this, &text::ParseInt32, value);
}

bool UtCString::Convert(unsigned long& value) const noexcept
{
    return ConvertWith<uint32_t>(*this, &text::ParseUInt32, value);
}

bool UtCString::Convert(__int64& value) const noexcept
{
    return ConvertWith<int64_t>(*this, &text::ParseInt64, value);
}

bool UtCString::Convert(float& value) const noexcept
{
    return ConvertWith<float>(*this, &text::ParseFloat, value);
}

bool UtCString::Convert(double& value) const noexcept
{
    return ConvertWith<double>(*this, &text::ParseDouble, value);
}
