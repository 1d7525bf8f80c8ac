#pragma once

#include "MyDbExport.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#if defined(_WIN32)
#include <guiddef.h>
#else
/// A globally unique identifier, laid out as on Windows: 16 bytes, the first three members in the machine's byte order.
struct _GUID
{
    uint32_t Data1;
    uint16_t Data2;
    uint16_t Data3;
    unsigned char Data4[8];

    bool operator==(const _GUID&) const = default;
};
using GUID = _GUID;
#endif

namespace platform {

/// Reads the standard form of a GUID: exactly 36 characters, hexadecimal digits of either case in groups of 8-4-4-4-12
/// with hyphens between them and nothing around them. False, and `guid` untouched, for every other text.
bool GuidFromText(std::string_view text, _GUID& guid) noexcept;

/// The standard form in lower case, 36 characters. `GuidFromText` reads it back as the same GUID.
std::string GuidToText(const _GUID& guid);

/// The same characters, without a zero behind them and without memory.
std::array<char, 36> GuidCharacters(const _GUID& guid) noexcept;

} // namespace platform
