#include "ConnectionFixture.h"

#include "harness/FailurePoints.h"

namespace {

using connection_test::Bytes;
using connection_test::NoTables;
using connection_test::ValidServer;

MYSQL_RES* const untouched = reinterpret_cast<MYSQL_RES*>(0x10);

class FailurePoints : public testing::Test
{
protected:
    FailurePoints() : m_savedLimit(connection::ProcessConnectLimit()) { connection::ProcessConnectLimit() = {}; }
    ~FailurePoints() override { connection::ProcessConnectLimit() = m_savedLimit; }

    static void Script()
    {
        fake::Client::Get().On("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {{"a"}, {"b"}}));
        fake::Client::Get().On("SELECT A FROM t", fake::Reply::Rows({"A"}, {{"1"}, {"2"}}));
    }

    /// Whether the object can be used again.
    static void ExpectUsable(CMyDatabase& database)
    {
        EXPECT_TRUE(database.Open(false, ""));
        EXPECT_EQ(database.ExecuteQuery("DO 1", false, nullptr, false), 0L);
        EXPECT_EQ(database.GetErrorCode(), 0UL);
    }

private:
    connection::ConnectLimit m_savedLimit;
};

TEST_F(FailurePoints, OfOpenGiveItsDocumentedResults)
{
    const size_t points = harness::ForEachFailurePoint(Script, [](harness::FailureRun& run) {
        CMyDatabase database(ValidServer(), "shop");
        const bool isOpened = database.Open(false, "");
        run.EndOfWork();
        if (run.Failed(fake::Call::Init)) {
            EXPECT_FALSE(isOpened);
            EXPECT_FALSE(database.IsConnected());
            EXPECT_EQ(database.GetErrorCode(), 0UL);
        } else if (run.Failed(fake::Call::Connect)) {
            EXPECT_FALSE(isOpened);
            EXPECT_FALSE(database.IsConnected());
            EXPECT_EQ(database.GetErrorCode(), run.ErrorNumber());
            EXPECT_NE(Bytes(database.GetErrorMessage()), "");
        } else {
            EXPECT_TRUE(isOpened); // the list of the tables is a help, not a condition
            EXPECT_TRUE(database.IsOpen());
            EXPECT_NE(database.GetThreadID(), 0UL);
        }
        ExpectUsable(database);
    });
    EXPECT_EQ(points, 4U); // init, connect, SHOW TABLES and its result
}

struct QueryShape
{
    const char* name;
    bool takesResult;
    bool streams;
    long success;
    size_t points;
};

class FailurePointsOfQuery : public FailurePoints, public testing::WithParamInterface<QueryShape>
{
protected:
    static void Check(harness::FailureRun& run, const CMyDatabase& database, long rows, MYSQL_RES* result)
    {
        const QueryShape& shape = GetParam();
        const bool isFailure = rows == -1;
        EXPECT_TRUE(isFailure || rows == shape.success);
        EXPECT_EQ(isFailure, database.GetErrorCode() != 0);
        EXPECT_EQ(database.GetAffectedRows(), isFailure ? 0 : rows);
        EXPECT_EQ(Bytes(database.GetLastSQLCommand()), "SELECT A FROM t");
        EXPECT_EQ(result != untouched, shape.takesResult && !isFailure);
        const bool isResent = run.Failed(fake::Call::Query) && run.IsLostConnection();
        EXPECT_EQ(isFailure, run.Failed() && !isResent);
        if (isFailure) {
            EXPECT_EQ(database.GetErrorCode(), run.ErrorNumber());
            EXPECT_EQ(database.GetQueryTime(), 0UL);
        }
        if (result != untouched)
            mysql_free_result(result);
    }
};

TEST_P(FailurePointsOfQuery, GiveItsDocumentedResultsOnAnOpenConnection)
{
    const QueryShape& shape = GetParam();
    const size_t points = harness::ForEachFailurePoint(Script, [&](harness::FailureRun& run) {
        fake::Client& client = fake::Client::Get();
        client.StopFailing();
        CMyDatabase database(ValidServer(), "shop");
        EXPECT_TRUE(database.Open(false, ""));
        client.FailCall(run.FailingCall(), run.ErrorNumber());
        MYSQL_RES* result = untouched;
        const long rows =
            database.ExecuteQuery("SELECT A FROM t", false, shape.takesResult ? &result : nullptr, shape.streams);
        run.EndOfWork();
        Check(run, database, rows, result);
        ExpectUsable(database);
    });
    EXPECT_EQ(points, shape.points);
}

TEST_P(FailurePointsOfQuery, LeaveNothingBehindWhenTheServerStaysDown)
{
    const QueryShape& shape = GetParam();
    harness::ForEachFailurePoint(Script,
                                 [&](harness::FailureRun& run) {
                                     CMyDatabase database(ValidServer(), "shop");
                                     MYSQL_RES* result = untouched;
                                     const long rows =
                                         database.ExecuteQuery("SELECT A FROM t", false,
                                                               shape.takesResult ? &result : nullptr, shape.streams);
                                     run.EndOfWork();
                                     if (run.Failed()) {
                                         EXPECT_EQ(rows, -1L);
                                         EXPECT_EQ(result, untouched);
                                     } else if (shape.takesResult) {
                                         mysql_free_result(result);
                                     }
                                     ExpectUsable(database);
                                 },
                                 {.persistent = true});
}

INSTANTIATE_TEST_SUITE_P(Shapes, FailurePointsOfQuery,
                         testing::Values(QueryShape{"StoredForTheCaller", true, false, 2, 2},
                                         QueryShape{"StreamedForTheCaller", true, true, 1, 2},
                                         QueryShape{"StoredAndDropped", false, false, 2, 2},
                                         QueryShape{"StreamedAndDropped", false, true, 1, 5}),
                         [](const testing::TestParamInfo<QueryShape>& row) { return row.param.name; });

} // namespace
