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
    EXPECT_EQ(sql::DropDatabase("k\xFC", UT_ENCODING_UTF8).View(), "DROP DATABASE k\xC3\xBC");
}

TEST(FlushTables, TakesTheListAsItIs)
{
    EXPECT_EQ(sql::FlushTables("`a`, `b`", UT_ENCODING_DEFAULT).View(), "FLUSH TABLES `a`, `b`");
}

TEST(OptimizeTables, TakesTheListAsItIs)
{
    EXPECT_EQ(sql::OptimizeTables("`a`, `b`", UT_ENCODING_DEFAULT).View(), "OPTIMIZE TABLE `a`, `b`");
}

} // namespace
