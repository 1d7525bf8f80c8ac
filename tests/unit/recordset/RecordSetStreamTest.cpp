#include "RecordSetFixture.h"

namespace {

using fake::Reply;
using recordset_test::Bytes;
using recordset_test::CountedRows;
using recordset_test::OpenRecordSet;
using recordset_test::Server;

class RecordSetStream : public recordset_test::RecordSetFixture
{
protected:
    void Stream(size_t rows, size_t columns = 1)
    {
        m_client.On("SELECT s", CountedRows(rows, columns));
        ASSERT_TRUE(records.SelectLargeResult("SELECT s"));
    }
    void TearDown() override
    {
        records.Close();
        RecordSetFixture::TearDown();
    }
    size_t OpenHandles() const { return m_client.HandlesOpened() - m_client.HandlesClosed(); }

    OpenRecordSet records{m_database, "orders"};
};

TEST_F(RecordSetStream, StandsOnTheFirstRowAndWalksToTheEnd)
{
    Stream(3);
    EXPECT_TRUE(records.IsOpen());
    for (long row = 0; row < 3; ++row) {
        EXPECT_FALSE(records.IsEOF());
        EXPECT_EQ(records.GetFieldLong(0), row);
        EXPECT_EQ(records.MoveNext(), row < 2);
    }
    EXPECT_TRUE(records.IsEOF());
    EXPECT_FALSE(records.MoveNext());
    EXPECT_EQ(records.GetErrorMessage(), "Kein Fehler!");
}

TEST_F(RecordSetStream, UsesASecondConnectionWithTheSettingsOfTheFirst)
{
    Stream(2);
    EXPECT_EQ(OpenHandles(), 2U);
    ASSERT_EQ(m_client.Connects().size(), 1U); // since the fixture's own
    const fake::ConnectRecord& connect = m_client.Connects().back();
    EXPECT_EQ(connect.host, "127.0.0.1");
    EXPECT_EQ(connect.user, "tester");
    EXPECT_EQ(connect.database, "shop");
    EXPECT_EQ(connect.port, 3306U);
    ASSERT_NE(records.GetDB(), nullptr);
    EXPECT_NE(records.GetDB(), &m_database);
    EXPECT_EQ(records.GetDatabase(), &m_database);
    EXPECT_EQ(records.GetDatabaseName(), "shop");
}

TEST_F(RecordSetStream, LeavesTheFirstConnectionFreeForOtherStatements)
{
    Stream(3);
    m_client.On("SELECT 2", CountedRows(1));
    CMyRecordSet others(m_database, "others");
    EXPECT_EQ(others.Select("SELECT 2 FROM dual"), -1); // not scripted: no result
    EXPECT_EQ(m_database.ExecuteQuery("SELECT 2", false, nullptr, false), 1);
    EXPECT_TRUE(records.MoveNext());
    EXPECT_EQ(records.GetFieldLong(0), 1);
}

TEST_F(RecordSetStream, RunsTheTextAsItIs)
{
    records.SelectLargeResult("id > 5");
    EXPECT_EQ(LastStatement(), "id > 5");
    EXPECT_EQ(records.GetLastSQLCommand(), "id > 5");
}

TEST_F(RecordSetStream, IsTrueForAnEmptyResult)
{
    Stream(0);
    EXPECT_TRUE(records.IsOpen());
    EXPECT_TRUE(records.IsEOF());
    EXPECT_EQ(records.GetAffectedRows(), 0);
    EXPECT_EQ(records.GetFieldCount(), 1U);
}

TEST_F(RecordSetStream, IsFalseWithoutAConnection)
{
    CMyRecordSet unbound;
    EXPECT_FALSE(unbound.SelectLargeResult("SELECT s"));
}

TEST_F(RecordSetStream, IsFalseWhenTheStatementHasNoResult)
{
    EXPECT_FALSE(records.SelectLargeResult("SET a = 1"));
    EXPECT_FALSE(records.IsOpen());
}

TEST_F(RecordSetStream, Kept_K42_CountsOneRowHoweverManyThereAre)
{
    Stream(3);
    EXPECT_EQ(records.GetAffectedRows(), 1);
    m_client.On("SELECT t", CountedRows(3));
    EXPECT_EQ(records.SetSQLCommand("SELECT t", false, true), 1);
}

TEST_F(RecordSetStream, Kept_K31_MoveFirstStaysOnTheCurrentRow)
{
    Stream(3);
    ASSERT_TRUE(records.MoveNext());
    EXPECT_TRUE(records.MoveFirst());
    EXPECT_EQ(records.GetFieldLong(0), 1);
}

TEST_F(RecordSetStream, MoveFirstAtTheEndIsFalse)
{
    Stream(1);
    ASSERT_FALSE(records.MoveNext());
    EXPECT_FALSE(records.MoveFirst());
    EXPECT_TRUE(records.IsEOF());
}

TEST_F(RecordSetStream, MoveFirstDiscardsPendingChanges)
{
    Stream(2);
    records.Set("A", "77");
    EXPECT_TRUE(records.MoveFirst());
    EXPECT_EQ(records.GetFieldLong(0), 0);
}

TEST_F(RecordSetStream, MoveToIsFalseAndLeavesEverythingAsItIs)
{
    Stream(3);
    ASSERT_TRUE(records.MoveNext());
    records.Set("A", "77");
    EXPECT_FALSE(records.MoveTo(0));
    EXPECT_FALSE(records.IsEOF());
    EXPECT_EQ(records.GetFieldLong(0), 77);
    EXPECT_TRUE(records.MoveNext());
    EXPECT_EQ(records.GetFieldLong(0), 2);
}

TEST_F(RecordSetStream, TheCurrentRowIsUnknownAndNothingMoves)
{
    Stream(3);
    ASSERT_TRUE(records.MoveNext());
    EXPECT_EQ(records.GetCurrentRow(), -1);
    EXPECT_EQ(records.GetFieldLong(0), 1);
}

TEST_F(RecordSetStream, CloseReadsTheRestAndClosesTheSecondConnection)
{
    Stream(5);
    m_client.ForgetCalls();
    EXPECT_TRUE(records.Close());
    EXPECT_EQ(m_client.CallNames(),
              (std::vector<std::string>{"mysql_fetch_row", "mysql_fetch_row", "mysql_fetch_row", "mysql_fetch_row",
                                        "mysql_fetch_row", "mysql_free_result", "mysql_close"}));
    EXPECT_EQ(records.GetDB(), &m_database);
    EXPECT_EQ(OpenHandles(), 1U);
}

TEST_F(RecordSetStream, ASelectAfterAStreamIsStoredOnTheFirstConnection)
{
    Stream(3);
    m_client.On("SELECT * FROM orders", CountedRows(2));
    EXPECT_EQ(records.Select(""), 2);
    EXPECT_EQ(OpenHandles(), 1U);
    EXPECT_EQ(records.GetDB(), &m_database);
    EXPECT_TRUE(records.MoveTo(1));
}

TEST_F(RecordSetStream, AStreamAfterAStreamReplacesTheSecondConnection)
{
    Stream(3);
    m_client.On("SELECT t", CountedRows(2));
    EXPECT_TRUE(records.SelectLargeResult("SELECT t"));
    EXPECT_EQ(OpenHandles(), 2U);
    EXPECT_EQ(records.GetFieldLong(0), 0);
}

TEST_F(RecordSetStream, AFailedStreamKeepsItsReasonUntilTheNextSelect)
{
    m_client.On("SELECT s", Reply::Error(1064, "syntax"));
    EXPECT_FALSE(records.SelectLargeResult("SELECT s"));
    EXPECT_FALSE(records.IsOpen());
    EXPECT_EQ(records.GetErrorMessage(), "1064: syntax");
    EXPECT_EQ(records.GetLastSQLCommand(), "SELECT s");
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
    EXPECT_FALSE(records.MoveFirst());
    EXPECT_FALSE(records.MoveNext());

    m_client.On("SELECT * FROM orders", CountedRows(2));
    EXPECT_EQ(records.Select(""), 2);
    EXPECT_EQ(OpenHandles(), 1U);
    EXPECT_TRUE(records.MoveTo(1)); // stored again
}

TEST_F(RecordSetStream, CloseAfterAFailedStreamClosesTheSecondConnection)
{
    m_client.On("SELECT s", Reply::Error(1064, "syntax"));
    EXPECT_FALSE(records.SelectLargeResult("SELECT s"));
    records.Close();
    EXPECT_EQ(OpenHandles(), 1U);
    EXPECT_EQ(records.GetErrorMessage(), "Kein Fehler!");
}

TEST_F(RecordSetStream, IsFalseWhenTheSecondConnectionCannotBeOpened)
{
    m_client.FailAlways(fake::Call::Connect, 1040, "Too many connections");
    EXPECT_FALSE(records.SelectLargeResult("SELECT s"));
    EXPECT_EQ(records.GetErrorMessage(), "1040: Too many connections");
    EXPECT_TRUE(m_database.IsOpen());
}

TEST_F(RecordSetStream, AStreamThatBreaksOffEndsAndKeepsTheReason)
{
    m_client.On("SELECT s", CountedRows(5).CutAfter(2));
    ASSERT_TRUE(records.SelectLargeResult("SELECT s"));
    EXPECT_TRUE(records.MoveNext());
    EXPECT_FALSE(records.MoveNext());
    EXPECT_TRUE(records.IsEOF());
    EXPECT_TRUE(Bytes(records.GetErrorMessage()).starts_with("2013: ")) << Bytes(records.GetErrorMessage());
    EXPECT_FALSE(records.MoveNext());
}

TEST_F(RecordSetStream, AStreamWhoseFirstRowIsLostHasNoRows)
{
    m_client.On("SELECT s", CountedRows(5).CutAfter(0));
    EXPECT_TRUE(records.SelectLargeResult("SELECT s"));
    EXPECT_TRUE(records.IsEOF());
    EXPECT_EQ(records.GetAffectedRows(), 0);
    EXPECT_TRUE(Bytes(records.GetErrorMessage()).starts_with("2013: "));
}

TEST_F(RecordSetStream, ReadingTextsDoesNotHideTheReasonOfABreak)
{
    m_client.OnListFields("ORDERS", fake::TextFields({"A"}));
    m_client.On("SELECT s", CountedRows(5).CutAfter(2));
    ASSERT_TRUE(records.SelectLargeResult("SELECT s"));
    UtCString text;
    do
        records.GetFieldText(0, text);
    while (records.MoveNext());
    records.GetFieldText(0, text);
    EXPECT_TRUE(Bytes(records.GetErrorMessage()).starts_with("2013: ")) << Bytes(records.GetErrorMessage());
}

TEST_F(RecordSetStream, CanBeClosedAfterTheConnectionIsLost)
{
    Stream(3);
    m_client.LoseConnection();
    EXPECT_TRUE(records.Close());
    EXPECT_FALSE(records.IsOpen());
}

TEST_F(RecordSetStream, GoesWithTheRecordSet)
{
    {
        CMyRecordSet others(m_database, "orders");
        m_client.On("SELECT s", CountedRows(3));
        ASSERT_TRUE(others.SelectLargeResult("SELECT s"));
        EXPECT_EQ(OpenHandles(), 2U);
    }
    EXPECT_EQ(OpenHandles(), 1U);
    EXPECT_EQ(m_client.ResultsOpened(), m_client.ResultsClosed());
}

TEST_F(RecordSetStream, KeepsOneRowInMemory)
{
    Stream(1000);
    m_client.ForgetCalls();
    while (records.MoveNext())
        continue;
    EXPECT_EQ(m_client.CountOf("mysql_fetch_row"), 1000U);
    EXPECT_EQ(m_client.CountOf("mysql_store_result"), 0U);
}

} // namespace
