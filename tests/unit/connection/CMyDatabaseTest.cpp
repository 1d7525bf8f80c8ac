#include "ConnectionFixture.h"

#include <type_traits>

namespace {

using connection_test::Bytes;
using connection_test::ConnectionFixture;
using connection_test::OpenConnectionFixture;
using connection_test::ValidServer;

using CMyDatabaseTest = ConnectionFixture;
using OpenCMyDatabaseTest = OpenConnectionFixture;

static_assert(!std::is_copy_constructible_v<CMyDatabase>);
static_assert(!std::is_move_constructible_v<CMyDatabase>);
static_assert(!std::is_copy_assignable_v<CMyDatabase>);
static_assert(!std::is_move_assignable_v<CMyDatabase>);

TEST_F(CMyDatabaseTest, IsClosedAndWithoutAnOutcomeWhenConstructed)
{
    CMyDatabase database(ValidServer(), "shop");
    EXPECT_FALSE(database.IsConnected());
    EXPECT_FALSE(database.IsOpen());
    EXPECT_EQ(database.GetThreadID(), 0UL);
    EXPECT_EQ(Bytes(database.GetDatabaseName()), "shop");
    EXPECT_EQ(database.GetErrorCode(), 0UL);
    EXPECT_EQ(database.GetQueryTime(), 0UL);
    EXPECT_EQ(database.GetAffectedRows(), 0L);
    EXPECT_EQ(Bytes(database.GetLastSQLCommand()), "");
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(CMyDatabaseTest, TagsTheLastStatementWithTheEncodingOfTheSettings)
{
    EXPECT_EQ(CMyDatabase(ValidServer(), "").GetLastSQLCommand().GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(CMyDatabase(CMyServer(), "").GetLastSQLCommand().GetEncodingType(), UT_ENCODING_DEFAULT);
}

TEST_F(CMyDatabaseTest, CopiesTheSettings)
{
    CMyServer server = ValidServer();
    CMyDatabase database(server, "shop");
    server.SetHost("elsewhere");
    EXPECT_EQ(Bytes(database.GetServer().GetHost()), "db.example");
    database.GetServer().SetHost("here");
    EXPECT_EQ(Bytes(std::as_const(database).GetServer().GetHost()), "here");
    EXPECT_EQ(Bytes(server.GetHost()), "elsewhere");
}

TEST_F(CMyDatabaseTest, ReplacesTheUserRoot)
{
    CMyServer server = ValidServer();
    server.SetUser("root");
    EXPECT_EQ(Bytes(CMyDatabase(server, "").GetServer().GetUser()), "vela_root");
    EXPECT_EQ(Bytes(server.GetUser()), "root");
}

TEST_F(CMyDatabaseTest, LeavesOtherUsersAlone)
{
    for (const char* user : {"Root", "ROOT", "root ", "vela_root", "admin", ""}) {
        CMyServer server = ValidServer();
        server.SetUser(user);
        EXPECT_EQ(Bytes(CMyDatabase(server, "").GetServer().GetUser()), user);
    }
}

TEST_F(CMyDatabaseTest, IsTrueForCloseWhenClosed)
{
    CMyDatabase database(ValidServer(), "shop");
    EXPECT_TRUE(database.Close());
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(CMyDatabaseTest, HasNoSignOfLifeWhenClosed)
{
    CMyDatabase database(ValidServer(), "shop");
    EXPECT_FALSE(database.Ping());
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(CMyDatabaseTest, DescribesAClosedConnectionAsItsError)
{
    CMyDatabase database(ValidServer(), "shop");
    EXPECT_EQ(Bytes(database.GetErrorMessage()), "Keine Verbindung zum Server!");
}

TEST_F(CMyDatabaseTest, KnowsNoDatabaseWithoutAName)
{
    CMyDatabase database(ValidServer(), "");
    EXPECT_FALSE(database.ExistDatabase());
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(CMyDatabaseTest, HasNothingToCheckWithoutAName)
{
    CMyDatabase database(ValidServer(), "");
    EXPECT_TRUE(database.CheckAndRepairDatabaseIntegrity(true));
    EXPECT_TRUE(database.CheckAndRepairDatabaseIntegrity(false));
    EXPECT_TRUE(m_client.Calls().empty());
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(CMyDatabaseTest, HasARunTimeClassRecord)
{
    const CMyDatabase database(ValidServer(), "shop");
    EXPECT_STREQ(database.GetRuntimeClass()->m_lpszClassName, "CMyDatabase");
    EXPECT_EQ(database.GetRuntimeClass()->m_wSchema, 0xFFFFU);
    EXPECT_EQ(database.GetRuntimeClass(), &CMyDatabase::classCMyDatabase);
    EXPECT_TRUE(database.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(database.IsKindOf(RUNTIME_CLASS(CMyServer)));
}

TEST_F(OpenCMyDatabaseTest, IsConnectedAndOpen)
{
    EXPECT_TRUE(m_database.IsConnected());
    EXPECT_TRUE(m_database.IsOpen());
    EXPECT_NE(m_database.GetThreadID(), 0UL);
    EXPECT_EQ(Bytes(m_database.GetErrorMessage()), "Kein Fehler!");
}

TEST_F(OpenCMyDatabaseTest, ClosesTheHandleAndForgetsTheThread)
{
    EXPECT_TRUE(m_database.Close());
    EXPECT_EQ(m_client.CallNames(), std::vector<std::string>{"mysql_close"});
    EXPECT_FALSE(m_database.IsConnected());
    EXPECT_EQ(m_database.GetThreadID(), 0UL);
}

TEST_F(OpenCMyDatabaseTest, KeepsNameSettingsAndOutcomeWhenClosed)
{
    m_client.On("BAD STATEMENT", fake::Reply::Error(1064, "syntax"));
    m_database.ExecuteQuery("BAD STATEMENT", false, nullptr, false);
    m_database.Close();
    EXPECT_EQ(Bytes(m_database.GetDatabaseName()), "shop");
    EXPECT_EQ(Bytes(m_database.GetServer().GetHost()), "db.example");
    EXPECT_EQ(m_database.GetErrorCode(), 1064UL);
    EXPECT_EQ(Bytes(m_database.GetErrorMessage()), "1064: syntax");
    EXPECT_EQ(Bytes(m_database.GetLastSQLCommand()), "BAD STATEMENT");
}

TEST_F(OpenCMyDatabaseTest, GivesASignOfLife)
{
    EXPECT_TRUE(m_database.Ping());
    EXPECT_EQ(m_client.CallNames(), std::vector<std::string>{"mysql_ping"});
}

TEST_F(OpenCMyDatabaseTest, RecordsNoErrorForAMissingSignOfLife)
{
    m_client.FailNext(fake::Call::Ping, 2006);
    EXPECT_FALSE(m_database.Ping());
    EXPECT_EQ(m_database.GetErrorCode(), 0UL);
    EXPECT_TRUE(m_database.IsConnected());
}

TEST_F(ConnectionFixture, ClosesTheHandleInTheDestructorWithoutTheVirtualClose)
{
    static int closes;
    closes = 0;
    class Counting : public CMyDatabase
    {
    public:
        using CMyDatabase::CMyDatabase;
        bool Close() override
        {
            ++closes;
            return CMyDatabase::Close();
        }
    };
    {
        Counting database(ValidServer(), "shop");
        EXPECT_TRUE(database.Open(false, ""));
        closes = 0;
    }
    EXPECT_EQ(closes, 0);
    EXPECT_EQ(m_client.CallNames().back(), "mysql_close");
    EXPECT_EQ(m_client.Leaks(), "");
}

/// Writes down which of the replaceable members are called.
class Derived : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Close() override
    {
        calls.push_back("Close");
        return CMyDatabase::Close();
    }
    bool Open(bool interactive, const UtCString& databaseName) override
    {
        calls.push_back(std::string("Open ") + (interactive ? "interactive " : "silent ") + Bytes(databaseName));
        return CMyDatabase::Open(interactive, databaseName);
    }
    bool CheckAndRepairDatabaseIntegrity(bool askUser) override
    {
        calls.push_back(askUser ? "Check asking" : "Check");
        return isSound;
    }

    std::vector<std::string> calls;
    bool isSound = true;
};

TEST_F(CMyDatabaseTest, ClosesAndChecksThroughTheReplaceableMembers)
{
    Derived database(ValidServer(), "shop");
    EXPECT_TRUE(database.Open(true, ""));
    EXPECT_EQ(database.calls, (std::vector<std::string>{"Open interactive ", "Close", "Check asking"}));
}

TEST_F(CMyDatabaseTest, ClosesForAnotherNameThroughTheReplaceableMember)
{
    Derived database(ValidServer(), "shop");
    database.Open(false, "");
    database.calls.clear();
    EXPECT_TRUE(database.Open(false, "store"));
    EXPECT_EQ(database.calls, (std::vector<std::string>{"Open silent store", "Close", "Close"}));
}

TEST_F(CMyDatabaseTest, NeitherClosesNorChecksALiveConnection)
{
    Derived database(ValidServer(), "shop");
    database.Open(false, "");
    database.calls.clear();
    EXPECT_TRUE(database.Open(true, ""));
    EXPECT_EQ(database.calls, std::vector<std::string>{"Open interactive "});
}

TEST_F(CMyDatabaseTest, ChecksBeforeItListsTheTables)
{
    Derived database(ValidServer(), "shop");
    m_client.SetStatementObserver([&](const std::string& statement) { database.calls.push_back(statement); });
    EXPECT_TRUE(database.Open(true, ""));
    EXPECT_EQ(database.calls, (std::vector<std::string>{"Open interactive ", "Close", "Check asking", "SHOW TABLES"}));
}

TEST_F(CMyDatabaseTest, OpensOnDemandThroughTheReplaceableMember)
{
    Derived database(ValidServer(), "shop");
    EXPECT_EQ(database.ExecuteQuery("DO 1", false, nullptr, false), 0L);
    EXPECT_EQ(database.calls, (std::vector<std::string>{"Open silent ", "Close"}));
}

TEST_F(CMyDatabaseTest, ReopensForAResendThroughTheReplaceableMembers)
{
    Derived database(ValidServer(), "shop");
    database.Open(false, "");
    database.calls.clear();
    m_client.LoseConnection();
    EXPECT_EQ(database.ExecuteQuery("DO 1", false, nullptr, false), 0L);
    EXPECT_EQ(database.calls, (std::vector<std::string>{"Close", "Open silent ", "Close"}));
}

TEST_F(CMyDatabaseTest, ClosesThroughTheReplaceableMemberWhenTheConnectFails)
{
    Derived database(ValidServer(), "shop");
    m_client.FailNext(fake::Call::Connect, 1045);
    EXPECT_FALSE(database.Open(false, ""));
    EXPECT_EQ(database.calls, (std::vector<std::string>{"Open silent ", "Close", "Close"}));
}

TEST_F(CMyDatabaseTest, StaysOpenWhenTheCheckSaysNo)
{
    Derived database(ValidServer(), "shop");
    database.isSound = false;
    EXPECT_FALSE(database.Open(true, ""));
    EXPECT_TRUE(database.IsOpen());
    EXPECT_NE(database.GetThreadID(), 0UL);
    EXPECT_EQ(database.GetErrorCode(), 0UL);
    EXPECT_EQ(m_client.Statements(), std::vector<std::string>());
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(CMyDatabaseTest, ChecksOnlyAnInteractiveOpenOfADatabase)
{
    Derived silent(ValidServer(), "shop");
    EXPECT_TRUE(silent.Open(false, ""));
    EXPECT_EQ(silent.calls, (std::vector<std::string>{"Open silent ", "Close"}));
    Derived withoutDatabase(ValidServer(), "");
    EXPECT_TRUE(withoutDatabase.Open(true, ""));
    EXPECT_EQ(withoutDatabase.calls, (std::vector<std::string>{"Open interactive ", "Close"}));
}

/// A derived class that keeps its handle, refuses to open or throws.
class Stubborn : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Close() override { return true; }
};

TEST_F(CMyDatabaseTest, LeaksNoHandleWhenADerivedCloseKeepsIt)
{
    {
        Stubborn database(ValidServer(), "shop");
        EXPECT_TRUE(database.Open(false, ""));
        m_client.LoseConnection();
        EXPECT_TRUE(database.Open(false, ""));
        m_client.FailAlways(fake::Call::Connect, 2002);
        m_client.LoseConnection();
        EXPECT_FALSE(database.Open(false, ""));
        EXPECT_FALSE(database.IsConnected());
    }
    EXPECT_EQ(m_client.Leaks(), "");
}

class OpensNothing : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Open(bool, const UtCString&) override { return true; }
};

TEST_F(CMyDatabaseTest, RunsNothingWithoutAHandleEvenWhenADerivedOpenClaimsSuccess)
{
    OpensNothing database(ValidServer(), "shop");
    EXPECT_EQ(database.ExecuteQuery("DO 1", false, nullptr, false), -1L);
    EXPECT_TRUE(m_client.Calls().empty());
}

class Throwing : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool CheckAndRepairDatabaseIntegrity(bool) override { throw 1; }
};

TEST_F(CMyDatabaseTest, LetsNoExceptionOutAndEndsClosed)
{
    Throwing database(ValidServer(), "shop");
    EXPECT_FALSE(database.Open(true, ""));
    EXPECT_FALSE(database.IsConnected());
    EXPECT_EQ(m_client.Leaks(), "");
}

} // namespace
