#include "text/NumberText.h"

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

namespace text {

namespace {

constexpr bool IsBlank(char c) noexcept
{
    return c == ' ' || c == '\t';
}

constexpr bool IsDigit(char c) noexcept
{
    return c >= '0' && c <= '9';
}

std::string_view WithoutBlanks(std::string_view text) noexcept
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

template <typename T> bool ParseInteger(std::string_view text, T& value) noexcept
{
    text = WithoutBlanks(text);
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
        if (text.empty() || text.front() == '-')
            return false;
    }
    const char* const end = text.data() + text.size();
    T result;
    const auto parsed = std::from_chars(text.data(), end, result);
    if (parsed.ec != std::errc() || parsed.ptr != end)
        return false;
    value = result;
    return true;
}

// --- Floating point

/// The powers of ten and the integers that T holds exactly: the quotient or product of two such numbers is rounded once
/// and therefore correctly. A text longer than `longest` has more digits than that for sure or nearly so.
template <typename T> struct Exact;
template <> struct Exact<double>
{
    static constexpr double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                        1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    static constexpr uint64_t largest = uint64_t{1} << 53;
    static constexpr ptrdiff_t longest = 17;
};
template <> struct Exact<float>
{
    static constexpr float powers[] = {1e0F, 1e1F, 1e2F, 1e3F, 1e4F, 1e5F, 1e6F, 1e7F, 1e8F, 1e9F, 1e10F};
    static constexpr uint64_t largest = uint64_t{1} << 24;
    static constexpr ptrdiff_t longest = 9;
};

/// A number of digits with at most one point, no exponent and an exact result; false for any other text.
template <typename T> bool ParsePlain(const char* begin, const char* end, T& value) noexcept
{
    if (FLT_EVAL_METHOD != 0 || end - begin > Exact<T>::longest)
        return false;
    uint64_t digits = 0;
    const char* point = end;
    for (const char* at = begin; at != end; ++at) {
        const unsigned digit = static_cast<unsigned char>(*at) - static_cast<unsigned>('0');
        if (digit <= 9)
            digits = digits * 10 + digit;
        else if (*at == '.' && point == end)
            point = at;
        else
            return false;
    }
    const bool hasPoint = point != end;
    if (end - begin == hasPoint || digits > Exact<T>::largest)
        return false;
    static_assert(Exact<T>::longest <= std::ssize(Exact<T>::powers));
    const auto decimals = static_cast<size_t>(end - point) - hasPoint;
    value = static_cast<T>(digits) / Exact<T>::powers[decimals];
    return true;
}

/// Whether a well-formed decimal text that is out of range is so because it is large, not because it is small. The
/// exponent saturates: a text as long as it would take to outweigh that does not fit into memory.
bool IsLarge(std::string_view text) noexcept
{
    const size_t exponentAt = std::min(text.find_first_of("eE"), text.size());
    const std::string_view digits = text.substr(0, exponentAt);
    const size_t first = digits.find_first_of("123456789");
    if (first == std::string_view::npos)
        return false;
    const auto point = static_cast<int64_t>(std::min(digits.find('.'), digits.size()));
    const int64_t place = point - static_cast<int64_t>(first);
    const bool isNegative = text.substr(exponentAt).find('-') != std::string_view::npos;
    int64_t exponent = 0;
    for (char c : text.substr(exponentAt))
        if (IsDigit(c))
            exponent = std::min<int64_t>(exponent * 10 + (c - '0'), INT64_MAX / 100);
    return place + (isNegative ? -exponent : exponent) >= 0;
}

/// A number without sign and blanks.
template <typename T> bool ParseUnsigned(const char* begin, const char* end, T& value) noexcept
{
    if (begin == end || (!IsDigit(*begin) && *begin != '.'))
        return false;
    T result = 0;
    const auto parsed = std::from_chars(begin, end, result);
    if (parsed.ptr != end || parsed.ec == std::errc::invalid_argument)
        return false;
    const bool isOut = parsed.ec == std::errc::result_out_of_range || result > std::numeric_limits<T>::max();
    if (isOut && IsLarge({begin, static_cast<size_t>(end - begin)}))
        return false;
    value = isOut ? T(0) : result;
    return true;
}

template <typename T> bool ParseRealWithBlanks(std::string_view text, T& value) noexcept
{
    text = WithoutBlanks(text);
    const bool isNegative = !text.empty() && text.front() == '-';
    if (isNegative || (!text.empty() && text.front() == '+'))
        text.remove_prefix(1);
    T result;
    if (!ParseUnsigned(text.data(), text.data() + text.size(), result))
        return false;
    value = isNegative ? -result : result;
    return true;
}

/// What the short way leaves: long fractions and exponents first.
template <typename T> [[gnu::noinline]] bool ParseRealCarefully(std::string_view text, T& value) noexcept
{
    const char* const end = text.data() + text.size();
    const size_t sign = !text.empty() && text.front() == '-';
    if (text.size() > sign && IsDigit(text[sign])) {
        T result;
        const auto parsed = std::from_chars(text.data(), end, result);
        if (parsed.ptr == end && parsed.ec == std::errc() && std::fabs(result) <= std::numeric_limits<T>::max()) {
            value = result;
            return true;
        }
    }
    return ParseRealWithBlanks(text, value);
}

template <typename T> bool ParseReal(std::string_view text, T& value) noexcept
{
    const bool isNegative = !text.empty() && text.front() == '-';
    T result;
    if (!ParsePlain(text.data() + isNegative, text.data() + text.size(), result))
        return ParseRealCarefully(text, value);
    value = isNegative ? -result : result;
    return true;
}

} // namespace

bool ParseCarefully(std::string_view text, int32_t& value) noexcept
{
    return ParseInteger(text, value);
}

bool ParseCarefully(std::string_view text, uint32_t& value) noexcept
{
    return ParseInteger(text, value);
}

bool ParseCarefully(std::string_view text, int64_t& value) noexcept
{
    return ParseInteger(text, value);
}

bool ParseDouble(std::string_view text, double& value) noexcept
{
    return ParseReal(text, value);
}

bool ParseFloat(std::string_view text, float& value) noexcept
{
    return ParseReal(text, value);
}

} // namespace text
