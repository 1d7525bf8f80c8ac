#include "platform/LocaleDate.h"

#include "platform/LocalTime.h"
#include "platform/win32/DateInForm.h"
#include "platform/win32/WinApi.h"

#include <gtest/gtest.h>

#include <array>

// The user's locale belongs to the account, so the program runs once in an English account and once in a German one.
// What a text means is the system's affair; these are the rows that hosts rely on.
namespace {

using platform::CalendarFields;

constexpr CalendarFields fifthOfMarch = {2024, 3, 5, 0, 0, 0};
constexpr CalendarFields thirdOfMay = {2024, 5, 3, 0, 0, 0};

bool IsGerman()
{
    return PRIMARYLANGID(GetUserDefaultLangID()) == LANG_GERMAN;
}

CalendarFields ReadFields(std::string_view utf8, uint32_t flags = 0)
{
    CalendarFields fields{};
    EXPECT_TRUE(platform::ParseLocaleDate(utf8, flags, fields)) << utf8;
    return fields;
}

bool IsRefused(std::string_view utf8)
{
    CalendarFields fields{};
    return !platform::ParseLocaleDate(utf8, 0, fields);
}

// Windows writes a German date with zeros, Wine without.
TEST(ShortDateOfTheUsersLocale, IsTheFormOfTheSystem)
{
    const std::string shown = platform::ShortDate({2024, 3, 5, 14, 7, 9});
    if (IsGerman())
        EXPECT_TRUE(shown == "05.03.2024" || shown == "5.3.2024") << shown;
    else
        EXPECT_EQ(shown, "3/5/2024");
    EXPECT_EQ(platform::ShortDate({9999, 12, 31, 0, 0, 0}), IsGerman() ? "31.12.9999" : "12/31/9999");
}

TEST(ShortDateOfTheUsersLocale, IsEmptyBeforeTheFirstYearOfWindows)
{
    EXPECT_NE(platform::ShortDate({1601, 1, 1, 0, 0, 0}), "");
    EXPECT_EQ(platform::ShortDate({1600, 12, 31, 0, 0, 0}), "");
    EXPECT_EQ(platform::ShortDate({100, 1, 1, 0, 0, 0}), "");
}

// The user's own form is a setting of the account, which other programs read meanwhile.
TEST(ShortDateOfWindows, IsEmptyFromSeventyEightCharactersOnAsTheSystemCountsTheZero)
{
    for (const size_t length : {0u, 1u, 76u, 77u, 78u, 79u, 80u, 200u}) {
        const std::string text(length, 'x');
        const std::string form = length ? "'" + text + "'" : "''";
        EXPECT_EQ(platform::DateInForm({2024, 3, 5, 0, 0, 0}, form.c_str()), length <= 77 ? text : "") << length;
    }
    EXPECT_EQ(platform::DateInForm({2024, 3, 5, 0, 0, 0}, "dd.MM.yyyy"), "05.03.2024");
}

TEST(ParseLocaleDateOfWindows, ReadsInTheOrderOfTheUsersLocale)
{
    EXPECT_EQ(ReadFields("03/05/2024"), IsGerman() ? thirdOfMay : fifthOfMarch);
    EXPECT_EQ(ReadFields("31/12/2024"), (CalendarFields{2024, 12, 31, 0, 0, 0}));
    EXPECT_EQ(ReadFields("12/31/2024"), (CalendarFields{2024, 12, 31, 0, 0, 0}));
}

TEST(ParseLocaleDateOfWindows, ReadsThePointsOfAGermanDate)
{
    if (IsGerman()) {
        EXPECT_EQ(ReadFields("05.03.2024"), fifthOfMarch);
        EXPECT_EQ(ReadFields("5.3.24"), fifthOfMarch);
        EXPECT_EQ(ReadFields("05.03.2024 14:07:09"), (CalendarFields{2024, 3, 5, 14, 7, 9}));
    } else {
        EXPECT_TRUE(IsRefused("05.03.2024"));
        EXPECT_EQ(ReadFields("5.3.24"), (CalendarFields{1899, 12, 30, 5, 3, 24})) << "a time";
    }
}

TEST(ParseLocaleDateOfWindows, KnowsTheNamesOfTheUsersLocale)
{
    if (IsGerman()) {
        EXPECT_EQ(ReadFields("5. M\xC3\xA4rz 2024"), fifthOfMarch);
        EXPECT_EQ(ReadFields("Dienstag, 5. M\xC3\xA4rz 2024"), fifthOfMarch);
        EXPECT_TRUE(IsRefused("5. M\xE4rz 2024")) << "not in UTF-8";
    } else {
        EXPECT_EQ(ReadFields("March 5, 2024"), fifthOfMarch);
        EXPECT_EQ(ReadFields("Tuesday, March 5, 2024"), fifthOfMarch);
        EXPECT_EQ(ReadFields("2:07 PM"), (CalendarFields{1899, 12, 30, 14, 7, 0}));
    }
}

TEST(ParseLocaleDateOfWindows, LeavesOutWhatTheFlagsDoNotAskFor)
{
    EXPECT_EQ(ReadFields("2024-03-05 14:07:09", platform::timeOnly), (CalendarFields{1899, 12, 30, 14, 7, 9}));
    EXPECT_EQ(ReadFields("2024-03-05 14:07:09", platform::dateOnly), fifthOfMarch);
    EXPECT_EQ(ReadFields("2024-03-05", platform::timeOnly), (CalendarFields{1899, 12, 30, 0, 0, 0}));
    EXPECT_EQ(ReadFields("2024-03-05", platform::ignoreUserOverride), fifthOfMarch);
}

TEST(ParseLocaleDateOfWindows, TakesThisYearForAMissingOne)
{
    CalendarFields now{};
    ASSERT_TRUE(platform::LocalTimeFromSeconds(platform::CurrentTime(), now));
    const CalendarFields read = ReadFields(IsGerman() ? "5. M\xC3\xA4rz" : "March 5");
    EXPECT_TRUE(read.year == now.year || read.year == now.year + 1) << read.year;
    EXPECT_EQ(read, (CalendarFields{read.year, 3, 5, 0, 0, 0}));
}

} // namespace
