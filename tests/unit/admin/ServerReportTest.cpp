#include "ServerStatusFixture.h"

#include <string>
#include <vector>

namespace {

using namespace admin_test;

using ServerReport = ServerStatusFixture;

TEST_F(ServerReport, ReportsTheServer)
{
    m_client.SetStat(statusLine);
    m_client.SetServerInfo("5.7.44");
    ScriptVariables();
    EXPECT_EQ(Info(0).View(), std::string("Server: db.example\nVersion: 5.7.44\nDataDir: C:\\data\\\n"
                                          "Max. Memory: 308 MB = 8 MB + (100 * 3 MB)\n") +
                                  formattedStatus);
}

TEST_F(ServerReport, ReportsAnOlderServer)
{
    m_client.SetStat("Uptime: 172800  Threads: 2");
    m_client.SetServerInfo("3.23.58");
    ScriptVariables();
    ScriptVariable("record_buffer", "1572864");
    ScriptVariable("record_rnd_buffer", "2097152");
    EXPECT_EQ(Info(0).View(), "Server: db.example\nVersion: 3.23.58\nDataDir: C:\\data\\\n"
                              "Max. Memory: 508 MB = 8 MB + (100 * 5 MB)\n"
                              "Uptime: 2 days 00 hrs 00 min 00 sec\nThreads: 2");
}

TEST_F(ServerReport, ReportsAServerWithoutAVersion)
{
    m_client.SetStat("Uptime: 1");
    m_client.SetServerInfo("");
    ScriptVariables();
    EXPECT_EQ(Info(0).View(), "Server: db.example\nVersion: \nDataDir: C:\\data\\\n"
                              "Max. Memory: 308 MB = 8 MB + (100 * 3 MB)\nUptime: 00 hrs 00 min 01 sec\n");
}

TEST_F(ServerReport, ReportsInTheSingleByteEncoding)
{
    m_database.GetServer().SetCharset("utf8");
    m_database.GetServer().SetDataDir(UtCString("D:\\B\xC3\xBCro", UT_ENCODING_UTF8));
    m_client.SetStat("\xC3\xA4 \xE2Uptime: 1");
    const UtCString report = Info(0);
    EXPECT_EQ(report.GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_EQ(report.View(), "Server: db.example\nVersion: 10.11.19-MariaDB\nDataDir: D:\\B\xFCro\\\n"
                             "Max. Memory: 0 MB = 0 MB + (0 * 0 MB)\n\xE4 ?Uptime: 00 hrs 00 min 01 sec\n");
}

TEST_F(ServerReport, AsksForTheStatusBeforeTheVariables)
{
    m_client.SetServerInfo("5.7.44");
    Info(0);
    EXPECT_EQ(m_client.CallNames().front(), "mysql_stat");
    EXPECT_EQ(m_client.CountOf("mysql_stat"), 1U);
    EXPECT_EQ(m_client.CountOf("mysql_ping"), 8U);
}

TEST_F(ServerReport, AsksForTheVariablesOfANewerServer)
{
    m_client.SetServerInfo("4.0.1");
    Info(0);
    EXPECT_EQ(m_client.Statements(),
              (std::vector<std::string>{
                  "SHOW VARIABLES LIKE 'key_buffer_size'", "SHOW VARIABLES LIKE 'net_buffer_length'",
                  "SHOW VARIABLES LIKE 'sort_buffer_size'", "SHOW VARIABLES LIKE 'myisam_sort_buffer_size'",
                  "SHOW VARIABLES LIKE 'join_buffer_size'", "SHOW VARIABLES LIKE 'read_buffer_size'",
                  "SHOW VARIABLES LIKE 'read_rnd_buffer_size'", "SHOW VARIABLES LIKE 'max_connections'"}));
}

TEST_F(ServerReport, AsksForTheVariablesOfAnOlderServer)
{
    m_client.SetServerInfo("3.23.58");
    Info(0);
    EXPECT_EQ(
        m_client.Statements(),
        (std::vector<std::string>{"SHOW VARIABLES LIKE 'key_buffer_size'", "SHOW VARIABLES LIKE 'net_buffer_length'",
                                  "SHOW VARIABLES LIKE 'myisam_sort_buffer_size'",
                                  "SHOW VARIABLES LIKE 'record_buffer'", "SHOW VARIABLES LIKE 'join_buffer_size'",
                                  "SHOW VARIABLES LIKE 'record_rnd_buffer'", "SHOW VARIABLES LIKE 'max_connections'"}));
}

TEST_F(ServerReport, CountsMissingAndUnreadableVariablesAsZero)
{
    m_client.SetStat("Uptime: 1");
    m_client.SetServerInfo("5.7.44");
    ScriptVariables();
    m_client.On("SHOW VARIABLES LIKE 'key_buffer_size'", NoVariable());
    ScriptVariable("sort_buffer_size", "much");
    m_client.On("SHOW VARIABLES LIKE 'myisam_sort_buffer_size'", Reply::Error(1142));
    EXPECT_EQ(Info(0).View(), "Server: db.example\nVersion: 5.7.44\nDataDir: C:\\data\\\n"
                              "Max. Memory: 100 MB = 0 MB + (100 * 1 MB)\nUptime: 00 hrs 00 min 01 sec\n");
}

TEST_F(ServerReport, ReportsWithoutAnyVariable)
{
    m_client.SetStat("Uptime: 1");
    m_client.SetServerInfo("5.7.44");
    EXPECT_EQ(Info(0).View(), "Server: db.example\nVersion: 5.7.44\nDataDir: C:\\data\\\n"
                              "Max. Memory: 0 MB = 0 MB + (0 * 0 MB)\nUptime: 00 hrs 00 min 01 sec\n");
    EXPECT_EQ(m_database.GetErrorCode(), 0U) << "a variable that the server does not have is no error";
}

TEST_F(ServerReport, ReportsHugeVariables)
{
    m_client.SetStat("Uptime: 1");
    m_client.SetServerInfo("5.7.44");
    ScriptVariable("key_buffer_size", "9223372036854775807");
    ScriptVariable("net_buffer_length", "9223372036854775807");
    ScriptVariable("max_connections", "9223372036854775807");
    EXPECT_EQ(Info(0).View(), "Server: db.example\nVersion: 5.7.44\nDataDir: C:\\data\\\n"
                              "Max. Memory: 0 MB = 0 MB + (9223372036854775807 * 0 MB)\n"
                              "Uptime: 00 hrs 00 min 01 sec\n");
}

TEST_F(ServerReport, GivesAnErrorTextInPlaceOfTheReport)
{
    m_client.FailNext(Call::Stat, 2006, "Server has gone away 12345");
    const UtCString text = Info(0);
    EXPECT_EQ(text.View(), "Server has gone away 12345");
    EXPECT_EQ(text.GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_TRUE(m_client.Statements().empty());
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
}

TEST_F(ServerReport, GivesALineWithoutUptimeAsItIs)
{
    for (const char* line : {"", "uptime: 1000  \n  Threads: 2000", "1234567", "Up time: 1000"}) {
        m_client.SetStat(line);
        EXPECT_EQ(Info(0).View(), line);
    }
    EXPECT_TRUE(m_client.Statements().empty());
}

TEST_F(ServerReport, ReportsWhatStandsWhereverTheWordUptimeIs)
{
    m_client.SetStat("no Uptime today");
    EXPECT_TRUE(std::string(Info(0).View()).ends_with("(0 * 0 MB)\nno Uptime today"));
}

TEST_F(ServerReport, ReportsAServerThatGoesAwayMeanwhile)
{
    m_client.SetStat("Uptime: 1");
    ScriptVariables();
    m_client.SetStatementObserver([this](const std::string&) {
        m_client.FailAlways(Call::Ping, 2006);
        m_client.FailAlways(Call::Connect, 2002);
    });
    EXPECT_EQ(Info(0).View(), "Server: db.example\nVersion: 10.11.19-MariaDB\nDataDir: C:\\data\\\n"
                              "Max. Memory: 8 MB = 8 MB + (0 * 0 MB)\nUptime: 00 hrs 00 min 01 sec\n");
    EXPECT_FALSE(m_database.IsConnected());
}

TEST(ServerReportFailures, OfTheReport)
{
    const size_t points = harness::ForEachFailurePoint(PrepareServer, [](harness::FailureRun& run) {
        CMyDatabase database(Server(), "shop");
        const bool isOpen = database.Open(false, "");
        const std::string report(database.GetInfo(DB_INFO_REPORT).View());
        if (!isOpen) {
            EXPECT_EQ(report, "Not connected");
        } else if (run.Failed(Call::Stat)) {
            EXPECT_EQ(report.find("Uptime"), std::string::npos);
            EXPECT_NE(report, "");
        } else {
            EXPECT_TRUE(report.starts_with("Server: db.example\nVersion: 5.7.44\nDataDir: C:\\data\\\nMax. Memory: "));
            EXPECT_TRUE(report.ends_with(formattedStatus));
        }
        if (!run.Failed()) {
            EXPECT_NE(report.find("308 MB = 8 MB + (100 * 3 MB)"), std::string::npos);
        }
        run.EndOfWork();
        ExpectUsable(database);
    });
    EXPECT_GE(points, 25U) << "a ping, a statement and its result for each of eight variables";
}

} // namespace
