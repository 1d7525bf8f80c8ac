#include "RecordSetFixture.h"

#include "connection/DatabaseAccess.h"
#include "harness/AllocationFailure.h"
#include "harness/MessageRecorder.h"
#include "harness/ServerProcess.h"

#include <cctype>
#include <string>
#include <string_view>

namespace {

class ServerStatus : public server_test::RecordSetFixture
{
protected:
    std::string Global(const char* variable)
    {
        return m_temporary.Sql().Text("SELECT @@GLOBAL." + std::string(variable)).value();
    }
    /// The text with "#" in place of each number, grouped or not.
    static std::string Shape(std::string_view text)
    {
        std::string shape;
        for (const char character : text) {
            const bool isDigit = std::isdigit(static_cast<unsigned char>(character)) != 0;
            const bool isInNumber = isDigit || character == '.' || character == '\'';
            if (isInNumber && shape.ends_with('#'))
                continue;
            shape += isDigit ? '#' : character;
        }
        return shape;
    }
    std::string Report() { return Bytes(m_database.GetInfo(DB_INFO_REPORT)); }
};

TEST_F(ServerStatus, ReadsStatusVariablesInAnyLetterCase)
{
    long long uptime = 0;
    EXPECT_TRUE(m_database.GetStatusValue("Uptime").Convert(uptime));
    EXPECT_GE(uptime, 0);
    EXPECT_EQ(Bytes(m_database.GetStatusValue("compression")), "OFF");
    EXPECT_EQ(Bytes(m_database.GetStatusValue("COMPRESSION")), "OFF");
}

TEST_F(ServerStatus, ReadsSystemVariables)
{
    EXPECT_EQ(Bytes(m_database.GetVariableValue("version")), Global("version"));
    EXPECT_EQ(std::to_string(m_database.GetVariableValueInt64("max_connections")), Global("max_connections"));
    EXPECT_EQ(m_database.GetVariableValueInt64("version"), 0);
}

TEST_F(ServerStatus, ReadsTheSessionsValueOfASystemVariable)
{
    m_database.ExecuteQuery("SET SESSION sort_buffer_size = 262144", false, nullptr, false);
    EXPECT_EQ(m_database.GetVariableValueInt64("sort_buffer_size"), 262144);
}

TEST_F(ServerStatus, KnowsNoUnknownVariable)
{
    EXPECT_EQ(Bytes(m_database.GetStatusValue("No_such")), "Variable 'No_such' unbekannt!");
    EXPECT_EQ(Bytes(m_database.GetVariableValue("No_such")), "");
    EXPECT_EQ(m_database.GetVariableValueInt64("No_such"), 0);
    EXPECT_EQ(m_database.GetErrorCode(), 0U) << "an empty result is no error";
}

TEST_F(ServerStatus, GivesAnEmptyValueAsItIs)
{
    EXPECT_EQ(Bytes(m_database.GetStatusValue("Ssl_cipher")), "");
    EXPECT_EQ(Bytes(m_database.GetVariableValue("init_connect")), "");
}

// Which of them this server has is why the estimate of the report comes out too small.
TEST_F(ServerStatus, FindsTheVariablesOfTheEstimateThatThisServerHas)
{
    for (const char* name : {"key_buffer_size", "net_buffer_length", "myisam_sort_buffer_size", "join_buffer_size",
                             "sort_buffer_size", "read_buffer_size", "read_rnd_buffer_size", "max_connections"})
        EXPECT_EQ(std::to_string(m_database.GetVariableValueInt64(name)), Global(name)) << name;
    for (const char* name : {"record_buffer", "record_rnd_buffer"})
        EXPECT_EQ(Bytes(m_database.GetVariableValue(name)), "") << name;
}

TEST_F(ServerStatus, TakesUnderscoreAndPercentForWildcards)
{
    EXPECT_EQ(Bytes(m_database.GetVariableValue("max_connection_")), Global("max_connections"));
    EXPECT_EQ(Bytes(m_database.GetVariableValue("%")), Bytes(m_database.GetVariableValue("allow_suspicious_udfs")))
        << "the first in the server's order";
    EXPECT_EQ(Bytes(m_database.GetVariableValue("max\\_connection_")), Global("max_connections"))
        << "a backslash escapes";
}

TEST_F(ServerStatus, SurvivesNamesThatBreakTheStatement)
{
    const harness::MessageRecorder messages;
    MakeOrders(1);
    for (const char* name : {"'", "o'x", "\\", "x'; DROP TABLE orders; -- ", "\xE4", "`"}) {
        EXPECT_EQ(Bytes(m_database.GetStatusValue(name)), "Variable '" + std::string(name) + "' unbekannt!");
        EXPECT_EQ(Bytes(m_database.GetVariableValue(name)), "");
    }
    EXPECT_TRUE(m_database.ExistTable("orders"));
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(ServerStatus, RunsWhatAnApostropheLetsIn)
{
    EXPECT_EQ(Bytes(m_database.GetVariableValue("' WHERE Variable_name = 'version")), "")
        << "LIKE and WHERE do not go together";
    EXPECT_EQ(m_database.GetErrorCode(), 1064U);
}

TEST_F(ServerStatus, EndsTheStatementAtAZeroByte)
{
    const UtCString name(std::string_view("version\0x", 9), UT_ENCODING_DEFAULT);
    EXPECT_EQ(Bytes(m_database.GetVariableValue(name)), "");
    EXPECT_EQ(m_database.GetErrorCode(), 1064U);
}

TEST_F(ServerStatus, TakesALongName)
{
    const std::string name(100000, 'n');
    EXPECT_EQ(Bytes(m_database.GetStatusValue(name.c_str())), "Variable '" + name + "' unbekannt!");
}

TEST_F(ServerStatus, SendsTheStatementsThatItDocuments)
{
    const harness::GeneralLog log;
    m_database.GetStatusValue("Uptime");
    m_database.GetVariableValue("ver%");
    m_database.GetVariableValueInt64("o'x");
    m_database.GetStatusValue("");
    EXPECT_EQ(log.Statements(m_database.GetThreadID()),
              (std::vector<std::string>{"SHOW STATUS LIKE 'Uptime'", "SHOW VARIABLES LIKE 'ver%'",
                                        "SHOW VARIABLES LIKE 'o'x'"}));
}

TEST_F(ServerStatus, SendsNothingReadableInUtf16)
{
    m_database.GetServer().SetCharset("utf16le");
    EXPECT_EQ(Bytes(m_database.GetStatusValue("Uptime")), "Variable 'Uptime' unbekannt!");
}

TEST_F(ServerStatus, OpensAClosedConnectionForAVariableOnly)
{
    m_database.Close();
    EXPECT_EQ(Bytes(m_database.GetInfo(DB_INFO_SERVER_VERSION)), "Not connected");
    EXPECT_EQ(Bytes(m_database.GetVariableValue("version")), Global("version"));
    EXPECT_EQ(Bytes(m_database.GetInfo(DB_INFO_SERVER_VERSION)), Global("version"));
}

TEST_F(ServerStatus, TellsTheVersionsAndTheHost)
{
    EXPECT_EQ(Bytes(m_database.GetInfo(DB_INFO_SERVER_VERSION)), Global("version"));
    EXPECT_EQ(Bytes(m_database.GetInfo(DB_INFO_VERSION)), Global("version"));
    EXPECT_EQ(Bytes(m_database.GetInfo(DB_INFO_CLIENT_VERSION)), mysql_get_client_info());
    EXPECT_EQ(Bytes(m_database.GetInfo(DB_INFO_HOST)),
              harness::PrivateServer::Get().Tester().host + " via TCP/IP, NOT compressed");
}

// The client compresses where the handle asks for it, and a reconnect keeps the options of the handle.
TEST_F(ServerStatus, TellsThatTheTrafficIsCompressed)
{
    MYSQL* const handle = connection::DatabaseAccess::Handle(m_database);
    mysql_options(handle, MYSQL_OPT_COMPRESS, nullptr);
    harness::KillConnection(m_database.GetThreadID());
    ASSERT_TRUE(m_database.Ping());
    ASSERT_EQ(Bytes(m_database.GetStatusValue("Compression")), "ON");
    EXPECT_TRUE(m_database.GetInfo(DB_INFO_HOST).EndsWith(" via TCP/IP, compressed", true));
}

TEST_F(ServerStatus, Reports)
{
    m_database.GetServer().SetDataDir("C:\\data");
    const std::string report = Report();
    const std::string facts = report.substr(report.find("\nDataDir"));
    const std::string shape = Shape(facts);
    EXPECT_TRUE(shape.starts_with("\nDataDir: C:\\data\\\nMax. Memory: # MB = # MB + (# * # MB)\nUptime: #")) << facts;
    EXPECT_TRUE(shape.ends_with("# hrs # min # sec\nThreads: #  Questions: #  Slow queries: #  Opens: #  "
                                "Open tables: #  Queries per second avg: #"))
        << facts;
    EXPECT_TRUE(report.starts_with("Server: " + harness::PrivateServer::Get().Tester().host +
                                   "\nVersion: " + Global("version") + "\n"));
}

TEST_F(ServerStatus, AsksForTheVariablesOfAnOldServer)
{
    const harness::GeneralLog log;
    Report();
    EXPECT_EQ(
        log.Statements(m_database.GetThreadID()),
        (std::vector<std::string>{"SHOW VARIABLES LIKE 'key_buffer_size'", "SHOW VARIABLES LIKE 'net_buffer_length'",
                                  "SHOW VARIABLES LIKE 'myisam_sort_buffer_size'",
                                  "SHOW VARIABLES LIKE 'record_buffer'", "SHOW VARIABLES LIKE 'join_buffer_size'",
                                  "SHOW VARIABLES LIKE 'record_rnd_buffer'", "SHOW VARIABLES LIKE 'max_connections'"}));
}

TEST_F(ServerStatus, EstimatesTheMemoryFromTheBuffersThatAnOldServerWouldHave)
{
    for (const char* setting :
         {"SET SESSION myisam_sort_buffer_size = 3145728", "SET SESSION join_buffer_size = 2097152"})
        ASSERT_EQ(m_database.ExecuteQuery(setting, false, nullptr, false), 0);
    const long long globalBytes =
        m_database.GetVariableValueInt64("key_buffer_size") + m_database.GetVariableValueInt64("net_buffer_length");
    const long long connections = m_database.GetVariableValueInt64("max_connections");
    const std::string line = "\nMax. Memory: " + std::to_string((connections * 5242880 + globalBytes) / 1048576) +
                             " MB = " + std::to_string(globalBytes / 1048576) + " MB + (" +
                             std::to_string(connections) + " * 5 MB)\n";
    const std::string report = Report();
    EXPECT_NE(report.find(line), std::string::npos) << report << line;
}

TEST_F(ServerStatus, ReportsOverANewSessionWhenTheConnectionWasKilled)
{
    harness::KillConnection(m_database.GetThreadID());
    EXPECT_TRUE(Report().starts_with("Server: "));
    EXPECT_TRUE(m_database.IsOpen());
}

TEST_F(ServerStatus, GivesTheErrorWhileAStreamIsRead)
{
    MYSQL_RES* stream = nullptr;
    ASSERT_EQ(m_database.ExecuteQuery("SELECT 1 UNION SELECT 2", false, &stream, true), 1);
    EXPECT_EQ(Report().find("Uptime"), std::string::npos);
    EXPECT_NE(Report(), "");
    mysql_free_result(stream);
    EXPECT_TRUE(Report().starts_with("Server: "));
}

TEST(ServerStatusOfADeadServer, GivesTheErrorInPlaceOfTheReport)
{
    harness::ServerProcess process;
    CMyServer server;
    server.SetHost(process.Tester().host.c_str());
    server.SetPort(process.Tester().port);
    server.SetUser(process.Tester().user.c_str());
    server.SetPassword(process.Tester().password.c_str());
    CMyDatabase database(server, "");
    ASSERT_TRUE(database.Open(false, ""));
    process.Stop();
    const std::string text(database.GetInfo(DB_INFO_REPORT).View());
    EXPECT_NE(text, "");
    EXPECT_EQ(text.find("Max. Memory"), std::string::npos) << text;
    EXPECT_EQ(database.GetStatusValue("Uptime").View(), "Variable 'Uptime' unbekannt!");
    EXPECT_EQ(database.GetVariableValue("version").View(), "");
}

class ServerStatusMemory : public ServerStatus, public testing::WithParamInterface<bool>
{
protected:
    template <class Work> long ForEachAllocation(Work work) { return harness::ForEachAllocation(GetParam(), work); }
};

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, ServerStatusMemory, testing::Bool());

TEST_P(ServerStatusMemory, AValueIsWholeUnknownOrEmpty)
{
    const UtCString name("a_status_variable_with_a_name_that_is_long");
    const UtCString unknown("Variable 'a_status_variable_with_a_name_that_is_long' unbekannt!");
    const UtCString version(Global("version").c_str());
    bool isConsistent = true;
    const harness::GeneralLog log;
    const long failures = ForEachAllocation([&] {
        const UtCString status = m_database.GetStatusValue(name);
        const UtCString value = m_database.GetVariableValue("version");
        const long long number = m_database.GetVariableValueInt64("port");
        isConsistent = isConsistent && (status.IsEmpty() || status == unknown) && (value.IsEmpty() || value == version);
        isConsistent = isConsistent && number >= 0;
    });
    EXPECT_GT(failures, 3);
    EXPECT_TRUE(isConsistent);
    for (const std::string& statement : log.Statements(m_database.GetThreadID()))
        EXPECT_TRUE(statement == "SHOW STATUS LIKE 'a_status_variable_with_a_name_that_is_long'" ||
                    statement == "SHOW VARIABLES LIKE 'version'" || statement == "SHOW VARIABLES LIKE 'port'")
            << statement;
}

TEST_P(ServerStatusMemory, AReportIsWholeOrEmpty)
{
    const UtCString start(("Server: " + std::string(m_database.GetServer().GetHost().View()) +
                           "\nVersion: " + Global("version") + "\nDataDir: \nMax. Memory: ")
                              .c_str());
    bool isConsistent = true;
    const long failures = ForEachAllocation([&] {
        const UtCString report = m_database.GetInfo(DB_INFO_REPORT);
        isConsistent =
            isConsistent &&
            (report.IsEmpty() || (report.StartsWith(start, true) && report.Contains("Queries per second avg: ")));
        const UtCString host = m_database.GetInfo(DB_INFO_HOST);
        isConsistent = isConsistent && (host.IsEmpty() || host.EndsWith(" compressed", true));
    });
    EXPECT_GT(failures, 10);
    EXPECT_TRUE(isConsistent);
}

} // namespace
