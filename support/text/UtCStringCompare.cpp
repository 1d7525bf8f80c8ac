#include "text/CodePoints.h"
#include "text/UtCString.h"

#include <cstring>

bool UtCString::EqualsOtherEncoding(const UtCString& other) const noexcept
{
    return text::Compare(View(), m_encoding, other.View(), other.m_encoding) == 0;
}

uint64_t UtCString::HashOfCharacters() const noexcept
{
    return text::HashCharacters(View(), m_encoding);
}

bool UtCString::operator==(const char* text) const noexcept
{
    const std::string_view bytes = text == nullptr ? std::string_view() : std::string_view(text);
    if (m_encoding == UT_ENCODING_DEFAULT)
        return View() == bytes;
    return text::Compare(View(), m_encoding, bytes, UT_ENCODING_DEFAULT) == 0;
}

bool UtCString::operator<(const UtCString& other) const noexcept
{
    return text::Compare(View(), m_encoding, other.View(), other.m_encoding) < 0;
}

bool UtCString::EqualNoCase(const UtCString& other) const noexcept
{
    return CompareToNoCase(other) == 0;
}

bool UtCString::EqualNoCase(const char* text, eUtEncodingType encoding) const noexcept
{
    const std::string_view bytes = text == nullptr ? std::string_view() : std::string_view(text);
    const eUtEncodingType charEncoding = text::IsUtf16(encoding) ? UT_ENCODING_DEFAULT : encoding;
    return text::CompareNoCase(View(), m_encoding, bytes, charEncoding) == 0;
}

int UtCString::CompareToNoCase(const UtCString& other) const noexcept
{
    return text::CompareNoCase(View(), m_encoding, other.View(), other.m_encoding);
}
