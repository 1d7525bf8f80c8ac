#include "text/CodePoints.h"
#include "text/Printf.h"
#include "text/TextBuilder.h"
#include "text/UtCString.h"
#include "text/UtCStringList.h"

#include <cstdarg>
#include <utility>

using text::TextBuilder;

namespace {

/// The encoding in which a zero-terminated char text stands for a text in `encoding`.
eUtEncodingType CharEncoding(eUtEncodingType encoding) noexcept
{
    return text::IsUtf16(encoding) ? UT_ENCODING_DEFAULT : encoding;
}

UtCString Printed(eUtEncodingType encoding, const char* format, std::va_list arguments) noexcept
{
    TextBuilder builder(CharEncoding(encoding));
    if (format != nullptr)
        text::AppendPrintf(builder, CharEncoding(encoding), format, arguments);
    UtCString result = builder.Take();
    if (result.GetEncodingType() != encoding)
        result.ChangeEncodingType(encoding);
    return result;
}

UtCString Filled(std::string_view format, const UtCStringList& list, eUtEncodingType encoding) noexcept
{
    const eUtEncodingType formatEncoding = CharEncoding(encoding);
    TextBuilder builder(encoding);
    int next = 0;
    size_t copied = 0;
    for (size_t at = format.find('%'); at != format.npos; at = format.find('%', at)) {
        const char kind = at + 1 < format.size() ? format[at + 1] : '\0';
        ++at;
        if (kind != 's' && kind != '%')
            continue;
        builder.Append(format.substr(copied, at - 1 - copied), formatEncoding);
        if (kind == '%')
            builder.Append("%", formatEncoding);
        else if (next < list.GetCount())
            builder.AppendText(list.item(next++));
        copied = ++at;
    }
    builder.Append(format.substr(copied), formatEncoding);
    return builder.Take();
}

std::string_view OrEmpty(const char* format) noexcept
{
    return format == nullptr ? std::string_view() : std::string_view(format);
}

} // namespace

void UtCString::Format(const char* format, ...) noexcept
{
    std::va_list arguments;
    va_start(arguments, format);
    *this = Printed(m_encoding, format, arguments);
    va_end(arguments);
}

void UtCString::AppendFormat(const char* format, ...) noexcept
{
    std::va_list arguments;
    va_start(arguments, format);
    const UtCString printed = Printed(m_encoding, format, arguments);
    va_end(arguments);
    *this += printed;
}

void UtCString::FormatStringList(const char* format, const UtCStringList& list, eUtEncodingType encoding) noexcept
{
    *this = Filled(OrEmpty(format), list, encoding);
}

void UtCString::AppendFormatStringList(const char* format, const UtCStringList& list,
                                       eUtEncodingType encoding) noexcept
{
    *this += Filled(OrEmpty(format), list, encoding);
}
