#include "CMyDatabase.h"

#include "client/ErrorText.h"
#include "connection/Guarded.h"

#include <memory>
#include <string>

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

/// Appends milliseconds as seconds with three decimals and a point.
void AppendSeconds(std::string& text, unsigned long milliseconds)
{
    const std::string thousandths = std::to_string(milliseconds % 1000);
    text += std::to_string(milliseconds / 1000);
    text += '.';
    text.append(3 - thousandths.size(), '0');
    text += thousandths;
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
    return connection::Guarded(UtCString(), [&] {
        if (!m_handle)
            return UtCString();
        const char* info = mysql_info(m_handle);
        std::string text;
        text.reserve(64); // asked for after every select
        text = info ? info : "";
        if (text.empty() && client::ErrorNumber(m_handle) == 0) {
            text += "Query OK. ";
            text += std::to_string(m_affectedRows);
            text += m_affectedRows == 1 ? " Record" : " Records";
        }
        if (!text.empty()) {
            text += " in ";
            AppendSeconds(text, m_queryTime);
            text += " Sec";
        }
        return UtCString(text, UT_ENCODING_DEFAULT);
    });
}
