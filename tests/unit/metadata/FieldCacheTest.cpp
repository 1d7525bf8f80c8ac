#include "metadata/FieldCache.h"

#include "MyDbFunctions.h"
#include "connection/TableCacheHook.h"
#include "harness/LogRecorder.h"
#include "harness/MessageRecorder.h"
#include "unit/metadata/MetadataFixture.h"

#include <string_view>

namespace {

using namespace metadata_test;
using Entry = std::shared_ptr<CTableCache>;

constexpr unsigned long untouched = 77;

class FieldCacheTest : public MetadataFixture
{
protected:
    FieldCacheTest() : m_database(Settings(), "shop") { OpenQuietly(m_database); }

    void TearDown() override
    {
        m_database.Close();
        MetadataFixture::TearDown();
    }

    /// The position that Find gives for a name; -1 when it finds nothing.
    long PositionOf(const UtCString& name) const
    {
        unsigned long position = untouched;
        return m_cache.Find(name, position) ? static_cast<long>(position) : -1;
    }

    void Load(std::initializer_list<const char*> names)
    {
        for (const char* name : names)
            ASSERT_NE(m_cache.GetOrLoad(&m_database, name), nullptr) << name;
        m_client.ForgetCalls();
    }

    CMyDatabase m_database;
};

// ---------------------------------------------------------------------------------------------------------------
// The cache as an object

TEST(FieldCacheObject, ExistsOnce)
{
    EXPECT_EQ(&CFieldCache::Instance(), &CFieldCache::Instance());
}

TEST(FieldCacheObject, HasNoClassRecordOfItsOwn)
{
    EXPECT_EQ(CFieldCache::Instance().GetRuntimeClass(), CObject::GetThisClass());
}

TEST_F(FieldCacheTest, StartsEmpty)
{
    EXPECT_EQ(m_cache.GetCount(), 0U);
    EXPECT_EQ(m_cache.GetEntry(0), nullptr);
    EXPECT_EQ(PositionOf("ORDERS"), -1);
}

// ---------------------------------------------------------------------------------------------------------------
// Find

TEST_F(FieldCacheTest, FindsATableByItsNameInAnyCaseWithOrWithoutBackticks)
{
    Load({"`orders`"});
    for (const char* name : {"orders", "ORDERS", "Orders", "`orders`", "``ORDERS", "orders`"})
        EXPECT_EQ(PositionOf(name), 0) << name;
}

TEST_F(FieldCacheTest, FindsNeitherEmptyNorUnknownNorBlankSurroundedNames)
{
    Load({"orders"});
    for (const char* name : {"", "`", "no", " orders", "orders ", " orders ", "` orders `"}) {
        unsigned long position = untouched;
        EXPECT_FALSE(m_cache.Find(name, position)) << '[' << name << ']';
        EXPECT_EQ(position, untouched) << '[' << name << ']';
    }
}

TEST_F(FieldCacheTest, GivesNoEntryAtOrBeyondTheCount)
{
    Load({"orders"});
    EXPECT_NE(m_cache.GetEntry(0), nullptr);
    EXPECT_EQ(m_cache.GetEntry(1), nullptr);
    EXPECT_EQ(m_cache.GetEntry(4294967295UL), nullptr);
}

TEST_F(FieldCacheTest, WritesNoWarningForAPositionBeyondTheCount)
{
    const harness::LogRecorder log;
    EXPECT_EQ(m_cache.GetEntry(0), nullptr);
    EXPECT_TRUE(log.Entries().empty());
}

TEST_F(FieldCacheTest, FindsNoTableByAnEmptyNameAlsoWhenAnEntryHasNoName)
{
    m_client.OnListFields("", {{.name = "id"}});
    ASSERT_NE(m_cache.GetOrLoad(&m_database, " "), nullptr);
    EXPECT_EQ(PositionOf(""), -1);
    EXPECT_EQ(PositionOf("`"), 0) << "a name of backticks has the empty key";
}

// ---------------------------------------------------------------------------------------------------------------
// Get or load

TEST_F(FieldCacheTest, AsksTheServerOnceForATable)
{
    const Entry first = m_cache.GetOrLoad(&m_database, "orders");
    EXPECT_EQ(TakeTraffic(), (Traffic{"list ORDERS", "SHOW TABLE STATUS FROM shop LIKE 'ORDERS'"}));
    const Entry second = m_cache.GetOrLoad(&m_database, "`Orders`");
    EXPECT_EQ(TakeTraffic(), Traffic{});
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(first, second);
    EXPECT_EQ(m_cache.GetCount(), 1U);
}

TEST_F(FieldCacheTest, KeepsEntriesInTheOrderInWhichTheyWereLoaded)
{
    Load({"orders", "items", "prices"});
    ASSERT_EQ(m_cache.GetCount(), 3U);
    EXPECT_EQ(Text(m_cache.GetEntry(0)->GetName()), "ORDERS");
    EXPECT_EQ(Text(m_cache.GetEntry(1)->GetName()), "ITEMS");
    EXPECT_EQ(Text(m_cache.GetEntry(2)->GetName()), "PRICES");
    EXPECT_EQ(PositionOf("prices"), 2);
}

TEST_F(FieldCacheTest, LoadsNothingWithoutAConnection)
{
    EXPECT_EQ(m_cache.GetOrLoad(nullptr, "orders"), nullptr);
    EXPECT_EQ(TakeTraffic(), Traffic{});
}

TEST_F(FieldCacheTest, GivesAnEntryThatItHasWithoutAConnection)
{
    Load({"orders"});
    EXPECT_NE(m_cache.GetOrLoad(nullptr, "orders"), nullptr);
}

TEST_F(FieldCacheTest, LoadsNothingForAnEmptyName)
{
    EXPECT_EQ(m_cache.GetOrLoad(&m_database, ""), nullptr);
    EXPECT_EQ(TakeTraffic(), Traffic{});
}

TEST_F(FieldCacheTest, AddsNothingWhenTheLoadFails)
{
    EXPECT_EQ(m_cache.GetOrLoad(&m_database, "no"), nullptr);
    EXPECT_EQ(m_cache.GetCount(), 0U);
    EXPECT_EQ(m_cache.GetOrLoad(&m_database, "no"), nullptr);
    EXPECT_EQ(TakeTraffic(), (Traffic{"list NO", "list NO"})) << "a failure is not remembered";
}

TEST_F(FieldCacheTest, Kept_K21_GivesATableOfAnotherDatabaseTheMetadataOfTheOneLoadedFirst)
{
    CMyDatabase archive(Settings(), "archive");
    OpenQuietly(archive);
    const Entry first = m_cache.GetOrLoad(&m_database, "orders");
    m_client.OnListFields("ORDERS", {{.name = "other"}});
    EXPECT_EQ(m_cache.GetOrLoad(&archive, "orders"), first);

    m_client.On("SHOW TABLES", fake::Reply::Rows({"Tables_in_archive"}, {{"orders"}}));
    CMyDatabase opened(Settings(), "archive");
    OpenQuietly(opened);
    const Entry reloaded = m_cache.GetOrLoad(&opened, "orders");
    EXPECT_NE(reloaded, first);
    EXPECT_EQ(Text(reloaded->GetField(0UL)->GetName()), "other");
}

TEST_F(FieldCacheTest, Kept_K27_LoadsANameWithBlanksAroundItEveryTimeAsAFurtherEntry)
{
    const Entry first = m_cache.GetOrLoad(&m_database, " orders ");
    const Entry second = m_cache.GetOrLoad(&m_database, " orders ");
    EXPECT_EQ(TakeTraffic(), (Traffic{"list ORDERS", "SHOW TABLE STATUS FROM shop LIKE 'ORDERS'", "list ORDERS",
                                      "SHOW TABLE STATUS FROM shop LIKE 'ORDERS'"}));
    EXPECT_NE(first, second);
    EXPECT_EQ(m_cache.GetCount(), 2U);
    EXPECT_EQ(PositionOf("orders"), 1) << "the newest is found";

    EXPECT_TRUE(m_cache.Remove("orders"));
    EXPECT_EQ(m_cache.GetOrLoad(&m_database, "orders"), first) << "the older one comes to light";
    EXPECT_TRUE(m_cache.Remove("orders"));
    EXPECT_FALSE(m_cache.Remove("orders"));
}

TEST_F(FieldCacheTest, FindsTheFirstOfSeveralEntriesWithOneKeyAfterARemoval)
{
    Load({"orders", " orders ", "items"});
    EXPECT_EQ(PositionOf("orders"), 1);
    EXPECT_TRUE(m_cache.Remove("items"));
    EXPECT_EQ(PositionOf("orders"), 0);
}

// ---------------------------------------------------------------------------------------------------------------
// Remove

TEST_F(FieldCacheTest, RemovesTheSecondOfThreeEntriesAndFindsTheOthers)
{
    Load({"orders", "items", "prices"});
    EXPECT_TRUE(m_cache.Remove("`Items`"));
    ASSERT_EQ(m_cache.GetCount(), 2U);
    EXPECT_EQ(PositionOf("orders"), 0);
    EXPECT_EQ(PositionOf("prices"), 1);
    EXPECT_EQ(PositionOf("items"), -1);
    EXPECT_EQ(Text(m_cache.GetEntry(1)->GetName()), "PRICES");
}

TEST_F(FieldCacheTest, RemovesNothingForAnEmptyUnknownOrBlankSurroundedName)
{
    Load({"orders"});
    for (const char* name : {"", "no", " orders "})
        EXPECT_FALSE(m_cache.Remove(name)) << '[' << name << ']';
    EXPECT_EQ(PositionOf("orders"), 0);
}

TEST_F(FieldCacheTest, ReloadsATableAfterItsRemoval)
{
    const Entry before = m_cache.GetOrLoad(&m_database, "orders");
    m_client.OnListFields("ORDERS", {{.name = "changed"}});
    EXPECT_EQ(m_cache.GetOrLoad(&m_database, "orders"), before) << "entries are never refreshed in place";
    EXPECT_TRUE(m_cache.Remove("orders"));
    const Entry after = m_cache.GetOrLoad(&m_database, "orders");
    ASSERT_NE(after, nullptr);
    EXPECT_EQ(Text(after->GetField(0UL)->GetName()), "changed");
}

TEST_F(FieldCacheTest, LeavesARemovedEntryToThoseWhoHoldIt)
{
    const Entry held = m_cache.GetOrLoad(&m_database, "orders");
    const CMyField* field = held->GetField(UtCString("name"));
    EXPECT_TRUE(m_cache.Remove("orders"));
    EXPECT_EQ(Text(held->GetName()), "ORDERS");
    EXPECT_EQ(Text(field->GetDefault()), "Muster");
}

TEST_F(FieldCacheTest, RemoveAllDropsEveryEntry)
{
    Load({"orders", "items", "prices"});
    const std::weak_ptr<CTableCache> dropped = m_cache.GetEntry(1);
    m_cache.RemoveAll();
    EXPECT_EQ(m_cache.GetCount(), 0U);
    EXPECT_TRUE(dropped.expired());
    for (const char* name : {"orders", "items", "prices"})
        EXPECT_EQ(PositionOf(name), -1) << name;
    m_cache.RemoveAll();
    EXPECT_EQ(m_cache.GetCount(), 0U);
}

TEST_F(FieldCacheTest, ACacheFreesItsEntriesWithItself)
{
    std::weak_ptr<CTableCache> entry;
    {
        CFieldCache cache;
        entry = cache.GetOrLoad(&m_database, "orders");
        EXPECT_FALSE(entry.expired());
    }
    EXPECT_TRUE(entry.expired());
}

TEST_F(FieldCacheTest, TheExportedFunctionRemovesByName)
{
    Load({"orders", "items"});
    EXPECT_TRUE(MyDbStaticFieldCacheRemove("`Orders`"));
    EXPECT_EQ(PositionOf("orders"), -1);
    EXPECT_EQ(PositionOf("items"), 0);
    EXPECT_FALSE(MyDbStaticFieldCacheRemove("orders"));
    EXPECT_FALSE(MyDbStaticFieldCacheRemove(""));
}

// ---------------------------------------------------------------------------------------------------------------
// Generation

TEST_F(FieldCacheTest, ChangesItsGenerationWithEveryEntryAddedOrRemoved)
{
    const uint64_t start = m_cache.GetGeneration();
    Load({"orders"});
    const uint64_t loaded = m_cache.GetGeneration();
    EXPECT_NE(loaded, start);
    m_cache.Remove("orders");
    const uint64_t removed = m_cache.GetGeneration();
    EXPECT_NE(removed, loaded);
    EXPECT_NE(removed, start);
    Load({"orders"});
    const uint64_t again = m_cache.GetGeneration();
    m_cache.RemoveAll();
    EXPECT_NE(m_cache.GetGeneration(), again);
}

TEST_F(FieldCacheTest, KeepsItsGenerationWhileNothingChanges)
{
    Load({"orders"});
    const uint64_t loaded = m_cache.GetGeneration();
    Load({"orders"});
    m_cache.GetOrLoad(&m_database, "no");
    m_cache.Remove("no");
    EXPECT_EQ(m_cache.GetGeneration(), loaded);
}

// ---------------------------------------------------------------------------------------------------------------
// Bringing the cache in line with a database

TEST_F(FieldCacheTest, RemovesEveryListedTableAndKeepsTheOthers)
{
    Load({"orders", "items", "prices"});
    m_client.On("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {{"prices"}, {"orders"}, {"unknown"}}));
    m_cache.RemoveListedTables(m_database);
    EXPECT_EQ(TakeTraffic(), Traffic{"SHOW TABLES"});
    ASSERT_EQ(m_cache.GetCount(), 1U);
    EXPECT_EQ(PositionOf("items"), 0);
}

TEST_F(FieldCacheTest, LeavesTheStateOfTheListingOnTheConnection)
{
    m_client.On("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {{"prices"}, {"orders"}}));
    m_cache.RemoveListedTables(m_database);
    EXPECT_EQ(Text(m_database.GetLastSQLCommand()), "SHOW TABLES");
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
}

TEST_F(FieldCacheTest, RemovesNothingWhenTheListingFails)
{
    Load({"orders"});
    m_client.Once("SHOW TABLES", fake::Reply::Error(1044, "Access denied"));
    m_cache.RemoveListedTables(m_database);
    EXPECT_EQ(PositionOf("orders"), 0);
    EXPECT_EQ(m_database.GetErrorCode(), 1044U);
}

TEST_F(FieldCacheTest, ShowsNoMessageWhenTheListingFails)
{
    const harness::MessageRecorder messages;
    m_client.Once("SHOW TABLES", fake::Reply::Error(1044, "Access denied"));
    m_cache.RemoveListedTables(m_database);
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(FieldCacheTest, KeepsTheOrderOfTheEntriesThatTheListingLeaves)
{
    Load({"orders", "items", "prices", " items "});
    const Entry newest = m_cache.GetEntry(3);
    m_client.Once("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {{"orders"}, {"items"}}));
    m_cache.RemoveListedTables(m_database);
    ASSERT_EQ(m_cache.GetCount(), 2U);
    EXPECT_EQ(PositionOf("prices"), 0);
    EXPECT_EQ(PositionOf("items"), 1);
    EXPECT_EQ(m_cache.GetEntry(1), newest) << "from the first removal on the oldest is the one found and removed";
}

TEST_F(FieldCacheTest, RemovesTheNewestEntryOfTheTableListedFirst)
{
    Load({"items", " items ", "orders"});
    const Entry oldest = m_cache.GetEntry(0);
    m_client.Once("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {{"items"}, {"orders"}}));
    m_cache.RemoveListedTables(m_database);
    ASSERT_EQ(m_cache.GetCount(), 1U);
    EXPECT_EQ(m_cache.GetEntry(0), oldest);
    EXPECT_EQ(PositionOf("items"), 0);
}

TEST_F(FieldCacheTest, RemovesAsManyEntriesOfAKeyAsTheListingNames)
{
    Load({"prices", "items", " items ", " items ", "orders"});
    const Entry newest = m_cache.GetEntry(3);
    m_client.Once("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {{"prices"}, {"items"}, {"ITEMS"}, {"none"}}));
    m_cache.RemoveListedTables(m_database);
    ASSERT_EQ(m_cache.GetCount(), 2U);
    EXPECT_EQ(m_cache.GetEntry(0), newest);
    EXPECT_EQ(PositionOf("items"), 0);
    EXPECT_EQ(PositionOf("orders"), 1);
}

TEST_F(FieldCacheTest, PassesOverAnEmptyNameInTheListing)
{
    m_client.OnListFields("", {{.name = "id"}});
    Load({" ", "orders", "items"});
    m_client.Once("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {{""}, {"orders"}, {""}, {"items"}}));
    m_cache.RemoveListedTables(m_database);
    ASSERT_EQ(m_cache.GetCount(), 1U);
    EXPECT_EQ(PositionOf("`"), 0);
}

TEST_F(FieldCacheTest, DropsManyListedTablesWithoutChangingForEach)
{
    std::vector<fake::Row> names;
    for (int i = 0; i < 100; ++i) {
        const std::string name = "T" + std::to_string(i);
        m_client.OnListFields(name, {{.name = "id"}});
        ASSERT_NE(m_cache.GetOrLoad(&m_database, UtCString(name.c_str())), nullptr);
        names.push_back({name});
    }
    m_client.Once("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, names));
    const uint64_t loaded = m_cache.GetGeneration();
    m_cache.RemoveListedTables(m_database);
    EXPECT_EQ(m_cache.GetCount(), 0U);
    EXPECT_LE(m_cache.GetGeneration() - loaded, 2U) << "the index is rebuilt at each change";
}

TEST_F(FieldCacheTest, KeepsItsGenerationWhenTheListingNamesNoTableThatItKnows)
{
    Load({"orders"});
    const uint64_t loaded = m_cache.GetGeneration();
    m_client.Once("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {{""}, {"`"}, {"none"}}));
    m_cache.RemoveListedTables(m_database);
    EXPECT_EQ(m_cache.GetGeneration(), loaded);
    m_client.Once("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {{"none"}, {"orders"}}));
    m_cache.RemoveListedTables(m_database);
    EXPECT_NE(m_cache.GetGeneration(), loaded);
}

TEST_F(FieldCacheTest, RemovesNothingWhenTheListingHasNoRows)
{
    Load({"orders"});
    m_client.Once("SHOW TABLES", fake::Reply::Ok());
    m_cache.RemoveListedTables(m_database);
    EXPECT_EQ(PositionOf("orders"), 0);
}

TEST_F(FieldCacheTest, PassesOverANullNameInTheListing)
{
    Load({"orders", "items"});
    m_client.Once("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {{std::nullopt}, {"orders"}}));
    m_cache.RemoveListedTables(m_database);
    EXPECT_EQ(m_cache.GetCount(), 1U);
    EXPECT_EQ(PositionOf("items"), 0);
}

TEST_F(FieldCacheTest, StripsBackticksAndNothingElseFromAListedName)
{
    Load({"orders", "items"});
    m_client.Once("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {{" orders"}, {"`items`"}}));
    m_cache.RemoveListedTables(m_database);
    EXPECT_EQ(PositionOf("orders"), 0);
    EXPECT_EQ(PositionOf("items"), -1);
}

TEST_F(FieldCacheTest, ReadsListedNamesInTheConnectionsEncoding)
{
    CMyDatabase database(Settings("utf8mb4"), "shop");
    OpenQuietly(database);
    m_client.OnListFields("GR\xC3\x96SSE", {{.name = "id"}});
    ASSERT_NE(m_cache.GetOrLoad(&database, "gr\xF6sse"), nullptr);
    m_client.Once("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {{"gr\xC3\xB6sse"}}));
    m_cache.RemoveListedTables(database);
    EXPECT_EQ(m_cache.GetCount(), 0U);
}

TEST_F(FieldCacheTest, IsBroughtInLineByOpeningAConnection)
{
    Load({"orders", "items"});
    m_client.Once("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {{"orders"}}));
    CMyDatabase opened(Settings(), "shop");
    EXPECT_TRUE(opened.Open(false, ""));
    EXPECT_EQ(TakeTraffic(), (Traffic{"connect", "SHOW TABLES"}));
    EXPECT_EQ(PositionOf("orders"), -1);
    EXPECT_EQ(PositionOf("items"), 0);
}

TEST_F(FieldCacheTest, IsTheCacheThatTheConnectionsHookBringsInLine)
{
    Load({"orders"});
    m_client.Once("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {{"orders"}}));
    connection::AlignTableCache(m_database);
    EXPECT_EQ(m_cache.GetCount(), 0U);
}

} // namespace
