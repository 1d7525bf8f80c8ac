#include "locale/LocaleCase.h"

#include "CDateTime.h"
#include "unit/VariantText.h"
#include "unit/datetime/DateTestSupport.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

std::string LocaleOfUser()
{
    const char* const name = std::getenv("MYDB_TEST_LOCALE");
    return name ? name : "en_US";
}

std::vector<LocaleCase> CasesOfUser(const std::vector<LocaleCase>& cases)
{
    std::vector<LocaleCase> chosen;
    std::copy_if(cases.begin(), cases.end(), std::back_inserter(chosen),
                 [](const LocaleCase& one) { return *one.locale == '\0' || one.locale == LocaleOfUser(); });
    return chosen;
}

namespace {

CDateTime FromVariant(const UtCString& text)
{
    const UtCString utf16(text, UT_ENCODING_UTF16_LE);
    std::u16string units;
    const std::string_view bytes = utf16.View();
    for (size_t index = 0; index + 1 < bytes.size(); index += 2)
        units += static_cast<char16_t>(static_cast<unsigned char>(bytes[index]) |
                                       static_cast<unsigned char>(bytes[index + 1]) << 8);
    const VariantText variant(units);
    return CDateTime(static_cast<const VARIANT&>(variant));
}

TEST_P(LocaleDates, AreReadInTheFormOfTheUser)
{
    const LocaleCase& row = GetParam();
    const UtCString text(std::string_view(row.text), UT_ENCODING_UTF8);
    const std::string valid = row.expected ? row.expected + std::string(" (0)") : std::string();
    EXPECT_EQ(Shown(CDateTime::ParseDate(text, row.flags)), row.expected ? valid : shownNull) << row.text;
    if (row.flags == 0) {
        EXPECT_EQ(Shown(FromVariant(text)), row.expected ? valid : shownInvalid) << row.text;
    }
}

const LocaleCase sharedCases[] = {
    {"YearFirst", "", "2024-03-05", "2024-03-05 00:00:00"},
    {"YearFirstWithSlashes", "", "2024/3/5", "2024-03-05 00:00:00"},
    {"YearFirstWithTime", "", "2024-03-05 14:07:09", "2024-03-05 14:07:09"},
    {"TimeOnDayZero", "", "14:07:09", "1899-12-30 14:07:09"},
    {"DayThatCanBeNoMonth", "", "31/12/2024", "2024-12-31 00:00:00"},
    {"MonthThatCanBeNoDay", "", "12/31/2024", "2024-12-31 00:00:00"},
    {"Year1600", "", "1600-01-01", "1600-01-01 00:00:00"},
    {"Year2999", "", "2999-12-31 23:59:59", "2999-12-31 23:59:59"},
    {"UserOverridesIgnored", "", "2024-03-05", "2024-03-05 00:00:00", 0x80000000},
    {"DateWhereADateIsWanted", "", "2024-03-05", "2024-03-05 00:00:00", 0x2},
    {"TimeWhereATimeIsWanted", "", "14:07", "1899-12-30 14:07:00", 0x1},
    {"NothingWhenBothAreTheOnlyThing", "", "2024-03-05", nullptr, 0x3},
    {"Empty", "", "", nullptr},
    {"NoDate", "", "no date", nullptr},
    {"Letters", "", "\xC3\x84pfel", nullptr},
    {"DayThatDoesNotExist", "", "2024-02-30", nullptr},

    {"DayFirst", "de_DE", "05/03/2024", "2024-03-05 00:00:00"},
    {"Points", "de_DE", "05.03.2024", "2024-03-05 00:00:00"},
    {"PointsWithoutZeros", "de_DE", "5.3.2024", "2024-03-05 00:00:00"},
    {"DayFirstWithoutZeros", "de_DE", "3/5/2024", "2024-05-03 00:00:00"},
    {"PointsWithTime", "de_DE", "05.03.2024 14:07:09", "2024-03-05 14:07:09"},
    {"NameOfMonth", "de_DE", "5. M\xC3\xA4rz 2024", "2024-03-05 00:00:00"},
    {"NameOfDay", "de_DE", "Dienstag, 5. M\xC3\xA4rz 2024", "2024-03-05 00:00:00"},
    {"NameInSmallLetters", "de_DE", "5. m\xC3\xA4rz 2024", "2024-03-05 00:00:00"},
    {"NameInCapitals", "de_DE", "5. OKTOBER 2024", "2024-10-05 00:00:00"},
    {"EnglishNameOfMonth", "de_DE", "5. October 2024", nullptr},
    {"PointsOfADayThatDoesNotExist", "de_DE", "30.02.2024", nullptr},

    {"MonthFirst", "en_US", "03/05/2024", "2024-03-05 00:00:00"},
    {"MonthFirstWithoutZeros", "en_US", "3/5/2024", "2024-03-05 00:00:00"},
    {"MonthFirstWithTime", "en_US", "3/5/2024 2:07:09 PM", "2024-03-05 14:07:09"},
    {"NameOfMonth", "en_US", "March 5, 2024", "2024-03-05 00:00:00"},
    {"NameOfMonthBehindTheDay", "en_US", "5 March 2024", "2024-03-05 00:00:00"},
    {"NameOfDay", "en_US", "Tuesday, March 5, 2024", "2024-03-05 00:00:00"},
    {"ShortNameOfMonth", "en_US", "Mar 5, 2024", "2024-03-05 00:00:00"},
    {"TimeInTheAfternoon", "en_US", "2:07 PM", "1899-12-30 14:07:00"},
    {"HourInTheAfternoon", "en_US", "2 PM", "1899-12-30 14:00:00"},
    {"GermanNameOfMonth", "en_US", "5. M\xC3\xA4rz 2024", nullptr},
    {"DayThatDoesNotExistMonthFirst", "en_US", "02/30/2024", nullptr},
};

INSTANTIATE_TEST_SUITE_P(OfBothSystems, LocaleDates,
                         testing::ValuesIn(CasesOfUser({std::begin(sharedCases), std::end(sharedCases)})), NameOfCase);

TEST(DateOfTheUsersLocale, IsTheShortForm)
{
    const bool isGerman = LocaleOfUser() == "de_DE";
    EXPECT_EQ(Text(CDateTime(2024, 12, 31, 23, 59, 59).GetDate(0)), isGerman ? "31.12.2024" : "12/31/2024");
    EXPECT_EQ(Text(CDateTime(2999, 10, 20, 0, 0, 0).GetDate(13)), isGerman ? "20.10.2999" : "10/20/2999");
}

TEST(DateOfTheUsersLocale, IsEmptyForNoDate)
{
    EXPECT_EQ(Text(CDateTime().GetDate(0)), "");
    EXPECT_EQ(Text(CDateTime(2024, 2, 30, 0, 0, 0).GetDate(0)), "");
}

TEST(DateOfTheUsersLocale, IsReadBack)
{
    const CDateTime date(2024, 3, 5, 0, 0, 0);
    EXPECT_EQ(Shown(CDateTime::ParseDate(date.GetDate(0))), Shown(date));
    EXPECT_EQ(Shown(FromVariant(date.GetDate(0))), Shown(date));
}

} // namespace
