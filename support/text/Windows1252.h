#pragma once

#include <cstdint>

namespace text {

/// The code points of the Windows-1252 bytes 0x80 to 0x9F. The five bytes that the code page leaves undefined stand for
/// the control characters of the same number, so that every byte survives a round trip.
inline constexpr uint16_t windows1252High[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr uint32_t FromWindows1252(unsigned char byte) noexcept
{
    return byte < 0x80 || byte >= 0xA0 ? byte : windows1252High[byte - 0x80];
}

/// The byte of a code point, or -1 when Windows-1252 has none.
constexpr int ToWindows1252(uint32_t codePoint) noexcept
{
    if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF))
        return static_cast<int>(codePoint);
    for (int index = 0; index < 32; ++index)
        if (windows1252High[index] == codePoint)
            return 0x80 + index;
    return -1;
}

} // namespace text
