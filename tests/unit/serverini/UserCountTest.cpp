#include "CMyDatabase.h"

#include "connection/ProcessState.h"
#include "fake_client/FakeClientFixture.h"
#include "harness/FailurePoints.h"
#include "harness/MessageRecorder.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace {

using fake::Reply;
using fake::Row;

CMyServer ServerOf(const char* user)
{
    CMyServer server;
    server.SetHost("db.example");
    server.SetPort(3307);
    server.SetUser(user);
    server.SetPassword("pw");
    return server;
}

Reply ProcessList(std::vector<Row> userAndDatabase)
{
    return Reply::Rows({"User", "db"}, std::move(userAndDatabase));
}

class UserCount : public fake::ClientFixture
{
protected:
    void ScriptThreads(std::vector<Row> userAndDatabase)
    {
        m_client.On("SHOW PROCESSLIST", ProcessList(std::move(userAndDatabase)));
    }
    long CountAll() { return m_database.CountUsersOnThisDatabase(false); }
    long CountOthers() { return m_database.CountUsersOnThisDatabase(true); }

    CMyDatabase m_database{ServerOf("kim"), "kalk"};

    void TearDown() override
    {
        m_database.Close();
        ClientFixture::TearDown();
    }
};

TEST_F(UserCount, CountsTheThreadsOfTheDatabase)
{
    ScriptThreads({{"kim", "kalk"}, {"lea", "kalk"}, {"lea", "other"}, {"max", std::nullopt}, {"max", ""}});
    EXPECT_EQ(CountAll(), 2);
}

TEST_F(UserCount, LeavesOutTheOwnUser)
{
    ScriptThreads({{"kim", "kalk"}, {"lea", "kalk"}, {"kim", "kalk"}, {"kimberly", "kalk"}});
    EXPECT_EQ(CountOthers(), 2);
    EXPECT_EQ(CountAll(), 4);
}

TEST_F(UserCount, IgnoresTheLetterCaseOfTheOwnUser)
{
    ScriptThreads({{"KIM", "kalk"}, {"Kim", "kalk"}});
    EXPECT_EQ(CountOthers(), 0);
}

TEST_F(UserCount, IgnoresTheLetterCaseOfTheDatabase)
{
    ScriptThreads({{"lea", "KALK"}, {"lea", "Kalk"}, {"lea", "kalk2"}});
    EXPECT_EQ(CountAll(), 2);
}

// The server writes its names in UTF-8, whatever the encoding of ours.
TEST_F(UserCount, IgnoresTheLetterCaseBeyondAsciiInEveryEncoding)
{
    ScriptThreads({{"j\xC3\x9CRGEN", "K\xC3\x9C"
                                     "CHE"},
                   {"lea", "k\xC3\xBC"
                           "che"},
                   {"lea", "kuche"}});
    const UtCString name("k\xFC"
                         "che");
    for (const char* const charset : {"utf8mb4", "latin1"}) {
        CMyServer server = ServerOf("kim");
        server.SetUser(UtCString("j\xC3\xBCrgen", UT_ENCODING_UTF8));
        server.SetCharset(charset);
        CMyDatabase singleByte(server, name);
        EXPECT_EQ(singleByte.CountUsersOnThisDatabase(false), 2) << charset;
        EXPECT_EQ(singleByte.CountUsersOnThisDatabase(true), 1) << charset;
        CMyDatabase unicode(server, UtCString(name, UT_ENCODING_UTF8));
        EXPECT_EQ(unicode.CountUsersOnThisDatabase(false), 2) << charset;
    }
}

TEST_F(UserCount, CountsTwoThreadsOfOneUserTwice)
{
    ScriptThreads({{"lea", "kalk"}, {"lea", "kalk"}});
    EXPECT_EQ(CountOthers(), 2);
}

TEST_F(UserCount, NeverCountsAThreadWithoutADatabase)
{
    ScriptThreads({{"lea", std::nullopt}});
    EXPECT_EQ(CountAll(), 0);
}

TEST_F(UserCount, ReadsEveryRowOfALongList)
{
    ScriptThreads(std::vector<Row>(500, Row{"lea", "kalk"}));
    EXPECT_EQ(CountAll(), 500);
}

TEST_F(UserCount, IsZeroForAnEmptyList)
{
    ScriptThreads({});
    EXPECT_EQ(CountAll(), 0);
}

TEST_F(UserCount, FindsTheColumnsByTheirExactNames)
{
    m_client.On("SHOW PROCESSLIST", Reply::Rows({"USER", "DB"}, {{"lea", "kalk"}}));
    EXPECT_EQ(CountAll(), 0);
}

TEST_F(UserCount, CountsAThreadWhoseUserIsUnknown)
{
    m_client.On("SHOW PROCESSLIST", Reply::Rows({"user", "db"}, {{"kim", "kalk"}}));
    EXPECT_EQ(CountOthers(), 1);
}

TEST_F(UserCount, FindsTheColumnsWhereverTheyStand)
{
    m_client.On("SHOW PROCESSLIST", Reply::Rows({"Id", "User", "Host", "db", "Command", "Time", "State", "Info"},
                                                {{"7", "lea", "h:1", "kalk", "Sleep", "0", "", std::nullopt}}));
    EXPECT_EQ(CountOthers(), 1);
}

TEST_F(UserCount, AsksOverASecondConnectionOfTheAdministrativeUser)
{
    ScriptThreads({{"lea", "kalk"}});
    EXPECT_EQ(CountAll(), 1);
    ASSERT_EQ(m_client.Connects().size(), 2U);
    EXPECT_EQ(m_client.Connects()[0].user, "kim");
    EXPECT_EQ(m_client.Connects()[0].database, "kalk");
    const fake::ConnectRecord& second = m_client.Connects()[1];
    EXPECT_EQ(second.host, "db.example");
    EXPECT_EQ(second.port, 3307U);
    EXPECT_EQ(second.user, "vela_root");
    EXPECT_EQ(second.password, "pw");
    EXPECT_EQ(second.database, "");
}

TEST_F(UserCount, ClosesTheSecondConnectionOnly)
{
    ScriptThreads({{"lea", "kalk"}});
    CountAll();
    EXPECT_EQ(m_client.HandlesOpened(), 2U);
    EXPECT_EQ(m_client.HandlesClosed(), 1U);
    EXPECT_TRUE(m_database.IsOpen());
}

TEST_F(UserCount, ChangesNothingOfTheObject)
{
    ScriptThreads({{"lea", "kalk"}});
    m_client.On("DELETE FROM t", Reply::Ok(3));
    m_database.ExecuteQuery("DELETE FROM t", false, nullptr, false);
    CountAll();
    EXPECT_EQ(m_database.GetLastSQLCommand(), "DELETE FROM t");
    EXPECT_EQ(m_database.GetAffectedRows(), 3);
    EXPECT_EQ(m_database.GetServer().GetUser(), "kim");
    EXPECT_EQ(m_database.GetDatabaseName(), "kalk");
}

TEST_F(UserCount, IsZeroWithoutAConnection)
{
    m_client.FailAlways(fake::Call::Connect, 2002);
    EXPECT_EQ(CountAll(), 0);
    EXPECT_EQ(m_client.Connects().size(), 1U);
}

TEST_F(UserCount, IsZeroForInvalidSettings)
{
    m_database.GetServer().SetPort(0);
    EXPECT_EQ(CountAll(), 0);
    EXPECT_TRUE(m_client.Connects().empty());
}

TEST_F(UserCount, Kept_K76_IsZeroWhenTheAdministrativeLoginFails)
{
    harness::MessageRecorder messages;
    ASSERT_TRUE(m_database.Open(false, ""));
    ScriptThreads({{"lea", "kalk"}});
    m_client.FailNext(fake::Call::Connect, 1045);
    EXPECT_EQ(CountOthers(), 0);
    EXPECT_TRUE(messages.Messages().empty());
    EXPECT_EQ(CountOthers(), 1) << "the next attempt finds the other user";
}

TEST_F(UserCount, AFailedAdministrativeLoginCountsTowardsTheLimit)
{
    const connection::ConnectLimit saved = std::exchange(connection::ProcessConnectLimit(), {0, 1});
    ASSERT_TRUE(m_database.Open(false, ""));
    m_client.FailNext(fake::Call::Connect, 1045);
    EXPECT_EQ(CountAll(), 0);
    EXPECT_TRUE(connection::ProcessConnectLimit().IsReached());
    ScriptThreads({{"lea", "kalk"}});
    m_client.ForgetCalls();
    EXPECT_EQ(CountAll(), 0) << "the second connection is not tried any more";
    EXPECT_TRUE(m_client.Connects().empty());
    EXPECT_TRUE(m_database.IsOpen());
    connection::ProcessConnectLimit() = saved;
}

TEST_F(UserCount, Kept_K77_CountsTheThreadsWithoutADatabaseForAnEmptyName)
{
    CMyDatabase nameless(ServerOf("kim"), "");
    ScriptThreads({{"kim", std::nullopt}, {"vela_root", std::nullopt}, {"lea", "kalk"}});
    EXPECT_EQ(nameless.CountUsersOnThisDatabase(false), 2);
    EXPECT_EQ(nameless.CountUsersOnThisDatabase(true), 1);
}

// Open answers false on such a connection, which is there all the same.
TEST_F(UserCount, GoesOnWithAConnectionThatHasNoDatabase)
{
    CMyDatabase nameless(ServerOf("kim"), "");
    ASSERT_TRUE(nameless.Open(false, ""));
    ASSERT_FALSE(nameless.Open(false, ""));
    ScriptThreads({{"lea", std::nullopt}});
    EXPECT_EQ(nameless.CountUsersOnThisDatabase(false), 1);
}

TEST_F(UserCount, AFailedStatementIsShownAndCountsNobody)
{
    harness::MessageRecorder messages;
    m_client.On("SHOW PROCESSLIST", Reply::Error(1227, "denied"));
    EXPECT_EQ(CountAll(), 0);
    EXPECT_EQ(messages.Messages().size(), 1U);
    EXPECT_EQ(m_database.GetErrorCode(), 0U) << "the error was that of the second connection";
}

TEST_F(UserCount, TellsWhetherTheDatabaseIsInUse)
{
    m_client.Once("SHOW PROCESSLIST", ProcessList({{"kim", "kalk"}}));
    EXPECT_FALSE(m_database.IsDatabaseInUse());
    m_client.Once("SHOW PROCESSLIST", ProcessList({{"kim", "kalk"}, {"lea", "kalk"}}));
    EXPECT_TRUE(m_database.IsDatabaseInUse());
}

class ThrowingDatabase : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Open(bool, const UtCString&) override { throw std::runtime_error("host"); }
};

TEST_F(UserCount, IsZeroWhenADerivedClassThrows)
{
    ThrowingDatabase database(ServerOf("kim"), "kalk");
    EXPECT_EQ(database.CountUsersOnThisDatabase(false), 0);
}

class UncooperativeDatabase : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Open(bool, const UtCString&) override
    {
        ++m_opens;
        return false;
    }
    int m_opens = 0;
};

TEST_F(UserCount, OpensThroughTheVirtualSlot)
{
    UncooperativeDatabase database(ServerOf("kim"), "kalk");
    EXPECT_EQ(database.CountUsersOnThisDatabase(false), 0);
    EXPECT_EQ(database.m_opens, 1);
    EXPECT_TRUE(m_client.Connects().empty());
}

TEST(UserCountFailures, EveryClientCallMayFail)
{
    const harness::MessageRecorder messages;
    const auto script = [] { fake::Client::Get().On("SHOW PROCESSLIST", ProcessList({{"lea", "kalk"}})); };
    const std::size_t calls = harness::ForEachFailurePoint(script, [](harness::FailureRun& run) {
        CMyDatabase database(ServerOf("kim"), "kalk");
        const long count = database.CountUsersOnThisDatabase(false);
        run.EndOfWork();
        EXPECT_TRUE(count == 0 || count == 1);
        if (!run.Failed()) {
            EXPECT_EQ(count, 1);
        }
        EXPECT_EQ(database.CountUsersOnThisDatabase(false), 1) << "the object can be used again";
    });
    EXPECT_GE(calls, 6U) << "two connections are made and a list is read";
}

} // namespace
