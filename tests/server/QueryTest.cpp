#include "CMyDatabase.h"
#include "harness/GeneralLog.h"
#include "harness/MessageRecorder.h"
#include "harness/PrivateServer.h"
#include "harness/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fstream>
#include <thread>

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

using harness::GeneralLog;
using harness::PrivateServer;
using harness::RawConnection;
using harness::ServerAccess;
using harness::TemporaryDatabase;

UtCString Utf8(std::string_view text)
{
    return UtCString(text, UT_ENCODING_UTF8);
}

std::string Bytes(const UtCString& text)
{
    return std::string(text.View());
}

CMyServer TesterSettings()
{
    const ServerAccess& access = PrivateServer::Get().Tester();
    CMyServer server;
    server.SetHost(Utf8(access.host));
    server.SetPort(access.port);
    server.SetUser(Utf8(access.user));
    server.SetPassword(Utf8(access.password));
    server.SetCharset("utf8mb4");
    return server;
}

/// An open connection to a database with the table t (a INT, b VARCHAR).
class Query : public testing::Test
{
protected:
    Query() : m_database(TesterSettings(), Utf8(m_temporary.Name()))
    {
        m_temporary.Sql().Run("CREATE TABLE t (a INT PRIMARY KEY, b VARCHAR(100)) ENGINE=InnoDB");
        EXPECT_TRUE(m_database.Open(false, ""));
    }

    long Run(std::string_view sql) { return m_database.ExecuteQuery(Utf8(sql), false, nullptr, false); }
    std::vector<std::string> SentBy(const UtCString& sql)
    {
        GeneralLog log;
        m_database.ExecuteQuery(sql, false, nullptr, false);
        return log.Statements(m_database.GetThreadID());
    }
    std::string Message() { return Bytes(m_database.GetErrorMessage()); }

    harness::MessageRecorder m_messages;
    TemporaryDatabase m_temporary;
    CMyDatabase m_database;
};

TEST_F(Query, SendsTheBytesOfAStatement)
{
    EXPECT_EQ(SentBy(Utf8("DO 'a\r\n\tb \xC3\xBC' ,1 \r\n ")), std::vector<std::string>{"DO 'a\r\n\tb \xC3\xBC' ,1"});
    EXPECT_EQ(SentBy(UtCString("DO '\xFC\x80%s'", UT_ENCODING_DEFAULT)),
              std::vector<std::string>{"DO '\xC3\xBC\xE2\x82\xAC%s'"});
    EXPECT_EQ(SentBy(Utf8("\xEF\xBB\xBF"
                          "DO 2")),
              std::vector<std::string>{"DO 2"});
    EXPECT_EQ(m_database.GetErrorCode(), 0UL);
}

TEST_F(Query, GivesRowsInEachOfTheFourWays)
{
    Run("INSERT INTO t VALUES (1, 'x'), (2, 'y'), (3, 'z')");
    MYSQL_RES* stored = nullptr;
    EXPECT_EQ(m_database.ExecuteQuery("SELECT a, b FROM t", false, &stored, false), 3L);
    ASSERT_NE(stored, nullptr);
    EXPECT_EQ(mysql_num_rows(stored), 3U);
    mysql_free_result(stored);
    MYSQL_RES* streamed = nullptr;
    EXPECT_EQ(m_database.ExecuteQuery("SELECT a, b FROM t", false, &streamed, true), 1L);
    ASSERT_NE(streamed, nullptr);
    EXPECT_STREQ(mysql_fetch_row(streamed)[1], "x");
    EXPECT_EQ(Run("DO 1"), -1L); // rows are still to be read
    EXPECT_EQ(m_database.GetErrorCode(), 2014UL);
    mysql_free_result(streamed);
    EXPECT_EQ(m_database.ExecuteQuery("SELECT a, b FROM t", false, nullptr, false), 3L);
    EXPECT_EQ(m_database.ExecuteQuery("SELECT a, b FROM t", false, nullptr, true), 1L);
    EXPECT_EQ(Run("DO 1"), 0L);
}

TEST_F(Query, CountsTheRowsThatAStatementChanges)
{
    EXPECT_EQ(Run("INSERT INTO t VALUES (1, 'x'), (2, 'y')"), 2L);
    EXPECT_EQ(Run("UPDATE t SET b = 'x'"), 1L);
    EXPECT_EQ(Run("UPDATE t SET b = 'x'"), 0L);
    EXPECT_EQ(Run("DELETE FROM t"), 2L);
    EXPECT_EQ(Run("SET @x = 1"), 0L);
}

TEST_F(Query, RecordsTheErrorOfTheServer)
{
    EXPECT_EQ(Run("SELECT * FROM no_such"), -1L);
    EXPECT_EQ(m_database.GetErrorCode(), 1146UL);
    EXPECT_EQ(Message(), "1146: Table '" + m_temporary.Name() + ".no_such' doesn't exist");
    EXPECT_EQ(Run("NONSENSE"), -1L);
    EXPECT_EQ(m_database.GetErrorCode(), 1064UL);
    EXPECT_EQ(Run("DO 1"), 0L);
    EXPECT_EQ(Message(), "Kein Fehler!");
}

TEST_F(Query, GivesTheErrorTextInUtf8)
{
    EXPECT_EQ(Run("SELECT * FROM stra\xC3\x9F"
                  "e"),
              -1L);
    const UtCString message = m_database.GetErrorMessage();
    EXPECT_EQ(message.GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_NE(Bytes(message).find("stra\xC3\x9F"
                                  "e"),
              std::string::npos)
        << Bytes(message);
}

TEST_F(Query, RecordsAnErrorThatComesWithTheRows)
{
    Run("INSERT INTO t VALUES (1, 'x'), (2, 'y'), (3, 'y')");
    const char* sql = "SELECT (SELECT a FROM t u WHERE u.b = t.b) FROM t";
    for (const bool useResult : {false, true}) {
        EXPECT_EQ(m_database.ExecuteQuery(sql, false, nullptr, useResult), -1L);
        EXPECT_EQ(m_database.GetErrorCode(), 1242UL);
    }
    MYSQL_RES* result = nullptr;
    EXPECT_EQ(m_database.ExecuteQuery(sql, false, &result, false), -1L);
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(Run("DO 1"), 0L);
}

TEST_F(Query, ShowsAFailureWhenAsked)
{
    EXPECT_EQ(m_database.ExecuteQuery("SELECT * FROM no_such", true, nullptr, false), -1L);
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text, "Error in ExecuteQuery\n\n    Error: 1146: Table '" + m_temporary.Name() +
                                                 ".no_such' doesn't exist\n\n    Query:\n\nSELECT * FROM no_such\n\n");
}

TEST_F(Query, MeasuresItsTime)
{
    Run("DO SLEEP(0.2)");
    EXPECT_GE(m_database.GetQueryTime(), 190UL);
    EXPECT_LT(m_database.GetQueryTime(), 5000UL);
    EXPECT_TRUE(Bytes(m_database.GetQueryInfo()).starts_with("Query OK. 0 Records in "))
        << Bytes(m_database.GetQueryInfo());
}

TEST_F(Query, SummarisesAStatement)
{
    const std::vector<std::pair<const char*, const char*>> expected = {
        {"INSERT INTO t VALUES (1, 'x')", "Query OK. 1 Record in "},
        {"INSERT INTO t VALUES (2, 'y'), (3, 'z')", "Records: 2  Duplicates: 0  Warnings: 0 in "},
        {"UPDATE t SET b = 'x'", "Rows matched: 3  Changed: 2  Warnings: 0 in "},
        {"SELECT * FROM t", "Query OK. 3 Records in "},
        {"DELETE FROM t", "Query OK. 3 Records in "},
    };
    for (const auto& [sql, start] : expected) {
        Run(sql);
        EXPECT_TRUE(Bytes(m_database.GetQueryInfo()).starts_with(start)) << Bytes(m_database.GetQueryInfo());
    }
    Run("NONSENSE");
    EXPECT_EQ(Bytes(m_database.GetQueryInfo()), "");
}

TEST_F(Query, Kept_K08_FailsWithSettingsInUtf16)
{
    m_database.GetServer().SetCharset("utf16");
    EXPECT_EQ(Run("DO 1"), -1L);
    EXPECT_EQ(m_database.GetErrorCode(), 1065UL);
    m_database.GetServer().SetCharset("utf16le");
    EXPECT_EQ(Run("DO 1"), -1L);
    EXPECT_EQ(m_database.GetErrorCode(), 1064UL);
}

// Whether the client complains about the unread status depends on whether that has arrived by then.
TEST_F(Query, MayRefuseTheStatementAfterAProcedureThatGivesRows)
{
    m_temporary.Sql().Run("CREATE PROCEDURE p() SELECT 1");
    EXPECT_EQ(Run("CALL p()"), 1L);
    if (Run("DO 1") != 0L) {
        EXPECT_EQ(m_database.GetErrorCode(), 2014UL);
    }
    m_database.Close();
    EXPECT_EQ(Run("DO 1"), 0L);
}

TEST_F(Query, WorksAfterAnOpenThatFollowsAProcedure)
{
    m_temporary.Sql().Run("CREATE PROCEDURE p() SELECT 1");
    EXPECT_EQ(Run("CALL p()"), 1L);
    EXPECT_TRUE(m_database.Open(false, ""));
    EXPECT_EQ(Run("DO 1"), 0L);
}

// --- Escaping

std::string AllBytes()
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

class EscapeMode : public Query, public testing::WithParamInterface<const char*>
{
protected:
    EscapeMode()
    {
        m_temporary.Sql().Run("CREATE TABLE e (b BLOB, c TEXT CHARACTER SET utf8mb4)");
        Run("SET sql_mode = '"s + GetParam() + "'");
    }
    std::string Stored(const char* column)
    {
        return m_temporary.Sql().Text("SELECT "s + column + " FROM e").value_or("NULL");
    }
};

TEST_P(EscapeMode, StoresEveryByte)
{
    const std::string bytes = AllBytes() + "''\\\\'";
    UtCString escaped;
    m_database.MakeEscapeString(bytes.data(), static_cast<unsigned __int64>(bytes.size()), escaped);
    // A zero byte ends a statement, so the mode that keeps zero bytes cannot carry them.
    const bool keepsZeroBytes = escaped.View().find('\0') != std::string_view::npos;
    const std::string expected = keepsZeroBytes ? bytes.substr(1) : bytes;
    m_database.MakeEscapeString(expected.data(), static_cast<unsigned __int64>(expected.size()), escaped);
    EXPECT_EQ(Run("INSERT INTO e (b) VALUES (_binary'" + Bytes(escaped) + "')"), 1L) << Message();
    EXPECT_EQ(Stored("b"), expected);
}

TEST_P(EscapeMode, LetsNoTextOutOfItsQuotes)
{
    const std::vector<std::string> texts = {
        "'); DROP TABLE e; -- ", "\\'); DROP TABLE e; -- ", "\\", "'", "\\\\'", "\"", "\xE2\x82\xAC'\\\n",
        "%' OR '1'='1"};
    for (const std::string& text : texts) {
        m_temporary.Sql().Run("DELETE FROM e");
        UtCString escaped;
        m_database.MakeEscapeString(Utf8(text), escaped);
        EXPECT_EQ(Run("INSERT INTO e (c) VALUES ('" + Bytes(escaped) + "')"), 1L) << text << ": " << Message();
        EXPECT_EQ(Stored("c"), text);
    }
}

INSTANTIATE_TEST_SUITE_P(SqlModes, EscapeMode, testing::Values("", "NO_BACKSLASH_ESCAPES"));

// --- Lost connections

/// Kills the connection while it runs a statement that has this in its text.
std::thread KillWhileRunning(unsigned long thread, const std::string& part)
{
    return std::thread([thread, part] {
        RawConnection administrator(PrivateServer::Get().Administrator());
        const std::string sql =
            "SELECT COUNT(*) FROM information_schema.PROCESSLIST WHERE ID = " + std::to_string(thread) +
            " AND INFO LIKE '%" + part + "%' AND TIME_MS > 300";
        for (int tries = 0; tries < 500 && administrator.Text(sql) != "1"; ++tries) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        administrator.ErrorOf("KILL " + std::to_string(thread));
    });
}

TEST_F(Query, SendsAStatementAgainWhoseConnectionIsKilled)
{
    const unsigned long thread = m_database.GetThreadID();
    GeneralLog log;
    std::thread killer = KillWhileRunning(thread, "SLEEP");
    EXPECT_EQ(Run("INSERT INTO t SELECT 1, CONNECTION_ID() + SLEEP(1)"), 1L) << Message();
    killer.join();
    EXPECT_EQ(m_database.GetErrorCode(), 0UL);
    EXPECT_NE(m_database.GetThreadID(), thread);
    EXPECT_EQ(Bytes(m_database.GetLastSQLCommand()), "INSERT INTO t SELECT 1, CONNECTION_ID() + SLEEP(1)");
    EXPECT_EQ(log.Statements(thread), std::vector<std::string>{"INSERT INTO t SELECT 1, CONNECTION_ID() + SLEEP(1)"});
    EXPECT_EQ(log.Statements(m_database.GetThreadID()),
              (std::vector<std::string>{"SHOW TABLES", "INSERT INTO t SELECT 1, CONNECTION_ID() + SLEEP(1)"}));
    EXPECT_EQ(m_temporary.Sql().Text("SELECT b FROM t"), std::to_string(m_database.GetThreadID()));
}

TEST_F(Query, Kept_K10_RepeatsAWriteThatWasHalfDone)
{
    m_temporary.Sql().Run("CREATE TABLE m (a INT) ENGINE=MyISAM");
    m_temporary.Sql().Run("CREATE TABLE ten AS SELECT seq AS a FROM seq_1_to_10");
    std::thread killer = KillWhileRunning(m_database.GetThreadID(), "SLEEP");
    EXPECT_EQ(Run("INSERT INTO m SELECT a + SLEEP(0.1) FROM ten"), 10L) << Message();
    killer.join();
    const int rows = std::stoi(m_temporary.Sql().Text("SELECT COUNT(*) FROM m").value_or("0"));
    EXPECT_GT(rows, 10);
    EXPECT_LT(rows, 20);
}

TEST_F(Query, RunsOnANewSessionWhenTheIdleConnectionWasKilled)
{
    harness::KillConnection(m_database.GetThreadID());
    EXPECT_EQ(Run("INSERT INTO t VALUES (1, 'x')"), 1L) << Message();
    EXPECT_EQ(m_database.GetErrorCode(), 0UL);
    EXPECT_EQ(m_temporary.Sql().Text("SELECT COUNT(*) FROM t"), "1");
}

std::string LoadFrom(const std::filesystem::path& file)
{
    return "LOAD DATA LOCAL INFILE '" + file.generic_string() + "' INTO TABLE t FIELDS TERMINATED BY ','";
}

TEST_F(Query, LoadsALocalFile)
{
    const harness::TemporaryFolder folder;
    const std::filesystem::path file = folder.Path() / "rows";
    std::ofstream rows(file, std::ios::binary);
    for (int i = 1; i <= 10000; ++i)
        rows << i << ",x\n";
    rows.close();
    EXPECT_EQ(Run(LoadFrom(file)), 10000);
    EXPECT_EQ(m_temporary.Sql().Text("SELECT SUM(a) FROM t"), "50005000");
}

TEST_F(Query, FailsForALocalFileThatIsMissingOrAFolderAndWorksOn)
{
    const harness::TemporaryFolder folder;
    EXPECT_EQ(Run(LoadFrom(folder.Path() / "missing")), -1);
    EXPECT_EQ(m_database.GetErrorCode(), static_cast<unsigned long>(ENOENT));
    EXPECT_NE(Message().find("missing' not found (Errcode: 2)"), std::string::npos) << Message();
    EXPECT_EQ(Run(LoadFrom(folder.Path())), -1);
    EXPECT_NE(m_database.GetErrorCode(), 0UL);
    EXPECT_EQ(Run("INSERT INTO t VALUES (1, 'x')"), 1) << Message();
}

TEST_F(Query, FailsWhenTheRowsToDropAreCutByAKill)
{
    m_temporary.Sql().Run("CREATE TABLE ten AS SELECT seq AS a FROM seq_1_to_10");
    std::thread killer = KillWhileRunning(m_database.GetThreadID(), "SLEEP");
    EXPECT_EQ(m_database.ExecuteQuery("SELECT a, REPEAT('x', 100000), SLEEP(0.1) FROM ten", false, nullptr, true), -1L);
    killer.join();
    EXPECT_EQ(m_database.GetErrorCode(), 2013UL);
    EXPECT_EQ(Run("DO 1"), 0L);
}

} // namespace
