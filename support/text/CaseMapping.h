#pragma once

#include <cstdint>

/// The simple case mapping of Unicode: one character to one character, independent of language and position.
namespace text {

/// The upper case of a character; itself when it has none or is no code point.
uint32_t ToUpper(uint32_t character) noexcept;

/// The lower case of a character; itself when it has none or is no code point.
uint32_t ToLower(uint32_t character) noexcept;

/// The same for the ASCII letters among the eight bytes of a word; its other bytes stay.
constexpr uint64_t ToUpperAscii(uint64_t word) noexcept;
constexpr uint64_t ToLowerAscii(uint64_t word) noexcept;

/// 0x20 in every byte of a word that is an ASCII byte from `first` to `last`, 0 in the others.
constexpr uint64_t CaseBits(uint64_t word, unsigned char first, unsigned char last) noexcept
{
    constexpr uint64_t everyByte = 0x0101010101010101u;
    const uint64_t low = word & 0x7F * everyByte;
    const uint64_t reachesFirst = low + (0x80u - first) * everyByte;
    const uint64_t exceedsLast = low + (0x7Fu - last) * everyByte;
    return (~word & reachesFirst & ~exceedsLast & 0x80 * everyByte) >> 2;
}

constexpr uint64_t ToUpperAscii(uint64_t word) noexcept
{
    return word ^ CaseBits(word, 'a', 'z');
}

constexpr uint64_t ToLowerAscii(uint64_t word) noexcept
{
    return word ^ CaseBits(word, 'A', 'Z');
}

} // namespace text
