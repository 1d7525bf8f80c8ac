#include "harness/GeneralLog.h"
#include "harness/PrivateServer.h"
#include "harness/ServerProcess.h"
#include "harness/System.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <memory>

namespace {

using harness::GeneralLog;
using harness::LoggedCommand;
using harness::PrivateServer;
using harness::RawConnection;
using harness::ServerProcess;
using harness::SqlError;
using harness::TemporaryDatabase;

bool ExistsDatabase(const std::string& name)
{
    RawConnection connection(PrivateServer::Get().Administrator());
    return connection.Text("SELECT COUNT(*) FROM information_schema.SCHEMATA WHERE SCHEMA_NAME = '" + name + "'") ==
           "1";
}

TEST(ParseGeneralLog, ReadsEntriesWithAndWithoutATime)
{
    EXPECT_EQ(harness::ParseGeneralLog("240131  9:05:07\t     3 Connect\troot@localhost on x using TCP/IP\n"
                                       "\t\t     3 Query\tSELECT 1\n"
                                       "240131 19:05:07\t123456 Field List\tt \n"),
              (std::vector<LoggedCommand>{{3, "Connect", "root@localhost on x using TCP/IP"},
                                          {3, "Query", "SELECT 1"},
                                          {123456, "Field List", "t "}}));
}

TEST(ParseGeneralLog, JoinsTheLinesOfAStatement)
{
    EXPECT_EQ(harness::ParseGeneralLog("\t\t     3 Query\tSELECT\n\t1,\n\n2\n\t\t     3 Quit\t\n"),
              (std::vector<LoggedCommand>{{3, "Query", "SELECT\n\t1,\n\n2"}, {3, "Quit", ""}}));
}

TEST(ParseGeneralLog, LeavesOutTheHeadingOfEachStart)
{
    EXPECT_EQ(harness::ParseGeneralLog("\t\t     3 Query\tSHUTDOWN\n"
                                       "/usr/sbin/mariadbd, Version: 10.11.19-MariaDB (Debian 12). started with:\n"
                                       "Tcp port: 33991  Unix socket: /tmp/s.sock\n"
                                       "Time\t\t    Id Command\tArgument\n"
                                       "\t\t     1 Query\tSELECT 1\n"),
              (std::vector<LoggedCommand>{{3, "Query", "SHUTDOWN"}, {1, "Query", "SELECT 1"}}));
}

TEST(FindProgram, NamesTheProgramThatIsMissing)
{
    try {
        harness::FindProgram("no-such-program");
        FAIL() << "found";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("no-such-program was not found"), std::string::npos);
    }
}

TEST(TemporaryFolder, IsRemovedWithTheObject)
{
    std::filesystem::path path;
    {
        const harness::TemporaryFolder folder;
        path = folder.Path();
        std::ofstream(path / "file") << "x";
        EXPECT_TRUE(std::filesystem::exists(path / "file"));
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(TemporaryFolder, IsRemovedBeforeOneThatWasMadeLater)
{
    auto first = std::make_unique<harness::TemporaryFolder>();
    const harness::TemporaryFolder second;
    const std::filesystem::path path = first->Path();
    first.reset();
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_TRUE(std::filesystem::exists(second.Path()));
}

TEST(PrivateServer, RunsStatements)
{
    RawConnection connection(PrivateServer::Get().Tester());
    EXPECT_EQ(connection.Text("SELECT 1 + 1"), "2");
    EXPECT_EQ(connection.Rows("SELECT 'a', NULL UNION ALL SELECT CHAR(0), ''"),
              (std::vector<RawConnection::Row>{{"a", std::nullopt}, {std::string(1, '\0'), ""}}));
    EXPECT_EQ(connection.Column("SELECT NULL UNION ALL SELECT 'x'"), (std::vector<std::string>{"NULL", "x"}));
}

TEST(RawConnection, ThrowsTheServersError)
{
    RawConnection connection(PrivateServer::Get().Tester());
    try {
        connection.Run("NONSENSE");
        FAIL() << "no error";
    } catch (const SqlError& error) {
        EXPECT_EQ(error.Code(), 1064U);
        EXPECT_TRUE(std::string(error.what()).starts_with("1064: You have an error in your SQL syntax"));
    }
    EXPECT_EQ(connection.ErrorOf("NONSENSE"), 1064U);
    EXPECT_EQ(connection.ErrorOf("DO 1"), 0U);
}

TEST(RawConnection, ThrowsWhenItCannotConnect)
{
    harness::ServerAccess access = PrivateServer::Get().Tester();
    access.password = "wrong";
    EXPECT_THROW(RawConnection connection(access), SqlError);
}

TEST(RawConnection, QuotesText)
{
    RawConnection connection(PrivateServer::Get().Tester());
    EXPECT_EQ(connection.Quoted("O'Neil\\"), "'O\\'Neil\\\\'");
}

TEST(TemporaryDatabase, ExistsAsLongAsTheObject)
{
    std::string name;
    {
        TemporaryDatabase database;
        name = database.Name();
        EXPECT_TRUE(name.starts_with("mydb_" + std::to_string(harness::ProcessId()) + "_")) << name;
        EXPECT_TRUE(ExistsDatabase(name));
        EXPECT_EQ(database.Sql().Text("SELECT DATABASE()"), name);
        database.Sql().Run("CREATE TABLE t (a VARCHAR(5))");
        database.Sql().Run("INSERT INTO t VALUES ('\xF0\x9F\x98\x80')");
        EXPECT_EQ(database.Sql().Text("SELECT CHAR_LENGTH(a) FROM t"), "1");
    }
    EXPECT_FALSE(ExistsDatabase(name));
}

TEST(TemporaryDatabase, HasANameOfItsOwn)
{
    TemporaryDatabase first;
    TemporaryDatabase second;
    EXPECT_NE(first.Name(), second.Name());
}

TEST(KillConnection, EndsThatConnectionOnly)
{
    RawConnection victim(PrivateServer::Get().Tester());
    RawConnection other(PrivateServer::Get().Tester());
    harness::KillConnection(victim.ThreadId());
    const unsigned int error = victim.ErrorOf("DO 1");
    EXPECT_TRUE(error == 2006 || error == 2013 || error == 1927) << error;
    EXPECT_EQ(other.ErrorOf("DO 1"), 0U);
}

TEST(GeneralLog, GivesTheBytesOfEachStatement)
{
    RawConnection connection(PrivateServer::Get().Tester());
    const std::vector<std::string> statements = {"SELECT 1,\n\t2\r\n,  3", "DO 'a\xFC\xE4 \xF0\x9F\x98\x80'",
                                                 std::string("DO 'x\0y'", 9), "SELECT '%s' -- \\"};
    GeneralLog log;
    for (const std::string& statement : statements) {
        connection.Run(statement);
    }
    EXPECT_EQ(log.Statements(connection.ThreadId()), statements);
}

TEST(GeneralLog, GivesWhatCameSinceTheMark)
{
    RawConnection connection(PrivateServer::Get().Tester());
    GeneralLog log;
    connection.Run("DO 1");
    log.Mark();
    EXPECT_EQ(log.Statements(connection.ThreadId()), std::vector<std::string>());
    connection.Run("DO 2");
    EXPECT_EQ(log.Statements(connection.ThreadId()), std::vector<std::string>{"DO 2"});
}

TEST(GeneralLog, TellsConnectionsApart)
{
    RawConnection first(PrivateServer::Get().Tester());
    RawConnection second(PrivateServer::Get().Tester());
    GeneralLog log;
    first.Run("DO 1");
    second.Run("DO 2");
    EXPECT_EQ(log.Statements(first.ThreadId()), std::vector<std::string>{"DO 1"});
    EXPECT_EQ(log.Statements(second.ThreadId()), std::vector<std::string>{"DO 2"});
    const std::vector<std::string> all = log.Statements();
    EXPECT_LT(std::find(all.begin(), all.end(), "DO 1"), std::find(all.begin(), all.end(), "DO 2"));
    EXPECT_NE(std::find(all.begin(), all.end(), "DO 2"), all.end());
}

TEST(GeneralLog, GivesTheOtherCommandsToo)
{
    TemporaryDatabase database;
    database.Sql().Run("CREATE TABLE t (a INT)");
    GeneralLog log;
    unsigned long threadId = 0;
    {
        RawConnection connection(PrivateServer::Get().Tester(), database.Name());
        threadId = connection.ThreadId();
        mysql_free_result(mysql_list_fields(connection.Handle(), "t", nullptr));
    }
    const std::vector<LoggedCommand> commands = log.Commands(threadId);
    ASSERT_GE(commands.size(), 2U);
    EXPECT_EQ(commands[0].name, "Connect");
    EXPECT_TRUE(commands[0].text.starts_with(PrivateServer::Get().Tester().user + "@")) << commands[0].text;
    EXPECT_EQ(commands[1], (LoggedCommand{threadId, "Field List", "t "}));
}

TEST(GeneralLog, RefusesAFileThatIsNotThere)
{
    EXPECT_THROW(GeneralLog("/nowhere/general.log"), std::runtime_error);
}

/// One server for all tests that stop it or look at how it is set up (the shared one may be somebody else's).
class OwnServer : public testing::Test
{
protected:
    static void SetUpTestSuite() { s_server = new ServerProcess({"--max-connections=17"}); }
    static void TearDownTestSuite() { delete s_server; }
    void SetUp() override { s_server->Start(); }

    static ServerProcess* s_server;
};

ServerProcess* OwnServer::s_server = nullptr;

TEST_F(OwnServer, HasTheSettingsThatTheTestsRelyOn)
{
    RawConnection connection(s_server->Administrator());
    EXPECT_EQ(connection.Text("SELECT @@lower_case_table_names"), "1");
    EXPECT_EQ(connection.Text("SELECT @@local_infile"), "1");
    EXPECT_EQ(connection.Text("SELECT @@general_log"), "1");
    EXPECT_EQ(connection.Text("SELECT @@max_allowed_packet"), "67108864");
}

TEST_F(OwnServer, LetsTheTesterUseItsOwnDatabasesOnly)
{
    RawConnection tester(s_server->Tester());
    EXPECT_EQ(tester.ErrorOf("CREATE DATABASE other"), 1044U);
    EXPECT_EQ(tester.ErrorOf("CREATE DATABASE mydbx"), 1044U);
    RawConnection stranger(s_server->Administrator());
    EXPECT_EQ(tester.Text("SELECT COUNT(*) FROM information_schema.PROCESSLIST WHERE ID = " +
                          std::to_string(stranger.ThreadId())),
              "0");
}

TEST_F(OwnServer, GivesTheAdministratorEveryPrivilege)
{
    RawConnection connection(s_server->Administrator());
    EXPECT_EQ(connection.Text("SELECT SUBSTRING_INDEX(CURRENT_USER(), '@', 1)"), "vela_root");
    const std::vector<std::string> grants = connection.Column("SHOW GRANTS");
    ASSERT_FALSE(grants.empty());
    EXPECT_TRUE(grants[0].starts_with("GRANT ALL PRIVILEGES ON *.* TO ")) << grants[0];
    EXPECT_TRUE(grants[0].ends_with(" WITH GRANT OPTION")) << grants[0];
}

TEST_F(OwnServer, TakesOptions)
{
    EXPECT_EQ(RawConnection(s_server->Tester()).Text("SELECT @@max_connections"), "17");
}

TEST_F(OwnServer, IsAnotherServerThanTheSharedOne)
{
    EXPECT_NE(s_server->Tester().port, PrivateServer::Get().Tester().port);
}

TEST_F(OwnServer, KeepsItsDataAndItsPlaceOverARestart)
{
    const unsigned int port = s_server->Tester().port;
    TemporaryDatabase database(s_server->Administrator(), s_server->Tester());
    database.Sql().Run("CREATE TABLE t AS SELECT 42 AS a");
    s_server->Restart();
    EXPECT_EQ(s_server->Tester().port, port);
    EXPECT_NE(database.Sql().ErrorOf("DO 1"), 0U);
    EXPECT_EQ(RawConnection(s_server->Tester(), database.Name()).Text("SELECT a FROM t"), "42");
}

TEST_F(OwnServer, RefusesConnectionsWhileItIsStopped)
{
    s_server->Stop();
    EXPECT_THROW(RawConnection connection(s_server->Tester()), SqlError);
    s_server->Start();
    EXPECT_EQ(RawConnection(s_server->Tester()).ErrorOf("DO 1"), 0U);
}

TEST_F(OwnServer, CutsItsConnectionsWhenItIsKilled)
{
    RawConnection connection(s_server->Tester());
    s_server->Kill();
    const unsigned int error = connection.ErrorOf("DO 1");
    EXPECT_TRUE(error == 2006 || error == 2013) << error;
    s_server->Start();
    EXPECT_EQ(RawConnection(s_server->Tester()).ErrorOf("DO 1"), 0U);
}

TEST_F(OwnServer, KillsAConnectionOfThatServer)
{
    RawConnection victim(s_server->Tester());
    harness::KillConnection(s_server->Administrator(), victim.ThreadId());
    EXPECT_NE(victim.ErrorOf("DO 1"), 0U);
}

TEST_F(OwnServer, HasALogOfItsOwn)
{
    GeneralLog log(s_server->GeneralLogFile());
    RawConnection connection(s_server->Tester());
    connection.Run("DO 5");
    EXPECT_EQ(log.Statements(connection.ThreadId()), std::vector<std::string>{"DO 5"});
}

TEST(ServerProcess, SaysWhyItDoesNotStart)
{
    try {
        ServerProcess server({"--no-such-option"});
        FAIL() << "started";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("no-such-option"), std::string::npos) << error.what();
    }
}

} // namespace
