#include "text/Printf.h"

#include "text/CodePoints.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace text {

namespace {

/// The decimals that a double can have; more of them are zeros.
constexpr int mostDigits = 1100;

/// The widest field and the most digits that are written; a format that asks for more gets this.
constexpr int widest = 100000;

enum class Length
{
    Char,
    Short,
    Int,
    Long,
    LongLong,
    Max,
    Size,
    Difference,
    LongDouble
};

/// One conversion directive.
struct Spec
{
    bool isLeft = false;
    bool isZeroPadded = false;
    bool isAlternate = false;
    char plus = 0; ///< what a number without "-" gets in front: '+', ' ' or nothing
    int width = 0;
    int precision = -1; ///< -1: not given
    Length length = Length::Int;
    char conversion = 0;
};

/// A va_list that functions can pass on by reference.
struct Arguments
{
    explicit Arguments(std::va_list source) noexcept { va_copy(list, source); }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;
    ~Arguments() { va_end(list); }
    std::va_list list;
};

/// A formatted number: sign or base prefix, zeros, digits, zeros, exponent.
struct Number
{
    char prefix[4] = {};
    size_t prefixSize = 0;
    size_t leadingZeros = 0;
    std::string_view digits;
    size_t trailingZeros = 0;
    char exponent[8] = {};
    size_t exponentSize = 0;

    void AddPrefix(char c) noexcept { prefix[prefixSize++] = c; }
    size_t Size() const noexcept { return prefixSize + leadingZeros + digits.size() + trailingZeros + exponentSize; }
};

// --- Reading a directive

bool ReadFlag(char c, Spec& spec) noexcept
{
    switch (c) {
    case '-':
        spec.isLeft = true;
        return true;
    case '0':
        spec.isZeroPadded = true;
        return true;
    case '#':
        spec.isAlternate = true;
        return true;
    case '+':
        spec.plus = '+';
        return true;
    case ' ':
        spec.plus = spec.plus == '+' ? '+' : ' ';
        return true;
    default:
        return false;
    }
}

int ReadNumber(const char*& at, Arguments& arguments) noexcept
{
    if (*at == '*') {
        ++at;
        return va_arg(arguments.list, int);
    }
    int number = 0;
    for (; *at >= '0' && *at <= '9'; ++at)
        number = static_cast<int>(std::min<int64_t>(int64_t{number} * 10 + (*at - '0'), INT_MAX));
    return number;
}

Length ReadLength(const char*& at) noexcept
{
    static constexpr struct
    {
        std::string_view letters;
        Length length;
    } lengths[] = {{"hh", Length::Char}, {"h", Length::Short}, {"ll", Length::LongLong},  {"l", Length::Long},
                   {"j", Length::Max},   {"z", Length::Size},  {"t", Length::Difference}, {"L", Length::LongDouble}};
    for (const auto& candidate : lengths) {
        if (std::strncmp(at, candidate.letters.data(), candidate.letters.size()) == 0) {
            at += candidate.letters.size();
            return candidate.length;
        }
    }
    return Length::Int;
}

Spec ReadSpec(const char*& at, Arguments& arguments) noexcept
{
    Spec spec;
    while (ReadFlag(*at, spec))
        ++at;
    spec.width = ReadNumber(at, arguments);
    if (spec.width < 0)
        spec.isLeft = true;
    spec.width = std::min(std::abs(std::max(spec.width, -widest)), widest);
    if (*at == '.') {
        ++at;
        spec.precision = std::max(ReadNumber(at, arguments), -1);
    }
    spec.length = ReadLength(at);
    spec.conversion = *at;
    if (*at != 0)
        ++at;
    return spec;
}

// --- Writing

void AppendPadded(TextBuilder& out, const Spec& spec, std::string_view text) noexcept
{
    const size_t width = static_cast<size_t>(spec.width);
    const size_t padding = width > text.size() ? width - text.size() : 0;
    if (!spec.isLeft)
        out.AppendRepeated(' ', padding);
    out.Append(text);
    if (spec.isLeft)
        out.AppendRepeated(' ', padding);
}

void AppendNumber(TextBuilder& out, const Spec& spec, Number number, bool mayZeroPad) noexcept
{
    const size_t width = static_cast<size_t>(spec.width);
    size_t padding = width > number.Size() ? width - number.Size() : 0;
    if (spec.isZeroPadded && !spec.isLeft && mayZeroPad)
        number.leadingZeros += std::exchange(padding, 0);
    if (!spec.isLeft)
        out.AppendRepeated(' ', padding);
    out.Append({number.prefix, number.prefixSize});
    out.AppendRepeated('0', number.leadingZeros);
    out.Append(number.digits);
    out.AppendRepeated('0', number.trailingZeros);
    out.Append({number.exponent, number.exponentSize});
    if (spec.isLeft)
        out.AppendRepeated(' ', padding);
}

void AddSign(Number& number, bool isNegative, char plus) noexcept
{
    if (isNegative)
        number.AddPrefix('-');
    else if (plus != 0)
        number.AddPrefix(plus);
}

void ToUpperAscii(char* begin, char* end) noexcept
{
    std::transform(begin, end, begin, [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c; });
}

// --- Integers

int64_t TakeSigned(Length length, Arguments& arguments) noexcept
{
    switch (length) {
    case Length::Char:
        return static_cast<signed char>(va_arg(arguments.list, int));
    case Length::Short:
        return static_cast<short>(va_arg(arguments.list, int));
    case Length::Long:
        return va_arg(arguments.list, long);
    case Length::LongLong:
    case Length::LongDouble:
        return va_arg(arguments.list, long long);
    case Length::Max:
        return va_arg(arguments.list, intmax_t);
    case Length::Size:
    case Length::Difference:
        return va_arg(arguments.list, ptrdiff_t);
    default:
        return va_arg(arguments.list, int);
    }
}

uint64_t TakeUnsigned(Length length, Arguments& arguments) noexcept
{
    switch (length) {
    case Length::Char:
        return static_cast<unsigned char>(va_arg(arguments.list, int));
    case Length::Short:
        return static_cast<unsigned short>(va_arg(arguments.list, int));
    case Length::Int:
        return va_arg(arguments.list, unsigned int);
    case Length::Long:
        return va_arg(arguments.list, unsigned long);
    default:
        return static_cast<uint64_t>(TakeSigned(length, arguments));
    }
}

int BaseOf(char conversion) noexcept
{
    return conversion == 'o' ? 8 : conversion == 'x' || conversion == 'X' || conversion == 'p' ? 16 : 10;
}

void AppendInteger(TextBuilder& out, const Spec& spec, uint64_t magnitude, Number number) noexcept
{
    char digits[24];
    char* end = digits;
    if (magnitude != 0 || spec.precision != 0)
        end = std::to_chars(digits, digits + sizeof(digits), magnitude, BaseOf(spec.conversion)).ptr;
    if (spec.conversion == 'X')
        ToUpperAscii(digits, end);
    number.digits = {digits, static_cast<size_t>(end - digits)};
    const auto wanted = static_cast<size_t>(std::clamp(spec.precision, 0, widest));
    if (wanted > number.digits.size())
        number.leadingZeros = wanted - number.digits.size();
    const bool startsWithZero = number.leadingZeros != 0 || (!number.digits.empty() && digits[0] == '0');
    if (spec.isAlternate && spec.conversion == 'o' && !startsWithZero)
        number.leadingZeros = 1;
    AppendNumber(out, spec, number, spec.precision < 0);
}

void AppendSigned(TextBuilder& out, const Spec& spec, int64_t value) noexcept
{
    Number number;
    AddSign(number, value < 0, spec.plus);
    const auto bits = static_cast<uint64_t>(value);
    AppendInteger(out, spec, value < 0 ? 0 - bits : bits, number);
}

void AppendUnsigned(TextBuilder& out, const Spec& spec, uint64_t value) noexcept
{
    Number number;
    if (spec.isAlternate && value != 0 && BaseOf(spec.conversion) == 16) {
        number.AddPrefix('0');
        number.AddPrefix(spec.conversion == 'X' ? 'X' : 'x');
    }
    AppendInteger(out, spec, value, number);
}

// --- Floating point

std::chars_format NotationOf(char lowerConversion) noexcept
{
    switch (lowerConversion) {
    case 'f':
        return std::chars_format::fixed;
    case 'e':
        return std::chars_format::scientific;
    case 'a':
        return std::chars_format::hex;
    default:
        return std::chars_format::general;
    }
}

size_t CountSignificantDigits(std::string_view digits) noexcept
{
    const size_t first = digits.find_first_of("123456789");
    const std::string_view counted = first == std::string_view::npos ? digits : digits.substr(first);
    return counted.size() - static_cast<size_t>(std::count(counted.begin(), counted.end(), '.'));
}

void SplitExponent(Number& number, char lowerConversion) noexcept
{
    const size_t at = std::min(number.digits.find_first_of(lowerConversion == 'a' ? "pP" : "eE"), number.digits.size());
    const std::string_view exponent = number.digits.substr(at);
    std::copy(exponent.begin(), exponent.end(), number.exponent);
    number.exponentSize = exponent.size();
    number.digits = number.digits.substr(0, at);
}

/// The zeros that a precision beyond that of the buffer wants, and what the alternate form adds: point, zeros of "%g".
void CompleteDecimals(Number& number, const Spec& spec, char lowerConversion, int precision, char* digits) noexcept
{
    SplitExponent(number, lowerConversion);
    if (spec.isAlternate && number.digits.find('.') == std::string_view::npos) {
        digits[number.digits.size()] = '.';
        number.digits = {digits, number.digits.size() + 1};
    }
    const auto wanted = static_cast<size_t>(std::clamp(precision, 0, widest));
    const size_t has = lowerConversion == 'g' ? CountSignificantDigits(number.digits) : size_t{mostDigits};
    if (wanted > has && (lowerConversion != 'g' || spec.isAlternate))
        number.trailingZeros = wanted - has;
}

char* WriteMagnitude(char* begin, char* end, double magnitude, char lowerConversion, int precision) noexcept
{
    if (precision < 0)
        return std::to_chars(begin, end, magnitude, std::chars_format::hex).ptr;
    return std::to_chars(begin, end, magnitude, NotationOf(lowerConversion), std::min(precision, mostDigits)).ptr;
}

void AppendReal(TextBuilder& out, const Spec& spec, double value) noexcept
{
    const char lower = static_cast<char>(spec.conversion | 0x20);
    const bool isUpper = spec.conversion != lower;
    const int precision = spec.precision < 0 && lower != 'a' ? 6 : spec.precision;
    Number number;
    AddSign(number, std::signbit(value), spec.plus);
    char digits[mostDigits + 330];
    char* const end = WriteMagnitude(digits, digits + sizeof(digits) - 1, std::fabs(value), lower, precision);
    if (isUpper)
        ToUpperAscii(digits, end);
    number.digits = {digits, static_cast<size_t>(end - digits)};
    if (!std::isfinite(value))
        return AppendNumber(out, spec, number, false);
    if (lower == 'a') {
        number.AddPrefix('0');
        number.AddPrefix(isUpper ? 'X' : 'x');
    }
    CompleteDecimals(number, spec, lower, precision, digits);
    AppendNumber(out, spec, number, true);
}

// --- Texts

std::string_view AtMost(const char* text, int precision) noexcept
{
    if (precision < 0)
        return text;
    const auto limit = static_cast<size_t>(precision);
    const void* const zero = std::memchr(text, 0, limit);
    return {text, zero == nullptr ? limit : static_cast<size_t>(static_cast<const char*>(zero) - text)};
}

void AppendCharText(TextBuilder& out, const Spec& spec, const char* text) noexcept
{
    AppendPadded(out, spec, text == nullptr ? AtMost("(null)", spec.precision) : AtMost(text, spec.precision));
}

/// The whole characters that fit into `precision` bytes. Nothing behind them is read: with a precision the text needs
/// no terminator.
void AppendWideAtMost(TextBuilder& out, const wchar_t* text, int precision) noexcept
{
    WithCodec(out.GetEncodingType(), [&](auto codec) {
        size_t room = precision < 0 ? SIZE_MAX : static_cast<size_t>(precision);
        while (room != 0 && *text != 0) {
            const uint32_t character = NextWide(text);
            if (codec.Size(character) > room)
                return;
            char bytes[4];
            const size_t size = static_cast<size_t>(codec.Put(bytes, character) - bytes);
            out.Append({bytes, size});
            room -= size;
        }
    });
}

void AppendWideText(TextBuilder& out, const Spec& spec, const wchar_t* text, eUtEncodingType encoding) noexcept
{
    if (text == nullptr)
        return AppendCharText(out, spec, nullptr);
    TextBuilder converted(encoding);
    AppendWideAtMost(converted, text, spec.precision);
    if (converted.HasFailed())
        return out.Fail();
    AppendPadded(out, spec, converted.Take().View());
}

void AppendCharacter(TextBuilder& out, const Spec& spec, Arguments& arguments, eUtEncodingType wideEncoding) noexcept
{
    const int value = va_arg(arguments.list, int);
    if (spec.length == Length::Long) {
        const wchar_t wide[] = {static_cast<wchar_t>(value), 0};
        return AppendPadded(out, spec, UtCString(wide, wideEncoding).View());
    }
    const char character = static_cast<char>(value);
    AppendPadded(out, spec, {&character, 1});
}

/// False when the conversion does not exist.
bool AppendConversion(TextBuilder& out, const Spec& spec, Arguments& arguments, eUtEncodingType wideEncoding) noexcept
{
    switch (spec.conversion) {
    case 'd':
    case 'i':
        AppendSigned(out, spec, TakeSigned(spec.length, arguments));
        return true;
    case 'u':
    case 'o':
    case 'x':
    case 'X':
        AppendUnsigned(out, spec, TakeUnsigned(spec.length, arguments));
        return true;
    case 'f':
    case 'F':
    case 'e':
    case 'E':
    case 'g':
    case 'G':
    case 'a':
    case 'A':
        AppendReal(out, spec,
                   spec.length == Length::LongDouble ? static_cast<double>(va_arg(arguments.list, long double))
                                                     : va_arg(arguments.list, double));
        return true;
    case 's':
        if (spec.length == Length::Long)
            AppendWideText(out, spec, va_arg(arguments.list, const wchar_t*), wideEncoding);
        else
            AppendCharText(out, spec, va_arg(arguments.list, const char*));
        return true;
    case 'c':
        AppendCharacter(out, spec, arguments, wideEncoding);
        return true;
    case 'p': {
        Spec pointer = spec;
        pointer.isAlternate = true;
        AppendUnsigned(out, pointer, reinterpret_cast<uintptr_t>(va_arg(arguments.list, void*)));
        return true;
    }
    case 'n':
        static_cast<void>(va_arg(arguments.list, void*));
        return true;
    case '%':
        out.Append("%");
        return true;
    default:
        return false;
    }
}

} // namespace

void AppendPrintf(TextBuilder& out, eUtEncodingType wideEncoding, const char* format, std::va_list source) noexcept
{
    Arguments arguments(source);
    while (*format != 0) {
        const size_t literal = std::strcspn(format, "%");
        out.Append({format, literal});
        format += literal;
        if (*format == 0)
            return;
        const char* const start = format++;
        const Spec spec = ReadSpec(format, arguments);
        if (!AppendConversion(out, spec, arguments, wideEncoding))
            out.Append({start, static_cast<size_t>(format - start)});
    }
}

} // namespace text
