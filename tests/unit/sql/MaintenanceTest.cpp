#include "sql/Maintenance.h"

#include <gtest/gtest.h>

namespace {

TEST(DropTable, Kept_K138_NamesDatabaseAndTableWithoutBackticks)
{
    EXPECT_EQ(sql::DropTable("shop", "orders", UT_ENCODING_DEFAULT).View(), "DROP TABLE IF EXISTS shop.orders");
    EXPECT_EQ(sql::DropTable("my-shop", "order", UT_ENCODING_DEFAULT).View(), "DROP TABLE IF EXISTS my-shop.order");
    EXPECT_EQ(sql::DropTable("shop", "`my %s`", UT_ENCODING_DEFAULT).View(), "DROP TABLE IF EXISTS shop.`my %s`");
}

TEST(DropDatabase, NamesItWithoutBackticks)
{
    EXPECT_EQ(sql::DropDatabase("shop", UT_ENCODING_DEFAULT).View(), "DROP DATABASE shop");
    EXPECT_EQ(sql::DropDatabase("shop#1", UT_ENCODING_DEFAULT).View(), "DROP DATABASE shop#1");
}

TEST(FlushTables, TakesTheListAsItIs)
{
    EXPECT_EQ(sql::FlushTables("`a`, `b`", UT_ENCODING_DEFAULT).View(), "FLUSH TABLES `a`, `b`");
}

TEST(OptimizeTables, TakesTheListAsItIs)
{
    EXPECT_EQ(sql::OptimizeTables("`a`, `b`", UT_ENCODING_DEFAULT).View(), "OPTIMIZE TABLE `a`, `b`");
}

TEST(Maintenance, StatementsAreInTheEncodingAskedFor)
{
    const UtCString zhe("\xD0\xB6", UT_ENCODING_UTF8);
    const UtCString statements[] = {sql::DropTable("shop", zhe, UT_ENCODING_UTF8),
                                    sql::DropDatabase(zhe, UT_ENCODING_UTF8), sql::FlushTables(zhe, UT_ENCODING_UTF8),
                                    sql::OptimizeTables(zhe, UT_ENCODING_UTF8)};
    const char* const expected[] = {"DROP TABLE IF EXISTS shop.\xD0\xB6", "DROP DATABASE \xD0\xB6",
                                    "FLUSH TABLES \xD0\xB6", "OPTIMIZE TABLE \xD0\xB6"};
    for (int position = 0; position < 4; ++position) {
        EXPECT_EQ(statements[position].View(), expected[position]);
        EXPECT_EQ(statements[position].GetEncodingType(), UT_ENCODING_UTF8);
    }
}

} // namespace
