#include "connection/ServerIniPassword.h"

#include <gtest/gtest.h>

using connection::DecipherPassword;
using namespace std::string_view_literals;

namespace {

struct StoredPassword
{
    const char* name;
    std::string_view stored; ///< made with the DES of OpenSSL and the built-in key
    std::string_view password;
};

const StoredPassword storedPasswords[] = {
    {"OneBlock", "4BA341CA5F39E3E8", "geheim"},
    {"OneFullBlock", "D7D3F5DBB45D9548", "Passwort"},
    {"TwoBlocks", "D7D3F5DBB45D95484937F46120FBE076", "Passwort1"},
    {"TwoFullBlocks", "620547B25D20211060938E6D6CF264E7", "sixteen bytes ok"},
    {"FourBlocks", "001D3080CD1AA71BB3D53E82F2AB1BD84CB9448AC26920DB134F24A55E4EA494", "canary-7f3a91-do-not-show"},
    {"LettersOfWindows1252", "83D6D6606258594D", "\xE4\xF6\xFC\xDF"},
    {"ZeroBytesAreDroppedWhereverTheyStand", "00633D70B99222FAB2775F9F13F14BA4", "abcdef"},
    {"OnlyZeroBytes", "B65FB998D961D8E5", ""},
    {"Empty", "", ""},
    {"FifteenDigits", "4BA341CA5F39E3E", ""},
    {"SeventeenDigits", "4BA341CA5F39E3E80", ""},
    {"OneDigit", "4", ""},
    {"EightDigits", "4BA341CA", ""},
    {"ALineEndTooMuch", "4BA341CA5F39E3E8\n", ""},
    // 091F164A32A38998 is "root": every other character in place of its "0" counts as 0
    {"LetterInPlaceOfAZero", "G91F164A32A38998", "root"},
    {"LowerCaseLetterInPlaceOfAZero", "a91F164A32A38998", "root"},
    {"BlankInPlaceOfAZero", " 91F164A32A38998", "root"},
    {"ZeroByteInPlaceOfAZero",
     "\0"
     "91F164A32A38998"sv,
     "root"},
    {"HighByteInPlaceOfAZero",
     "\xFF"
     "91F164A32A38998",
     "root"},
    {"NeighboursOfTheDigits", "/91F164A32A38998", "root"},
    {"NeighboursOfTheDigitsAbove", ":91F164A32A38998", "root"},
    {"NeighbourOfTheLetters", "@91F164A32A38998", "root"},
};

class StoredPasswordCase : public testing::TestWithParam<StoredPassword>
{
};

TEST_P(StoredPasswordCase, GivesItsPassword)
{
    const UtCString password = DecipherPassword(GetParam().stored);
    EXPECT_EQ(password.View(), GetParam().password);
    EXPECT_EQ(password.GetEncodingType(), UT_ENCODING_DEFAULT);
}

INSTANTIATE_TEST_SUITE_P(Passwords, StoredPasswordCase, testing::ValuesIn(storedPasswords),
                         [](const auto& row) { return row.param.name; });

TEST(DecipherPassword, Kept_K73_CountsLowerCaseDigitsAsZero)
{
    EXPECT_EQ(DecipherPassword("4ba341ca5f39e3e8").View(), DecipherPassword("4003410050390308").View());
    EXPECT_NE(DecipherPassword("4ba341ca5f39e3e8").View(), "geheim");
}

TEST(DecipherPassword, ReadsTheLongestOneThatAFileCanHold)
{
    const std::string_view stored =
        "8F54071C748E930A181C3985D9B18077CBA283880A89E326A8A38BA76501EF71D0ECA0666C95DA400B143826BFCF63B5"
        "40AEF8DBE685D1FA8599488CF89D9504847BE6BF6D2BC7C729706EAAA4D5EC470D031803763CE0A4EC418F8DB121AD02"
        "A9AEB1B411F6869E45866CF0A1D8DEE8A8554DC34F0893BF";
    ASSERT_EQ(stored.size(), 240U);
    EXPECT_EQ(DecipherPassword(stored).View(), std::string(120, 'a'));
}

TEST(DecipherPassword, TakesAMegabyte)
{
    const UtCString password = DecipherPassword(std::string(1024 * 1024, '0'));
    EXPECT_LE(password.GetByteLength(), 512U * 1024U);
    EXPECT_FALSE(password.IsEmpty());
}

// A changed block spoils itself and the one behind it, nothing else.
TEST(DecipherPassword, ChainsABlockToTheOneInFront)
{
    const UtCString password = DecipherPassword("001D3080CD1AA71AB3D53E82F2AB1BD84CB9448AC26920DB134F24A55E4EA494");
    EXPECT_NE(password.View().substr(0, 8), "canary-7");
    EXPECT_EQ(password.View().substr(8), "f3a91-d\x6E-not-show");
}

} // namespace
