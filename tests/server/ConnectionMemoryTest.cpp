#include "CMyDatabase.h"
#include "MyDbUserInterface.h"
#include "Settings.h"
#include "harness/AllocationFailure.h"
#include "harness/PrivateServer.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using harness::AllocationFailure;
using harness::PrivateServer;

CMyServer TesterSettings()
{
    const harness::ServerAccess& access = PrivateServer::Get().Tester();
    return server_test::SettingsOf(access, "utf8mb4");
}

/// Memory that runs out, at each allocation in turn: once, or from there for good. The outcome is looked at when there
/// is memory again.
class ConnectionMemory : public testing::TestWithParam<bool>
{
protected:
    ConnectionMemory() : m_database(TesterSettings(), m_temporary.Name().c_str())
    {
        m_temporary.Sql().Run("CREATE TABLE t (a VARCHAR(100))");
        EXPECT_TRUE(m_database.Open(false, ""));
    }

    static void GiveMemory() { AllocationFailure::allocationsLeft = -1; }

    harness::TemporaryDatabase m_temporary;
    CMyDatabase m_database;
};

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, ConnectionMemory, testing::Bool());

TEST_P(ConnectionMemory, AStatementIsSentWholeOrNotAtAll)
{
    const UtCString sql("INSERT INTO t VALUES ('a text that is longer than a text can be without memory \xFC')");
    const UtCString sent(sql, UT_ENCODING_UTF8);
    long successes = 0;
    bool isAllOrNothing = true;
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        const long rows = m_database.ExecuteQuery(sql, false, nullptr, false);
        GiveMemory();
        successes += rows == 1 ? 1 : 0;
        const bool isSent = rows == 1 && m_database.GetErrorCode() == 0 && m_database.GetLastSQLCommand() == sent;
        const bool isRefused = rows == -1 && m_database.GetErrorCode() == 2008 &&
                               m_database.GetErrorMessage() == "2008: Out of memory" &&
                               m_database.GetLastSQLCommand().IsEmpty() && m_database.GetAffectedRows() == 0;
        isAllOrNothing = isAllOrNothing && (isSent || isRefused);
        m_database.Close(); // so that the next run starts without the memory of this one
        m_database.Open(false, "");
    });
    EXPECT_GT(failures, 0);
    EXPECT_TRUE(isAllOrNothing);
    EXPECT_EQ(m_temporary.Sql().Text("SELECT COUNT(*) FROM t"), std::to_string(successes));
}

TEST_P(ConnectionMemory, AFailureOfTheServerStaysAFailure)
{
    const UtCString sql("SELECT * FROM a_table_that_does_not_exist_anywhere", UT_ENCODING_UTF8);
    bool isFailure = true;
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        const long rows = m_database.ExecuteQuery(sql, false, nullptr, false);
        m_database.GetErrorMessage();
        GiveMemory();
        const unsigned long code = m_database.GetErrorCode();
        isFailure = isFailure && rows == -1 && (code == 1146 || code == 2008) && m_database.GetQueryTime() == 0;
    });
    EXPECT_GT(failures, 0);
    EXPECT_TRUE(isFailure);
    EXPECT_EQ(m_database.ExecuteQuery("DO 1", false, nullptr, false), 0L);
}

TEST_P(ConnectionMemory, AFailureThatCannotBeShownStaysAFailure)
{
    class NoInterface final : public MyDbUserInterface
    {
    public:
        int ShowMessage(const UtCString&, unsigned int) override { return MYDB_ANSWER_OK; }
        void BeginWait() override {}
        void EndWait() override {}
    } userInterface;
    MyDbUserInterface* const previous = MyDbSetUserInterface(&userInterface);
    bool isFailure = true;
    const UtCString sql("SELECT * FROM a_table_that_does_not_exist_anywhere", UT_ENCODING_UTF8);
    harness::ForEachAllocation(GetParam(), [&] {
        isFailure = isFailure && m_database.ExecuteQuery(sql, true, nullptr, false) == -1;
        GiveMemory();
        isFailure = isFailure && m_database.GetErrorCode() != 0;
    });
    MyDbSetUserInterface(previous);
    EXPECT_TRUE(isFailure);
}

TEST_P(ConnectionMemory, ADatabaseIsOpenedOrTheConnectionIsClosed)
{
    const std::string name = m_temporary.Name() + "_with_a_name_that_is_longer_than_memory_allows";
    harness::RawConnection administrator(PrivateServer::Get().Administrator());
    administrator.Run("CREATE DATABASE " + name);
    const UtCString databaseName(name.c_str());
    CMyServer settings = TesterSettings();
    bool isAllOrNothing = true;
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        CMyDatabase database(settings, "");
        const bool isOpened = database.Open(false, databaseName);
        GiveMemory();
        isAllOrNothing = isAllOrNothing && isOpened == database.IsConnected() &&
                         (!isOpened || database.GetDatabaseName() == databaseName);
    });
    administrator.Run("DROP DATABASE " + name);
    EXPECT_GT(failures, 0);
    EXPECT_TRUE(isAllOrNothing);
}

TEST_P(ConnectionMemory, NobodyElseIsLoggedIn)
{
    CMyServer settings = TesterSettings();
    settings.SetUser("a_user_whose_name_is_longer_than_memory_allows");
    bool isRefused = true;
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        CMyDatabase database(settings, "");
        isRefused = isRefused && !database.Open(false, "") && !database.IsConnected();
        GiveMemory();
        const UtCString message = database.GetErrorMessage();
        isRefused = isRefused && (!message.Contains("for user '") || message.Contains("for user 'a_user_whose"));
    });
    EXPECT_GT(failures, 0);
    EXPECT_TRUE(isRefused);
}

TEST_P(ConnectionMemory, ATextIsEscapedWholeOrNotAtAll)
{
    const UtCString text("a text with 'quotes' that is longer than a text can be without memory \xFC");
    UtCString expected;
    m_database.MakeEscapeString(text, expected);
    bool isAllOrNothing = !expected.IsEmpty();
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        UtCString fromText("old");
        m_database.MakeEscapeString(text, fromText);
        UtCString fromBytes("old");
        m_database.MakeEscapeString(expected.string(), static_cast<unsigned __int64>(expected.GetByteLength()),
                                    fromBytes);
        GiveMemory();
        isAllOrNothing = isAllOrNothing && (fromText.IsEmpty() || fromText == expected) &&
                         (fromBytes.IsEmpty() || fromBytes.GetByteLength() > expected.GetByteLength());
    });
    EXPECT_GT(failures, 1);
    EXPECT_TRUE(isAllOrNothing);
}

TEST_P(ConnectionMemory, ATestOfTheSettingsFailsQuietly)
{
    CMyServer settings = TesterSettings();
    settings.SetUser("a_user_whose_name_is_longer_than_memory_allows");
    bool isRefused = true;
    harness::ForEachAllocation(GetParam(), [&] {
        unsigned long errorCode = 0;
        UtCString errorMessage;
        isRefused = isRefused && !settings.TestConnect(false, &errorCode, &errorMessage);
        GiveMemory();
    });
    EXPECT_TRUE(isRefused);
}

} // namespace
