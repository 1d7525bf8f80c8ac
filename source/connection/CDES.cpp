#include "connection/CDES.h"

namespace {

// The tables of FIPS 46-3. They count bits from 1, the most significant one first.
constexpr std::uint8_t initialPermutation[64] = {58, 50, 42, 34, 26, 18, 10, 2, 60, 52, 44, 36, 28, 20, 12, 4, //
                                                 62, 54, 46, 38, 30, 22, 14, 6, 64, 56, 48, 40, 32, 24, 16, 8, //
                                                 57, 49, 41, 33, 25, 17, 9,  1, 59, 51, 43, 35, 27, 19, 11, 3, //
                                                 61, 53, 45, 37, 29, 21, 13, 5, 63, 55, 47, 39, 31, 23, 15, 7};

constexpr std::uint8_t finalPermutation[64] = {40, 8, 48, 16, 56, 24, 64, 32, 39, 7, 47, 15, 55, 23, 63, 31, //
                                               38, 6, 46, 14, 54, 22, 62, 30, 37, 5, 45, 13, 53, 21, 61, 29, //
                                               36, 4, 44, 12, 52, 20, 60, 28, 35, 3, 43, 11, 51, 19, 59, 27, //
                                               34, 2, 42, 10, 50, 18, 58, 26, 33, 1, 41, 9,  49, 17, 57, 25};

constexpr std::uint8_t expansion[48] = {
    32, 1,  2,  3,  4,  5,  4,  5,  6,  7,  8,  9,  8,  9,  10, 11, 12, 13, 12, 13, 14, 15, 16, 17, //
    16, 17, 18, 19, 20, 21, 20, 21, 22, 23, 24, 25, 24, 25, 26, 27, 28, 29, 28, 29, 30, 31, 32, 1};

constexpr std::uint8_t roundPermutation[32] = {16, 7, 20, 21, 29, 12, 28, 17, 1,  15, 23, 26, 5,  18, 31, 10, //
                                               2,  8, 24, 14, 32, 27, 3,  9,  19, 13, 30, 6,  22, 11, 4,  25};

constexpr std::uint8_t permutedChoice1[56] = {
    57, 49, 41, 33, 25, 17, 9,  1, 58, 50, 42, 34, 26, 18, 10, 2, 59, 51, 43, 35, 27, 19, 11, 3, 60, 52, 44, 36, //
    63, 55, 47, 39, 31, 23, 15, 7, 62, 54, 46, 38, 30, 22, 14, 6, 61, 53, 45, 37, 29, 21, 13, 5, 28, 20, 12, 4};

constexpr std::uint8_t permutedChoice2[48] = {
    14, 17, 11, 24, 1,  5,  3,  28, 15, 6,  21, 10, 23, 19, 12, 4,  26, 8,  16, 7,  27, 20, 13, 2, //
    41, 52, 31, 37, 47, 55, 30, 40, 51, 45, 33, 48, 44, 49, 39, 56, 34, 53, 46, 42, 50, 36, 29, 32};

constexpr std::uint8_t rotations[16] = {1, 1, 2, 2, 2, 2, 2, 2, 1, 2, 2, 2, 2, 2, 2, 1};

// Four rows of sixteen for each box: the outer two bits of the six choose the row, the inner four the column.
// clang-format off
constexpr std::uint8_t substitutionBoxes[8][64] = {
    {14,  4, 13,  1,  2, 15, 11,  8,  3, 10,  6, 12,  5,  9,  0,  7,
      0, 15,  7,  4, 14,  2, 13,  1, 10,  6, 12, 11,  9,  5,  3,  8,
      4,  1, 14,  8, 13,  6,  2, 11, 15, 12,  9,  7,  3, 10,  5,  0,
     15, 12,  8,  2,  4,  9,  1,  7,  5, 11,  3, 14, 10,  0,  6, 13},
    {15,  1,  8, 14,  6, 11,  3,  4,  9,  7,  2, 13, 12,  0,  5, 10,
      3, 13,  4,  7, 15,  2,  8, 14, 12,  0,  1, 10,  6,  9, 11,  5,
      0, 14,  7, 11, 10,  4, 13,  1,  5,  8, 12,  6,  9,  3,  2, 15,
     13,  8, 10,  1,  3, 15,  4,  2, 11,  6,  7, 12,  0,  5, 14,  9},
    {10,  0,  9, 14,  6,  3, 15,  5,  1, 13, 12,  7, 11,  4,  2,  8,
     13,  7,  0,  9,  3,  4,  6, 10,  2,  8,  5, 14, 12, 11, 15,  1,
     13,  6,  4,  9,  8, 15,  3,  0, 11,  1,  2, 12,  5, 10, 14,  7,
      1, 10, 13,  0,  6,  9,  8,  7,  4, 15, 14,  3, 11,  5,  2, 12},
    { 7, 13, 14,  3,  0,  6,  9, 10,  1,  2,  8,  5, 11, 12,  4, 15,
     13,  8, 11,  5,  6, 15,  0,  3,  4,  7,  2, 12,  1, 10, 14,  9,
     10,  6,  9,  0, 12, 11,  7, 13, 15,  1,  3, 14,  5,  2,  8,  4,
      3, 15,  0,  6, 10,  1, 13,  8,  9,  4,  5, 11, 12,  7,  2, 14},
    { 2, 12,  4,  1,  7, 10, 11,  6,  8,  5,  3, 15, 13,  0, 14,  9,
     14, 11,  2, 12,  4,  7, 13,  1,  5,  0, 15, 10,  3,  9,  8,  6,
      4,  2,  1, 11, 10, 13,  7,  8, 15,  9, 12,  5,  6,  3,  0, 14,
     11,  8, 12,  7,  1, 14,  2, 13,  6, 15,  0,  9, 10,  4,  5,  3},
    {12,  1, 10, 15,  9,  2,  6,  8,  0, 13,  3,  4, 14,  7,  5, 11,
     10, 15,  4,  2,  7, 12,  9,  5,  6,  1, 13, 14,  0, 11,  3,  8,
      9, 14, 15,  5,  2,  8, 12,  3,  7,  0,  4, 10,  1, 13, 11,  6,
      4,  3,  2, 12,  9,  5, 15, 10, 11, 14,  1,  7,  6,  0,  8, 13},
    { 4, 11,  2, 14, 15,  0,  8, 13,  3, 12,  9,  7,  5, 10,  6,  1,
     13,  0, 11,  7,  4,  9,  1, 10, 14,  3,  5, 12,  2, 15,  8,  6,
      1,  4, 11, 13, 12,  3,  7, 14, 10, 15,  6,  8,  0,  5,  9,  2,
      6, 11, 13,  8,  1,  4, 10,  7,  9,  5,  0, 15, 14,  2,  3, 12},
    {13,  2,  8,  4,  6, 15, 11,  1, 10,  9,  3, 14,  5,  0, 12,  7,
      1, 15, 13,  8, 10,  3,  7,  4, 12,  5,  6, 11,  0, 14,  9,  2,
      7, 11,  4,  1,  9, 12, 14,  2,  0,  6, 10, 13, 15,  3,  5,  8,
      2,  1, 14,  7,  4, 10,  8, 13, 15, 12,  9,  0,  3,  5,  6, 11}};
// clang-format on

/// The bits of `value`, which has `width` of them, in the order of `table`.
template <std::size_t Size>
std::uint64_t Permute(std::uint64_t value, unsigned width, const std::uint8_t (&table)[Size]) noexcept
{
    std::uint64_t result = 0;
    for (const unsigned position : table)
        result = (result << 1) | ((value >> (width - position)) & 1U);
    return result;
}

template <std::size_t Size> std::uint64_t FromBytes(const std::array<std::uint8_t, Size>& bytes) noexcept
{
    std::uint64_t value = 0;
    for (const std::uint8_t byte : bytes)
        value = (value << 8) | byte;
    return value;
}

template <std::size_t Size> void ToBytes(std::uint64_t value, std::array<std::uint8_t, Size>& bytes) noexcept
{
    for (std::size_t index = Size; index-- > 0; value >>= 8)
        bytes[index] = static_cast<std::uint8_t>(value & 0xFFU);
}

/// The standard's 64-bit form of a 56-bit key: seven bits to a byte, the parity bit below them left at zero.
std::uint64_t SpreadKey(std::uint64_t key) noexcept
{
    std::uint64_t spread = 0;
    for (unsigned byte = 0; byte < 8; ++byte)
        spread |= ((key >> (7 * byte)) & 0x7FU) << (8 * byte + 1);
    return spread;
}

std::uint32_t RotateLeft28(std::uint32_t half, unsigned count) noexcept
{
    return ((half << count) | (half >> (28 - count))) & 0x0FFFFFFFU;
}

/// The cipher function of the standard: 32 bits and a subkey of 48.
std::uint32_t Round(std::uint32_t half, std::uint64_t subkey) noexcept
{
    const std::uint64_t mixed = Permute(half, 32, expansion) ^ subkey;
    std::uint64_t substituted = 0;
    for (unsigned box = 0; box < 8; ++box) {
        const auto six = static_cast<unsigned>((mixed >> (42 - 6 * box)) & 0x3FU);
        const unsigned row = ((six >> 4) & 2U) | (six & 1U);
        const unsigned column = (six >> 1) & 0x0FU;
        substituted = (substituted << 4) | substitutionBoxes[box][16 * row + column];
    }
    return static_cast<std::uint32_t>(Permute(substituted, 32, roundPermutation));
}

/// The two constants are volatile so that the sum is made when the program runs and the key stands in no image.
CDES::Key BuiltInKey() noexcept
{
    static const volatile std::uint8_t first[CDES::keySize] = {0x5B, 0xC4, 0x17, 0xE9, 0x32, 0x8D, 0xA6};
    static const volatile std::uint8_t second[CDES::keySize] = {0x91, 0x2E, 0x7D, 0x08, 0xF3, 0x64, 0x1C};
    CDES::Key key{};
    for (std::size_t index = 0; index < key.size(); ++index)
        key[index] = static_cast<std::uint8_t>(first[index] ^ second[index]);
    return key;
}

} // namespace

CDES::CDES() noexcept : CDES(BuiltInKey()) {}

CDES::CDES(const Key& key) noexcept
{
    SetKey(key);
}

CDES::~CDES() = default;

void CDES::SetKey(const Key& key) noexcept
{
    const std::uint64_t chosen = Permute(SpreadKey(FromBytes(key)), 64, permutedChoice1);
    auto left = static_cast<std::uint32_t>(chosen >> 28);
    auto right = static_cast<std::uint32_t>(chosen & 0x0FFFFFFFU);
    for (std::size_t round = 0; round < roundCount; ++round) {
        left = RotateLeft28(left, rotations[round]);
        right = RotateLeft28(right, rotations[round]);
        ToBytes(Permute((static_cast<std::uint64_t>(left) << 28) | right, 56, permutedChoice2), m_subkeys[round]);
    }
    m_isKeySet = true;
}

CDES::Block CDES::Transform(const Block& block, Mode mode) const noexcept
{
    const std::uint64_t permuted = Permute(FromBytes(block), 64, initialPermutation);
    auto left = static_cast<std::uint32_t>(permuted >> 32);
    auto right = static_cast<std::uint32_t>(permuted & 0xFFFFFFFFU);
    for (std::size_t round = 0; round < roundCount; ++round) {
        const std::size_t index = mode == Mode::Encrypt ? round : roundCount - 1 - round;
        const std::uint32_t next = left ^ Round(right, FromBytes(m_subkeys[index]));
        left = right;
        right = next;
    }
    Block result{};
    ToBytes(Permute((static_cast<std::uint64_t>(right) << 32) | left, 64, finalPermutation), result);
    return result;
}
