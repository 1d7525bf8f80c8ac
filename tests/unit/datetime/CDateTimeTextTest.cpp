#include "unit/datetime/DateTestSupport.h"

#include "datetime/DateFormat.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace std::string_view_literals;

/// A text of ASCII characters in another encoding.
UtCString Encoded(std::string_view ascii, eUtEncodingType encoding)
{
    return UtCString(UtCString(ascii, UT_ENCODING_DEFAULT), encoding);
}

constexpr eUtEncodingType convertedEncodings[] = {UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE, UT_ENCODING_UTF16_BE};

TEST(GetDate, WritesEachForm)
{
    const CDateTime date(2024, 3, 5, 14, 7, 9);
    const char* const forms[] = {
        nullptr,
        "05.03.2024",
        "05.03.24  14:07",
        "05.03.24  14:07:09",
        "05.03.2024  14:07",
        "05.03.2024  14:07:09",
        "20240305",
        "#2024/03/05#",
        "'2024-03-05'",
        "2024-03-05 14:07:09",
        "14:07:09",
        "2024-03-05",
        "14:07",
    };
    for (unsigned int selector = 1; selector <= 12; ++selector) {
        EXPECT_EQ(Text(date.GetDate(selector)), forms[selector]) << selector;
        EXPECT_EQ(date.GetDate(selector).GetEncodingType(), UT_ENCODING_DEFAULT) << selector;
    }
}

TEST(GetDate, WritesTheEndsOfTheValidYears)
{
    EXPECT_EQ(Text(CDateTime(1600, 1, 1, 0, 0, 0).GetDate(9)), "1600-01-01 00:00:00");
    EXPECT_EQ(Text(CDateTime(2999, 12, 31, 23, 59, 59).GetDate(5)), "31.12.2999  23:59:59");
    EXPECT_EQ(Text(CDateTime(1601, 1, 1, 0, 0, 0).GetDate(2)), "01.01.01  00:00");
    EXPECT_EQ(Text(CDateTime(1899, 12, 30, 1, 2, 3).GetDate(9)), "1899-12-30 01:02:03");
}

TEST(GetDate, WritesTheSecondThatItReads)
{
    EXPECT_EQ(Text(Raw(45356 + 86399.6 / 86400).GetDate(9)), "2024-03-06 00:00:00");
    EXPECT_EQ(Text(Raw(-1.25).GetDate(9)), "1899-12-29 06:00:00");
}

TEST(GetDate, IsEmptyForANullDateExceptTheSqlLiteral)
{
    const CDateTime nullDates[] = {CDateTime(),
                                   Raw(45356.5, COleDateTime::invalid),
                                   Raw(45356.5, COleDateTime::null),
                                   CDateTime(1599, 12, 31, 0, 0, 0),
                                   CDateTime(3000, 1, 1, 0, 0, 0),
                                   Raw(NAN),
                                   Raw(1e300)};
    for (const CDateTime& date : nullDates)
        for (const unsigned int selector : {0u, 1u, 2u, 3u, 4u, 5u, 6u, 7u, 8u, 9u, 10u, 11u, 12u, 13u, 0xFFFFFFFFu})
            EXPECT_EQ(Text(date.GetDate(selector)), selector == 8 ? "'0000-00-00'" : "") << date.GetValue();
}

TEST(GetDate, IsInEncoding256AlsoForANullDate)
{
    const Environment locale("LC_ALL", "C");
    for (const unsigned int selector : {0u, 1u, 8u, 9u, 13u}) {
        EXPECT_EQ(CDateTime().GetDate(selector).GetEncodingType(), UT_ENCODING_DEFAULT) << selector;
        EXPECT_EQ(CDateTime(2024, 3, 5, 0, 0, 0).GetDate(selector).GetEncodingType(), UT_ENCODING_DEFAULT) << selector;
    }
}

TEST(GetDate, Kept_K50_TwoBlanksForPeopleAndOneForTheServer)
{
    const CDateTime date(2024, 3, 5, 14, 7, 9);
    EXPECT_EQ(Text(date.GetDate(4)), "05.03.2024  14:07");
    EXPECT_EQ(Text(date.GetDate(9)), "2024-03-05 14:07:09");
}

TEST(Format, SaysSoWhenTheFieldsCannotBeRead)
{
    for (const double value : {std::nan(""), 1e300, -1e300, 2958466.0, -657435.0})
        for (const unsigned int selector : {1u, 8u, 12u})
            EXPECT_EQ(datetime::Format(value, selector), "Invalid DateTime") << value;
}

TEST(Format, IsEmptyForAnUnknownSelector)
{
    EXPECT_EQ(datetime::Format(45356.5, 0), "");
    EXPECT_EQ(datetime::Format(45356.5, 13), "");
    EXPECT_EQ(datetime::Format(45356.5, 0xFFFFFFFF), "");
}

struct ReadRow
{
    std::string_view text;
    bool result;
    const char* shown;
};

constexpr const char* refused = "-1 -1 -1 -1 -1 -1 (2)";
constexpr const char* invalid = "-1 -1 -1 -1 -1 -1 (1)";

const ReadRow germanRows[] = {
    {"05.03.2024"sv, true, "2024-03-05 00:00:00 (0)"},
    {"5.3.24"sv, true, "2024-03-05 00:00:00 (0)"},
    {"5-3-24"sv, true, "2024-03-05 00:00:00 (0)"},
    {"5/3/24"sv, true, "2024-03-05 00:00:00 (0)"},
    {"5.3/24"sv, true, "2024-03-05 00:00:00 (0)"},
    {"5.3x24"sv, true, "2024-03-05 00:00:00 (0)"},
    {"5 3.24"sv, true, "2024-03-05 00:00:00 (0)"},
    {"5.3.2024 14:07"sv, true, "2024-03-05 00:00:00 (0)"},
    {"5.3.2024."sv, true, "2024-03-05 00:00:00 (0)"},
    {"5.3.2024.99.99"sv, true, "2024-03-05 00:00:00 (0)"},
    {"000000000000000000005.03.2024"sv, true, "2024-03-05 00:00:00 (0)"},
    {"5.3.85"sv, true, "1985-03-05 00:00:00 (0)"},
    {"5.3.80"sv, true, "1980-03-05 00:00:00 (0)"},
    {"5.3.0"sv, true, "2000-03-05 00:00:00 (0)"},
    {"5.3.38"sv, false, refused},
    {"5.3.69"sv, false, refused},
    {"5.3.70"sv, false, refused},
    {"5.3.79"sv, false, refused},
    {"5.3.80."sv, true, "1980-03-05 00:00:00 (0)"},
    {"5.3.137"sv, true, "2037-03-05 00:00:00 (0)"},
    {"5.3.138"sv, false, refused},
    {"5.3.999"sv, false, refused},
    {"5.3.1000"sv, false, refused},
    {"1.1.1979"sv, false, refused},
    {"31.12.1979"sv, false, refused},
    {"1.1.1980"sv, true, "1980-01-01 00:00:00 (0)"},
    {"18.01.2038"sv, true, "2038-01-18 00:00:00 (0)"},
    {"19.01.2038"sv, false, refused},
    {"1.2.2038"sv, false, refused},
    {"1.1.2039"sv, false, refused},
    {"31.12.2037"sv, true, "2037-12-31 00:00:00 (0)"},
    {"0.3.2024"sv, false, refused},
    {"32.3.2024"sv, false, refused},
    {"5.0.2024"sv, false, refused},
    {"5.13.2024"sv, false, refused},
    {"31.02.2020"sv, true, invalid},
    {"29.02.2023"sv, true, invalid},
    {"29.02.2024"sv, true, "2024-02-29 00:00:00 (0)"},
    {"31.04.2024"sv, true, invalid},
    {"2024-03-05"sv, false, refused},
    {"2024"sv, false, refused},
    {"05032024"sv, false, refused},
    {"5 3 2024"sv, false, refused},
    {"5:3:2024"sv, false, refused},
    {"1. 2. 2003"sv, false, refused},
    {" 5.3.2024"sv, false, refused},
    {"-5.3.2024"sv, false, refused},
    {"5..3.2024"sv, false, refused},
    {""sv, false, refused},
    {"."sv, false, refused},
    {"..."sv, false, refused},
    {"abc.def-ghi"sv, false, refused},
    {"5.3.99999999999999999999"sv, false, refused},
    {"4294967301.3.2024"sv, false, refused},
    {"5.4294967299.2024"sv, false, refused},
    {"18446744073709551621.3.2024"sv, false, refused},
    {"5\0.3.2024"sv, false, refused},
    {"5.3\0002024"sv, true, "2024-03-05 00:00:00 (0)"},
    {"5.3.2024\0"sv, true, "2024-03-05 00:00:00 (0)"},
    {"5\xFC"
     "3.2024"sv,
     true, "2024-03-05 00:00:00 (0)"},
};

TEST(SetDateText, ReadsDayMonthAndYear)
{
    for (const ReadRow& row : germanRows) {
        CDateTime date(2000, 1, 1, 1, 1, 1);
        EXPECT_EQ(date.SetDate(Ansi(row.text)), row.result) << row.text;
        EXPECT_EQ(Shown(date), row.shown) << row.text;
        EXPECT_TRUE(date.GetStatus() == CDateTime::valid || date.GetValue() == 0) << row.text;
    }
}

TEST(SetDateText, ReadsEveryEncoding)
{
    for (const eUtEncodingType encoding : convertedEncodings) {
        CDateTime date;
        EXPECT_TRUE(date.SetDate(Encoded("5.3.2024", encoding))) << encoding;
        EXPECT_EQ(Shown(date), "2024-03-05 00:00:00 (0)") << encoding;
    }
}

TEST(SetDateText, TakesACharacterOfSeveralBytesForOneSeparator)
{
    CDateTime date;
    EXPECT_TRUE(date.SetDate(UtCString("5\xC3\xBC"
                                       "3.2024",
                                       UT_ENCODING_UTF8)));
    EXPECT_EQ(Shown(date), "2024-03-05 00:00:00 (0)");
}

TEST(SetDateText, Kept_K56_ReportsSuccessForADayThatTheMonthDoesNotHave)
{
    CDateTime date;
    EXPECT_TRUE(date.SetDate(Ansi("31.02.2020")));
    EXPECT_EQ(date.GetStatus(), CDateTime::invalid);
    EXPECT_FALSE(date.IsValid());
}

TEST(SetDateText, Kept_K57_AMissingYearIsTwoThousand)
{
    for (const std::string_view text : {"5.3"sv, "5.3."sv, "5.3.x2024"sv}) {
        CDateTime date;
        EXPECT_TRUE(date.SetDate(Ansi(text))) << text;
        EXPECT_EQ(Shown(date), "2000-03-05 00:00:00 (0)") << text;
    }
}

TEST(SetDateText, Kept_K58_ReadsOnlyTheDaysOf32BitTime)
{
    CDateTime date;
    EXPECT_FALSE(date.SetDate(Ansi("31.12.1979")));
    EXPECT_FALSE(date.SetDate(Ansi("19.01.2038")));
    EXPECT_TRUE(date.SetDate(Ansi("18.01.2038")));
}

const ReadRow compactRows[] = {
    {"20240305"sv, true, "2024-03-05 00:00:00 (0)"},
    {"2024-03-05"sv, true, "2024-03-05 00:00:00 (0)"},
    {"2024/03/05"sv, true, "2024-03-05 00:00:00 (0)"},
    {"2024.03.05"sv, true, "2024-03-05 00:00:00 (0)"},
    {" 2 0 2 4 : 03-05/"sv, true, "2024-03-05 00:00:00 (0)"},
    {"20240305140709"sv, true, "2024-03-05 14:07:09 (0)"},
    {"2024-03-05 14:07:09"sv, true, "2024-03-05 14:07:09 (0)"},
    {"20240305000000"sv, true, "2024-03-05 00:00:00 (0)"},
    {"01000101"sv, true, "0100-01-01 00:00:00 (0)"},
    {"99991231235959"sv, true, "9999-12-31 23:59:59 (0)"},
    {"20240229"sv, true, "2024-02-29 00:00:00 (0)"},
    {"20230229"sv, false, refused},
    {"05.03.2024"sv, false, refused},
    {"00240305"sv, false, refused},
    {"00000000"sv, false, refused},
    {"20241305"sv, false, refused},
    {"20240300"sv, false, refused},
    {"20240305240000"sv, false, refused},
    {"20240305146000"sv, false, refused},
    {"20240305140060"sv, false, refused},
    {"240305"sv, false, refused},
    {"2024030"sv, false, refused},
    {"202403051"sv, false, refused},
    {"2024030514070"sv, false, refused},
    {"202403051407091"sv, false, refused},
    {"202403051407"sv, false, refused},
    {""sv, false, refused},
    {" .:-/"sv, false, refused},
    {"2024030x"sv, false, refused},
    {"+2024030"sv, false, refused},
    {"20240;05"sv, false, refused},
    {"2024+3+5"sv, false, refused},
    {"2024\t3\t5"sv, false, refused},
    {"20240305\0"sv, false, refused},
    {"2024030\0"sv, false, refused},
    {"20240305ab0709"sv, false, refused},
    {"2024\xB2\xB3"
     "05"sv,
     false, refused},
};

TEST(ConvertDate, ReadsEightOrFourteenDigits)
{
    for (const ReadRow& row : compactRows) {
        CDateTime date(2000, 1, 1, 1, 1, 1);
        EXPECT_EQ(date.ConvertDate(Ansi(row.text)), row.result) << row.text;
        EXPECT_EQ(Shown(date), row.shown) << row.text;
        EXPECT_TRUE(date.GetStatus() == CDateTime::valid || date.GetValue() == 0) << row.text;
    }
}

TEST(ConvertDate, ReadsEveryEncoding)
{
    for (const eUtEncodingType encoding : convertedEncodings) {
        CDateTime date;
        EXPECT_TRUE(date.ConvertDate(Encoded("2024-03-05 14:07:09", encoding))) << encoding;
        EXPECT_EQ(Shown(date), "2024-03-05 14:07:09 (0)") << encoding;
    }
}

TEST(ConvertDate, ReadsBackTheFormsForTheServer)
{
    const CDateTime source(2024, 3, 5, 14, 7, 9);
    CDateTime date;
    EXPECT_TRUE(date.ConvertDate(source.GetDate(9)));
    EXPECT_EQ(Shown(date), "2024-03-05 14:07:09 (0)");
    EXPECT_TRUE(date.ConvertDate(source.GetDate(11)));
    EXPECT_EQ(Shown(date), "2024-03-05 00:00:00 (0)");
    EXPECT_TRUE(date.ConvertDate(source.GetDate(6)));
    EXPECT_EQ(Shown(date), "2024-03-05 00:00:00 (0)");
}

TEST(ParseDate, ReadsEveryEncoding)
{
    const Environment locale("LC_ALL", "C");
    for (const eUtEncodingType encoding : convertedEncodings)
        EXPECT_EQ(Shown(CDateTime::ParseDate(Encoded("2024-03-05 14:07", encoding))), "2024-03-05 14:07:00 (0)")
            << encoding;
}

TEST(ParseDate, ReadsAYearFirstAndATime)
{
    const Environment locale("LC_ALL", "C");
    const ParsedText rows[] = {
        {"2024-03-05"sv, 0, "2024-03-05 00:00:00 (0)"},
        {"2024-03-05 14:07:09"sv, 0, "2024-03-05 14:07:09 (0)"},
        {"14:07"sv, 0, "1899-12-30 14:07:00 (0)"},
        {"00:00"sv, 0, "1899-12-30 00:00:00 (0)"},
        {"14:07"sv, 1, "1899-12-30 14:07:00 (0)"},
        {"2024-03-05"sv, 2, "2024-03-05 00:00:00 (0)"},
        {"2024-03-05"sv, 0x80000000, "2024-03-05 00:00:00 (0)"},
        {"2024-03-05"sv, 0x80000002, "2024-03-05 00:00:00 (0)"},
        {"2024-02-30"sv, 0, shownNull},
        {"yesterday"sv, 0, shownNull},
        {"2024-03-05\0"sv, 0, shownNull},
        {"\xFF\xFE\xFC"sv, 0, shownNull},
    };
    for (const ParsedText& row : rows)
        ExpectParsed(row);
}

TEST(ParseDate, LeavesOutWhiteSpaceAtTheEnd)
{
    const Environment locale("LC_ALL", "C");
    for (const std::string_view end : {" "sv, "\t"sv, "\n"sv, "\v"sv, "\f"sv, "\r"sv, " \t\r\n\v\f  "sv})
        for (const eUtEncodingType encoding : convertedEncodings) {
            EXPECT_EQ(Shown(CDateTime::ParseDate(Encoded("2024-03-05 14:07:09" + std::string(end), encoding))),
                      "2024-03-05 14:07:09 (0)")
                << int{end[0]};
            EXPECT_EQ(Shown(CDateTime::ParseDate(Encoded(end, encoding))), shownNull) << int{end[0]};
        }
    EXPECT_EQ(Shown(CDateTime::ParseDate(Ansi(""))), shownNull);
}

TEST(ParseDate, RefusesALongText)
{
    EXPECT_EQ(Shown(CDateTime::ParseDate(Ansi(std::string(1'000'000, '1')))), refused);
    EXPECT_EQ(Shown(CDateTime::ParseDate(Ansi(std::string(1'000'000, '.')))), refused);
    CDateTime date;
    EXPECT_FALSE(date.ConvertDate(Ansi(std::string(1'000'000, '1'))));
    EXPECT_FALSE(date.SetDate(Ansi(std::string(1'000'000, '1') + ".3.2024")));
}

} // namespace
