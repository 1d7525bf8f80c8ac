#include "locale/LocaleCase.h"

#include "unit/TestLocale.h" // the leak of LOCPATH
#include "unit/datetime/DateTestSupport.h"

namespace {

// What the library's own parser reads and Windows does not, or in another way.
const LocaleCase cases[] = {
    {"CompactFormThatWindowsRefuses", "", "20240305", "2024-03-05 00:00:00"},
    {"IsoTimeMarkThatWindowsRefuses", "", "2024-03-05T14:07:09", "2024-03-05 14:07:09"},
    {"FractionThatWindowsRefuses", "", "14:07:09.5", "1899-12-30 14:07:09"},
    {"TimeThatWindowsTakesAsMidnight", "", "14:07:09", nullptr, 0x2},
    {"DateThatWindowsTakesAsDayZero", "", "2024-03-05", nullptr, 0x1},
    {"PointsThatWindowsRefuses", "en_US", "05.03.2024", "2024-05-03 00:00:00"},
    {"PointsThatWindowsTakesAsATime", "en_US", "5.3.24", "2024-05-03 00:00:00"},
};

INSTANTIATE_TEST_SUITE_P(OfThisParser, LocaleDates,
                         testing::ValuesIn(CasesOfUser({std::begin(cases), std::end(cases)})), NameOfCase);

TEST(DateOfTheUsersLocaleOnPosix, HasTheZerosOfLcTime)
{
    EXPECT_EQ(Text(CDateTime(2024, 3, 5, 0, 0, 0).GetDate(0)), LocaleOfUser() == "de_DE" ? "05.03.2024" : "03/05/2024");
}

TEST(DateOfTheUsersLocaleOnPosix, IsThereBefore1601BecauseTheCalendarIs)
{
    EXPECT_EQ(Text(CDateTime(1600, 12, 31, 0, 0, 0).GetDate(0)),
              LocaleOfUser() == "de_DE" ? "31.12.1600" : "12/31/1600");
}

} // namespace
