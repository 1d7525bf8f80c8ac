#include "ServerStatusFixture.h"

#include "connection/DatabaseAccess.h"
#include "harness/MessageRecorder.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace admin_test;

using ServerStatus = ServerStatusFixture;

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

TEST_F(ServerStatus, NamesTheUnknownVariableInUtf16)
{
    const UtCString text = m_database.GetStatusValue(UtCString("ab", UT_ENCODING_UTF16_LE));
    EXPECT_EQ(text.GetEncodingType(), UT_ENCODING_UTF16_LE);
    EXPECT_EQ(UtCString(text, UT_ENCODING_DEFAULT).View(), "Variable 'ab' unbekannt!");
    EXPECT_EQ(m_client.Statements().back(), "SHOW STATUS LIKE 'ab'");
}

TEST_F(ServerStatus, TakesANameThatIsNoText)
{
    EXPECT_EQ(m_database.GetStatusValue("\xFF").View(), "Variable '\xFF' unbekannt!");
    const UtCString cut(std::string_view("\xE2\x82", 2), UT_ENCODING_UTF8);
    EXPECT_EQ(m_database.GetStatusValue(cut).View(), "Variable '\xE2\x82' unbekannt!");
    const UtCString odd(std::string_view("a", 1), UT_ENCODING_UTF16_LE);
    EXPECT_EQ(m_database.GetStatusValue(odd).View().size(), 2 * 10 + 1 + 2 * 12U);
    EXPECT_EQ(m_client.Statements().back(), "SHOW STATUS LIKE '?'");
    EXPECT_EQ(m_database.GetStatusValue(nullptr).View(), "Keine Variable angegeben!");
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

} // namespace
