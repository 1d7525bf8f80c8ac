#include "platform/LocaleDate.h"

#include <gtest/gtest.h>

namespace {

using platform::CalendarFields;

TEST(ParseLocaleDate, LeavesTheResultAloneForATextThatIsNoDate)
{
    using namespace std::string_view_literals;
    for (const std::string_view text : {""sv, "\0"sv, "2024-03-05\0"sv, "\xFF\xFE"sv, "2024-\xC3-05"sv, "\xE2\x82"sv}) {
        CalendarFields fields = {1, 2, 3, 4, 5, 6};
        EXPECT_FALSE(platform::ParseLocaleDate(text, 0, fields)) << text;
        EXPECT_EQ(fields, (CalendarFields{1, 2, 3, 4, 5, 6})) << text;
    }
}

TEST(ParseLocaleDate, ReadsAYearFirstInEveryLocale)
{
    const struct
    {
        const char* text;
        CalendarFields fields;
    } rows[] = {{"2024-03-05", {2024, 3, 5, 0, 0, 0}}, {"2024-03-05 14:07:09", {2024, 3, 5, 14, 7, 9}},
                {"2024/3/5", {2024, 3, 5, 0, 0, 0}},   {"14:07:09", {1899, 12, 30, 14, 7, 9}},
                {"0100-01-01", {100, 1, 1, 0, 0, 0}},  {"9999-12-31 23:59:59", {9999, 12, 31, 23, 59, 59}}};
    for (const auto& row : rows) {
        CalendarFields fields{};
        EXPECT_TRUE(platform::ParseLocaleDate(row.text, 0, fields)) << row.text;
        EXPECT_EQ(fields, row.fields) << row.text;
    }
}

TEST(ParseLocaleDate, ReadsEverySecondOfADay)
{
    for (int second = 0; second < 86'400; second += 7) {
        const CalendarFields expected = {2024, 3, 5, second / 3600, second / 60 % 60, second % 60};
        char text[32];
        std::snprintf(text, sizeof text, "2024-03-05 %d:%02d:%02d", expected.hour, expected.minute, expected.second);
        CalendarFields fields{};
        ASSERT_TRUE(platform::ParseLocaleDate(text, 0, fields)) << text;
        ASSERT_EQ(fields, expected) << text;
    }
}

TEST(ParseLocaleDate, AcceptsNothingWhenBothAreTheOnlyThing)
{
    for (const char* const text : {"2024-03-05", "14:07:09", "2024-03-05 14:07:09"}) {
        CalendarFields fields{};
        EXPECT_FALSE(platform::ParseLocaleDate(text, platform::timeOnly | platform::dateOnly, fields)) << text;
    }
}

} // namespace
