#include "CMyDatabase.h"

#include "connection/DatabaseAccess.h"
#include "fake_client/FakeClientFixture.h"
#include "harness/FailurePoints.h"
#include "harness/MessageRecorder.h"

#include <stdexcept>

namespace {

using fake::Call;
using fake::Reply;

constexpr char statusLine[] =
    "Uptime: 90061  Threads: 2  Questions: 1234567  Slow queries: 0  Opens: 27  Flush tables: "
    "1  Open tables: 17  Queries per second avg: 0.934";
constexpr char formattedStatus[] =
    "Uptime: 1 day 01 hrs 01 min 01 sec\nThreads: 2  Questions: 1'234'567  Slow queries: 0  Opens: 27  Flush tables: "
    "1  Open tables: 17  Queries per second avg: 0.934";

CMyServer Server(const char* charset = "")
{
    CMyServer server;
    server.SetHost("db.example");
    server.SetPort(3306);
    server.SetUser("tester");
    server.SetDataDir("C:\\data\\");
    server.SetCharset(charset);
    return server;
}

Reply Variable(const char* name, const char* value)
{
    return Reply::Rows({"Variable_name", "Value"}, {{name, value}});
}

Reply NoVariable()
{
    return Reply::Rows({"Variable_name", "Value"}, {});
}

void ScriptVariable(const std::string& name, const char* value)
{
    fake::Client::Get().On("SHOW VARIABLES LIKE '" + name + "'", Variable(name.c_str(), value));
}

/// The buffers of a connection add up to 3145728 bytes for either generation.
void ScriptVariables()
{
    ScriptVariable("key_buffer_size", "8388608");
    ScriptVariable("net_buffer_length", "16384");
    ScriptVariable("myisam_sort_buffer_size", "1048576");
    ScriptVariable("join_buffer_size", "524288");
    ScriptVariable("record_buffer", "1048576");
    ScriptVariable("record_rnd_buffer", "524288");
    ScriptVariable("sort_buffer_size", "1048576");
    ScriptVariable("read_buffer_size", "262144");
    ScriptVariable("read_rnd_buffer_size", "262144");
    ScriptVariable("max_connections", "100");
}

class ServerStatus : public fake::ClientFixture
{
protected:
    ServerStatus()
    {
        m_client.OnPrefix("SHOW STATUS", NoVariable());
        m_client.OnPrefix("SHOW VARIABLES", NoVariable());
        EXPECT_TRUE(m_database.Open(false, ""));
        m_client.ForgetCalls();
    }
    void TearDown() override
    {
        m_database.Close();
        fake::ClientFixture::TearDown();
    }

    UtCString Info(unsigned int what) { return m_database.GetInfo(static_cast<DB_INFOS>(what)); }

    CMyDatabase m_database{Server(), "shop"};
};

// Variables

TEST_F(ServerStatus, ReadsAStatusVariable)
{
    m_client.On("SHOW STATUS LIKE 'Threads_connected'", Variable("Threads_connected", "17"));
    EXPECT_EQ(m_database.GetStatusValue("Threads_connected"), "17");
}

TEST_F(ServerStatus, ReadsASystemVariable)
{
    m_client.On("SHOW VARIABLES LIKE 'version'", Variable("version", "5.7.44"));
    EXPECT_EQ(m_database.GetVariableValue("version"), "5.7.44");
}

TEST_F(ServerStatus, SendsOneStatementPerVariable)
{
    m_database.GetStatusValue("Uptime");
    m_database.GetVariableValue("version");
    m_database.GetVariableValueInt64("max_connections");
    EXPECT_EQ(m_client.Statements(),
              (std::vector<std::string>{"SHOW STATUS LIKE 'Uptime'", "SHOW VARIABLES LIKE 'version'",
                                        "SHOW VARIABLES LIKE 'max_connections'"}));
}

TEST_F(ServerStatus, SendsNothingForAnEmptyName)
{
    EXPECT_EQ(m_database.GetStatusValue("").View(), "Keine Variable angegeben!");
    EXPECT_EQ(m_database.GetVariableValue("").View(), "Keine Variable angegeben!");
    EXPECT_EQ(m_database.GetVariableValueInt64(""), 0);
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(ServerStatus, NeedsNoConnectionToRefuseAnEmptyName)
{
    m_database.Close();
    EXPECT_EQ(m_database.GetStatusValue(""), "Keine Variable angegeben!");
    EXPECT_FALSE(m_database.IsConnected());
}

TEST_F(ServerStatus, Kept_K121_TellsAnUnknownStatusVariableButNotAnUnknownSystemVariable)
{
    EXPECT_EQ(m_database.GetStatusValue("No_such").View(), "Variable 'No_such' unbekannt!");
    EXPECT_EQ(m_database.GetVariableValue("No_such").View(), "");
    EXPECT_EQ(m_database.GetVariableValueInt64("No_such"), 0);
}

TEST_F(ServerStatus, NamesTheUnknownVariableInTheEncodingOfTheName)
{
    const UtCString name("\xE2\x82\xAC\xD0\x96", UT_ENCODING_UTF8);
    const UtCString text = m_database.GetStatusValue(name);
    EXPECT_EQ(text.GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(text.View(), "Variable '\xE2\x82\xAC\xD0\x96' unbekannt!");
    EXPECT_EQ(m_database
                  .GetStatusValue("gr\xF6\xDF"
                                  "e")
                  .View(),
              "Variable 'gr\xF6\xDF"
              "e' unbekannt!");
}

TEST_F(ServerStatus, Kept_K120_TakesTheFirstOfSeveralMatches)
{
    m_client.On("SHOW STATUS LIKE 'Threads_%'",
                Reply::Rows({"Variable_name", "Value"}, {{"Threads_cached", "3"}, {"Threads_connected", "17"}}));
    EXPECT_EQ(m_database.GetStatusValue("Threads_%"), "3");
}

TEST_F(ServerStatus, FindsTheColumnByItsName)
{
    m_client.On("SHOW STATUS LIKE 'a'", Reply::Rows({"Value", "Variable_name"}, {{"1", "a"}}));
    EXPECT_EQ(m_database.GetStatusValue("a"), "1");
}

TEST_F(ServerStatus, IsEmptyWithoutTheColumn)
{
    m_client.On("SHOW STATUS LIKE 'a'", Reply::Rows({"Variable_name", "VALUE"}, {{"a", "1"}}));
    EXPECT_EQ(m_database.GetStatusValue("a").View(), "");
    m_client.On("SHOW VARIABLES LIKE 'a'", Reply::Rows({"Variable_name"}, {{"a"}}));
    EXPECT_EQ(m_database.GetVariableValue("a").View(), "");
}

TEST_F(ServerStatus, IsEmptyForAnEmptyValueAndForNull)
{
    m_client.On("SHOW STATUS LIKE 'a'", Variable("a", ""));
    m_client.On("SHOW STATUS LIKE 'b'", Reply::Rows({"Variable_name", "Value"}, {{"b", std::nullopt}}));
    EXPECT_EQ(m_database.GetStatusValue("a").View(), "");
    EXPECT_EQ(m_database.GetStatusValue("b").View(), "");
}

TEST_F(ServerStatus, AFailedStatementReadsLikeAnUnknownVariable)
{
    const harness::MessageRecorder messages;
    m_client.On("SHOW STATUS LIKE 'o'x'", Reply::Error(1064));
    m_client.On("SHOW VARIABLES LIKE 'o'x'", Reply::Error(1064));
    EXPECT_EQ(m_database.GetStatusValue("o'x").View(), "Variable 'o'x' unbekannt!");
    EXPECT_EQ(m_database.GetErrorCode(), 1064U);
    EXPECT_EQ(m_database.GetVariableValue("o'x").View(), "");
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(ServerStatus, AStatementWithoutRowsReadsLikeAnUnknownVariable)
{
    m_client.On("SHOW STATUS LIKE 'a'", Reply::Ok(1));
    EXPECT_EQ(m_database.GetStatusValue("a").View(), "Variable 'a' unbekannt!");
}

TEST_F(ServerStatus, OpensAClosedConnection)
{
    m_database.Close();
    m_client.On("SHOW STATUS LIKE 'Uptime'", Variable("Uptime", "5"));
    EXPECT_EQ(m_database.GetStatusValue("Uptime"), "5");
    EXPECT_TRUE(m_database.IsOpen());
}

TEST_F(ServerStatus, WorksOnAConnectionWithoutDatabase)
{
    CMyDatabase connected(Server(), "");
    m_client.On("SHOW VARIABLES LIKE 'version'", Variable("version", "5.7.44"));
    EXPECT_EQ(connected.GetVariableValue("version"), "5.7.44");
    EXPECT_EQ(connected.GetVariableValue("version"), "5.7.44");
}

TEST_F(ServerStatus, KnowsNoVariableWithoutAServer)
{
    m_database.Close();
    m_client.FailAlways(Call::Connect, 2002);
    EXPECT_EQ(m_database.GetStatusValue("Uptime").View(), "Variable 'Uptime' unbekannt!");
    EXPECT_EQ(m_database.GetVariableValue("version").View(), "");
    EXPECT_EQ(m_database.GetErrorCode(), 2002U);
}

TEST_F(ServerStatus, SendsTheStatementInTheEncodingOfTheSettings)
{
    m_database.GetServer().SetCharset("utf8");
    m_database.GetVariableValue("gr\xF6\xDF"
                                "e");
    EXPECT_EQ(m_client.Statements().back(), "SHOW VARIABLES LIKE 'gr\xC3\xB6\xC3\x9F"
                                            "e'");
}

TEST_F(ServerStatus, GivesTheValueInTheEncodingOfTheSettings)
{
    m_client.On("SHOW VARIABLES LIKE 'a'", Variable("a", "C:\\B\xC3\xBCro"));
    EXPECT_EQ(m_database.GetVariableValue("a").View(), "C:\\B\xFCro");
    m_database.GetServer().SetCharset("utf8");
    const UtCString value = m_database.GetVariableValue("a");
    EXPECT_EQ(value.GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(value.View(), "C:\\B\xC3\xBCro");
}

TEST_F(ServerStatus, TakesTheLastCommandForAName)
{
    m_database.GetVariableValue("a");
    EXPECT_EQ(m_database.GetStatusValue(m_database.GetLastSQLCommand()).View(),
              "Variable 'SHOW VARIABLES LIKE 'a'' unbekannt!");
}

TEST_F(ServerStatus, EndsTheStatementAtAZeroByte)
{
    m_client.On("SHOW STATUS LIKE 'a", Reply::Error(1064));
    const UtCString name(std::string_view("a\0b", 3), UT_ENCODING_DEFAULT);
    EXPECT_EQ(m_database.GetStatusValue(name).View(), std::string_view("Variable 'a\0b' unbekannt!", 25));
    EXPECT_EQ(m_client.Statements().back(), "SHOW STATUS LIKE 'a");
}

TEST_F(ServerStatus, TakesALongName)
{
    const std::string name(1000000, 'n');
    EXPECT_EQ(m_database.GetStatusValue(name.c_str()).View(), "Variable '" + name + "' unbekannt!");
    EXPECT_EQ(m_client.Statements().back(), "SHOW STATUS LIKE '" + name + "'");
}

TEST_F(ServerStatus, SendsNothingMeaningfulInUtf16)
{
    m_database.GetServer().SetCharset("utf16le");
    m_client.On("S", Reply::Error(1064));
    EXPECT_EQ(m_database.GetStatusValue("Uptime").View(), "Variable 'Uptime' unbekannt!");
    EXPECT_EQ(m_database.GetVariableValueInt64("max_connections"), 0);
}

struct NumberRow
{
    const char* value;
    long long number;
};

TEST_F(ServerStatus, ReadsANumber)
{
    const std::vector<NumberRow> rows = {
        {"100", 100},
        {"0", 0},
        {"-1", -1},
        {" 7 ", 7},
        {"2147483648", 2147483648},
        {"9223372036854775807", 9223372036854775807},
        {"5.7.44", 0},
        {"0.5", 0},
        {"ON", 0},
        {"", 0},
        {"0x10", 0},
    };
    for (const NumberRow& row : rows) {
        ScriptVariable("a", row.value);
        EXPECT_EQ(m_database.GetVariableValueInt64("a"), row.number) << row.value;
    }
}

TEST_F(ServerStatus, Kept_K124_CountsANumberBeyondTheRangeAsZero)
{
    ScriptVariable("a", "9223372036854775808");
    EXPECT_EQ(m_database.GetVariableValueInt64("a"), 0);
    ScriptVariable("a", "18446744073709551615");
    EXPECT_EQ(m_database.GetVariableValueInt64("a"), 0);
}

// Information

TEST_F(ServerStatus, IsNotConnectedWithoutAHandle)
{
    m_database.Close();
    m_client.ForgetCalls();
    for (const unsigned int what : {0U, 1U, 2U, 3U, 4U, 5U, 4294967295U})
        EXPECT_EQ(Info(what).View(), "Not connected") << what;
    EXPECT_TRUE(m_client.Calls().empty());
    EXPECT_FALSE(m_database.IsConnected());
}

TEST_F(ServerStatus, TellsTheVersions)
{
    m_client.SetServerInfo("5.7.44-log");
    m_client.SetClientInfo("3.3.20");
    EXPECT_EQ(Info(1).View(), "5.7.44-log");
    EXPECT_EQ(Info(2).View(), "3.3.20");
    EXPECT_EQ(Info(4).View(), "5.7.44-log");
    EXPECT_TRUE(m_client.Statements().empty());
}

TEST_F(ServerStatus, TellsTheHostAndThatNothingIsCompressed)
{
    m_client.SetHostInfo("localhost via TCP/IP");
    EXPECT_EQ(Info(3).View(), "localhost via TCP/IP, NOT compressed");
}

TEST_F(ServerStatus, TellsThatTheTrafficIsCompressed)
{
    m_client.SetHostInfo("localhost via TCP/IP");
    connection::DatabaseAccess::Handle(m_database)->net.compress = 1;
    EXPECT_EQ(Info(3).View(), "localhost via TCP/IP, compressed");
}

TEST_F(ServerStatus, IsEmptyForAnyOtherNumber)
{
    for (const unsigned int what : {5U, 100U, 2147483648U, 4294967295U})
        EXPECT_EQ(Info(what).View(), "") << what;
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(ServerStatus, TellsWhatItKnowsOfALostConnection)
{
    m_client.LoseConnection();
    EXPECT_EQ(Info(1).View(), "10.11.19-MariaDB");
    EXPECT_EQ(Info(3).View(), "127.0.0.1 via TCP/IP, NOT compressed");
}

// The report

TEST_F(ServerStatus, ReportsTheServer)
{
    m_client.SetStat(statusLine);
    m_client.SetServerInfo("5.7.44");
    ScriptVariables();
    EXPECT_EQ(Info(0).View(), std::string("Server: db.example\nVersion: 5.7.44\nDataDir: C:\\data\\\n"
                                          "Max. Memory: 308 MB = 8 MB + (100 * 3 MB)\n") +
                                  formattedStatus);
}

TEST_F(ServerStatus, AsksForTheVariablesOfANewerServer)
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

TEST_F(ServerStatus, AsksForTheVariablesOfAnOlderServer)
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

TEST_F(ServerStatus, CountsMissingAndUnreadableVariablesAsZero)
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

TEST_F(ServerStatus, ReportsWithoutAnyVariable)
{
    m_client.SetStat("Uptime: 1");
    m_client.SetServerInfo("5.7.44");
    EXPECT_EQ(Info(0).View(), "Server: db.example\nVersion: 5.7.44\nDataDir: C:\\data\\\n"
                              "Max. Memory: 0 MB = 0 MB + (0 * 0 MB)\nUptime: 00 hrs 00 min 01 sec\n");
}

TEST_F(ServerStatus, ReportsHugeVariables)
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

TEST_F(ServerStatus, GivesAnErrorTextInPlaceOfTheReport)
{
    m_client.FailNext(Call::Stat, 2006, "Server has gone away 12345");
    const UtCString text = Info(0);
    EXPECT_EQ(text.View(), "Server has gone away 12345");
    EXPECT_EQ(text.GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_TRUE(m_client.Statements().empty());
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
}

TEST_F(ServerStatus, GivesALineWithoutUptimeAsItIs)
{
    for (const char* line : {"", "uptime: 1000  \n  Threads: 2000", "1234567", "Up time: 1000"}) {
        m_client.SetStat(line);
        EXPECT_EQ(Info(0).View(), line);
    }
    EXPECT_TRUE(m_client.Statements().empty());
}

TEST_F(ServerStatus, ReportsWhatStandsWhereverTheWordUptimeIs)
{
    m_client.SetStat("no Uptime today");
    EXPECT_TRUE(std::string(Info(0).View()).ends_with("(0 * 0 MB)\nno Uptime today"));
}

TEST_F(ServerStatus, ReportsAServerThatGoesAwayMeanwhile)
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

class ThrowingDatabase : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Open(bool, const UtCString&) override { throw std::runtime_error("host"); }
};

TEST_F(ServerStatus, LetsNoExceptionOfADerivedClassOut)
{
    ThrowingDatabase database(Server(), "shop");
    EXPECT_EQ(database.GetStatusValue("Uptime").View(), "Variable 'Uptime' unbekannt!");
    EXPECT_EQ(database.GetVariableValue("version").View(), "");
    EXPECT_EQ(database.GetVariableValueInt64("version"), 0);
    EXPECT_EQ(database.GetInfo(DB_INFO_REPORT).View(), "Not connected");
}

// Failures

void PrepareServer()
{
    fake::Client& client = fake::Client::Get();
    client.SetStat(statusLine);
    client.SetServerInfo("5.7.44");
    ScriptVariables();
    client.On("SHOW STATUS LIKE 'Uptime'", Variable("Uptime", "90061"));
}

void ExpectUsable(CMyDatabase& database)
{
    EXPECT_EQ(database.GetStatusValue("Uptime"), "90061");
    EXPECT_EQ(database.GetVariableValueInt64("max_connections"), 100);
    EXPECT_EQ(database.GetInfo(DB_INFO_SERVER_VERSION), "5.7.44");
}

TEST(ServerStatusFailures, OfAVariable)
{
    const size_t points = harness::ForEachFailurePoint(PrepareServer, [](harness::FailureRun& run) {
        CMyDatabase database(Server(), "shop");
        const UtCString status = database.GetStatusValue("Uptime");
        const long long number = database.GetVariableValueInt64("max_connections");
        EXPECT_TRUE(status == "90061" || status == "Variable 'Uptime' unbekannt!") << status.string();
        EXPECT_TRUE(number == 100 || number == 0) << number;
        if (!run.Failed()) {
            EXPECT_EQ(status, "90061");
            EXPECT_EQ(number, 100);
        }
        if (run.Failed(Call::Query, "SHOW VARIABLES") && !run.IsLostConnection()) {
            EXPECT_EQ(number, 0);
            EXPECT_EQ(database.GetErrorCode(), run.ErrorNumber());
        }
        run.EndOfWork();
        ExpectUsable(database);
    });
    EXPECT_GE(points, 8U);
}

TEST(ServerStatusFailures, OfTheReport)
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
