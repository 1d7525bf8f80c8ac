#include "CMyServer.h"

#include "ServerIniFile.h"
#include "harness/AllocationFailure.h"
#include "harness/GeneralLog.h"
#include "harness/MessageRecorder.h"

#include <gtest/gtest.h>

namespace {

using harness::PrivateServer;

constexpr char connectFormat[] = "Keine Verbindung m\xF6glich (%s)!\n\n%s\n\n%s";
constexpr char directoryFormat[] = "%s ist nicht verf\xFCgbar.\n%s\n%s\n%s";

class StartUpOnAServer : public testing::Test
{
protected:
    bool Start() { return m_server.ConnectApplicationToServer(m_path, "", connectFormat, directoryFormat); }

    const harness::ServerAccess& m_access = PrivateServer::Get().Tester();
    server_test::ServerIniFile m_file{m_access};
    const UtCString m_path = m_file.Path().c_str();
    harness::MessageRecorder m_messages;
    CMyServer m_server;
};

TEST_F(StartUpOnAServer, FindsServerAndFolders)
{
    EXPECT_TRUE(Start());
    EXPECT_TRUE(m_messages.Messages().empty());
    EXPECT_EQ(m_server.GetAlias().View(), "Zentrale::" + std::to_string(m_access.port));
}

TEST_F(StartUpOnAServer, ShowsTheServersRefusal)
{
    const std::string canary = "canary-7f3a91-do-not-show";
    m_file.Write(m_access.port, canary);
    const harness::GeneralLog log;
    EXPECT_FALSE(Start());
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    const std::string& text = m_messages.Messages()[0].text;
    EXPECT_TRUE(text.starts_with("Keine Verbindung m\xF6glich (1045)!\n\n1045: Access denied for user '")) << text;
    EXPECT_TRUE(text.ends_with("\n\nZentrale::" + std::to_string(m_access.port))) << text;
    EXPECT_EQ(text.find(canary), std::string::npos);
    for (const harness::LoggedCommand& command : log.Commands())
        EXPECT_EQ(command.text.find(canary), std::string::npos);
}

TEST_F(StartUpOnAServer, ShowsThatNoServerIsThere)
{
    m_file.Write(1, m_access.password);
    EXPECT_FALSE(Start());
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_TRUE(m_messages.Messages()[0].text.starts_with("Keine Verbindung m\xF6glich (200"));
}

TEST_F(StartUpOnAServer, ShowsAMissingFolder)
{
    std::filesystem::remove(m_file.DataPath() + "/temp");
    EXPECT_FALSE(Start());
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    const std::string data = m_file.DataPath() + "\\";
    EXPECT_EQ(m_messages.Messages()[0].text,
              data + "temp\\ ist nicht verf\xFCgbar.\n" + data + "\n" + data + "\n" + data + "temp\\");
}

TEST_F(StartUpOnAServer, EveryAllocationMayFail)
{
    for (const bool forGood : {false, true}) {
        long successes = 0;
        const long failures = harness::ForEachAllocation(forGood, [&] { successes += Start() ? 1 : 0; });
        EXPECT_GT(failures, 0);
        EXPECT_GT(successes, 0) << "the last run has all its memory";
        EXPECT_TRUE(Start());
    }
}

} // namespace
