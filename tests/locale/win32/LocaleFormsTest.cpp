#include "locale/LocaleCase.h"

#include "unit/datetime/DateTestSupport.h"

namespace {

// What the system's parser refuses, or reads in another way than the library's own.
const LocaleCase cases[] = {
    {"CompactFormThatTheSystemRefuses", "", "20240305", nullptr},
    {"IsoTimeMarkThatTheSystemRefuses", "", "2024-03-05T14:07:09", nullptr},
    {"TimeThatTheSystemTakesAsMidnight", "", "14:07:09", "1899-12-30 00:00:00", 0x2},
    {"DateThatTheSystemTakesAsDayZero", "", "2024-03-05", "1899-12-30 00:00:00", 0x1},
    {"PointsThatTheSystemRefuses", "en_US", "05.03.2024", nullptr},
    {"PointsThatTheSystemTakesAsATime", "en_US", "5.3.24", "1899-12-30 05:03:24"},
};

INSTANTIATE_TEST_SUITE_P(OfTheSystem, LocaleDates, testing::ValuesIn(CasesOfUser({std::begin(cases), std::end(cases)})),
                         NameOfCase);

// Windows writes a German date with zeros, Wine without.
TEST(DateOfTheUsersLocale, HasTheZerosOfTheSystem)
{
    const std::string shown = Text(CDateTime(2024, 3, 5, 0, 0, 0).GetDate(0));
    if (LocaleOfUser() == "de_DE")
        EXPECT_TRUE(shown == "05.03.2024" || shown == "5.3.2024") << shown;
    else
        EXPECT_EQ(shown, "3/5/2024");
}

TEST(DateOfTheUsersLocale, IsEmptyBefore1601BecauseTheSystemStartsThere)
{
    EXPECT_EQ(Text(CDateTime(1600, 12, 31, 0, 0, 0).GetDate(0)), "");
    EXPECT_NE(Text(CDateTime(1601, 1, 1, 0, 0, 0).GetDate(0)), "");
}

} // namespace
