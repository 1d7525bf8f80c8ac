#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

/// The hash of a text's characters in UTF-8, as a sequence of steps over 8-byte words. The last word holds the remaining
/// bytes and zeros; the length goes into the start value, so that texts which differ in trailing zeros differ too.
namespace text {

inline constexpr uint64_t asciiMask = 0x8080808080808080u;

inline uint64_t LoadWord(const char* at) noexcept
{
    uint64_t word;
    std::memcpy(&word, at, sizeof(word));
    return word;
}

/// The first `count` (0 to 7) bytes of a word in memory order; the others become zero.
constexpr uint64_t KeepFirstBytes(uint64_t word, size_t count) noexcept
{
    if constexpr (std::endian::native == std::endian::little)
        return word & ((uint64_t{1} << (8 * count)) - 1);
    else
        return count == 0 ? 0 : word & (~uint64_t{0} << (8 * (8 - count)));
}

constexpr uint64_t HashStart(size_t size) noexcept
{
    return size * 0x9E3779B97F4A7C15u;
}

constexpr uint64_t HashStep(uint64_t hash, uint64_t word) noexcept
{
    const uint64_t product = (hash ^ word) * 0xFF51AFD7ED558CCDu;
    return product ^ (product >> 32);
}

} // namespace text
