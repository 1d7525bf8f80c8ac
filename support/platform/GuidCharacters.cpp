#include "platform/Guid.h"

namespace platform {
namespace {

using Text = std::array<char, 36>;

template <class Number> void WriteHex(Text& text, size_t position, Number number) noexcept
{
    constexpr char digits[] = "0123456789abcdef";
    for (size_t index = 2 * sizeof(Number); index-- > 0; number = static_cast<Number>(number >> 4))
        text[position + index] = digits[number & 15];
}

} // namespace

Text GuidCharacters(const _GUID& guid) noexcept
{
    constexpr size_t tailPositions[] = {19, 21, 24, 26, 28, 30, 32, 34};
    Text text;
    text.fill('-');
    WriteHex(text, 0, guid.Data1);
    WriteHex(text, 9, guid.Data2);
    WriteHex(text, 14, guid.Data3);
    for (size_t index = 0; index < std::size(tailPositions); ++index)
        WriteHex(text, tailPositions[index], guid.Data4[index]);
    return text;
}

} // namespace platform
