#include "CMyDatabase.h"

#include "client/ErrorText.h"
#include "connection/Guarded.h"
#include "text/TextBuilder.h"

#include <memory>

namespace {

/// The longest text of which the escaped form fits into the 32 bits that the client counts in on every system.
constexpr unsigned __int64 longestEscapable = 2147483647;

bool Escape(MYSQL* handle, std::string_view bytes, eUtEncodingType encoding, UtCString& out)
{
    if (bytes.size() > longestEscapable)
        return false;
    const auto buffer = std::make_unique_for_overwrite<char[]>(2 * bytes.size() + 1);
    const unsigned long length =
        mysql_real_escape_string(handle, buffer.get(), bytes.data(), static_cast<unsigned long>(bytes.size()));
    if (length > 2 * bytes.size())
        return false;
    out.SetMemCopy(reinterpret_cast<const unsigned char*>(buffer.get()), length, encoding);
    return true;
}

void AppendRowCount(text::TextBuilder& text, long count) noexcept
{
    text.AppendAscii("Query OK. ");
    text.AppendText(UtCString(count));
    text.AppendAscii(count == 1 ? " Record" : " Records");
}

/// Appends milliseconds as seconds with three decimals and a point.
void AppendSeconds(text::TextBuilder& text, unsigned long milliseconds) noexcept
{
    const UtCString thousandths(milliseconds % 1000);
    text.AppendText(UtCString(milliseconds / 1000));
    text.AppendAscii(".");
    text.AppendRepeated('0', 3 - thousandths.GetByteLength());
    text.AppendText(thousandths);
}

} // namespace

void CMyDatabase::MakeEscapeString(const UtCString& in, UtCString& out)
{
    const bool isEscaped = connection::Guarded(false, [&] {
        if (in.IsEmpty() || !m_handle)
            return false;
        const eUtEncodingType encoding = m_server.GetEncodingType();
        if (in.GetEncodingType() == encoding)
            return Escape(m_handle, in.View(), encoding, out);
        UtCString converted = in;
        return converted.ChangeEncodingType(encoding) && Escape(m_handle, converted.View(), encoding, out);
    });
    if (!isEscaped)
        out.SetEmpty();
}

void CMyDatabase::MakeEscapeString(const void* data, unsigned __int64 size, UtCString& out)
{
    // KEPT K-12: unlike the overload for texts this one leaves `out` as it was when there is nothing to escape.
    if (!data || size == 0 || !m_handle)
        return;
    const bool isEscaped = connection::Guarded(false, [&] {
        const std::string_view bytes(static_cast<const char*>(data), size);
        return Escape(m_handle, bytes, m_server.GetEncodingType(), out);
    });
    if (!isEscaped)
        out.SetEmpty();
}

UtCString CMyDatabase::GetQueryInfo()
{
    if (!m_handle)
        return UtCString();
    const char* const info = mysql_info(m_handle);
    const bool hasInfo = info && *info != '\0';
    if (!hasInfo && client::ErrorNumber(m_handle) != 0)
        return UtCString();
    constexpr size_t usualSize = 80;
    text::TextBuilder text(UT_ENCODING_DEFAULT, usualSize); // asked for after every change and select
    if (hasInfo)
        text.Append(info);
    else
        AppendRowCount(text, m_affectedRows);
    text.AppendAscii(" in ");
    AppendSeconds(text, m_queryTime);
    text.AppendAscii(" Sec");
    return text.Take();
}
