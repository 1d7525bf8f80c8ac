#include "unit/datetime/DateTestSupport.h"

#include "datetime/ServerDate.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_view_literals;

constexpr const char* empty = "-1 -1 -1 -1 -1 -1 (2)";
constexpr const char* invalid = "-1 -1 -1 -1 -1 -1 (1)";

TEST(FromServerText, ReadsByPosition)
{
    const struct
    {
        std::string_view text;
        const char* shown;
    } rows[] = {
        {"2023-05-07 08:09:10"sv, "2023-05-07 08:09:10 (0)"},
        {"2023-05-07 08:09:1"sv, "2023-05-07 08:09:01 (0)"},
        {"2023-05-07 08:09:10.123456"sv, "2023-05-07 08:09:10 (0)"},
        {"2023-05-07"sv, "2023-05-07 00:00:00 (0)"},
        {"2023-05-07 08:09"sv, "2023-05-07 00:00:00 (0)"},
        {"2023-05-07 08:09:"sv, "2023-05-07 00:00:00 (0)"},
        {"2023-05-0"sv, invalid},
        {"2023-05-7"sv, "2023-05-07 00:00:00 (0)"},
        {"2023x05y07z08*09*10"sv, "2023-05-07 08:09:10 (0)"},
        {"2023105207308409510"sv, "2023-05-07 08:09:10 (0)"},
        {"2023-05-07T23:59:59"sv, "2023-05-07 23:59:59 (0)"},
        {"1000-01-01 00:00:00"sv, "1000-01-01 00:00:00 (0)"},
        {"0100-01-01 00:00:00"sv, "0100-01-01 00:00:00 (0)"},
        {"9999-12-31 23:59:59"sv, "9999-12-31 23:59:59 (0)"},
        {"1899-12-29 06:00:00"sv, "1899-12-29 06:00:00 (0)"},
        {"12:34:56"sv, empty},
        {"20230507"sv, empty},
        {""sv, empty},
        {"2023"sv, empty},
        {"0000-00-00"sv, empty},
        {"0000-00-00 00:00:00"sv, empty},
        {"0000-05-07 08:09:10"sv, empty},
        {"-001-05-07 08:09:10"sv, empty},
        {"abcd-05-07 08:09:10"sv, empty},
        {"202x-05-07 08:09:10"sv, empty},
        {"20 3-05-07 08:09:10"sv, empty},
        {"0x7f-05-07 08:09:10"sv, empty},
        {"\0\0\0\0-05-07 08:09:10"sv, empty},
        {"0099-05-07"sv, invalid},
        {"2023-00-00"sv, invalid},
        {"2023-02-29 08:09:10"sv, invalid},
        {"2023-13-01"sv, invalid},
        {"2023-05-07 24:00:00"sv, invalid},
        {"2023-05-07 08:60:00"sv, invalid},
        {"2023-05-07 08:09:60"sv, invalid},
        {"2023-ab-07"sv, invalid},
        {"2023-05-07 ab:cd:ef"sv, "2023-05-07 00:00:00 (0)"},
        {"2023-05-07 0x:1-:--"sv, "2023-05-07 00:00:00 (0)"},
        {"2023-05-07 08:\0\0:10"sv, "2023-05-07 08:00:10 (0)"},
        {"2023- 5- 7  8: 9: 1"sv, "2023-05-07 08:09:01 (0)"},
        {"2023-5 -7  8 :9 :1 "sv, "2023-05-07 08:09:01 (0)"},
        {"2023-+5-+7 +8:+9:+1"sv, "2023-05-07 08:09:01 (0)"},
        {"2023-05-07 08:09:+5"sv, "2023-05-07 08:09:05 (0)"},
        {"2023-05-07 08:09: 1"sv, "2023-05-07 08:09:01 (0)"},
        {"2023-05-07 08:09:1;"sv, "2023-05-07 08:09:00 (0)"},
        {"+202-05-07 08:09:10"sv, "0202-05-07 08:09:10 (0)"},
        {"2023-05-07 -8:09:10"sv, invalid},
        {"2023-\xFC\xFC-07"sv, invalid},
    };
    for (const auto& row : rows) {
        const CDateTime date = datetime::FromServerText(row.text);
        EXPECT_EQ(Shown(date), row.shown) << row.text;
        EXPECT_TRUE(date.GetStatus() == CDateTime::valid || date.GetValue() == 0) << row.text;
    }
}

TEST(FromServerText, Kept_K51_TakesTheTimeFromEighteenCharacters)
{
    EXPECT_EQ(Shown(datetime::FromServerText("2023-05-07 08:09:1")), "2023-05-07 08:09:01 (0)");
    EXPECT_EQ(Shown(datetime::FromServerText("2023-05-07 08:09:")), "2023-05-07 00:00:00 (0)");
}

TEST(FromServerText, ReadsTheFormThatTheLibraryWrites)
{
    for (const CDateTime& date : {CDateTime(1600, 1, 1, 0, 0, 0), CDateTime(1899, 12, 29, 23, 59, 59),
                                  CDateTime(2024, 2, 29, 14, 7, 9), CDateTime(2999, 12, 31, 23, 59, 59)})
        EXPECT_EQ(datetime::FromServerText(date.GetDate(9).View()).GetValue(), date.GetValue()) << Shown(date);
}

} // namespace
