#pragma once

#include <cstdint>

/// A globally unique identifier, laid out as the platform's GUID.
struct _GUID
{
    uint32_t Data1;
    uint16_t Data2;
    uint16_t Data3;
    unsigned char Data4[8];

    bool operator==(const _GUID&) const = default;
};
using GUID = _GUID;
