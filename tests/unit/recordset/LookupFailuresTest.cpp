#include "RecordSetFixture.h"

#include "CMyKey.h"
#include "harness/FailurePoints.h"
#include "harness/MessageRecorder.h"

// Every client call of a lookup fails once: the documented failure value, nothing leaked, the objects usable again.

namespace {

using fake::Call;
using fake::Reply;
using harness::FailureRun;
using recordset_test::Bytes;
using recordset_test::NumberField;
using recordset_test::OpenRecordSet;
using recordset_test::Server;
using recordset_test::TextField;

void PrepareServer()
{
    fake::Client& client = fake::Client::Get();
    CFieldCache::Instance().RemoveAll();
    fake::Field id = NumberField("ID");
    id.flags |= AUTO_INCREMENT_FLAG | PRI_KEY_FLAG;
    const std::vector<fake::Field> fields = {id, TextField("NAME")};
    client.OnListFields("ORDERS", fields);
    client.OnPrefix("SELECT `orders`.*", Reply::Rows(fields, {{"7", "seven"}}));
    client.OnPrefix("SELECT '1'", Reply::Rows({"1"}, {{"1"}}));
    client.OnPrefix("SELECT COUNT", Reply::Rows({NumberField("N")}, {{"3"}}));
    client.OnPrefix("SELECT MAX", Reply::Rows({NumberField("N")}, {{"9"}}));
    client.OnPrefix("INSERT", Reply::Ok(1, 7));
}

class LookupFailures : public testing::Test
{
protected:
    /// Runs the scenario once per failure point; it gets a record set over a connection that is not open yet.
    template <class Scenario> static void ForEachFailure(Scenario scenario)
    {
        for (const bool persistent : {false, true}) {
            harness::FailurePlan plan;
            plan.persistent = persistent;
            const size_t points = harness::ForEachFailurePoint(
                PrepareServer,
                [&](FailureRun& run) {
                    const harness::MessageRecorder messages;
                    CMyDatabase database(Server(), "shop");
                    OpenRecordSet records(database, "orders");
                    scenario(run, records);
                    run.EndOfWork();
                    EXPECT_TRUE(records.SetDatabase(&database, "orders"));
                    EXPECT_EQ(records.Select(CMyKey("ID", 7, "="), "", ""), 1);
                    EXPECT_EQ(records.CountSQL("ID = 7"), 3);
                },
                plan);
            EXPECT_GE(points, 4U);
        }
    }

    const CMyKey m_key{"ID", 7, "="};
};

TEST_F(LookupFailures, OfASelectionByKey)
{
    ForEachFailure([&](FailureRun& run, OpenRecordSet& records) {
        const long rows = records.Select(m_key, "", "");
        EXPECT_TRUE(rows == 1 || (rows == -1 && !records.IsOpen()));
        if (run.Failed(Call::Query, "SELECT") && !run.IsLostConnection()) {
            EXPECT_EQ(rows, -1);
        }
    });
}

TEST_F(LookupFailures, OfTheClausesOfAKey)
{
    const std::string whole = "(`orders`.`ID` = 7)";
    const std::string unknown = "CMyKey_CreateClause_Field_Not_Exist_orders_ID";
    ForEachFailure([&](FailureRun& run, OpenRecordSet& records) {
        const bool isBound = !records.GetTableName().IsEmpty();
        const std::string clause = Bytes(m_key.CreateClause(&records));
        EXPECT_TRUE(isBound ? clause == whole || clause == unknown : clause == "CMyKey_CreateClause_No_Tablename")
            << clause;
        if (run.FailingCall() == 0) {
            EXPECT_EQ(clause, whole);
        }
        if (run.Failed(Call::ListFields) && !run.IsLostConnection()) {
            EXPECT_EQ(clause, unknown);
        }
        const std::string order = Bytes(m_key.CreateOrderClause(&records));
        EXPECT_TRUE(order == "orders.ID" || (order.empty() && clause != whole)) << order;
    });
}

TEST_F(LookupFailures, OfACount)
{
    ForEachFailure([&](FailureRun& run, OpenRecordSet& records) {
        const long count = records.CountSQL(m_key);
        EXPECT_TRUE(count == 3 || count == -1);
        if (run.Failed(Call::Query, "SELECT") && !run.IsLostConnection()) {
            EXPECT_EQ(count, -1);
        }
    });
}

TEST_F(LookupFailures, OfAnExistenceTest)
{
    ForEachFailure([&](FailureRun& run, OpenRecordSet& records) {
        const bool exists = records.ExistRecord("ID = 7");
        if (run.FailingCall() == 0) {
            EXPECT_TRUE(exists);
        }
        if (run.Failed(Call::Query, "SELECT") && !run.IsLostConnection()) {
            EXPECT_FALSE(exists);
        }
    });
}

TEST_F(LookupFailures, OfAMaximum)
{
    ForEachFailure([&](FailureRun&, OpenRecordSet& records) {
        const long maximum = records.GetMaxFieldValue("ID", "orders");
        EXPECT_TRUE(maximum == 9 || maximum == -1);
    });
}

TEST_F(LookupFailures, OfTheRowInsertedLast)
{
    ForEachFailure([&](FailureRun& run, OpenRecordSet& records) {
        records.GetDatabase()->ExecuteQuery("INSERT", false, nullptr, false);
        const long id = records.GetLastInsertedRecID();
        EXPECT_TRUE(id == 7 || id == 0);
        const bool selected = records.SelectLastInsertedRecord();
        EXPECT_TRUE(!selected || records.GetFieldLong("ID") == 7);
        if (run.FailingCall() == 0) {
            EXPECT_TRUE(selected);
        }
        if (id == 0) {
            EXPECT_FALSE(selected);
        }
    });
}

TEST_F(LookupFailures, OfACopy)
{
    ForEachFailure([&](FailureRun& run, OpenRecordSet& records) {
        OpenRecordSet source(records.GetDatabase(), "orders");
        const long rows = source.Select(m_key, "", "");
        const bool isStarted = records.AppendStart();
        const bool copied = records.CopyRecord(source);
        EXPECT_EQ(copied, rows == 1 && isStarted);
        if (run.FailingCall() == 0) {
            EXPECT_TRUE(records.IsRecordModified());
        }
    });
}

TEST_F(LookupFailures, OfASearch)
{
    ForEachFailure([&](FailureRun&, OpenRecordSet& records) {
        records.Select(m_key, "", "");
        const long row = records.FindRow("NAME", "x", 0, true, nullptr);
        EXPECT_EQ(row, records.IsOpen() ? -1 : 0);
    });
}

} // namespace
