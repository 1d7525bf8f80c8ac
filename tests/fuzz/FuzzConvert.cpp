#include "text/UtCString.h"

#include <cerrno>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

// Convert agrees with a grammar checked character by character and with the C library's strtoll and strtod in the "C"
// locale, leaves its target alone when it fails, and gives the same in every encoding.

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

std::string Trimmed(std::string text)
{
    const size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

size_t SkipDigits(const std::string& text, size_t at)
{
    while (at < text.size() && text[at] >= '0' && text[at] <= '9')
        ++at;
    return at;
}

size_t SkipSign(const std::string& text, size_t at)
{
    return at < text.size() && (text[at] == '+' || text[at] == '-') ? at + 1 : at;
}

bool IsInteger(const std::string& text)
{
    const size_t digits = SkipSign(text, 0);
    return digits < text.size() && SkipDigits(text, digits) == text.size();
}

bool IsReal(const std::string& text)
{
    const size_t begin = SkipSign(text, 0);
    size_t at = SkipDigits(text, begin);
    size_t digits = at - begin;
    if (at < text.size() && text[at] == '.') {
        const size_t end = SkipDigits(text, at + 1);
        digits += end - at - 1;
        at = end;
    }
    if (digits == 0)
        return false;
    if (at == text.size())
        return true;
    if (text[at] != 'e' && text[at] != 'E')
        return false;
    const size_t exponent = SkipSign(text, at + 1);
    return exponent < text.size() && SkipDigits(text, exponent) == text.size();
}

template <typename T>
void CheckInteger(const UtCString& text, const std::string& trimmed, long long least, long long most)
{
    errno = 0;
    const long long expected = IsInteger(trimmed) ? std::strtoll(trimmed.c_str(), nullptr, 10) : 0;
    const bool isMinusAllowed = least < 0 || trimmed.find('-') == std::string::npos;
    const bool isNumber = IsInteger(trimmed) && errno == 0 && expected >= least && expected <= most && isMinusAllowed;
    T value = 99;
    Require(text.Convert(value) == isNumber);
    Require(value == (isNumber ? static_cast<T>(expected) : T{99}));
}

template <typename T> void CheckReal(const UtCString& text, bool isReal, T expected)
{
    const bool isNumber = isReal && std::isfinite(expected);
    T value = 99;
    Require(text.Convert(value) == isNumber);
    Require(value == (isNumber ? expected : T{99}));
    Require(!isNumber || std::signbit(value) == std::signbit(expected));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::string trimmed = Trimmed(bytes);
    const bool isReal = IsReal(trimmed);
    const UtCString source(bytes, UT_ENCODING_DEFAULT);
    for (const eUtEncodingType encoding : {UT_ENCODING_DEFAULT, UT_ENCODING_UTF16_LE, UT_ENCODING_UTF16_BE}) {
        const UtCString text(source, encoding);
        CheckInteger<int>(text, trimmed, INT32_MIN, INT32_MAX);
        CheckInteger<long>(text, trimmed, INT32_MIN, INT32_MAX);
        CheckInteger<unsigned long>(text, trimmed, 0, UINT32_MAX);
        CheckInteger<long long>(text, trimmed, INT64_MIN, INT64_MAX);
        CheckReal<double>(text, isReal, isReal ? std::strtod(trimmed.c_str(), nullptr) : 0);
        CheckReal<float>(text, isReal, isReal ? std::strtof(trimmed.c_str(), nullptr) : 0);
    }
    return 0;
}
