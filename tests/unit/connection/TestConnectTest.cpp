#include "ConnectionFixture.h"

#include "MyDbFunctions.h"
#include "harness/TemporaryFolder.h"

#include <fstream>

namespace {

using connection_test::Bytes;
using connection_test::ConnectionFixture;
using connection_test::ValidServer;

using TestConnect = ConnectionFixture;

TEST_F(TestConnect, OpensAConnectionWithoutDatabaseAndClosesIt)
{
    EXPECT_TRUE(ValidServer().TestConnect(false, nullptr, nullptr));
    ASSERT_EQ(m_client.Connects().size(), 1U);
    EXPECT_EQ(m_client.Connects()[0].database, "");
    EXPECT_EQ(m_client.Connects()[0].user, "tester");
    EXPECT_TRUE(m_client.Statements().empty());
    EXPECT_EQ(m_client.CallNames().back(), "mysql_close");
    EXPECT_EQ(m_client.Leaks(), "");
}

TEST_F(TestConnect, GivesTheOutcomeOfASuccess)
{
    unsigned long errorCode = 99;
    UtCString errorMessage("old");
    EXPECT_TRUE(ValidServer().TestConnect(false, &errorCode, &errorMessage));
    EXPECT_EQ(errorCode, 0UL);
    EXPECT_EQ(Bytes(errorMessage), "Kein Fehler!");
}

TEST_F(TestConnect, GivesTheOutcomeOfAFailure)
{
    m_client.FailNext(fake::Call::Connect, 1045, "Access denied");
    unsigned long errorCode = 99;
    UtCString errorMessage("old");
    EXPECT_FALSE(ValidServer().TestConnect(false, &errorCode, &errorMessage));
    EXPECT_EQ(errorCode, 1045UL);
    EXPECT_EQ(Bytes(errorMessage), "1045: Access denied");
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(TestConnect, ShowsTheFailureWhenInteractive)
{
    m_client.FailNext(fake::Call::Connect, 1045, "Access denied");
    EXPECT_FALSE(ValidServer().TestConnect(true, nullptr, nullptr));
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text, "Database Connect Error\n\n1045: Access denied");
}

TEST_F(TestConnect, LeavesTheOutputsAloneWithInvalidSettings)
{
    unsigned long errorCode = 99;
    UtCString errorMessage("old");
    EXPECT_FALSE(CMyServer().TestConnect(true, &errorCode, &errorMessage));
    EXPECT_EQ(errorCode, 99UL);
    EXPECT_EQ(Bytes(errorMessage), "old");
    EXPECT_TRUE(m_client.Calls().empty());
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(TestConnect, SaysThatThereIsNoConnectionWhenTheClientHasNoMemory)
{
    m_client.FailNext(fake::Call::Init, 2008);
    unsigned long errorCode = 99;
    UtCString errorMessage("old");
    EXPECT_FALSE(ValidServer().TestConnect(false, &errorCode, &errorMessage));
    EXPECT_EQ(errorCode, 0UL);
    EXPECT_EQ(Bytes(errorMessage), "Keine Verbindung zum Server!");
}

TEST_F(TestConnect, ReplacesTheUserRoot)
{
    CMyServer server = ValidServer();
    server.SetUser("root");
    server.TestConnect(false, nullptr, nullptr);
    EXPECT_EQ(m_client.Connects()[0].user, "vela_root");
    EXPECT_EQ(Bytes(server.GetUser()), "root");
}

TEST_F(TestConnect, CountsAFailureAndObeysTheLimit)
{
    m_client.FailNext(fake::Call::Connect, 2002);
    MyDbSetMaxTryConnect(1);
    EXPECT_FALSE(ValidServer().TestConnect(false, nullptr, nullptr));
    EXPECT_EQ(connection::ProcessConnectLimit().failedConnects, 1U);
    unsigned long errorCode = 99;
    UtCString errorMessage;
    EXPECT_FALSE(ValidServer().TestConnect(false, &errorCode, &errorMessage));
    EXPECT_EQ(errorCode, 0UL);
    EXPECT_EQ(Bytes(errorMessage), "Kein Fehler!");
    EXPECT_EQ(m_client.Connects().size(), 1U);
}

/// A settings file on disk.
class TestConnectionByFile : public ConnectionFixture
{
protected:
    TestConnectionByFile()
    {
        std::ofstream(m_folder.Path() / "Server.ini")
            << "[SQL-Server]\r\nServer=db.example\r\nPort=3307\r\nUser=root\r\nCanConnect=0\r\n";
    }

    UtCString File() const { return UtCString((m_folder.Path() / "Server.ini").string(), UT_ENCODING_UTF8); }

    harness::TemporaryFolder m_folder;
};

TEST_F(TestConnectionByFile, ConnectsWithTheSettingsOfTheFile)
{
    EXPECT_TRUE(TestConnection(File(), 0));
    ASSERT_EQ(m_client.Connects().size(), 1U);
    EXPECT_EQ(m_client.Connects()[0].host, "db.example");
    EXPECT_EQ(m_client.Connects()[0].port, 3307U);
    EXPECT_EQ(m_client.Connects()[0].user, "vela_root");
    EXPECT_EQ(m_client.Connects()[0].database, "");
}

TEST_F(TestConnectionByFile, IsInteractiveInModeOneOnly)
{
    m_client.FailAlways(fake::Call::Connect, 2002);
    for (const int mode : {0, 2, -1, 257}) {
        EXPECT_FALSE(TestConnection(File(), mode));
    }
    EXPECT_TRUE(m_messages.Messages().empty());
    EXPECT_FALSE(TestConnection(File(), 1));
    EXPECT_EQ(m_messages.Messages().size(), 1U);
}

TEST_F(TestConnectionByFile, WorksWhenTheLimitIsReachedAndLeavesTheCountAlone)
{
    MyDbSetMaxTryConnect(3);
    connection::ProcessConnectLimit().failedConnects = 7;
    EXPECT_TRUE(TestConnection(File(), 0));
    EXPECT_EQ(connection::ProcessConnectLimit().failedConnects, 7U);
    m_client.FailAlways(fake::Call::Connect, 2002);
    EXPECT_FALSE(TestConnection(File(), 0));
    EXPECT_EQ(connection::ProcessConnectLimit().failedConnects, 7U);
    EXPECT_EQ(m_client.Connects().size(), 2U);
}

TEST_F(TestConnectionByFile, ConnectsNotWithALimitOfZero)
{
    MyDbSetMaxTryConnect(0);
    EXPECT_FALSE(TestConnection(File(), 0));
    EXPECT_TRUE(m_client.Connects().empty());
}

TEST_F(TestConnectionByFile, FailsWithoutAConnectWhenThereIsNoFile)
{
    connection::ProcessConnectLimit().failedConnects = 7;
    EXPECT_FALSE(TestConnection("", 1));
    EXPECT_FALSE(TestConnection("/nowhere/Server.ini", 1));
    EXPECT_TRUE(m_client.Calls().empty());
    EXPECT_TRUE(m_messages.Messages().empty());
    EXPECT_EQ(connection::ProcessConnectLimit().failedConnects, 7U);
}

TEST_F(TestConnectionByFile, AnswersWhetherTheDatabaseOfAConnectionExists)
{
    m_client.On("SHOW DATABASES", fake::Reply::Rows({"Database"}, {{"mysql"}, {"shop"}}));
    const std::string folder = m_folder.Path().string();
    CMyDatabase known(ValidServer(), UtCString(folder + "::shop", UT_ENCODING_UTF8));
    CMyDatabase unknown(ValidServer(), UtCString(folder + "::store", UT_ENCODING_UTF8));
    EXPECT_FALSE(known.ExistDatabase()) << "it is closed";
    EXPECT_TRUE(known.Open(false, "") && unknown.Open(false, ""));
    EXPECT_TRUE(known.ExistDatabase());
    EXPECT_FALSE(unknown.ExistDatabase());
}

TEST_F(TestConnectionByFile, GivesSettingsThatAreCopiedWithFileNameAndPermission)
{
    const CMyServer server(File());
    EXPECT_TRUE(server.IsValid());
    EXPECT_FALSE(server.IsConnectAllowed());
    CMyServer copy(server);
    EXPECT_FALSE(copy.IsConnectAllowed());
    EXPECT_EQ(Bytes(copy.GetServerINIFileName()), Bytes(server.GetServerINIFileName()));
    EXPECT_NE(Bytes(copy.GetServerINIFileName()), "");
    copy = CMyServer();
    EXPECT_TRUE(copy.IsConnectAllowed());
    EXPECT_EQ(Bytes(copy.GetServerINIFileName()), "");
}

TEST_F(TestConnectionByFile, GivesSettingsThatOpenWhateverTheirPermissionSays)
{
    CMyDatabase database(CMyServer(File()), "shop");
    EXPECT_FALSE(database.GetServer().IsConnectAllowed());
    EXPECT_TRUE(database.Open(false, ""));
}

} // namespace
