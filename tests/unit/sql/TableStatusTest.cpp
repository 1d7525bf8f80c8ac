#include "sql/TableStatus.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Statement(const UtCString& database, const UtCString& table)
{
    return std::string(sql::ShowTableStatus(database, table).View());
}

TEST(ShowTableStatus, NamesDatabaseAndTable)
{
    EXPECT_EQ(Statement("shop", "ORDERS"), "SHOW TABLE STATUS FROM shop LIKE 'ORDERS'");
}

TEST(ShowTableStatus, Kept_K22_NeitherQuotesTheDatabaseNorEscapesTheTable)
{
    EXPECT_EQ(Statement("my-shop", "A_B%"), "SHOW TABLE STATUS FROM my-shop LIKE 'A_B%'");
    EXPECT_EQ(Statement("shop", "IT'S"), "SHOW TABLE STATUS FROM shop LIKE 'IT'S'");
}

TEST(ShowTableStatus, FillsPlaceholdersInNamesNotAgain)
{
    EXPECT_EQ(Statement("%s", "%s%d"), "SHOW TABLE STATUS FROM %s LIKE '%s%d'");
}

TEST(ShowTableStatus, IsInTheEncodingOfTheTableName)
{
    const UtCString table("GR\xC3\x96SSE", UT_ENCODING_UTF8);
    const UtCString statement = sql::ShowTableStatus("b\xFC"
                                                     "cher",
                                                     table);
    EXPECT_EQ(statement.GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(std::string(statement.View()), "SHOW TABLE STATUS FROM b\xC3\xBC"
                                             "cher LIKE 'GR\xC3\x96SSE'");
}

TEST(ShowTableStatus, TakesEmptyNames)
{
    EXPECT_EQ(Statement("", ""), "SHOW TABLE STATUS FROM  LIKE ''");
}

TEST(ShowTableStatusQuoted, PutsTheDatabaseIntoBackticksAndTheTableIntoThePattern)
{
    const UtCString statement = sql::ShowTableStatusQuoted("my shop", "a_b%s", UT_ENCODING_DEFAULT);
    EXPECT_EQ(std::string(statement.View()), "SHOW TABLE STATUS FROM `my shop` LIKE 'a_b%s'");
}

TEST(ShowTableStatusQuoted, IsInTheEncodingAskedFor)
{
    const UtCString statement = sql::ShowTableStatusQuoted("\xFC", "\xE4", UT_ENCODING_UTF8);
    EXPECT_EQ(statement.GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(std::string(statement.View()), "SHOW TABLE STATUS FROM `\xC3\xBC` LIKE '\xC3\xA4'");
}

} // namespace
