#pragma once

#include "connection/CDES.h"

/// The bytes of a number, the highest first.
template <std::size_t Size> std::array<std::uint8_t, Size> Bytes(std::uint64_t number)
{
    std::array<std::uint8_t, Size> bytes{};
    for (std::size_t index = 0; index < Size; ++index)
        bytes[index] = static_cast<std::uint8_t>(number >> (8 * (Size - 1 - index)) & 0xFFU);
    return bytes;
}

inline CDES::Block BlockOf(std::uint64_t number)
{
    return Bytes<CDES::blockSize>(number);
}
inline CDES::Key KeyOf(std::uint64_t number)
{
    return Bytes<CDES::keySize>(number);
}
