#include "platform/NumberFormat.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

struct Row
{
    const char* name;
    const char* number;
    const char* text;
};

class FormatNumber : public testing::TestWithParam<Row>
{
};

TEST_P(FormatNumber, HasFourDecimalsAndGroupsOfThree)
{
    EXPECT_EQ(platform::FormatNumber(GetParam().number), GetParam().text);
}

constexpr Row rows[] = {
    {"Zero", "0", ".0000"},
    {"OneDigit", "7", "7.0000"},
    {"ThreeDigits", "999", "999.0000"},
    {"FourDigits", "1000", "1'000.0000"},
    {"SixDigits", "123456", "123'456.0000"},
    {"SevenDigits", "1234567", "1'234'567.0000"},
    {"BeyondSixtyFourBits", "123456789012345678901234567890", "123'456'789'012'345'678'901'234'567'890.0000"},
    {"LeadingZeros", "0001234", "1'234.0000"},
    {"OnlyZeros", "000", ".0000"},
    {"FractionOnly", ".5", ".5000"},
    {"WholeAndPoint", "5.", "5.0000"},
    {"NoZeroBeforeThePoint", "0.934", ".9340"},
    {"FourDecimals", "1234.5678", "1'234.5678"},
    {"RoundsDown", "0.12344", ".1234"},
    {"RoundsHalfUp", "0.12345", ".1235"},
    {"HasNoEyeForWhatFollowsTheFifth", "0.123449999", ".1234"},
    {"CarriesIntoTheWhole", "0.99999", "1.0000"},
    {"CarriesThroughNines", "1.99995", "2.0000"},
    {"CarriesIntoAFourthDigit", "999.99995", "1'000.0000"},
    {"CarriesIntoANewGroup", "999999.99995", "1'000'000.0000"},
    {"RoundsToTheSmallest", "0.00005", ".0001"},
    {"Empty", "", ""},
    {"PointOnly", ".", ""},
    {"TwoPoints", "1.2.3", ""},
    {"Sign", "-1", ""},
    {"Letter", "12a", ""},
    {"LetterInFraction", "1.a", ""},
    {"Blank", " 1", ""},
    {"Exponent", "1e5", ""},
    {"Comma", "1,5", ""},
};

INSTANTIATE_TEST_SUITE_P(Table, FormatNumber, testing::ValuesIn(rows),
                         [](const testing::TestParamInfo<Row>& row) { return std::string(row.param.name); });

TEST(FormatNumberOfALongText, TakesAnyLength)
{
    const std::string text = platform::FormatNumber(std::string(300000, '9') + ".99999");
    EXPECT_EQ(text.size(), 1 + 300000 + 100000 + 5U);
    EXPECT_TRUE(text.starts_with("1'000'000'"));
    EXPECT_TRUE(text.ends_with("'000.0000"));
}

// Whether the system's formatter writes it or not.
TEST(FormatNumberOfALongText, SeparatesAfterEveryThreeDigitsAtEveryLength)
{
    for (size_t length = 1; length < 200; ++length) {
        const std::string digits(length, '7');
        std::string text = platform::FormatNumber(digits);
        ASSERT_TRUE(text.ends_with(".0000")) << length;
        text.resize(text.size() - 5);
        for (size_t end = text.size(); end > 3; end -= std::min(end, size_t{4}))
            EXPECT_EQ(text.substr(end - 3, 3), "777") << length;
        EXPECT_EQ(std::count(text.begin(), text.end(), '\''), static_cast<std::ptrdiff_t>((length - 1) / 3)) << length;
        std::erase(text, '\'');
        EXPECT_EQ(text, digits);
    }
}

TEST(FormatNumberOfBytes, RefusesAZeroByte)
{
    EXPECT_EQ(platform::FormatNumber(std::string_view("1\0002", 3)), "");
}

} // namespace
