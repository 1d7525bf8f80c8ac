#include "ConnectionFixture.h"

#include <array>
#include <thread>

namespace {

using namespace std::string_literals;

using connection_test::Bytes;
using connection_test::ConnectionFixture;
using connection_test::OpenConnectionFixture;
using connection_test::ValidServer;
using Texts = std::vector<std::string>;

/// A pointer that no call may write.
MYSQL_RES* const untouched = reinterpret_cast<MYSQL_RES*>(0x10);

class ExecuteQuery : public OpenConnectionFixture
{
protected:
    long Run(const UtCString& sql) { return m_database.ExecuteQuery(sql, false, nullptr, false); }
    void UseCharset(const char* charset) { m_database.GetServer().SetCharset(charset); }
};

using ExecuteQueryOnDemand = ConnectionFixture;

TEST_F(ExecuteQueryOnDemand, OpensAClosedConnection)
{
    CMyDatabase database(ValidServer(), "shop");
    EXPECT_EQ(database.ExecuteQuery("DO 1", false, nullptr, false), 0L);
    EXPECT_TRUE(database.IsOpen());
    EXPECT_EQ(m_client.Statements(), (Texts{"SHOW TABLES", "DO 1"}));
    EXPECT_EQ(Bytes(database.GetLastSQLCommand()), "DO 1");
}

TEST_F(ExecuteQueryOnDemand, FailsWithTheErrorOfTheOpenWhenThatFails)
{
    m_client.FailAlways(fake::Call::Connect, 2002, "no connection");
    CMyDatabase database(ValidServer(), "shop");
    MYSQL_RES* result = untouched;
    EXPECT_EQ(database.ExecuteQuery("DO 1", true, &result, false), -1L);
    EXPECT_EQ(result, untouched);
    EXPECT_EQ(Bytes(database.GetLastSQLCommand()), "");
    EXPECT_EQ(database.GetErrorCode(), 2002UL);
    EXPECT_EQ(Bytes(database.GetErrorMessage()), "2002: no connection");
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(ExecuteQueryOnDemand, ClearsTheLastStatementWhenTheOpenFails)
{
    CMyDatabase database(ValidServer(), "shop");
    database.ExecuteQuery("DO 1", false, nullptr, false);
    database.Close();
    m_client.FailAlways(fake::Call::Connect, 2002);
    EXPECT_EQ(database.ExecuteQuery("DO 2", false, nullptr, false), -1L);
    EXPECT_EQ(Bytes(database.GetLastSQLCommand()), "");
}

TEST_F(ExecuteQueryOnDemand, LeavesTimeAndRowsOfTheLastStatementWhenTheOpenFails)
{
    m_client.On("DELETE FROM t", fake::Reply::Ok(3));
    m_client.SetStatementObserver(
        [](const std::string&) { std::this_thread::sleep_for(std::chrono::milliseconds(5)); });
    CMyDatabase database(ValidServer(), "shop");
    database.ExecuteQuery("DELETE FROM t", false, nullptr, false);
    const unsigned long time = database.GetQueryTime();
    EXPECT_NE(time, 0UL);
    database.Close();
    m_client.FailAlways(fake::Call::Connect, 2002);
    EXPECT_EQ(database.ExecuteQuery("DO 1", false, nullptr, false), -1L);
    EXPECT_EQ(database.GetAffectedRows(), 3L);
    EXPECT_EQ(database.GetQueryTime(), time);
}

TEST_F(ExecuteQueryOnDemand, OpensAlsoForAnEmptyStatement)
{
    CMyDatabase database(ValidServer(), "shop");
    EXPECT_EQ(database.ExecuteQuery(" ", false, nullptr, false), -1L);
    EXPECT_TRUE(database.IsOpen());
    EXPECT_EQ(m_client.Statements(), Texts{"SHOW TABLES"});
    EXPECT_EQ(Bytes(database.GetLastSQLCommand()), "");
}

TEST_F(ExecuteQueryOnDemand, FailsWithoutARecordWithInvalidSettings)
{
    CMyDatabase database(CMyServer(), "shop");
    EXPECT_EQ(database.ExecuteQuery("DO 1", true, nullptr, false), -1L);
    EXPECT_EQ(database.GetErrorCode(), 0UL);
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(ExecuteQuery, SendsTheStatementAndKeepsIt)
{
    EXPECT_EQ(Run("UPDATE t SET a = 1"), 0L);
    EXPECT_EQ(m_client.Statements(), Texts{"UPDATE t SET a = 1"});
    EXPECT_EQ(Bytes(m_database.GetLastSQLCommand()), "UPDATE t SET a = 1");
    EXPECT_EQ(m_database.GetLastSQLCommand().GetEncodingType(), UT_ENCODING_UTF8);
}

TEST_F(ExecuteQuery, CutsBlanksAndLineBreaksOffTheEnd)
{
    Run("  DO 1\r\n \n");
    EXPECT_EQ(m_client.Statements(), Texts{"  DO 1"});
    EXPECT_EQ(Bytes(m_database.GetLastSQLCommand()), "  DO 1");
}

TEST_F(ExecuteQuery, FailsForAnEmptyStatementAndLeavesTheErrorAlone)
{
    m_client.On("BAD STATEMENT", fake::Reply::Error(1064, "syntax"));
    Run("BAD STATEMENT");
    m_client.ForgetCalls();
    for (const char* sql : {"", " ", "\r\n", " \r\n \n"}) {
        MYSQL_RES* result = untouched;
        EXPECT_EQ(m_database.ExecuteQuery(sql, true, &result, false), -1L);
        EXPECT_EQ(result, untouched);
    }
    EXPECT_EQ(m_database.GetErrorCode(), 1064UL);
    EXPECT_EQ(Bytes(m_database.GetErrorMessage()), "1064: syntax");
    EXPECT_EQ(Bytes(m_database.GetLastSQLCommand()), "");
    EXPECT_TRUE(m_client.Calls().empty());
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(ExecuteQuery, ClearsTimeAndRowsForAnEmptyStatement)
{
    m_client.On("DELETE FROM t", fake::Reply::Ok(3));
    EXPECT_EQ(Run("DELETE FROM t"), 3L);
    EXPECT_EQ(Run(" "), -1L);
    EXPECT_EQ(m_database.GetAffectedRows(), 0L);
    EXPECT_EQ(m_database.GetQueryTime(), 0UL);
}

TEST_F(ExecuteQuery, ConvertsTheStatementToTheEncodingOfTheSettings)
{
    Run(UtCString("DO '\xFC\x80'", UT_ENCODING_DEFAULT));
    EXPECT_EQ(m_client.Statements(), Texts{"DO '\xC3\xBC\xE2\x82\xAC'"});
    EXPECT_EQ(Bytes(m_database.GetLastSQLCommand()), "DO '\xC3\xBC\xE2\x82\xAC'");
    EXPECT_EQ(m_database.GetLastSQLCommand().GetEncodingType(), UT_ENCODING_UTF8);
    UseCharset("latin1");
    m_client.ForgetCalls();
    Run(UtCString("DO '\xC3\xBC\xE2\x82\xAC'", UT_ENCODING_UTF8));
    EXPECT_EQ(m_client.Statements(), Texts{"DO '\xFC\x80'"});
    EXPECT_EQ(m_database.GetLastSQLCommand().GetEncodingType(), UT_ENCODING_DEFAULT);
}

TEST_F(ExecuteQuery, ConvertsAStatementInUtf16)
{
    Run(UtCString(std::string_view("D\0O\0 \0\xFC\0\r\0\n\0", 12), UT_ENCODING_UTF16_LE));
    Run(UtCString(std::string_view("\0D\0O\0 \x20\xAC\0 ", 10), UT_ENCODING_UTF16_BE));
    EXPECT_EQ(m_client.Statements(), (Texts{"DO \xC3\xBC", "DO \xE2\x82\xAC"}));
}

TEST_F(ExecuteQuery, SendsBytesOfTheSameEncodingUnchanged)
{
    Run(UtCString("DO '\xE2\x82 \xFF'", UT_ENCODING_UTF8));
    UseCharset("latin1");
    Run(UtCString("DO '\x81\x8D'", UT_ENCODING_DEFAULT));
    EXPECT_EQ(m_client.Statements(), (Texts{"DO '\xE2\x82 \xFF'", "DO '\x81\x8D'"}));
}

TEST_F(ExecuteQuery, SkipsAByteOrderMarkInUtf8Only)
{
    Run(UtCString("\xEF\xBB\xBF"
                  "DO 1",
                  UT_ENCODING_UTF8));
    EXPECT_EQ(Bytes(m_database.GetLastSQLCommand()), "\xEF\xBB\xBF"
                                                     "DO 1");
    UseCharset("latin1");
    Run(UtCString("\xEF\xBB\xBF"
                  "DO 2",
                  UT_ENCODING_DEFAULT));
    EXPECT_EQ(m_client.Statements(), (Texts{"DO 1", "\xEF\xBB\xBF"
                                                    "DO 2"}));
}

TEST_F(ExecuteQuery, SendsNothingOfAStatementThatIsOnlyAByteOrderMark)
{
    Run(UtCString("\xEF\xBB\xBF", UT_ENCODING_UTF8));
    EXPECT_EQ(m_client.Statements(), Texts{""});
}

TEST_F(ExecuteQuery, EndsTheStatementAtAZeroByte)
{
    Run(UtCString(std::string_view("DO 1\0, 2", 8), UT_ENCODING_UTF8));
    EXPECT_EQ(m_client.Statements(), Texts{"DO 1"});
    EXPECT_EQ(Bytes(m_database.GetLastSQLCommand()), "DO 1\0, 2"s);
}

TEST_F(ExecuteQuery, Kept_K08_SendsNothingOrOneLetterWithSettingsInUtf16)
{
    UseCharset("utf16");
    Run("DO 1");
    UseCharset("utf16le");
    Run("DO 1");
    EXPECT_EQ(m_client.Statements(), (Texts{"", "D"}));
    EXPECT_EQ(Bytes(m_database.GetLastSQLCommand()), "D\0O\0 \0\x31\0"s);
    EXPECT_EQ(m_database.GetLastSQLCommand().GetEncodingType(), UT_ENCODING_UTF16_LE);
}

TEST_F(ExecuteQuery, SendsATextThatIsNeverConvertedAsItIs)
{
    Run(UtCString("DO 1 ", UT_ENCODING_UTF32));
    EXPECT_EQ(m_client.Statements(), Texts{"DO 1"});
}

TEST_F(ExecuteQuery, SendsALongStatementWhole)
{
    const std::string sql = "DO '" + std::string(5'000'000, 'x') + "'";
    Run(UtCString(sql, UT_ENCODING_UTF8));
    ASSERT_EQ(m_client.Statements().size(), 1U);
    EXPECT_TRUE(m_client.Statements()[0] == sql);
}

TEST_F(ExecuteQuery, RunsItsOwnLastStatementAgain)
{
    Run("DO 1");
    EXPECT_EQ(Run(m_database.GetLastSQLCommand()), 0L);
    m_database.Close();
    EXPECT_EQ(Run(m_database.GetLastSQLCommand()), 0L);
    EXPECT_EQ(m_client.Statements(), (Texts{"DO 1", "DO 1", "SHOW TABLES", "DO 1"}));
}

// --- Time

TEST_F(ExecuteQuery, MeasuresTheTimeUntilTheResultIsThere)
{
    m_client.SetStatementObserver(
        [](const std::string&) { std::this_thread::sleep_for(std::chrono::milliseconds(30)); });
    Run("DO 1");
    EXPECT_GE(m_database.GetQueryTime(), 20UL);
    EXPECT_LT(m_database.GetQueryTime(), 10000UL);
}

// --- The summary

TEST_F(ExecuteQuery, SaysHowManyRecordsAStatementChanged)
{
    m_client.On("DELETE 0", fake::Reply::Ok(0));
    m_client.On("DELETE 1", fake::Reply::Ok(1));
    m_client.On("DELETE 3", fake::Reply::Ok(3));
    const std::array<std::pair<const char*, const char*>, 3> expected = {{{"DELETE 0", "Query OK. 0 Records in 0.0"},
                                                                          {"DELETE 1", "Query OK. 1 Record in 0.0"},
                                                                          {"DELETE 3", "Query OK. 3 Records in 0.0"}}};
    for (const auto& [sql, start] : expected) {
        Run(sql);
        const std::string info = Bytes(m_database.GetQueryInfo());
        EXPECT_TRUE(info.starts_with(start)) << info;
        EXPECT_TRUE(info.ends_with(" Sec")) << info;
    }
}

TEST_F(ExecuteQuery, GivesTheServersOwnAccountOfAStatement)
{
    m_client.On("INSERT", fake::Reply::Ok(2, 0, "Records: 2  Duplicates: 0  Warnings: 0"));
    Run("INSERT");
    const std::string info = Bytes(m_database.GetQueryInfo());
    EXPECT_TRUE(info.starts_with("Records: 2  Duplicates: 0  Warnings: 0 in 0.0")) << info;
    EXPECT_TRUE(info.ends_with(" Sec")) << info;
}

TEST_F(ExecuteQuery, HasNoSummaryAfterAFailureAndWithoutAConnection)
{
    m_client.On("BAD STATEMENT", fake::Reply::Error(1064));
    Run("BAD STATEMENT");
    EXPECT_EQ(Bytes(m_database.GetQueryInfo()), "");
    m_database.Close();
    EXPECT_EQ(Bytes(m_database.GetQueryInfo()), "");
}

TEST_F(ExecuteQuery, WritesTheTimeOfTheSummaryInSecondsWithThreeDecimals)
{
    m_client.SetStatementObserver(
        [](const std::string&) { std::this_thread::sleep_for(std::chrono::milliseconds(5)); });
    Run("DO 1");
    const unsigned long time = m_database.GetQueryTime();
    ASSERT_LT(time, 1000UL);
    const std::string digits = std::to_string(1000 + time).substr(1);
    EXPECT_EQ(Bytes(m_database.GetQueryInfo()), "Query OK. 0 Records in 0." + digits + " Sec");
}

TEST_F(ExecuteQuery, TellsOfTheLastStatementOnlyThroughItsOwnMembers)
{
    m_client.On("DELETE FROM t", fake::Reply::Ok(3));
    Run("DELETE FROM t");
    m_database.GetQueryInfo();
    m_database.GetErrorMessage();
    m_database.IsSelectQuery("SELECT * FROM t");
    EXPECT_EQ(Bytes(m_database.GetLastSQLCommand()), "DELETE FROM t");
    EXPECT_EQ(m_database.GetAffectedRows(), 3L);
}

TEST_F(ExecuteQueryOnDemand, JudgesStatementsWithoutAConnection)
{
    const CMyDatabase database(ValidServer(), "shop");
    EXPECT_TRUE(database.IsSelectQuery("SELECT * FROM t"));
    EXPECT_FALSE(database.IsSelectQuery("DELETE FROM t"));
    EXPECT_TRUE(m_client.Calls().empty());
}

} // namespace
