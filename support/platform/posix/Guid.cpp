#include "platform/Guid.h"

#include <algorithm>
#include <charconv>

namespace platform {
namespace {

constexpr size_t textLength = 36;
constexpr std::array<size_t, 4> hyphenPositions = {8, 13, 18, 23};
constexpr std::array<size_t, 8> tailPositions = {19, 21, 24, 26, 28, 30, 32, 34};

bool IsHyphenPosition(size_t position)
{
    return std::find(hyphenPositions.begin(), hyphenPositions.end(), position) != hyphenPositions.end();
}

bool IsHexDigit(char character)
{
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'f') ||
           (character >= 'A' && character <= 'F');
}

bool HasStandardForm(std::string_view text)
{
    if (text.size() != textLength)
        return false;
    for (size_t position = 0; position < textLength; ++position) {
        const bool fits = IsHyphenPosition(position) ? text[position] == '-' : IsHexDigit(text[position]);
        if (!fits)
            return false;
    }
    return true;
}

template <class Number> void ReadHex(std::string_view text, size_t position, Number& number)
{
    const char* const first = text.data() + position;
    std::from_chars(first, first + 2 * sizeof(Number), number, 16);
}

} // namespace

bool GuidFromText(std::string_view text, _GUID& guid) noexcept
{
    if (!HasStandardForm(text))
        return false;
    ReadHex(text, 0, guid.Data1);
    ReadHex(text, 9, guid.Data2);
    ReadHex(text, 14, guid.Data3);
    for (size_t index = 0; index < tailPositions.size(); ++index)
        ReadHex(text, tailPositions[index], guid.Data4[index]);
    return true;
}

} // namespace platform
