#include "sql/ValueText.h"

#include "text/TextBuilder.h"
#include "text/TextSearch.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace sql {
namespace {

constexpr std::string_view escaped("\r\n\t'\\\0", 6);

constexpr std::array<bool, 256> isEscaped = [] {
    std::array<bool, 256> table{};
    for (const char character : escaped)
        table[static_cast<unsigned char>(character)] = true;
    return table;
}();

bool IsWide(eUtEncodingType encoding) noexcept
{
    return encoding == UT_ENCODING_UTF16_LE || encoding == UT_ENCODING_UTF16_BE;
}

UtCString WithRefusal(UtCString text, double value)
{
    if (!std::isfinite(value))
        text += " out of range";
    return text;
}

} // namespace

bool IsQuotedType(MYTYPES type) noexcept
{
    return type == MYTYPE_TEXT || type == MYTYPE_BLOB || type == MYTYPE_MEMO || type == MYTYPE_DATETIME;
}

bool IsNullWord(const UtCString& value) noexcept
{
    constexpr size_t letters = 4;
    const size_t size = IsWide(value.GetEncodingType()) ? 2 * letters : letters;
    return value.GetByteLength() == size && value.EqualNoCase("null");
}

bool NeedsEscape(const UtCString& value) noexcept
{
    if (IsWide(value.GetEncodingType())) {
        return text::FindOneOf({value.View(), value.GetEncodingType()}, 0, {escaped, UT_ENCODING_DEFAULT}) !=
               text::notFound;
    }
    const std::string_view bytes = value.View(); // elsewhere these bytes are these characters
    return std::any_of(bytes.begin(), bytes.end(),
                       [](char byte) { return isEscaped[static_cast<unsigned char>(byte)]; });
}

UtCString Quoted(const UtCString& escapedValue)
{
    text::TextBuilder quoted(escapedValue.GetEncodingType(), escapedValue.GetByteLength() + 2);
    quoted.AppendAscii("'");
    quoted.AppendText(escapedValue);
    quoted.AppendAscii("'");
    return quoted.Take();
}

UtCString DoubleText(double value)
{
    return WithRefusal(UtCString(value), value);
}

UtCString FloatText(float value, eUtEncodingType encoding)
{
    constexpr int decimals = 8;
    return WithRefusal(UtCString(static_cast<double>(value), decimals, encoding), static_cast<double>(value));
}

UtCString StampUser(const UtCString& user)
{
    int end = user.Search(0, '_');
    if (end < 0)
        end = user.Search(0, ':');
    return end < 0 ? user : user.substr(0, end);
}

} // namespace sql
