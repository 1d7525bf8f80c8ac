#include "CMyDatabase.h"
#include "Settings.h"

#include "harness/AllocationFailure.h"
#include "harness/PrivateServer.h"
#include "harness/ServerProcess.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace {

using harness::RawConnection;
using harness::ServerAccess;

/// A server of its own with two more accounts, which have the password of "vela_root".
class UserCountOnAServer : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_server = std::make_unique<harness::ServerProcess>();
        RawConnection administrator(s_server->Administrator());
        for (const char* account : {"kim", "lea"}) {
            administrator.Run("CREATE USER '" + std::string(account) + "'@'%' IDENTIFIED BY '" + Password() + "'");
            administrator.Run("GRANT ALL PRIVILEGES ON `mydb\\_%`.* TO '" + std::string(account) + "'@'%'");
        }
    }
    static void TearDownTestSuite() { s_server.reset(); }

    static std::string Password() { return s_server->Administrator().password; }
    static ServerAccess As(const std::string& user, const std::string& password)
    {
        return {s_server->Administrator().host, s_server->Administrator().port, user, password};
    }
    static ServerAccess As(const std::string& user) { return As(user, Password()); }

    static CMyServer Settings(const ServerAccess& access) { return server_test::SettingsOf(access, ""); }

    static std::unique_ptr<harness::ServerProcess> s_server;

    // Its own connection, of the account "tester", counts as a thread of the database too.
    harness::TemporaryDatabase m_temporary{s_server->Administrator(), s_server->Tester()};
    CMyDatabase m_database{Settings(As("kim")), m_temporary.Name().c_str()};
};

std::unique_ptr<harness::ServerProcess> UserCountOnAServer::s_server;

TEST_F(UserCountOnAServer, CountsItselfAndTheOthers)
{
    EXPECT_EQ(m_database.CountUsersOnThisDatabase(false), 2);
    EXPECT_EQ(m_database.CountUsersOnThisDatabase(true), 1);
    EXPECT_TRUE(m_database.IsDatabaseInUse());
}

TEST_F(UserCountOnAServer, CountsEveryConnectionOfAnotherUser)
{
    const RawConnection first(As("lea"), m_temporary.Name());
    const RawConnection second(As("lea"), m_temporary.Name());
    EXPECT_EQ(m_database.CountUsersOnThisDatabase(true), 3);
}

TEST_F(UserCountOnAServer, LeavesOutOtherProgramsOfItsOwnUser)
{
    const RawConnection other(As("kim"), m_temporary.Name());
    EXPECT_EQ(m_database.CountUsersOnThisDatabase(false), 3);
    EXPECT_EQ(m_database.CountUsersOnThisDatabase(true), 1);
}

TEST_F(UserCountOnAServer, DoesNotCountConnectionsElsewhere)
{
    const harness::TemporaryDatabase elsewhere(s_server->Administrator(), s_server->Tester());
    const RawConnection without(As("lea"));
    EXPECT_EQ(m_database.CountUsersOnThisDatabase(false), 2);
}

TEST_F(UserCountOnAServer, IsNotInUseWhenOnlyItsOwnUserIsThere)
{
    CMyDatabase database(Settings(s_server->Tester()), m_temporary.Name().c_str());
    database.GetServer().SetPassword(Password().c_str()); // of the administrative account; "tester" has another one
    EXPECT_EQ(database.CountUsersOnThisDatabase(true), 0) << "it cannot log in itself";
    CMyDatabase administrator(Settings(s_server->Administrator()), m_temporary.Name().c_str());
    EXPECT_EQ(administrator.CountUsersOnThisDatabase(false), 2);
    EXPECT_EQ(administrator.CountUsersOnThisDatabase(true), 1) << "the connection of \"tester\"";
}

TEST_F(UserCountOnAServer, IsZeroWhenTheAdministrativeUserHasAnotherPassword)
{
    CMyDatabase database(Settings(s_server->Tester()), m_temporary.Name().c_str());
    ASSERT_TRUE(database.Open(false, ""));
    EXPECT_EQ(database.CountUsersOnThisDatabase(false), 0);
    EXPECT_FALSE(database.IsDatabaseInUse());
}

TEST_F(UserCountOnAServer, LeavesTheConnectionInItsDatabase)
{
    ASSERT_TRUE(m_database.Open(false, ""));
    const unsigned long thread = m_database.GetThreadID();
    m_database.CountUsersOnThisDatabase(true);
    EXPECT_EQ(m_database.GetThreadID(), thread);
    EXPECT_TRUE(m_database.IsOpen());
}

TEST_F(UserCountOnAServer, ClosesTheAdministrativeConnection)
{
    RawConnection observer(s_server->Administrator());
    ASSERT_TRUE(m_database.Open(false, ""));
    const std::string countNewer = "SELECT COUNT(*) FROM information_schema.PROCESSLIST WHERE ID > " +
                                   std::to_string(std::max(observer.ThreadId(), m_database.GetThreadID()));
    m_database.CountUsersOnThisDatabase(true);
    for (int attempt = 0; attempt < 1000 && observer.Text(countNewer) != "0"; ++attempt)
        observer.Run("DO SLEEP(0.01)"); // the server drops it a moment later
    EXPECT_EQ(observer.Text(countNewer), "0");
}

// A thread whose database cannot be read is not counted.
TEST_F(UserCountOnAServer, CountsNobodyTooManyWhenMemoryRunsOut)
{
    const std::string name = m_temporary.Name() + "_with_a_name_that_is_longer_than_memory_allows";
    RawConnection administrator(s_server->Administrator());
    administrator.Run("CREATE DATABASE " + name);
    const RawConnection other(As("lea"), name);
    CMyDatabase database(Settings(As("kim")), name.c_str());
    ASSERT_TRUE(database.Open(false, ""));
    for (const bool forGood : {false, true}) {
        bool isPlausible = true;
        const long failures = harness::ForEachAllocation(forGood, [&] {
            const long count = database.CountUsersOnThisDatabase(false);
            isPlausible = isPlausible && count >= 0 && count <= 2;
        });
        EXPECT_GT(failures, 0);
        EXPECT_TRUE(isPlausible);
        EXPECT_EQ(database.CountUsersOnThisDatabase(false), 2);
    }
    administrator.Run("DROP DATABASE " + name);
}

TEST(UserCountWithoutPrivilege, SeesOnlyTheThreadsOfTheAdministrativeAccount)
{
    const harness::ServerProcess server;
    const harness::TemporaryDatabase temporary(server.Administrator(), server.Tester());
    RawConnection administrator(server.Administrator());
    administrator.Run("CREATE USER 'kim'@'%' IDENTIFIED BY '" + server.Administrator().password + "'");
    administrator.Run("GRANT ALL PRIVILEGES ON `mydb\\_%`.* TO 'kim'@'%'");
    CMyServer settings;
    settings.SetHost(server.Administrator().host.c_str());
    settings.SetPort(server.Administrator().port);
    settings.SetUser("kim");
    settings.SetPassword(server.Administrator().password.c_str());
    CMyDatabase database(settings, temporary.Name().c_str());
    EXPECT_EQ(database.CountUsersOnThisDatabase(false), 2);

    administrator.Run("REVOKE PROCESS ON *.* FROM 'vela_root'@'%'");
    EXPECT_EQ(database.CountUsersOnThisDatabase(false), 0);
    const RawConnection own(server.Administrator(), temporary.Name());
    EXPECT_EQ(database.CountUsersOnThisDatabase(false), 1);
}

} // namespace
