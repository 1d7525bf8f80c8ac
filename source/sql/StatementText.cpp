#include "sql/StatementText.h"

#include "text/TextSearch.h"

namespace sql {

namespace {

bool IsTrimmed(char character) noexcept
{
    return character == ' ' || character == '\r' || character == '\n';
}

std::string_view TrimUnits(std::string_view bytes, size_t lowByte) noexcept
{
    constexpr size_t unitSize = 2;
    size_t size = bytes.size() - bytes.size() % unitSize;
    while (size != 0 && bytes[size - 1 - lowByte] == '\0' && IsTrimmed(bytes[size - unitSize + lowByte]))
        size -= unitSize;
    return bytes.substr(0, size);
}

} // namespace

std::string_view TrimStatement(std::string_view bytes, eUtEncodingType encoding) noexcept
{
    if (encoding == UT_ENCODING_UTF16_LE)
        return TrimUnits(bytes, 0);
    if (encoding == UT_ENCODING_UTF16_BE)
        return TrimUnits(bytes, 1);
    size_t size = bytes.size();
    while (size != 0 && IsTrimmed(bytes[size - 1]))
        --size;
    return bytes.substr(0, size);
}

bool IsBlank(std::string_view bytes, eUtEncodingType encoding) noexcept
{
    return text::LeadingEnd({bytes, encoding}, {" ", UT_ENCODING_DEFAULT}) == bytes.size();
}

} // namespace sql
