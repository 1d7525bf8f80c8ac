#include "CMyDatabase.h"
#include "MyDbFunctions.h"

#include "fake_client/FakeClientFixture.h"
#include "harness/LogRecorder.h"
#include "harness/MessageRecorder.h"
#include "unit/serverini/IniFolder.h"

namespace {

constexpr char canary[] = "canary-7f3a91-do-not-show";
constexpr char storedCanary[] = "001D3080CD1AA71BB3D53E82F2AB1BD84CB9448AC26920DB134F24A55E4EA494";

/// Collects every text that the library lets out.
class PasswordSecrecy : public fake::ClientFixture
{
protected:
    PasswordSecrecy()
    {
        testing::internal::CaptureStderr();
        m_path = m_folder.Write(std::string("[SQL-Server]\nPort=3306\nUser=kim\nPassword=") + storedCanary + "\n");
        m_server.LoadServerINI(m_path.c_str());
    }

    void Collect(const UtCString& text) { m_texts += std::string(text.View()) + "\n"; }

    void Collect(CMyDatabase& database)
    {
        Collect(database.GetErrorMessage());
        Collect(database.GetLastSQLCommand());
        Collect(database.GetQueryInfo());
    }

    /// Everything that the settings tell except the password itself.
    void CollectSettings(const CMyServer& server)
    {
        for (const UtCString& text : {server.GetHost(), server.GetAlias(), server.GetUser(), server.GetCharset(),
                                      server.GetDataDir(), server.GetMySQLProgramDir(), server.GetServerINIFileName()})
            Collect(text);
    }

    void TearDown() override
    {
        for (const harness::MessageRecorder::Message& message : m_messages.Messages())
            m_texts += message.text + "\n";
        for (const harness::LogRecorder::Entry& entry : m_log.Entries())
            m_texts += entry.file + entry.key + entry.function + "\n";
        for (const std::string& statement : m_client.Statements())
            m_texts += statement + "\n";
        m_texts += testing::internal::GetCapturedStderr();
        EXPECT_EQ(m_texts.find(canary), std::string::npos) << m_texts;
        EXPECT_EQ(m_texts.find(storedCanary), std::string::npos) << m_texts;
        ASSERT_FALSE(m_client.Connects().empty());
        EXPECT_EQ(m_client.Connects()[0].password, canary) << "only the client gets it";
        ClientFixture::TearDown();
    }

    IniFolder m_folder;
    std::string m_path;
    CMyServer m_server;
    harness::MessageRecorder m_messages;
    harness::LogRecorder m_log;
    std::string m_texts;
};

TEST_F(PasswordSecrecy, OfAFailedConnectionTest)
{
    m_client.FailAlways(fake::Call::Connect, 1045);
    unsigned long code = 0;
    UtCString message;
    EXPECT_FALSE(m_server.TestConnect(true, &code, &message));
    EXPECT_FALSE(TestConnection(m_path.c_str(), 1));
    Collect(message);
    EXPECT_FALSE(m_messages.Messages().empty());
}

TEST_F(PasswordSecrecy, OfASuccessfulConnectionTest)
{
    unsigned long code = 1;
    UtCString message;
    EXPECT_TRUE(m_server.TestConnect(true, &code, &message));
    EXPECT_TRUE(TestConnection(m_path.c_str(), 1));
    Collect(message);
}

TEST_F(PasswordSecrecy, OfLoading)
{
    for (const char* const more : {"", "Port=0\n", "Server=\n"}) {
        CMyServer server;
        server.LoadServerINI(
            m_folder.Write(std::string("[SQL-Server]\n") + more + "Port=1\nPassword=" + storedCanary, "b.ini").c_str());
        EXPECT_EQ(server.GetPassword(), canary);
        CollectSettings(server);
    }
    CMyServer half;
    half.LoadServerINI(
        m_folder.Write("[SQL-Server]\nPort=1\nPassword=" + std::string(storedCanary).substr(0, 63)).c_str());
    EXPECT_EQ(half.GetPassword(), "");
    CollectSettings(half);
    EXPECT_FALSE(half.LoadServerINI(m_folder.PathOf("none").c_str()));
    CollectSettings(half);
    m_server.TestConnect(false, nullptr, nullptr);
}

TEST_F(PasswordSecrecy, OfAFailedAndASuccessfulOpen)
{
    CMyDatabase database(m_server, "kalk");
    m_client.FailNext(fake::Call::Connect, 1045);
    EXPECT_FALSE(database.Open(true, ""));
    Collect(database);
    EXPECT_TRUE(database.Open(true, ""));
    Collect(database);
    m_client.LoseConnection();
    m_client.FailAlways(fake::Call::Connect, 2002);
    EXPECT_EQ(database.ExecuteQuery("SELECT 1", true, nullptr, false), -1);
    Collect(database);
    EXPECT_FALSE(m_messages.Messages().empty());
}

TEST_F(PasswordSecrecy, OfTheStartOfAnApplication)
{
    const UtCString format("%s %s %s %s %s");
    CMyServer server;
    const auto start = [&] { return server.ConnectApplicationToServer(m_path.c_str(), format, format, format); };
    EXPECT_FALSE(start()) << "there is no data directory";
    CollectSettings(server);
    m_client.FailNext(fake::Call::Connect, 1045);
    EXPECT_FALSE(start());
    for (const char* const name : {"", "/dbs", "/mdbs", "/temp"})
        std::filesystem::create_directory(m_folder.PathOf("data") + name);
    m_folder.Write("[SQL-Server]\nPort=3306\nUser=kim\nDataDir=" + m_folder.PathOf("data") +
                   "\nPassword=" + storedCanary);
    EXPECT_TRUE(start());
    EXPECT_FALSE(server.ConnectApplicationToServer(m_folder.PathOf("none").c_str(), format, format, format));
    EXPECT_EQ(m_messages.Messages().size(), 3U);
}

TEST_F(PasswordSecrecy, OfTheLock)
{
    CMyDatabase database(m_server, "kalk");
    m_client.OnPrefix("SELECT GET_LOCK", fake::Reply::Error(1064));
    database.LockDatabase(1);
    Collect(database);
    database.IsDatabaseLocked();
    database.UnLockDatabase();
    Collect(database);
}

TEST_F(PasswordSecrecy, OfASuccessfulUserCount)
{
    CMyDatabase database(m_server, "kalk");
    m_client.On("SHOW PROCESSLIST", fake::Reply::Rows({"User", "db"}, {{"lea", "kalk"}}));
    EXPECT_EQ(database.CountUsersOnThisDatabase(true), 1);
    Collect(database);
    m_client.FailNext(fake::Call::Connect, 1045);
    EXPECT_EQ(database.CountUsersOnThisDatabase(true), 0);
    Collect(database);
}

TEST_F(PasswordSecrecy, OfTheStatus)
{
    CMyDatabase database(m_server, "kalk");
    ASSERT_TRUE(database.Open(false, ""));
    for (const DB_INFOS what : {DB_INFO_REPORT, DB_INFO_SERVER_VERSION, DB_INFO_CLIENT_VERSION, DB_INFO_HOST})
        Collect(database.GetInfo(what));
}

TEST_F(PasswordSecrecy, OfAFailedStatement)
{
    CMyDatabase database(m_server, "kalk");
    m_client.On("SELECT x", fake::Reply::Error(1054));
    EXPECT_EQ(database.ExecuteQuery("SELECT x", true, nullptr, false), -1);
    Collect(database);
}

TEST_F(PasswordSecrecy, OfTheAdministrativeQuestions)
{
    CMyDatabase database(m_server, "kalk");
    m_client.On("SHOW PROCESSLIST", fake::Reply::Error(1227));
    database.CountUsersOnThisDatabase(true);
    m_server.ExistDatabase((m_path + "::kalk").c_str());
    Collect(database);
}

} // namespace
