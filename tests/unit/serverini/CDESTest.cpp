#include "unit/serverini/CDESBlocks.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using Mode = CDES::Mode;

struct PublishedVector
{
    const char* name;
    std::uint64_t key; ///< the 56 bits; the published 64-bit form is in the comment
    std::uint64_t plain;
    std::uint64_t cipher;
};

const PublishedVector publishedVectors[] = {
    // 133457799BBCDFF1
    {"WorkedExample", 0x12695BC9B7B7F8, 0x0123456789ABCDEF, 0x85E813540F0AB405},
    // FIPS 81, 0123456789ABCDEF: "Now is the time for all "
    {"CodebookExample1", 0x00451338957377, 0x4E6F772069732074, 0x3FA40E8A984D4815},
    {"CodebookExample2", 0x00451338957377, 0x68652074696D6520, 0x6A271787AB8883F9},
    {"CodebookExample3", 0x00451338957377, 0x666F7220616C6C20, 0x893D51EC4B563B53},
    // NBS 500-20, one plain bit, key 0101010101010101
    {"PlainBit1", 0x00000000000000, 0x8000000000000000, 0x95F8A5E5DD31D900},
    {"PlainBit2", 0x00000000000000, 0x4000000000000000, 0xDD7F121CA5015619},
    {"PlainBit3", 0x00000000000000, 0x2000000000000000, 0x2E8653104F3834EA},
    {"PlainBit4", 0x00000000000000, 0x1000000000000000, 0x4BD388FF6CD81D4F},
    {"PlainBit5", 0x00000000000000, 0x0800000000000000, 0x20B9E767B2FB1456},
    {"PlainBit6", 0x00000000000000, 0x0400000000000000, 0x55579380D77138EF},
    // NBS 500-20, one key bit: 8001010101010101, 4001010101010101, 2001010101010101
    {"KeyBit1", 0x80000000000000, 0x0000000000000000, 0x95A8D72813DAA94D},
    {"KeyBit2", 0x40000000000000, 0x0000000000000000, 0x0EEC1487DD8C26D5},
    {"KeyBit3", 0x20000000000000, 0x0000000000000000, 0x7AD16FFB79C45926},
    {"Zeros", 0x00000000000000, 0x0000000000000000, 0x8CA64DE9C1B123A7},
    {"Ones", 0xFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF, 0x7359B2163E4EDC58},
    // 3000000000000000, 1111111111111111, FEDCBA9876543210, 7CA110454A1A6E57
    {"MixedKey1", 0x30000000000000, 0x1000000000000001, 0x958E6E627A05557B},
    {"MixedKey2", 0x10204081020408, 0x1111111111111111, 0xF40379AB9E0EC533},
    {"MixedKey3", 0x10204081020408, 0x0123456789ABCDEF, 0x8A5AE1F81AB8F2DD},
    {"MixedKey4", 0xFFBAECC76A8C88, 0x0123456789ABCDEF, 0xED39D950FA74BCC4},
    {"MixedKey5", 0x7D404224A35BAB, 0x01A1D6D039776742, 0x690F5B0D9A26939B},
};

class CdesVector : public testing::TestWithParam<PublishedVector>
{
};

TEST_P(CdesVector, Enciphers)
{
    const CDES cipher(KeyOf(GetParam().key));
    EXPECT_EQ(cipher.Transform(BlockOf(GetParam().plain), Mode::Encrypt), BlockOf(GetParam().cipher));
}

TEST_P(CdesVector, Deciphers)
{
    const CDES cipher(KeyOf(GetParam().key));
    EXPECT_EQ(cipher.Transform(BlockOf(GetParam().cipher), Mode::Decrypt), BlockOf(GetParam().plain));
}

INSTANTIATE_TEST_SUITE_P(Published, CdesVector, testing::ValuesIn(publishedVectors),
                         [](const auto& row) { return row.param.name; });

TEST(Cdes, PassesTheSixteenStepTestOfRivest)
{
    CDES::Block value = BlockOf(0x9474B8E8C73BCA7D);
    for (int step = 0; step < 16; ++step) {
        std::uint64_t key = 0; // the value itself, its eight parity bits left out
        for (const std::uint8_t byte : value)
            key = key << 7 | byte >> 1;
        value = CDES(KeyOf(key)).Transform(value, step % 2 == 0 ? Mode::Encrypt : Mode::Decrypt);
    }
    EXPECT_EQ(value, BlockOf(0x1B1A2DDB4C642438));
}

TEST(Cdes, EveryKeyBitCounts)
{
    const CDES::Block plain = BlockOf(0x0123456789ABCDEF);
    const CDES::Block base = CDES(KeyOf(0)).Transform(plain, Mode::Encrypt);
    for (unsigned bit = 0; bit < 56; ++bit)
        EXPECT_NE(CDES(KeyOf(std::uint64_t{1} << bit)).Transform(plain, Mode::Encrypt), base) << "bit " << bit;
}

TEST(Cdes, HasItsKeyFromConstructionOn)
{
    EXPECT_TRUE(CDES().IsKeySet());
    EXPECT_TRUE(CDES(KeyOf(0)).IsKeySet());
}

// The passwords in the settings files of all installations depend on it.
TEST(Cdes, TheBuiltInKeyNeverChanges)
{
    EXPECT_EQ(CDES().Transform(BlockOf(0), Mode::Encrypt), BlockOf(0xB65FB998D961D8E5));
}

TEST(Cdes, IsDestroyedThroughItsBase)
{
    struct Derived : CDES
    {
        explicit Derived(bool& destroyed) : m_destroyed(destroyed) {}
        ~Derived() override { m_destroyed = true; }
        bool& m_destroyed;
    };
    bool destroyed = false;
    const CDES* cipher = new Derived(destroyed);
    delete cipher;
    EXPECT_TRUE(destroyed);
    static_assert(std::has_virtual_destructor_v<CDES>);
}

} // namespace
