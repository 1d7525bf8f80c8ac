#pragma once

#include "MyDbExport.h"

#include <array>
#include <cstdint>
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

/// The standard form in lower case, without a zero behind it. `GuidFromText` reads it back as the same GUID. Needs no
/// memory, which the function of Windows asks for.
std::array<char, 36> GuidCharacters(const _GUID& guid) noexcept;

} // namespace platform
