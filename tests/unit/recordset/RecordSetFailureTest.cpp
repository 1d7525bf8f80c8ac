#include "RecordSetFixture.h"

#include "harness/FailurePoints.h"

// Every client call of a scenario fails once: the documented failure value, nothing leaked, the object usable again.

namespace {

using fake::Call;
using fake::Field;
using fake::Reply;
using harness::FailureRun;
using recordset_test::CountedRows;
using recordset_test::NumberField;
using recordset_test::OpenRecordSet;
using recordset_test::Server;
using recordset_test::TextField;

void PrepareServer()
{
    fake::Client& client = fake::Client::Get();
    CFieldCache::Instance().RemoveAll();
    client.On("SELECT * FROM orders", Reply::Rows(std::vector<Field>{NumberField("ID"), TextField("NAME")},
                                                  {{"1", "\xC3\xA4"}, {"2", "\xC3\xB6"}, {"3", "\xC3\xBC"}}));
    client.OnListFields("ORDERS", {NumberField("ID"), TextField("NAME")});
}

/// The record set works as if nothing had happened.
void ExpectUsable(OpenRecordSet& records)
{
    EXPECT_TRUE(records.SetDatabase(records.GetDatabase(), "orders"));
    EXPECT_EQ(records.Select(""), 3);
    EXPECT_TRUE(records.MoveTo(2));
    EXPECT_EQ(records.GetFieldLong("ID"), 3);
    EXPECT_TRUE(records.SelectLargeResult("SELECT * FROM orders"));
    EXPECT_TRUE(records.MoveNext());
    EXPECT_EQ(records.GetFieldLong("ID"), 2);
    EXPECT_EQ(records.Select(""), 3);
    EXPECT_TRUE(records.MoveTo(1));
}

TEST(RecordSetFailures, OfASelect)
{
    const size_t points = harness::ForEachFailurePoint(PrepareServer, [](FailureRun& run) {
        CMyDatabase database(Server(), "shop");
        OpenRecordSet records(database, "orders");
        const long rows = records.Select("");
        if (rows == -1) {
            EXPECT_FALSE(records.IsOpen());
            EXPECT_TRUE(records.IsEOF());
            EXPECT_EQ(records.GetFieldCount(), 0U);
            EXPECT_EQ(records.GetAffectedRows(), 0);
            EXPECT_FALSE(records.GetErrorMessage().IsEmpty());
        } else {
            EXPECT_EQ(rows, 3);
            EXPECT_EQ(records.GetFieldLong("ID"), 1);
        }
        run.EndOfWork();
        if (run.Failed(Call::Query, "SELECT") && !run.IsLostConnection()) {
            EXPECT_EQ(rows, -1);
        }
        if (run.Failed(Call::StoreResult) && records.GetLastSQLCommand() == "SELECT * FROM orders") {
            EXPECT_EQ(database.GetErrorCode() != 0, rows == -1);
        }
        ExpectUsable(records);
    });
    EXPECT_EQ(points, 6U); // init, connect, SHOW TABLES, ping, the statement, its result
}

TEST(RecordSetFailures, OfAStream)
{
    const size_t points = harness::ForEachFailurePoint(PrepareServer, [](FailureRun& run) {
        CMyDatabase database(Server(), "shop");
        OpenRecordSet records(database, "orders");
        const bool selected = records.SelectLargeResult("SELECT * FROM orders");
        long count = 0;
        while (!records.IsEOF()) {
            ++count;
            EXPECT_EQ(records.GetFieldLong("ID"), count);
            records.MoveNext();
        }
        if (!selected) {
            EXPECT_FALSE(records.IsOpen());
            EXPECT_EQ(count, 0);
        }
        if (run.Failed(Call::FetchRow)) {
            EXPECT_LT(count, 3 + 1);
            EXPECT_NE(records.GetErrorMessage(), "Kein Fehler!");
        }
        run.EndOfWork();
        if (run.Failed(Call::UseResult)) {
            EXPECT_FALSE(selected);
        }
        ExpectUsable(records);
    });
    EXPECT_GE(points, 9U);
}

TEST(RecordSetFailures, OfReadingATextWhoseTableIsNotCached)
{
    harness::ForEachFailurePoint(PrepareServer, [](FailureRun& run) {
        CMyDatabase database(Server(), "shop");
        OpenRecordSet records(database, "orders");
        const long rows = records.Select("");
        UtCString text;
        EXPECT_TRUE(records.GetFieldText(1, text));
        if (rows == -1) {
            EXPECT_TRUE(text.IsEmpty());
        } else if (run.Failed(Call::ListFields) && !run.IsLostConnection()) {
            EXPECT_EQ(text.View(), "\xC3\xA4"); // without a conversion
        } else {
            EXPECT_EQ(text.View(), "\xE4");
        }
        run.EndOfWork();
        ExpectUsable(records);
    });
}

TEST(RecordSetFailures, OfTheWholeServerFromOneCallOn)
{
    harness::FailurePlan plan;
    plan.persistent = true;
    harness::ForEachFailurePoint(
        PrepareServer,
        [](FailureRun& run) {
            CMyDatabase database(Server(), "shop");
            OpenRecordSet records(database, "orders");
            const long rows = records.Select("");
            EXPECT_TRUE(rows == 3 || (rows == -1 && !records.IsOpen()));
            const bool streamed = records.SelectLargeResult("SELECT * FROM orders");
            EXPECT_EQ(streamed, records.IsOpen());
            run.EndOfWork();
            ExpectUsable(records);
        },
        plan);
}

} // namespace
