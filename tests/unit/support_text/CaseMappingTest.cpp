#include "text/CaseMapping.h"

#include <gtest/gtest.h>

TEST(CaseMapping, IsIdempotentForEveryCodePoint)
{
    for (uint32_t c = 0; c <= 0x10FFFF; ++c) {
        ASSERT_EQ(text::ToUpper(text::ToUpper(c)), text::ToUpper(c)) << c;
        ASSERT_EQ(text::ToLower(text::ToLower(c)), text::ToLower(c)) << c;
    }
}

TEST(CaseMapping, MapsTheAlphabetsOfTheBasicPlane)
{
    const struct
    {
        uint32_t firstLower;
        uint32_t firstUpper;
        uint32_t count;
    } rows[] = {{'a', 'A', 26},       {0xE0, 0xC0, 23},     {0xF8, 0xD8, 7},      {0x3B1, 0x391, 17},
                {0x3C3, 0x3A3, 9},    {0x430, 0x410, 32},   {0x450, 0x400, 16},   {0x561, 0x531, 38},
                {0x10D0, 0x1C90, 43}, {0x24D0, 0x24B6, 26}, {0xFF41, 0xFF21, 26}, {0x10428, 0x10400, 40}};
    for (const auto& row : rows) {
        for (uint32_t index = 0; index < row.count; ++index) {
            EXPECT_EQ(text::ToUpper(row.firstLower + index), row.firstUpper + index);
            EXPECT_EQ(text::ToLower(row.firstUpper + index), row.firstLower + index);
        }
    }
}

TEST(CaseMapping, MapsEverySecondCodePointWhereCasesAlternate)
{
    for (uint32_t upper = 0x460; upper < 0x482; upper += 2) {
        EXPECT_EQ(text::ToLower(upper), upper + 1);
        EXPECT_EQ(text::ToUpper(upper + 1), upper);
        EXPECT_EQ(text::ToUpper(upper), upper);
        EXPECT_EQ(text::ToLower(upper + 1), upper + 1);
    }
}

TEST(CaseMapping, LeavesWhatIsNoCodePoint)
{
    for (const uint32_t c : {0x110000U, 0x1100FFU, 0x11D800U, 0xFFFFFFFFU}) {
        EXPECT_EQ(text::ToUpper(c), c);
        EXPECT_EQ(text::ToLower(c), c);
    }
}

TEST(CaseMapping, MapsTheAsciiLettersOfAWord)
{
    for (uint64_t byte = 0; byte < 256; ++byte) {
        const uint64_t word = byte << 24 | 0x61000000005A;
        const uint64_t upper = byte >= 'a' && byte <= 'z' ? byte - 32 : byte;
        const uint64_t lower = byte >= 'A' && byte <= 'Z' ? byte + 32 : byte;
        EXPECT_EQ(text::ToUpperAscii(word), upper << 24 | 0x41000000005A) << byte;
        EXPECT_EQ(text::ToLowerAscii(word), lower << 24 | 0x61000000007A) << byte;
    }
}
