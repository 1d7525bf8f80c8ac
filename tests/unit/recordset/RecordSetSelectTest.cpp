#include "RecordSetFixture.h"

#include "harness/MessageRecorder.h"

#include <chrono>
#include <thread>

namespace {

using fake::Reply;
using recordset_test::Bytes;
using recordset_test::CountedRows;
using recordset_test::OpenRecordSet;
using recordset_test::Server;

using RecordSetSelect = recordset_test::RecordSetFixture;

struct StatementRow
{
    const char* name;
    const char* sql;
    bool asIs;
    const char* statement;
};

const StatementRow statementRows[] = {
    {"Empty", "", false, "SELECT * FROM orders"},
    {"EmptyAsIs", "", true, "SELECT * FROM orders"},
    {"Blanks", "   ", false, "SELECT * FROM orders"},
    {"Condition", "id > 5", false, "SELECT orders.* FROM orders WHERE id > 5"},
    {"ConditionWithBlanksAround", "  id > 5  ", false, "SELECT orders.* FROM orders WHERE id > 5"},
    {"Where", "WHERE id > 5", false, "SELECT orders.* FROM orders WHERE id > 5"},
    {"OrderBy", "ORDER BY id", false, "SELECT orders.* FROM orders ORDER BY id"},
    {"OrderByAfterBlanks", "  order by id", false, "SELECT orders.* FROM orders order by id"},
    {"GroupBy", "GROUP BY id", false, "SELECT orders.* FROM orders GROUP BY id"},
    {"Having", "HAVING id > 5", false, "SELECT orders.* FROM orders HAVING id > 5"},
    {"Limit", "LIMIT 1, 2", false, "SELECT orders.* FROM orders LIMIT 1, 2"},
    {"ConditionAsIs", "id > 5", true, "id > 5"},
    {"ConditionAsIsWithBlanksAround", "  id > 5  ", true, "id > 5"},
    {"LineBreakIsNoBlank", "\nORDER BY id", false, "SELECT orders.* FROM orders WHERE \nORDER BY id"},
    {"TabIsNoBlank", "\t", false, "SELECT orders.* FROM orders WHERE \t"},
    {"Select", "SELECT 1 + 1 FROM dual", false, "SELECT 1 + 1 FROM dual"},
    {"SelectInLowerCase", "select * from t", false, "select * from t"},
    {"SelectAfterBlanks", "  SELECT * FROM t", false, "SELECT * FROM t"},
    {"Show", "SHOW TABLES", false, "SHOW TABLES"},
    {"ShortShowIsAClause", "SHOW KEYS", false, "SELECT orders.* FROM orders WHERE SHOW KEYS"},
    {"DescribeIsAClause", "DESCRIBE orders", false, "SELECT orders.* FROM orders WHERE DESCRIBE orders"},
    {"UpdateIsAClause", "UPDATE t SET a = 1", false, "SELECT orders.* FROM orders WHERE UPDATE t SET a = 1"},
    {"UpdateAsIs", "UPDATE t SET a = 1", true, "UPDATE t SET a = 1"},
};

class RecordSetStatement : public recordset_test::RecordSetFixture, public testing::WithParamInterface<StatementRow>
{
};

TEST_P(RecordSetStatement, IsSent)
{
    CMyRecordSet records(m_database, "orders");
    records.Select(GetParam().sql, false, GetParam().asIs);
    EXPECT_EQ(m_client.Statements(), std::vector<std::string>{GetParam().statement});
    EXPECT_EQ(records.GetLastSQLCommand(), GetParam().statement);
}

INSTANTIATE_TEST_SUITE_P(Select, RecordSetStatement, testing::ValuesIn(statementRows),
                         [](const testing::TestParamInfo<StatementRow>& named) { return named.param.name; });

TEST_F(RecordSetSelect, TakesALiteralForText)
{
    CMyRecordSet records(m_database, "orders");
    records.Select("ID > 5");
    records.Select("ID > 6", false);
    records.Select("ID > 7", 0); // as a host writes FALSE
    EXPECT_EQ(m_client.Statements(), (std::vector<std::string>{"SELECT orders.* FROM orders WHERE ID > 5",
                                                               "SELECT orders.* FROM orders WHERE ID > 6",
                                                               "SELECT orders.* FROM orders WHERE ID > 7"}));
}

TEST_F(RecordSetSelect, SendsTheStatementInTheEncodingOfTheConnection)
{
    CMyDatabase database(Server("utf8mb4"), "shop");
    CMyRecordSet records(database, "K\xFC");
    records.Select("name = '\xE4'");
    EXPECT_EQ(LastStatement(), "SELECT K\xC3\xBC.* FROM K\xC3\xBC WHERE name = '\xC3\xA4'");
    EXPECT_EQ(records.GetLastSQLCommand().GetEncodingType(), UT_ENCODING_UTF8);
}

TEST_F(RecordSetSelect, ReturnsTheNumberOfRowsAndStandsOnTheFirst)
{
    m_client.OnPrefix("SELECT", CountedRows(3));
    CMyRecordSet records(m_database, "orders");
    EXPECT_EQ(records.Select(""), 3);
    EXPECT_TRUE(records.IsOpen());
    EXPECT_FALSE(records.IsEOF());
    EXPECT_EQ(records.GetFieldLong(0), 0);
    EXPECT_EQ(records.GetAffectedRows(), 3);
    EXPECT_EQ(records.GetFieldCount(), 1U);
    EXPECT_TRUE(Bytes(records.GetQueryInfo()).starts_with("Query OK. 3 Records in "));
}

TEST_F(RecordSetSelect, TellsTheQueryTimeOfTheConnection)
{
    m_client.OnPrefix("SELECT", CountedRows(1));
    m_client.SetStatementObserver(
        [](const std::string&) { std::this_thread::sleep_for(std::chrono::milliseconds(5)); });
    OpenRecordSet records(m_database, "orders");
    ASSERT_EQ(records.Select(""), 1);
    EXPECT_GE(records.GetQueryTime(), 4U);
    EXPECT_EQ(records.GetQueryTime(), m_database.GetQueryTime());
    ASSERT_EQ(records.SetSQLCommand("SELECT 1", false, true), 1);
    EXPECT_GE(records.GetQueryTime(), 4U);
}

TEST_F(RecordSetSelect, ReturnsZeroForAnEmptyResultAndStandsAtEndOfFile)
{
    m_client.OnPrefix("SELECT", CountedRows(0));
    CMyRecordSet records(m_database, "orders");
    EXPECT_EQ(records.Select(""), 0);
    EXPECT_TRUE(records.IsOpen());
    EXPECT_TRUE(records.IsEOF());
    EXPECT_EQ(records.GetFieldCount(), 1U);
}

TEST_F(RecordSetSelect, FailsWithoutAConnection)
{
    CMyRecordSet records;
    EXPECT_EQ(records.Select("SELECT 1 FROM dual"), -1);
    EXPECT_EQ(records.Select(""), -1);
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(RecordSetSelect, OpensAClosedConnection)
{
    m_client.OnPrefix("SELECT", CountedRows(1));
    CMyRecordSet records(m_database, "orders");
    m_database.Close();
    EXPECT_EQ(records.Select(""), 1);
    EXPECT_TRUE(m_database.IsOpen());
}

TEST_F(RecordSetSelect, FailsWhenTheConnectionCannotBeOpenedAndKeepsTheResultBefore)
{
    m_client.OnPrefix("SELECT", CountedRows(2));
    CMyRecordSet records(m_database, "orders");
    ASSERT_EQ(records.Select(""), 2);
    m_database.Close();
    m_client.FailAlways(fake::Call::Connect, 2002);
    EXPECT_EQ(records.Select(""), -1);
    EXPECT_TRUE(records.IsOpen());
    EXPECT_EQ(records.GetLastSQLCommand(), "SELECT * FROM orders");
}

TEST_F(RecordSetSelect, WorksOnAConnectionWithoutDatabase)
{
    CMyDatabase database(Server(), "");
    ASSERT_TRUE(database.Open(false, ""));
    m_client.OnPrefix("SELECT", CountedRows(1));
    CMyRecordSet records(database, "shop.orders");
    EXPECT_EQ(records.Select(""), 1);
    EXPECT_EQ(LastStatement(), "SELECT * FROM shop.orders");
}

TEST_F(RecordSetSelect, PingsOnceAndQueriesOnce)
{
    m_client.OnPrefix("SELECT", CountedRows(1));
    CMyRecordSet records(m_database, "orders");
    m_client.ForgetCalls();
    ASSERT_EQ(records.Select(""), 1);
    EXPECT_EQ(m_client.CountOf("mysql_ping"), 1U);
    EXPECT_EQ(m_client.CountOf("mysql_real_query"), 1U);
}

TEST_F(RecordSetSelect, AFailedStatementClosesTheRecordSetAndKeepsTheStatement)
{
    m_client.OnPrefix("SELECT", CountedRows(2));
    CMyRecordSet records(m_database, "orders");
    ASSERT_EQ(records.Select(""), 2);
    m_client.OnPrefix("SELECT", Reply::Error(1064, "syntax"));
    EXPECT_EQ(records.Select("id >"), -1);
    EXPECT_FALSE(records.IsOpen());
    EXPECT_TRUE(records.IsEOF());
    EXPECT_EQ(records.GetAffectedRows(), 0);
    EXPECT_EQ(records.GetFieldCount(), 0U);
    EXPECT_EQ(records.GetQueryInfo(), "");
    EXPECT_EQ(records.GetLastSQLCommand(), "SELECT orders.* FROM orders WHERE id >");
    EXPECT_EQ(records.GetErrorMessage(), "1064: syntax");
}

TEST_F(RecordSetSelect, AnErrorThatComesWithTheResultIsAFailure)
{
    m_client.OnPrefix("SELECT", Reply::ErrorAtResult(1317, "interrupted"));
    CMyRecordSet records(m_database, "orders");
    EXPECT_EQ(records.Select(""), -1);
    EXPECT_FALSE(records.IsOpen());
    EXPECT_EQ(records.GetErrorMessage(), "1317: interrupted");
}

TEST_F(RecordSetSelect, Kept_K41_AStatementWithoutResultIsMinusOneAlthoughItRan)
{
    m_client.OnPrefix("UPDATE", Reply::Ok(2));
    CMyRecordSet records(m_database, "orders");
    EXPECT_EQ(records.Select("UPDATE orders SET a = 1", false, true), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
    EXPECT_EQ(m_database.GetAffectedRows(), 2);
    EXPECT_EQ(records.GetAffectedRows(), 0);
    EXPECT_FALSE(records.IsOpen());
}

TEST_F(RecordSetSelect, ShowsAMessageBoxOnlyWhenAskedFor)
{
    m_client.OnPrefix("SELECT", Reply::Error(1064, "syntax"));
    CMyRecordSet records(m_database, "orders");
    const harness::MessageRecorder recorder;
    records.Select("", false);
    EXPECT_EQ(recorder.Messages().size(), 0U);
    records.Select("", true);
    EXPECT_EQ(recorder.Messages().size(), 1U);
}

TEST_F(RecordSetSelect, TakesTheRecordSetsOwnLastCommand)
{
    m_client.OnPrefix("SELECT", CountedRows(2));
    CMyRecordSet records(m_database, "orders");
    ASSERT_EQ(records.Select("SELECT * FROM orders LIMIT 2"), 2);
    EXPECT_EQ(records.Select(records.GetLastSQLCommand()), 2);
    EXPECT_EQ(LastStatement(), "SELECT * FROM orders LIMIT 2");
}

TEST_F(RecordSetSelect, FreesTheResultBefore)
{
    m_client.OnPrefix("SELECT", CountedRows(2));
    CMyRecordSet records(m_database, "orders");
    for (int i = 0; i < 3; ++i)
        ASSERT_EQ(records.Select(""), 2);
    EXPECT_EQ(m_client.ResultsOpened() - m_client.ResultsClosed(), 1U);
}

// ---- Close ----------------------------------------------------------------------------------------------------------

TEST_F(RecordSetSelect, CloseFreesTheResultAndKeepsConnectionTableAndLastStatement)
{
    m_client.OnPrefix("SELECT", CountedRows(20, 5));
    OpenRecordSet records(m_database, "orders");
    ASSERT_EQ(records.Select(""), 20);
    unsigned long no = 0;
    ASSERT_TRUE(records.GetFieldNo("C", no));
    ASSERT_TRUE(records.MoveTo(3));
    EXPECT_TRUE(records.Close());
    EXPECT_EQ(m_client.ResultsOpened(), m_client.ResultsClosed());
    EXPECT_FALSE(records.IsOpen());
    EXPECT_TRUE(records.IsEOF());
    EXPECT_EQ(records.GetCurrentRow(), -1);
    EXPECT_EQ(records.GetFieldCount(), 0U);
    EXPECT_FALSE(records.IsFieldHashLoaded());
    EXPECT_EQ(records.GetAffectedRows(), 0);
    EXPECT_EQ(records.GetQueryTime(), 0U);
    EXPECT_EQ(records.GetQueryInfo(), "");
    EXPECT_EQ(records.GetDatabase(), &m_database);
    EXPECT_EQ(records.GetTableName(), "orders");
    EXPECT_EQ(records.GetLastSQLCommand(), "SELECT * FROM orders");
}

TEST_F(RecordSetSelect, CloseIsTrueWithoutAResult)
{
    CMyRecordSet records;
    EXPECT_TRUE(records.Close());
    EXPECT_TRUE(records.Close());
}

// ---- SetSQLCommand --------------------------------------------------------------------------------------------------

TEST_F(RecordSetSelect, SetSQLCommandRunsTheTextAsItIs)
{
    m_client.OnPrefix("  id", CountedRows(2));
    OpenRecordSet records(m_database, "orders");
    EXPECT_EQ(records.SetSQLCommand("  id > 5  ", false, false), 2);
    EXPECT_EQ(LastStatement(), "  id > 5");
    EXPECT_EQ(m_client.CountOf("mysql_ping"), 0U);
    EXPECT_FALSE(records.IsEOF());
    EXPECT_EQ(records.GetDB(), &m_database);
}

TEST_F(RecordSetSelect, SetSQLCommandReturnsZeroForAnEmptyResult)
{
    m_client.OnPrefix("SELECT", CountedRows(0));
    OpenRecordSet records(m_database, "orders");
    EXPECT_EQ(records.SetSQLCommand("SELECT 1", false, false), 0);
    EXPECT_TRUE(records.IsOpen());
    EXPECT_TRUE(records.IsEOF());
}

TEST_F(RecordSetSelect, SetSQLCommandFailsWithoutConnectionOnErrorsAndWithoutResult)
{
    OpenRecordSet unbound;
    EXPECT_EQ(unbound.SetSQLCommand("SELECT 1", false, false), -1);
    EXPECT_EQ(unbound.SetSQLCommand("SELECT 1", false, true), -1);

    m_client.On("SELECT 1", Reply::Error(1064, "syntax"));
    OpenRecordSet records(m_database, "orders");
    EXPECT_EQ(records.SetSQLCommand("SELECT 1", false, false), -1);
    EXPECT_EQ(records.GetLastSQLCommand(), "SELECT 1");
    EXPECT_EQ(records.SetSQLCommand("SET a = 1", false, false), -1);
    EXPECT_EQ(records.GetLastSQLCommand(), "SET a = 1");
}

TEST_F(RecordSetSelect, SetSQLCommandFreesTheResultBeforeAlsoWhenItFails)
{
    m_client.On("SELECT 1", CountedRows(2));
    OpenRecordSet records(m_database, "orders");
    ASSERT_EQ(records.SetSQLCommand("SELECT 1", false, false), 2);
    m_client.On("SELECT 2", Reply::Error(1064));
    EXPECT_EQ(records.SetSQLCommand("SELECT 2", false, false), -1);
    EXPECT_FALSE(records.IsOpen());
    EXPECT_EQ(m_client.ResultsOpened(), m_client.ResultsClosed());
}

TEST_F(RecordSetSelect, SetSQLCommandShowsAMessageBoxOnlyWhenAskedFor)
{
    m_client.OnPrefix("SELECT", Reply::Error(1064, "syntax"));
    OpenRecordSet records(m_database, "orders");
    const harness::MessageRecorder recorder;
    records.SetSQLCommand("SELECT 1", false, false);
    EXPECT_EQ(recorder.Messages().size(), 0U);
    records.SetSQLCommand("SELECT 1", true, false);
    EXPECT_EQ(recorder.Messages().size(), 1U);
}

} // namespace
