#include "sql/ValueText.h"

#include "text/CodePoints.h"
#include "text/TextBuilder.h"
#include "text/TextSearch.h"

#include <cmath>

namespace sql {
namespace {

constexpr std::string_view escaped("\r\n\t'\\\0", 6);

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
    const size_t size = text::IsUtf16(value.GetEncodingType()) ? 2 * letters : letters;
    return value.GetByteLength() == size && value.EqualNoCase("null");
}

bool NeedsEscape(const UtCString& value) noexcept
{
    return text::FindOneOf({value.View(), value.GetEncodingType()}, 0, {escaped, UT_ENCODING_DEFAULT}) !=
           text::notFound;
}

UtCString Quoted(const UtCString& escapedValue)
{
    if (text::IsUtf16(escapedValue.GetEncodingType())) { // an odd last byte would take half of the closing apostrophe
        const UtCString narrow(escapedValue, UT_ENCODING_UTF8);
        return narrow.IsEmpty() == escapedValue.IsEmpty() ? Quoted(narrow) : UtCString();
    }
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
