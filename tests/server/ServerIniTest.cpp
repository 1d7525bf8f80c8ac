#include "CMyDatabase.h"
#include "CMyServer.h"
#include "MyDbFunctions.h"

#include "../../examples/EncipherPassword.h"
#include "harness/AllocationFailure.h"
#include "harness/GeneralLog.h"
#include "harness/MessageRecorder.h"
#include "harness/PrivateServer.h"
#include "harness/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace {

using harness::PrivateServer;

/// A settings file for the real server, with the account "vela_root".
class ServerIniOnAServer : public testing::Test
{
protected:
    void Write(const std::string& password) const
    {
        const harness::ServerAccess& access = PrivateServer::Get().Administrator();
        std::ofstream file(m_folder.Path() / "Server.ini", std::ios::binary);
        file << "[SQL-Server]\r\nServer=" << access.host << "\r\nPort=" << access.port << "\r\nUser=" << access.user
             << "\r\nPassword=" << EncipherPassword(password).value_or("") << "\r\n";
    }
    void Write() const { Write(PrivateServer::Get().Administrator().password); }

    UtCString Folder() const { return m_folder.Path().string().c_str(); }

    harness::TemporaryFolder m_folder;
};

TEST_F(ServerIniOnAServer, LogsInWithTheDecipheredPassword)
{
    Write();
    CMyServer server(Folder());
    ASSERT_TRUE(server.IsValid());
    unsigned long code = 1;
    UtCString message;
    EXPECT_TRUE(server.TestConnect(false, &code, &message));
    EXPECT_EQ(code, 0U);
    EXPECT_TRUE(TestConnection(Folder(), 0));
}

TEST_F(ServerIniOnAServer, LogsInWithALongPassword)
{
    harness::RawConnection administrator(PrivateServer::Get().Administrator());
    const std::string password = "Gr\xC3\xBC\xC3\x9F"
                                 "e; \"['" +
                                 std::string(60, 'p');
    administrator.Run("CREATE OR REPLACE USER 'mydb_long'@'%' IDENTIFIED BY " + administrator.Quoted(password));
    Write(password);
    CMyServer server(Folder());
    server.SetUser("mydb_long");
    EXPECT_TRUE(server.TestConnect(false, nullptr, nullptr));
    administrator.Run("DROP USER 'mydb_long'@'%'");
}

TEST_F(ServerIniOnAServer, KeepsAWrongPasswordOutOfEveryText)
{
    const std::string canary = "canary-7f3a91-do-not-show";
    Write(canary);
    const harness::MessageRecorder messages;
    const harness::GeneralLog log;
    CMyServer server(Folder());
    unsigned long code = 0;
    UtCString message;
    EXPECT_FALSE(server.TestConnect(true, &code, &message));
    EXPECT_EQ(code, 1045U);
    std::string texts(message.View());
    for (const harness::MessageRecorder::Message& shown : messages.Messages())
        texts += shown.text;
    for (const harness::LoggedCommand& command : log.Commands())
        texts += command.text;
    EXPECT_NE(texts.find("vela_root"), std::string::npos) << texts;
    EXPECT_EQ(texts.find(canary), std::string::npos) << texts;
}

TEST_F(ServerIniOnAServer, FindsADatabaseWithItsSettingsInFront)
{
    Write();
    const harness::TemporaryDatabase temporary;
    std::string upper = temporary.Name();
    std::transform(upper.begin(), upper.end(), upper.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 32) : letter;
    });
    const CMyServer server;
    EXPECT_TRUE(server.ExistDatabase(Folder() + "::" + temporary.Name().c_str()));
    EXPECT_TRUE(server.ExistDatabase(Folder() + "::" + upper.c_str()));
    EXPECT_TRUE(server.ExistDatabase(Folder() + "\\server.INI::" + temporary.Name().c_str()));
    EXPECT_TRUE(server.ExistDatabase(Folder() + "::information_schema"));
    EXPECT_FALSE(server.ExistDatabase(Folder() + "::" + temporary.Name().c_str() + "x"));
    EXPECT_FALSE(server.ExistDatabase(Folder() + "::mydb%"));
    EXPECT_FALSE(server.ExistDatabase(temporary.Name().c_str()));
}

TEST_F(ServerIniOnAServer, DoesNotFindADatabaseWithAWrongPassword)
{
    Write("wrong");
    EXPECT_FALSE(CMyServer().ExistDatabase(Folder() + "::information_schema"));
}

TEST_F(ServerIniOnAServer, FindsNoMissingDatabaseWhenMemoryRunsOut)
{
    Write();
    const harness::TemporaryDatabase temporary;
    const UtCString name = Folder() + "::" + temporary.Name().c_str();
    const UtCString missing = name + "_is_not_there";
    const CMyServer server;
    for (const bool forGood : {false, true}) {
        bool isFound = false;
        EXPECT_GT(harness::ForEachAllocation(forGood, [&] { isFound |= server.ExistDatabase(missing); }), 0);
        EXPECT_FALSE(isFound);
        EXPECT_GT(harness::ForEachAllocation(forGood, [&] { isFound = server.ExistDatabase(name); }), 0);
        EXPECT_TRUE(isFound) << "the last run has all its memory";
    }
}

// The name is that of a database, and tells at the same time where the settings file lies.
TEST_F(ServerIniOnAServer, FindsTheDatabaseOfAConnection)
{
    Write();
    const std::string name = m_folder.Path().string() + "::mysql";
    harness::RawConnection administrator(PrivateServer::Get().Administrator());
    administrator.Run("CREATE DATABASE `" + name + "`");
    CMyDatabase database(CMyServer(Folder()), name.c_str());
    EXPECT_FALSE(database.ExistDatabase()) << "it is closed";
    EXPECT_TRUE(database.Open(false, ""));
    EXPECT_TRUE(database.ExistDatabase());
    administrator.Run("DROP DATABASE `" + name + "`");
}

} // namespace
