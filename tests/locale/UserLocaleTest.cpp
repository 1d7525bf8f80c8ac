// Dates as a user of the locale in MYDB_TEST_LOCALE (de_DE or en_US) writes and reads them. Run once for each.
#include "CDateTime.h"

#include "unit/VariantText.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

bool IsGerman()
{
    const char* const locale = std::getenv("MYDB_TEST_LOCALE");
    return std::string_view(locale ? locale : "") == "de_DE";
}

struct Text
{
    const char16_t* text;
    const char* value; ///< as year-month-day hour:minute:second; empty for a text that is no date
};

UtCString Utf8(const Text& text)
{
    const std::u16string_view units(text.text);
    const std::string_view bytes(reinterpret_cast<const char*>(units.data()), units.size() * sizeof(char16_t));
    return UtCString(UtCString(bytes, UT_ENCODING_UTF16_LE), UT_ENCODING_UTF8);
}

std::string Shown(const CDateTime& date)
{
    char text[64] = "";
    if (date.GetStatus() == CDateTime::valid)
        std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", date.GetYear(), date.GetMonth(),
                      date.GetDay(), date.GetHour(), date.GetMinute(), date.GetSecond());
    return text;
}

// What both systems read.
constexpr Text german[] = {
    {u"05.03.2024", "2024-03-05 00:00:00"},
    {u"5.3.2024", "2024-03-05 00:00:00"},
    {u"15.11.2024", "2024-11-15 00:00:00"},
    {u"5. M\u00E4rz 2024", "2024-03-05 00:00:00"},
    {u"5. m\u00E4rz 2024", "2024-03-05 00:00:00"},
    {u"05.03.2024 14:07:09", "2024-03-05 14:07:09"},
    {u"2024-03-05", "2024-03-05 00:00:00"},
    {u"3/5/2024", "2024-05-03 00:00:00"},
    {u"14:07", "1899-12-30 14:07:00"},
    {u"30.02.2024", ""},
    {u"Unsinn", ""},
};
constexpr Text english[] = {
    {u"03/05/2024", "2024-03-05 00:00:00"},
    {u"3/5/2024", "2024-03-05 00:00:00"},
    {u"11/15/2024", "2024-11-15 00:00:00"},
    {u"March 5, 2024", "2024-03-05 00:00:00"},
    {u"3/5/2024 2:07:09 PM", "2024-03-05 14:07:09"},
    {u"2024-03-05", "2024-03-05 00:00:00"},
    {u"2:07 PM", "1899-12-30 14:07:00"},
    {u"2/30/2024", ""},
    {u"nonsense", ""},
};

template <class Check> void ForEachText(Check check)
{
    if (IsGerman())
        for (const Text& text : german)
            check(text);
    else
        for (const Text& text : english)
            check(text);
}

TEST(UserLocale, IsOneOfTheTwo)
{
    const char* const locale = std::getenv("MYDB_TEST_LOCALE");
    ASSERT_NE(locale, nullptr);
    EXPECT_TRUE(std::string_view(locale) == "de_DE" || std::string_view(locale) == "en_US") << locale;
}

TEST(UserLocale, ParseDateReadsItsForms)
{
    ForEachText([](const Text& text) {
        EXPECT_EQ(Shown(CDateTime::ParseDate(Utf8(text))), text.value) << Utf8(text).string();
    });
}

TEST(UserLocale, ParseDateMarksOtherTextsAsNull)
{
    EXPECT_EQ(CDateTime::ParseDate(UtCString("nothing at all")).GetStatus(), CDateTime::null);
}

TEST(UserLocale, ParseDateHasFlagsForADateOrATimeOnly)
{
    constexpr unsigned long timeOnly = 1;
    constexpr unsigned long dateOnly = 2;
    const UtCString date(IsGerman() ? "05.03.2024" : "3/5/2024");
    EXPECT_EQ(Shown(CDateTime::ParseDate(date, dateOnly)), "2024-03-05 00:00:00");
    EXPECT_EQ(Shown(CDateTime::ParseDate(UtCString("14:07:09"), timeOnly)), "1899-12-30 14:07:09");
}

TEST(UserLocale, AVariantIsReadAsTheUserWritesIt)
{
    ForEachText([](const Text& text) {
        const CDateTime date{static_cast<const VARIANT&>(VariantText(text.text))};
        EXPECT_EQ(Shown(date), text.value) << Utf8(text).string();
        EXPECT_EQ(date.GetStatus(), *text.value ? CDateTime::valid : CDateTime::invalid) << Utf8(text).string();
    });
}

TEST(UserLocale, TheShortDateIsTheUsers)
{
    const CDateTime date(2024, 11, 15, 18, 0, 0);
    EXPECT_STREQ(date.GetDate(0).string(), IsGerman() ? "15.11.2024" : "11/15/2024");
    EXPECT_STREQ(CDateTime().GetDate(0).string(), "");
}

} // namespace
