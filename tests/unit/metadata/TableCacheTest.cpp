#include "metadata/TableCache.h"

#include "harness/LogRecorder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

CMyField Column(const char* name)
{
    return CMyField(name, MYTYPE_LONG, 3, 11, 0, 0, "", 63);
}

TEST(TableCacheEntry, StartsWithoutColumnsAndEngine)
{
    const CTableCache entry("ORDERS");
    EXPECT_TRUE(entry.GetName() == "ORDERS");
    EXPECT_TRUE(entry.GetEngine().IsEmpty());
    EXPECT_FALSE(entry.IsTransactional());
    EXPECT_EQ(entry.GetFieldCount(), 0U);
}

TEST(TableCacheEntry, KeepsColumnsInTheOrderTheyCome)
{
    CTableCache entry("ORDERS");
    EXPECT_TRUE(entry.AppendField(Column("id")));
    EXPECT_TRUE(entry.AppendField(Column("Name")));
    ASSERT_EQ(entry.GetFieldCount(), 2U);
    EXPECT_TRUE(entry.GetField(0UL)->GetName() == "id");
    EXPECT_TRUE(entry.GetField(1UL)->GetName() == "Name");
}

TEST(TableCacheEntry, GivesNoColumnAtOrBeyondTheCount)
{
    CTableCache entry("ORDERS");
    EXPECT_EQ(entry.GetField(0UL), nullptr);
    entry.AppendField(Column("id"));
    EXPECT_EQ(entry.GetField(1UL), nullptr);
    EXPECT_EQ(entry.GetField(4294967295UL), nullptr);
}

TEST(TableCacheEntry, WritesNoWarningForAPositionBeyondTheCount)
{
    const harness::LogRecorder log;
    const CTableCache entry("ORDERS");
    EXPECT_EQ(entry.GetField(0UL), nullptr);
    EXPECT_TRUE(log.Entries().empty());
}

TEST(TableCacheEntry, FindsAColumnInAnyLetterCase)
{
    CTableCache entry("ORDERS");
    entry.AppendField(Column("id"));
    entry.AppendField(Column("Name"));
    for (const char* name : {"name", "NAME", "Name", "nAmE"}) {
        unsigned long position = 77;
        EXPECT_TRUE(entry.FindField(name, position)) << name;
        EXPECT_EQ(position, 1U) << name;
    }
}

TEST(TableCacheEntry, FindsNeitherAnEmptyNorAnUnknownNorAnUntrimmedName)
{
    CTableCache entry("ORDERS");
    entry.AppendField(Column("id"));
    for (const char* name : {"", "no", " id", "id ", "`id`"}) {
        unsigned long position = 77;
        EXPECT_FALSE(entry.FindField(name, position)) << '[' << name << ']';
        EXPECT_EQ(position, 77U);
        EXPECT_EQ(entry.GetField(UtCString(name)), nullptr);
    }
}

TEST(TableCacheEntry, FindsNoColumnByAnEmptyNameAlsoWhenOneHasNoName)
{
    CTableCache entry("ORDERS");
    entry.AppendField(Column(""));
    unsigned long position = 77;
    EXPECT_FALSE(entry.FindField("", position));
    EXPECT_EQ(position, 77U);
}

TEST(TableCacheEntry, FindsTheLaterOfTwoColumnsWhoseNamesDifferInCaseOnly)
{
    CTableCache entry("ORDERS");
    entry.AppendField(Column("id"));
    entry.AppendField(Column("ID"));
    unsigned long position = 77;
    EXPECT_TRUE(entry.FindField("id", position));
    EXPECT_EQ(position, 1U);
    EXPECT_EQ(entry.GetFieldCount(), 2U);
}

TEST(TableCacheEntry, IsTransactionalWithInnoDbInAnyLetterCaseAndWithNothingElse)
{
    for (const char* engine : {"InnoDB", "innodb", "INNODB"}) {
        CTableCache entry("ORDERS");
        entry.SetEngine(engine);
        EXPECT_TRUE(entry.IsTransactional()) << engine;
        EXPECT_TRUE(entry.GetEngine() == engine);
    }
    for (const char* engine : {"MyISAM", "Aria", "", "InnoDB2", " InnoDB"}) {
        CTableCache entry("ORDERS");
        entry.SetEngine(engine);
        EXPECT_FALSE(entry.IsTransactional()) << engine;
    }
}

} // namespace
