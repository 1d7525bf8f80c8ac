#include "unit/serverini/CDESBlocks.h"

#include <gtest/gtest.h>

#define OPENSSL_SUPPRESS_DEPRECATED // the reference is wanted just because it is old
#include <openssl/des.h>

#include <algorithm>
#include <random>

// The reference is OpenSSL's, which is there only for the machine's own system.

namespace {

using Mode = CDES::Mode;

/// The reference takes the 64-bit form: seven key bits to a byte, a parity bit below them.
void SetReferenceKey(std::uint64_t key, DES_key_schedule& schedule)
{
    DES_cblock spread{};
    for (std::size_t index = 0; index < sizeof spread; ++index)
        spread[index] = static_cast<unsigned char>((key >> (49 - 7 * index) & 0x7FU) << 1);
    DES_set_key_unchecked(&spread, &schedule);
}

CDES::Block Reference(const DES_key_schedule& schedule, const CDES::Block& block)
{
    DES_cblock input{};
    DES_cblock output{};
    std::copy(block.begin(), block.end(), input);
    DES_key_schedule copy = schedule;
    DES_ecb_encrypt(&input, &output, &copy, DES_ENCRYPT);
    CDES::Block result{};
    std::copy(std::begin(output), std::end(output), result.begin());
    return result;
}

TEST(CdesBesideTheOpenSslOfPosix, AgreesWithTheReferenceOnRandomKeysAndBlocks)
{
    std::mt19937_64 random(20240229);
    for (int round = 0; round < 120000; ++round) {
        const std::uint64_t key = random() >> 8;
        const CDES::Block plain = BlockOf(random());
        DES_key_schedule schedule;
        SetReferenceKey(key, schedule);
        const CDES cipher(KeyOf(key));
        const CDES::Block enciphered = cipher.Transform(plain, Mode::Encrypt);
        ASSERT_EQ(enciphered, Reference(schedule, plain)) << "round " << round;
        ASSERT_EQ(cipher.Transform(enciphered, Mode::Decrypt), plain) << "round " << round;
    }
}

} // namespace
