#include "harness/FailurePoints.h"
#include "unit/metadata/MetadataFixture.h"

// What if each client call of a table load fails once, or the server stays away from there on?

namespace {

using namespace metadata_test;
using Entry = std::shared_ptr<CTableCache>;

const char* const statusOfOrders = "SHOW TABLE STATUS FROM shop LIKE 'ORDERS'";

void LoadWithFailure(harness::FailureRun& run)
{
    CFieldCache& cache = CFieldCache::Instance();
    cache.RemoveAll();
    CMyDatabase database(Settings(), "shop");
    const Entry entry = cache.GetOrLoad(&database, "orders");
    run.EndOfWork();

    const bool failedListing = run.Failed(fake::Call::ListFields) && !run.IsLostConnection();
    const bool failedOpen = run.Failed(fake::Call::Connect) || run.Failed(fake::Call::Init);
    EXPECT_EQ(entry == nullptr, failedListing || failedOpen);
    if (failedListing || run.Failed(fake::Call::Connect)) {
        EXPECT_EQ(database.GetErrorCode(), run.ErrorNumber());
        EXPECT_EQ(Text(database.GetErrorMessage()).substr(0, 6), std::to_string(run.ErrorNumber()) + ": ");
    }
    if (entry) {
        EXPECT_EQ(entry->GetFieldCount(), 3U);
        const bool failedStatus = run.Failed(fake::Call::Query, statusOfOrders) && !run.IsLostConnection();
        const bool failedStoring = run.Failed(fake::Call::StoreResult);
        if (!failedStoring) {
            EXPECT_EQ(entry->IsTransactional(), !failedStatus);
        }
    }

    const Entry again = cache.GetOrLoad(&database, "orders");
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->GetFieldCount(), 3U);
    cache.RemoveAll();
}

TEST(TableLoadFailures, EachClientCallFailingOnceLeavesADefinedResultAndAUsableConnection)
{
    EXPECT_EQ(harness::ForEachFailurePoint(ScriptShop, LoadWithFailure), 7U)
        << "init, connect, SHOW TABLES and its result, listing, status and its result";
}

void LoadWhileTheServerIsAway(harness::FailureRun& run)
{
    CFieldCache& cache = CFieldCache::Instance();
    cache.RemoveAll();
    CMyDatabase database(Settings(), "shop");
    const Entry entry = cache.GetOrLoad(&database, "orders");
    run.EndOfWork();
    EXPECT_TRUE(entry == nullptr || entry->GetFieldCount() == 3U);
    EXPECT_NE(cache.GetOrLoad(&database, "orders"), nullptr);
    cache.RemoveAll();
}

TEST(TableLoadFailures, AServerThatStaysAwayLeavesADefinedResultAndAUsableConnection)
{
    harness::ForEachFailurePoint(ScriptShop, LoadWhileTheServerIsAway, {.persistent = true});
}

} // namespace
