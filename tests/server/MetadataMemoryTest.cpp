#include "CMyDatabase.h"
#include "CMyTable.h"
#include "MyDbFunctions.h"
#include "Settings.h"
#include "harness/FailingAllocations.h"
#include "harness/PrivateServer.h"
#include "metadata/FieldCache.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const char* const longName = "a_table_with_a_name_that_does_not_fit_into_the_text_itself";

CMyServer TesterSettings()
{
    const harness::ServerAccess& access = harness::PrivateServer::Get().Tester();
    return server_test::SettingsOf(access, "");
}

/// Memory that runs out, at each allocation in turn: once, or from there for good.
class MetadataMemory : public testing::TestWithParam<bool>
{
protected:
    MetadataMemory() : m_database(TesterSettings(), m_temporary.Name().c_str()), m_name(longName)
    {
        m_temporary.Sql().Run(std::string("CREATE TABLE ") + longName +
                              " (the_first_column_with_a_long_name INT, the_second_column_with_a_long_name INT, "
                              "c3 VARCHAR(50) DEFAULT 'a default that does not fit into the text itself', "
                              "PRIMARY KEY (the_first_column_with_a_long_name, the_second_column_with_a_long_name))");
    }

    void SetUp() override { ASSERT_TRUE(m_database.Open(false, "")); }
    void TearDown() override { MyDbStaticFieldCacheRemove(m_name); }

    /// Whether a handle is either invalid or knows every column by its name.
    static bool IsAllOrNothing(const CMyTable& table, const UtCString& first, const UtCString& second)
    {
        if (!table.IsValid())
            return table.GetFieldCount() == 0;
        return table.GetFieldCount() == 3 && table.ExistField(first) && table.ExistField(second);
    }

    harness::TemporaryDatabase m_temporary;
    CMyDatabase m_database;
    const UtCString m_name;
    const UtCString m_first{"the_first_column_with_a_long_name"};
    const UtCString m_second{"the_second_column_with_a_long_name"};
};

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, MetadataMemory, testing::Bool());

TEST_P(MetadataMemory, ATableIsLoadedWholeOrNotAtAll)
{
    bool isAllOrNothing = true;
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        const CMyTable table(&m_database, m_name);
        harness::AllocationFailure::allocationsLeft = -1;
        isAllOrNothing = isAllOrNothing && IsAllOrNothing(table, m_first, m_second);
        while (MyDbStaticFieldCacheRemove(m_name)) {
        }
    });
    EXPECT_GT(failures, 10);
    EXPECT_TRUE(isAllOrNothing);
    EXPECT_TRUE(IsAllOrNothing(CMyTable(&m_database, m_name), m_first, m_second));
    EXPECT_TRUE(CMyTable(&m_database, m_name).IsValid());
}

TEST_P(MetadataMemory, AFailedLoadLeavesNothingInTheCache)
{
    CFieldCache& cache = CFieldCache::Instance();
    cache.RemoveAll();
    bool isClean = true;
    harness::ForEachAllocation(GetParam(), [&] {
        const CMyTable table(&m_database, m_name);
        harness::AllocationFailure::allocationsLeft = -1;
        unsigned long position = 0;
        isClean = isClean && cache.Find(m_name, position) == table.IsValid() && !cache.Find("`", position);
        cache.Remove(m_name);
        isClean = isClean && cache.GetCount() == 0;
    });
    EXPECT_TRUE(isClean);
}

TEST_P(MetadataMemory, AFailedLoadSpoilsNoLaterOne)
{
    bool isAlwaysLoaded = true;
    harness::ForEachAllocation(GetParam(), [&] {
        const CMyTable failed(&m_database, m_name);
        harness::AllocationFailure::allocationsLeft = -1;
        const CMyTable table(&m_database, m_name);
        isAlwaysLoaded = isAlwaysLoaded && table.IsValid() && IsAllOrNothing(table, m_first, m_second);
        while (MyDbStaticFieldCacheRemove(m_name)) {
        }
    });
    EXPECT_TRUE(isAlwaysLoaded);
}

TEST_P(MetadataMemory, ALoadedTableAnswersOrGivesUp)
{
    const CMyTable table(&m_database, m_name);
    const UtCString list = table.GetFields("");
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        unsigned long no = 0;
        unsigned int nr = 0;
        CMyTable copy(table);
        copy.GetFieldNo(m_first, no);
        copy.ExistField(m_first);
        copy.GetField(m_first);
        copy.GetField(1UL);
        copy.GetFieldName(1);
        copy.GetFieldType(m_first);
        copy.GetFieldTypeString(m_first);
        copy.GetFieldSize(m_first);
        copy.GetFieldCharsetNr(m_first, nr);
        copy.GetFields(m_first);
        copy.RemoveFieldsFromFieldList(list, m_second);
        copy.GetPrimaryKeyFieldName();
        copy.GetTableType();
        copy = table;
    });
    EXPECT_GT(failures, 10);
    EXPECT_TRUE(table.GetFields("") == list);
}

TEST_P(MetadataMemory, TheCacheCanBeChangedAgainAfterwards)
{
    harness::ForEachAllocation(GetParam(), [&] {
        CMyTable table(&m_database, m_name);
        table.RegisterTable(true);
        table.UnregisterTable();
        table.ClearTableCache();
    });
    CMyTable table(&m_database, m_name);
    EXPECT_TRUE(table.RegisterTable(true));
    EXPECT_TRUE(IsAllOrNothing(table, m_first, m_second));
    EXPECT_TRUE(table.UnregisterTable());
}

} // namespace
