#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

/// The hash of a text's characters in UTF-8, as a sequence of steps over 8-byte words. The last word is padded with
/// zeros; the size goes into the start value, so that texts which differ in trailing zero bytes differ too.
namespace text {

inline constexpr uint64_t asciiMask = 0x8080808080808080u;

inline uint64_t LoadWord(const char* at) noexcept
{
    uint64_t word;
    std::memcpy(&word, at, sizeof(word));
    return word;
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
