#include "sql/KeyValue.h"

#include "platform/Guid.h"
#include "text/CodePoints.h"
#include "text/TextBuilder.h"

#include <charconv>
#include <cmath>

namespace sql {
namespace {

UtCString DefaultText(std::string_view text) noexcept
{
    return UtCString(text, UT_ENCODING_DEFAULT);
}

std::string_view WithoutTrailingZeros(std::string_view digits) noexcept
{
    digits.remove_suffix(digits.size() - 1 - digits.find_last_not_of('0'));
    if (digits.back() == '.')
        digits.remove_suffix(1);
    return digits;
}

/// A text as the ASCII characters in it: in all encodings they are units of their own.
class Units
{
public:
    Units(std::string_view bytes, eUtEncodingType encoding) noexcept
        : m_bytes(bytes), m_size(text::IsUtf16(encoding) ? 2 : 1), m_low(encoding == UT_ENCODING_UTF16_BE)
    {
    }

    size_t Size() const noexcept { return m_size; }
    size_t Count() const noexcept { return m_bytes.size() / m_size; }
    bool AreWhole() const noexcept { return m_bytes.size() % m_size == 0; }

    /// The character of a unit; 0 when it is none of ASCII.
    char At(size_t index) const noexcept
    {
        const char* const unit = m_bytes.data() + index * m_size;
        return m_size == 1 ? *unit : unit[!m_low] == 0 ? unit[m_low] : '\0';
    }

    std::string_view Between(size_t begin, size_t end) const noexcept
    {
        return m_bytes.substr(begin * m_size, (end - begin) * m_size);
    }
    std::string_view From(size_t begin) const noexcept { return m_bytes.substr(begin * m_size); }

private:
    std::string_view m_bytes;
    size_t m_size;
    size_t m_low; ///< where in a unit of two bytes the low one is
};

/// Which characters of a value get backslashes, and how many.
class Escapes
{
public:
    Escapes(const Units& value, const UtCString& op) noexcept
        : m_isLike(op.StartsWith("LIKE", false)), // KEPT K-81: "NOT LIKE" is no LIKE.
          m_beforeBackslash(m_isLike && value.Count() != 0 && value.At(0) == '\\' ? 3 : 1)
    {
    }

    size_t Before(char character) const noexcept
    {
        switch (character) {
        case '\\':
            return m_beforeBackslash; // KEPT K-81: four for one where a LIKE value begins with a backslash.
        case '\'':
        case '"':
            return 1; // KEPT K-86: a backslash, whatever the connection's mode and character set make of it.
        default:
            return m_isLike && character == '_' ? 1 : 0;
        }
    }

private:
    bool m_isLike;
    size_t m_beforeBackslash;
};

size_t CountEscapes(const Units& value, const Escapes& escapes) noexcept
{
    size_t count = 0;
    for (size_t index = 0; index < value.Count(); ++index)
        count += escapes.Before(value.At(index));
    return count;
}

} // namespace

UtCString KeyValue(double value) noexcept
{
    if (std::isnan(value))
        return UtCString("nan");
    if (std::isinf(value))
        return UtCString(value < 0 ? "-inf" : "inf");
    char digits[320]; // 309 before the point, sign, point and four behind it
    const char* const end = std::to_chars(digits, digits + sizeof(digits), value, std::chars_format::fixed, 4).ptr;
    return DefaultText(WithoutTrailingZeros({digits, static_cast<size_t>(end - digits)}));
}

UtCString KeyValue(bool value) noexcept
{
    return UtCString(value ? "TRUE" : "FALSE");
}

UtCString KeyValue(const CDateTime& value)
{
    constexpr unsigned int dateAndTime = 9;
    constexpr unsigned int timeOnly = 10;
    constexpr unsigned int dateOnly = 11;
    if (value.IsNull())
        return UtCString("null");
    return value.GetDate(value.IsDateNull() ? timeOnly : value.IsTimeNull() ? dateOnly : dateAndTime);
}

UtCString KeyValue(const _GUID& value) noexcept
{
    if (value == _GUID{})
        return UtCString("null");
    const auto digits = platform::GuidCharacters(value);
    text::TextBuilder text(UT_ENCODING_DEFAULT, digits.size() + 2);
    text.Append("{");
    text.Append({digits.data(), digits.size()});
    text.Append("}");
    return text.Take();
}

UtCString EscapedKeyValue(std::string_view value, eUtEncodingType encoding, const UtCString& op) noexcept
{
    const Units units(value, encoding);
    const Escapes escapes(units, op);
    const size_t count = CountEscapes(units, escapes);
    if (count == 0)
        return UtCString(value, encoding);
    text::TextBuilder text(encoding, value.size() + count * units.Size());
    size_t copied = 0;
    for (size_t index = 0; index < units.Count(); ++index) {
        const size_t backslashes = escapes.Before(units.At(index));
        if (backslashes == 0)
            continue;
        text.Append(units.Between(copied, index));
        text.Append(std::string_view("\\\\\\", backslashes), UT_ENCODING_DEFAULT);
        copied = index;
    }
    text.Append(units.From(copied));
    return text.Take();
}

std::string_view WithoutQuotes(std::string_view value, eUtEncodingType encoding) noexcept
{
    const Units units(value, encoding);
    const size_t count = units.Count();
    if (count < 2 || !units.AreWhole() || units.At(0) != units.At(count - 1))
        return value;
    return units.At(0) == '\'' || units.At(0) == '"' ? units.Between(1, count - 1) : value;
}

} // namespace sql
