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

/// What printf makes of format and arguments, in `encoding`; false, with `out` empty, when memory ran out.
bool Print(UtCString& out, eUtEncodingType encoding, const char* format, std::va_list arguments) noexcept
{
    TextBuilder builder(CharEncoding(encoding));
    if (format != nullptr)
        text::AppendPrintf(builder, CharEncoding(encoding), format, arguments);
    const bool hasFailed = builder.HasFailed();
    out = builder.Take();
    return out.ChangeEncodingType(encoding) && !hasFailed;
}

size_t ExpectedSize(std::string_view format, const UtCStringList& list) noexcept
{
    size_t size = format.size();
    for (int index = 0; index < list.GetCount(); ++index)
        size += list.item(index).GetByteLength();
    return size;
}

/// The format with its "%s" filled in `encoding`; false, with `out` empty, when memory ran out.
bool Fill(UtCString& out, std::string_view format, const UtCStringList& list, eUtEncodingType encoding) noexcept
{
    const eUtEncodingType formatEncoding = CharEncoding(encoding);
    TextBuilder builder(encoding, ExpectedSize(format, list));
    int next = 0;
    size_t copied = 0;
    for (size_t at = format.find('%'); at < format.size(); at = format.find('%', at)) {
        const char kind = ++at < format.size() ? format[at] : '\0';
        if (kind != 's' && kind != '%')
            continue;
        builder.Append(format.substr(copied, at - 1 - copied), formatEncoding);
        if (kind == '%')
            builder.Append("%", formatEncoding);
        else
            builder.AppendText(list.item(next++));
        copied = ++at;
    }
    builder.Append(format.substr(copied), formatEncoding);
    const bool hasFailed = builder.HasFailed();
    out = builder.Take();
    return !hasFailed;
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
    Print(*this, m_encoding, format, arguments);
    va_end(arguments);
}

void UtCString::AppendFormat(const char* format, ...) noexcept
{
    UtCString printed;
    std::va_list arguments;
    va_start(arguments, format);
    const bool isPrinted = Print(printed, m_encoding, format, arguments);
    va_end(arguments);
    if (isPrinted)
        *this += printed;
    else
        SetEmpty();
}

void UtCString::FormatStringList(const char* format, const UtCStringList& list, eUtEncodingType encoding) noexcept
{
    Fill(*this, OrEmpty(format), list, encoding);
}

void UtCString::AppendFormatStringList(const char* format, const UtCStringList& list, eUtEncodingType encoding) noexcept
{
    UtCString filled;
    if (Fill(filled, OrEmpty(format), list, encoding))
        *this += filled;
    else
        SetEmpty();
}
