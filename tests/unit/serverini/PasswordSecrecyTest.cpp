#include "CMyDatabase.h"
#include "MyDbFunctions.h"

#include "IniFolder.h"
#include "fake_client/FakeClientFixture.h"
#include "harness/LogRecorder.h"
#include "harness/MessageRecorder.h"

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
