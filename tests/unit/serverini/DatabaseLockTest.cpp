#include "CMyDatabase.h"

#include "connection/ProcessState.h"
#include "fake_client/FakeClientFixture.h"
#include "harness/FailurePoints.h"
#include "harness/MessageRecorder.h"

#include <stdexcept>

namespace {

using fake::Reply;

CMyServer Settings(const char* charset = "utf8mb4")
{
    CMyServer server;
    server.SetHost("db.example");
    server.SetPort(3307);
    server.SetUser("kim");
    server.SetCharset(charset);
    return server;
}

Reply Answer(const fake::Value& value)
{
    return Reply::Rows({"answer"}, {{value}});
}

struct Member
{
    const char* name;
    const char* statement;
    const char* yes; ///< the only value that makes the result true
    bool (*call)(CMyDatabase& database);
};

const Member members[] = {
    {"LockDatabase", "SELECT GET_LOCK('kalk_lock', 5);", "1",
     [](CMyDatabase& database) { return database.LockDatabase(5); }},
    {"UnLockDatabase", "SELECT RELEASE_LOCK('kalk_lock');", "1",
     [](CMyDatabase& database) { return database.UnLockDatabase(); }},
    {"IsDatabaseLocked", "SELECT IS_FREE_LOCK('kalk_lock');", "0",
     [](CMyDatabase& database) { return database.IsDatabaseLocked(); }},
};

std::string NameOf(const testing::TestParamInfo<Member>& row)
{
    return row.param.name;
}

/// Each test once for each of the three members.
class DatabaseLockMember : public testing::TestWithParam<Member>
{
protected:
    DatabaseLockMember() : m_savedLimit(connection::ProcessConnectLimit())
    {
        connection::ProcessConnectLimit() = {};
        m_client.Reset();
    }
    ~DatabaseLockMember() override { connection::ProcessConnectLimit() = m_savedLimit; }
    void TearDown() override
    {
        m_database.Close();
        EXPECT_EQ(m_client.Leaks(), "");
    }

    static bool Call(CMyDatabase& database) { return GetParam().call(database); }
    bool Call() { return Call(m_database); }
    void Script(const Reply& reply) { m_client.On(GetParam().statement, reply); }

    fake::Client& m_client = fake::Client::Get();
    harness::MessageRecorder m_messages;
    CMyDatabase m_database{Settings(), "kalk"};

private:
    connection::ConnectLimit m_savedLimit;
};

TEST_P(DatabaseLockMember, SendsItsStatement)
{
    ASSERT_TRUE(m_database.Open(false, ""));
    m_client.ForgetCalls();
    Call();
    EXPECT_EQ(m_client.Statements(), std::vector<std::string>{GetParam().statement});
    EXPECT_EQ(m_database.GetLastSQLCommand(), GetParam().statement);
}

TEST_P(DatabaseLockMember, IsTrueForOneValueOnly)
{
    for (const fake::Value& value :
         {fake::Value("1"), fake::Value("0"), fake::Value(""), fake::Value("01"), fake::Value("1 "), fake::Value("-1"),
          fake::Value("10"), fake::Value("00"), fake::Value(std::string("1\0", 2)), fake::Value()}) {
        m_client.Once(GetParam().statement, Answer(value));
        EXPECT_EQ(Call(), value == GetParam().yes) << value.value_or("NULL");
    }
}

TEST_P(DatabaseLockMember, ReadsTheFirstColumnOfTheFirstRow)
{
    const std::string yes = GetParam().yes;
    Script(Reply::Rows({"a", "b"}, {{yes, "x"}, {"x", "x"}}));
    EXPECT_TRUE(Call());
}

TEST_P(DatabaseLockMember, IsFalseWithoutARow)
{
    Script(Reply::Rows({"answer"}, {}));
    EXPECT_FALSE(Call());
}

TEST_P(DatabaseLockMember, IsFalseForAStatementWithoutResult)
{
    Script(Reply::Ok(1));
    EXPECT_FALSE(Call());
}

TEST_P(DatabaseLockMember, OpensAClosedConnection)
{
    Script(Answer(GetParam().yes));
    EXPECT_TRUE(Call());
    ASSERT_EQ(m_client.Connects().size(), 1U);
    EXPECT_EQ(m_client.Connects()[0].database, "kalk");
    EXPECT_TRUE(m_database.IsOpen());
}

TEST_P(DatabaseLockMember, IsFalseAndShowsNothingWithoutAConnection)
{
    m_client.FailAlways(fake::Call::Connect, 2002);
    EXPECT_FALSE(Call());
    EXPECT_EQ(m_client.Connects().size(), 1U);
    EXPECT_TRUE(m_client.Statements().empty());
    EXPECT_TRUE(m_messages.Messages().empty());
    EXPECT_EQ(m_database.GetErrorCode(), 2002U);
}

TEST_P(DatabaseLockMember, IsFalseForInvalidSettings)
{
    m_database.GetServer().SetPort(0);
    EXPECT_FALSE(Call());
    EXPECT_TRUE(m_client.Calls().empty());
}

// Open says no to a live connection without database.
TEST_P(DatabaseLockMember, Kept_K116_WorksOnAConnectionWithoutDatabase)
{
    CMyDatabase nameless(Settings(), "");
    ASSERT_TRUE(nameless.Open(false, ""));
    ASSERT_FALSE(nameless.Open(false, ""));
    m_client.OnMatch([](const std::string& statement) { return statement.find("'_lock'") != std::string::npos; },
                     Answer(GetParam().yes));
    EXPECT_TRUE(Call(nameless));
}

TEST_P(DatabaseLockMember, ShowsAndRecordsAFailedStatement)
{
    Script(Reply::Error(1064, "You have an error"));
    EXPECT_FALSE(Call());
    EXPECT_EQ(m_database.GetErrorCode(), 1064U);
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text, std::string("Error in ExecuteQuery\n\n    Error: 1064: You have an error"
                                                         "\n\n    Query:\n\n") +
                                                 GetParam().statement + "\n\n");
    EXPECT_TRUE(m_database.IsOpen());
}

TEST_P(DatabaseLockMember, FreesItsResultAndKeepsTheConnection)
{
    Script(Answer(GetParam().yes));
    Call();
    EXPECT_EQ(m_client.ResultsOpened(), m_client.ResultsClosed());
    EXPECT_EQ(m_client.HandlesOpened(), 1U);
    EXPECT_EQ(m_client.HandlesClosed(), 0U);
}

TEST_P(DatabaseLockMember, ChangesNoSettings)
{
    Script(Answer(GetParam().yes));
    Call();
    EXPECT_EQ(m_database.GetDatabaseName(), "kalk");
    EXPECT_EQ(m_database.GetServer().GetUser(), "kim");
}

TEST_P(DatabaseLockMember, KeepsNothingInTheObject)
{
    m_client.Once(GetParam().statement, Answer(GetParam().yes));
    EXPECT_TRUE(Call());
    m_client.Once(GetParam().statement, Answer("x"));
    EXPECT_FALSE(Call()) << "the server is asked each time";
}

TEST_P(DatabaseLockMember, SendsTheNameInTheEncodingOfTheSettings)
{
    CMyDatabase unicode(Settings("utf8mb4"), "k\xFC"
                                             "che");
    Call(unicode);
    EXPECT_NE(m_client.Statements().back().find("('k\xC3\xBC"
                                                "che_lock'"),
              std::string::npos);
    CMyDatabase singleByte(Settings("latin1"), "k\xFC"
                                               "che");
    Call(singleByte);
    EXPECT_NE(m_client.Statements().back().find("('k\xFC"
                                                "che_lock'"),
              std::string::npos);
}

TEST_P(DatabaseLockMember, IsSentAgainAfterALostConnection)
{
    ASSERT_TRUE(m_database.Open(false, ""));
    Script(Answer(GetParam().yes));
    m_client.FailNext(fake::Call::Query, 2013);
    EXPECT_TRUE(Call());
    EXPECT_EQ(m_client.Connects().size(), 2U);
}

class Uncooperative : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Open(bool interactive, const UtCString& name) override
    {
        ++m_opens;
        EXPECT_FALSE(interactive);
        EXPECT_TRUE(name.IsEmpty());
        return false;
    }
    int m_opens = 0;
};

TEST_P(DatabaseLockMember, OpensThroughTheVirtualSlot)
{
    Uncooperative database(Settings(), "kalk");
    EXPECT_FALSE(Call(database));
    EXPECT_EQ(database.m_opens, 1);
    EXPECT_TRUE(m_client.Calls().empty());
}

class Throwing : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Open(bool, const UtCString&) override { throw std::runtime_error("host"); }
};

TEST_P(DatabaseLockMember, IsFalseWhenADerivedClassThrows)
{
    Throwing database(Settings(), "kalk");
    EXPECT_FALSE(Call(database));
}

TEST_P(DatabaseLockMember, EveryClientCallMayFail)
{
    const auto script = [] { fake::Client::Get().On(GetParam().statement, Answer(GetParam().yes)); };
    const std::size_t calls = harness::ForEachFailurePoint(script, [](harness::FailureRun& run) {
        CMyDatabase database(Settings(), "kalk");
        const bool result = Call(database);
        run.EndOfWork();
        if (!run.Failed()) {
            EXPECT_TRUE(result);
        }
        if (run.Failed(fake::Call::Connect) || run.Failed(fake::Call::Init)) {
            EXPECT_FALSE(result);
        }
        if (run.Failed(fake::Call::Query, GetParam().statement) && !run.IsLostConnection()) {
            EXPECT_FALSE(result);
            EXPECT_EQ(database.GetErrorCode(), run.ErrorNumber());
        }
        connection::ProcessConnectLimit() = {};
        EXPECT_TRUE(Call(database)) << "the object can be used again";
    });
    EXPECT_GE(calls, 5U) << "a connect, a list of tables, pings, a statement and its result";
}

INSTANTIATE_TEST_SUITE_P(Members, DatabaseLockMember, testing::ValuesIn(members), NameOf);

class DatabaseLockResult : public fake::ClientFixture
{
protected:
    void TearDown() override
    {
        m_database.Close();
        ClientFixture::TearDown();
    }
    harness::MessageRecorder m_messages;
    CMyDatabase m_database{Settings(), "kalk"};
};

TEST_F(DatabaseLockResult, Kept_K110_IsFalseWhereTheServerRefusesANegativeTime)
{
    m_client.On("SELECT GET_LOCK('kalk_lock', -1);", Answer(std::nullopt));
    EXPECT_FALSE(m_database.LockDatabase(-1));
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(DatabaseLockResult, OfEveryTimeIsThatOfTheServer)
{
    m_client.OnPrefix("SELECT GET_LOCK(", Answer("1"));
    EXPECT_TRUE(m_database.LockDatabase(0));
    EXPECT_TRUE(m_database.LockDatabase(2147483647));
    EXPECT_TRUE(m_database.LockDatabase(-1)) << "a server that waits without limit";
    EXPECT_EQ(m_client.Statements().back(), "SELECT GET_LOCK('kalk_lock', -1);");
}

TEST_F(DatabaseLockResult, Kept_K112_IsNotLockedWhenNobodyCanBeAsked)
{
    m_client.On("SELECT IS_FREE_LOCK('kalk_lock');", Reply::Error(1227, "denied"));
    EXPECT_FALSE(m_database.IsDatabaseLocked());
}

TEST_F(DatabaseLockResult, Kept_K111_OfANameWithAnApostropheIsTheErrorOfTheServer)
{
    CMyDatabase database(Settings(), "o'neil");
    m_client.On("SELECT GET_LOCK('o'neil_lock', 1);", Reply::Error(1064, "syntax"));
    EXPECT_FALSE(database.LockDatabase(1));
    EXPECT_EQ(database.GetErrorMessage(), "1064: syntax");
}

} // namespace
