#include "sql/ShowTables.h"

#include <gtest/gtest.h>

namespace {

TEST(ShowTablesLike, NamesDatabaseAndPattern)
{
    EXPECT_EQ(sql::ShowTablesLike("shop", "ORDERS").View(), "SHOW TABLES FROM shop LIKE 'ORDERS'");
    EXPECT_EQ(sql::ShowTablesLike("shop", "A_%'B").View(), "SHOW TABLES FROM shop LIKE 'A_%'B'");
    EXPECT_EQ(sql::ShowTablesLike("", "").View(), "SHOW TABLES FROM  LIKE ''");
}

TEST(ShowTablesLike, Kept_K46_DoesNotQuoteTheDatabase)
{
    EXPECT_EQ(sql::ShowTablesLike("my-shop", "ORDERS").View(), "SHOW TABLES FROM my-shop LIKE 'ORDERS'");
}

TEST(ShowTablesLike, IsInTheEncodingOfTheTable)
{
    const UtCString statement = sql::ShowTablesLike("d\xFC", UtCString("K\xC3\x9C", UT_ENCODING_UTF8));
    EXPECT_EQ(statement.GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(statement.View(), "SHOW TABLES FROM d\xC3\xBC LIKE 'K\xC3\x9C'");
}

} // namespace
