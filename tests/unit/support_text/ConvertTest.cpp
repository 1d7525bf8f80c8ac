#include "TextSupport.h"

#include "text/NumberText.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace {

struct IntegerRow
{
    const char* name;
    std::string_view text;
    std::optional<long long> value; ///< as a 64-bit number; the narrower types take what lies in their range
};

constexpr IntegerRow integerRows[] = {
    {"Zero", "0"sv, 0},
    {"MinusZero", "-0"sv, 0},
    {"PlusZero", "+0"sv, 0},
    {"Seven", "7"sv, 7},
    {"Plus", "+12"sv, 12},
    {"Minus", "-12"sv, -12},
    {"ThreeDigits", "123"sv, 123},
    {"FourDigits", "1234"sv, 1234},
    {"FiveDigits", "12345"sv, 12345},
    {"EightDigits", "12345678"sv, 12345678},
    {"NineDigits", "123456789"sv, 123456789},
    {"LeadingZeros", "0000000000000000000000000000012"sv, 12},
    {"MinusAndLeadingZeros", "-000000000000000000012"sv, -12},
    {"LeadingBlanks", "  \t 12"sv, 12},
    {"TrailingBlanks", "12 \t "sv, 12},
    {"BlanksAround", " -12 "sv, -12},
    {"Largest32", "2147483647"sv, 2147483647},
    {"Beyond32", "2147483648"sv, 2147483648},
    {"Smallest32", "-2147483648"sv, -2147483648LL},
    {"Below32", "-2147483649"sv, -2147483649LL},
    {"LargestUnsigned32", "4294967295"sv, 4294967295},
    {"BeyondUnsigned32", "4294967296"sv, 4294967296},
    {"EighteenDigits", "999999999999999999"sv, 999999999999999999},
    {"NineteenDigits", "1000000000000000000"sv, 1000000000000000000},
    {"Largest64", "9223372036854775807"sv, 9223372036854775807},
    {"Smallest64", "-9223372036854775808"sv, std::numeric_limits<long long>::min()},
    {"Beyond64", "9223372036854775808"sv, std::nullopt},
    {"Below64", "-9223372036854775809"sv, std::nullopt},
    {"FarBeyond64", "99999999999999999999999999"sv, std::nullopt},
    {"Empty", ""sv, std::nullopt},
    {"Blank", " "sv, std::nullopt},
    {"SignOnly", "-"sv, std::nullopt},
    {"PlusOnly", "+"sv, std::nullopt},
    {"TwoSigns", "--1"sv, std::nullopt},
    {"PlusMinus", "+-1"sv, std::nullopt},
    {"MinusPlus", "-+1"sv, std::nullopt},
    {"BlankBehindTheSign", "- 1"sv, std::nullopt},
    {"BlankWithin", "1 2"sv, std::nullopt},
    {"LetterBehind", "12x"sv, std::nullopt},
    {"LetterWithinEight", "1234x678"sv, std::nullopt},
    {"SlashWithinEight", "1234/678"sv, std::nullopt},
    {"ColonWithinEight", "1234:678"sv, std::nullopt},
    {"HighByteWithinEight",
     "1234\xB5"
     "678"sv,
     std::nullopt},
    {"LetterWithinFour", "1x34"sv, std::nullopt},
    {"ColonWithinFour", "12:4"sv, std::nullopt},
    {"LetterInFront", "x12"sv, std::nullopt},
    {"Fraction", "1.0"sv, std::nullopt},
    {"Exponent", "1e5"sv, std::nullopt},
    {"Hexadecimal", "0x10"sv, std::nullopt},
    {"Grouped", "1,000"sv, std::nullopt},
    {"LineFeedBehind", "12\n"sv, std::nullopt},
    {"ZeroBehind", "12\0"sv, std::nullopt},
    {"NoBreakSpaceBehind", "12\xA0"sv, std::nullopt},
};

class ConvertingToAnInteger : public testing::TestWithParam<IntegerRow>
{
protected:
    /// The text in every encoding in which it can stand.
    static std::vector<UtCString> Texts()
    {
        const UtCString text(GetParam().text, ansi);
        return {text, UtCString(text, utf8), UtCString(text, utf16le), UtCString(text, utf16be),
                UtCString(text, opaque)};
    }

    template <typename T> static void ExpectConverted(long long smallest, long long largest)
    {
        const std::optional<long long> expected = GetParam().value;
        const bool isInRange = expected && *expected >= smallest && *expected <= largest;
        for (const UtCString& text : Texts()) {
            T value = 99;
            EXPECT_EQ(text.Convert(value), isInRange) << text.GetEncodingType();
            EXPECT_EQ(value, isInRange ? static_cast<T>(*expected) : T{99}) << text.GetEncodingType();
        }
    }
};

} // namespace

TEST_P(ConvertingToAnInteger, TakesWhatAnIntHolds)
{
    ExpectConverted<int>(-2147483648LL, 2147483647);
}

TEST_P(ConvertingToAnInteger, TakesThirtyTwoBitsForALong)
{
    ExpectConverted<long>(-2147483648LL, 2147483647);
}

TEST_P(ConvertingToAnInteger, TakesSixtyFourBits)
{
    ExpectConverted<long long>(std::numeric_limits<long long>::min(), std::numeric_limits<long long>::max());
}

TEST_P(ConvertingToAnInteger, TakesThirtyTwoBitsWithoutAMinusForAnUnsignedLong)
{
    if (GetParam().text.find('-') == std::string_view::npos) {
        ExpectConverted<unsigned long>(0, 4294967295);
        return;
    }
    unsigned long value = 99;
    EXPECT_FALSE(UtCString(GetParam().text, ansi).Convert(value));
    EXPECT_EQ(value, 99UL);
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertingToAnInteger, testing::ValuesIn(integerRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ParseInt32, ReadsNothingBehindTheView)
{
    int32_t value = 0;
    EXPECT_TRUE(text::ParseInt32("123456789"sv.substr(0, 7), value));
    EXPECT_EQ(value, 1234567);
    EXPECT_FALSE(text::ParseInt32(std::string_view(), value));
}

TEST(ParseUInt32, TakesUpToThirtyTwoBits)
{
    uint32_t value = 0;
    EXPECT_TRUE(text::ParseUInt32("4294967295", value));
    EXPECT_EQ(value, 4294967295U);
    EXPECT_FALSE(text::ParseUInt32("4294967296", value));
    EXPECT_FALSE(text::ParseUInt32("-1", value));
    EXPECT_TRUE(text::ParseUInt32(" +1 ", value));
    EXPECT_EQ(value, 1U);
}

TEST(ParseInt64, TakesTheLimits)
{
    int64_t value = 0;
    EXPECT_TRUE(text::ParseInt64("-9223372036854775808", value));
    EXPECT_EQ(value, std::numeric_limits<int64_t>::min());
    EXPECT_TRUE(text::ParseInt64("9223372036854775807", value));
    EXPECT_EQ(value, std::numeric_limits<int64_t>::max());
}

namespace {

struct RealRow
{
    const char* name;
    std::string_view text;
    std::optional<double> asDouble;
    std::optional<float> asFloat;
};

constexpr double inexact = 0.1;

const RealRow realRows[] = {
    {"Zero", "0"sv, 0.0, 0.0F},
    {"Integer", "42"sv, 42.0, 42.0F},
    {"Fraction", "3.25"sv, 3.25, 3.25F},
    {"Minus", "-3.25"sv, -3.25, -3.25F},
    {"Plus", "+3.25"sv, 3.25, 3.25F},
    {"NoDigitBeforeThePoint", ".5"sv, 0.5, 0.5F},
    {"NoDigitBehindThePoint", "5."sv, 5.0, 5.0F},
    {"MinusNoDigitBeforeThePoint", "-.5"sv, -0.5, -0.5F},
    {"PlusNoDigitBeforeThePoint", "+.5"sv, 0.5, 0.5F},
    {"Tenth", "0.1"sv, inexact, 0.1F},
    {"ManyDecimals", "0.000000000000000000000000000001"sv, 1e-30, 1e-30F},
    {"SeventeenDigits", "0.30000000000000004"sv, 0.30000000000000004, 0.3F},
    {"EightFloatDigits", "16777217"sv, 16777217.0, 16777216.0F},
    {"BeyondExactIntegers", "9007199254740993"sv, 9007199254740992.0, 9007199254740992.0F},
    {"LargestExactInteger", "9007199254740992"sv, 9007199254740992.0, 9007199254740992.0F},
    {"Exponent", "1e10"sv, 1e10, 1e10F},
    {"UpperExponent", "1E10"sv, 1e10, 1e10F},
    {"PlusExponent", "1e+10"sv, 1e10, 1e10F},
    {"MinusExponent", "-1.5e-3"sv, -1.5e-3, -1.5e-3F},
    {"ExponentWithZeros", "1e0000000000000000000000005"sv, 1e5, 1e5F},
    {"BlanksAround", " \t-1.5e3\t "sv, -1500.0, -1500.0F},
    {"LargestDouble", "1.7976931348623157e308"sv, 1.7976931348623157e308, std::nullopt},
    {"LargestFloat", "3.4028235e38"sv, 3.4028235e38, 3.4028235e38F},
    {"OverflowOfDouble", "1.8e308"sv, std::nullopt, std::nullopt},
    {"OverflowFarOut", "1e999999999999999999999"sv, std::nullopt, std::nullopt},
    {"OverflowBySmallFraction", "0.001e400"sv, std::nullopt, std::nullopt},
    {"OverflowWithBlanks", " 1e400 "sv, std::nullopt, std::nullopt},
    {"SmallestDouble", "5e-324"sv, 5e-324, 0.0F},
    {"UnderflowOfDouble", "1e-400"sv, 0.0, 0.0F},
    {"UnderflowFarOut", "1e-999999999999999999999"sv, 0.0, 0.0F},
    {"UnderflowOfALargeMantissa", "1000e-400"sv, 0.0, 0.0F},
    {"ZeroWithAHugeExponent", "0e999999"sv, 0.0, 0.0F},
    {"ZeroFractionWithAHugeExponent", "0.000e999999"sv, 0.0, 0.0F},
    {"Empty", ""sv, std::nullopt, std::nullopt},
    {"Blank", " "sv, std::nullopt, std::nullopt},
    {"PointOnly", "."sv, std::nullopt, std::nullopt},
    {"SignOnly", "-"sv, std::nullopt, std::nullopt},
    {"SignAndPoint", "-."sv, std::nullopt, std::nullopt},
    {"TwoPoints", "1.2.3"sv, std::nullopt, std::nullopt},
    {"TwoSigns", "+-1"sv, std::nullopt, std::nullopt},
    {"TwoMinus", "--1"sv, std::nullopt, std::nullopt},
    {"Comma", "1,5"sv, std::nullopt, std::nullopt},
    {"ExponentWithoutDigits", "1e"sv, std::nullopt, std::nullopt},
    {"ExponentSignWithoutDigits", "1e+"sv, std::nullopt, std::nullopt},
    {"ExponentOnly", "e5"sv, std::nullopt, std::nullopt},
    {"FractionInTheExponent", "1e1.5"sv, std::nullopt, std::nullopt},
    {"Hexadecimal", "0x1p3"sv, std::nullopt, std::nullopt},
    {"Infinity", "inf"sv, std::nullopt, std::nullopt},
    {"MinusInfinity", "-infinity"sv, std::nullopt, std::nullopt},
    {"NotANumber", "nan"sv, std::nullopt, std::nullopt},
    {"LetterBehind", "1.5x"sv, std::nullopt, std::nullopt},
    {"BlankWithin", "1. 5"sv, std::nullopt, std::nullopt},
    {"ZeroBehind", "1.5\0"sv, std::nullopt, std::nullopt},
};

class ConvertingToAReal : public testing::TestWithParam<RealRow>
{
protected:
    template <typename T> static void ExpectConverted(std::optional<T> expected)
    {
        const UtCString source(GetParam().text, ansi);
        for (const eUtEncodingType encoding : {ansi, utf8, utf16le, utf16be, opaque}) {
            T value = 99;
            EXPECT_EQ(UtCString(source, encoding).Convert(value), expected.has_value()) << encoding;
            EXPECT_EQ(value, expected.value_or(T{99})) << encoding;
        }
    }
};

} // namespace

TEST_P(ConvertingToAReal, GivesTheNearestDouble)
{
    ExpectConverted(GetParam().asDouble);
}

TEST_P(ConvertingToAReal, GivesTheNearestFloat)
{
    ExpectConverted(GetParam().asFloat);
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertingToAReal, testing::ValuesIn(realRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Convert, KeepsTheSignOfZero)
{
    double value = 1;
    EXPECT_TRUE(Text("-0").Convert(value));
    EXPECT_TRUE(std::signbit(value));
    EXPECT_TRUE(Text("-1e-400").Convert(value));
    EXPECT_TRUE(std::signbit(value));
    EXPECT_EQ(value, 0.0);
}

TEST(Convert, ReadsBackEveryDoubleThatWasWritten)
{
    uint64_t bits = 1;
    for (int count = 0; count < 20000; ++count) {
        bits = bits * 6364136223846793005U + 1442695040888963407U;
        double value;
        std::memcpy(&value, &bits, sizeof(value));
        if (!std::isfinite(value))
            continue;
        double back = 99;
        ASSERT_TRUE(UtCString(value).Convert(back)) << value;
        ASSERT_EQ(back, value);
    }
}

TEST(Convert, ReadsShortDecimalsAsTheCompilerDoes)
{
    const struct
    {
        const char* text;
        double asDouble;
        float asFloat;
    } rows[] = {{"123456.789", 123456.789, 123456.789F},
                {"0.3", 0.3, 0.3F},
                {"9999999.9", 9999999.9, 9999999.9F},
                {"123456789012345.6", 123456789012345.6, 123456789012345.6F},
                {"0.0000000000000001", 0.0000000000000001, 0.0000000000000001F},
                {"1.00000017881393432617187499", 1.00000017881393432617187499, 1.00000017881393432617187499F}};
    for (const auto& row : rows) {
        double asDouble = 0;
        float asFloat = 0;
        EXPECT_TRUE(Text(row.text).Convert(asDouble));
        EXPECT_TRUE(Text(row.text).Convert(asFloat));
        EXPECT_EQ(asDouble, row.asDouble) << row.text;
        EXPECT_EQ(asFloat, row.asFloat) << row.text;
    }
}
