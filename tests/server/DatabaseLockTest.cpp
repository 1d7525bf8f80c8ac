#include "CMyDatabase.h"
#include "Settings.h"

#include "ServerIniFile.h"
#include "harness/AllocationFailure.h"
#include "harness/ChildProcess.h"
#include "harness/GeneralLog.h"
#include "harness/MessageRecorder.h"
#include "harness/ServerProcess.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <iterator>
#include <thread>

namespace {

using harness::PrivateServer;
using std::chrono::milliseconds;
using std::chrono::seconds;
using Clock = std::chrono::steady_clock;

constexpr int refused = 3;

CMyServer SettingsOf(const harness::ServerAccess& access)
{
    return server_test::SettingsOf(access, "utf8mb4");
}

CMyServer Settings()
{
    return SettingsOf(PrivateServer::Get().Tester());
}

/// Another process that holds the lock of a database, or has tried to.
class Holder
{
public:
    Holder(const std::string& database, const char* timeoutSeconds)
        : m_settings(PrivateServer::Get().Tester()),
          m_process(LOCK_HOLDER_PROGRAM, {m_settings.Path(), database, timeoutSeconds}, m_settings.OutputPath())
    {
    }

    bool HasLocked()
    {
        const auto end = Clock::now() + seconds(30);
        while (Output().find("locked\n") == std::string::npos) {
            if (!m_process.IsRunning() || Clock::now() > end)
                return false;
            std::this_thread::sleep_for(milliseconds(5));
        }
        return true;
    }
    void Kill() { m_process.Kill(); }
    int WaitForEnd() { return m_process.WaitForEnd(); }

private:
    std::string Output() const
    {
        std::ifstream file(m_settings.OutputPath());
        return {std::istreambuf_iterator<char>(file), {}};
    }

    server_test::ServerIniFile m_settings;
    harness::ChildProcess m_process;
};

class DatabaseLockOnAServer : public testing::Test
{
protected:
    UtCString Name() const { return m_temporary.Name().c_str(); }

    /// Returns when the connection waits for a lock.
    static void WaitUntilWaiting(unsigned long threadId)
    {
        harness::RawConnection observer(PrivateServer::Get().Administrator());
        const std::string question = "SELECT COUNT(*) FROM information_schema.PROCESSLIST WHERE STATE = 'User lock' "
                                     "AND ID = " +
                                     std::to_string(threadId);
        for (const auto end = Clock::now() + seconds(30); observer.Text(question) != "1" && Clock::now() < end;)
            observer.Run("DO SLEEP(0.01)");
    }

    harness::MessageRecorder m_messages;
    harness::TemporaryDatabase m_temporary;
    CMyDatabase m_database{Settings(), Name()};
};

TEST_F(DatabaseLockOnAServer, KeepsAnotherProcessOut)
{
    ASSERT_TRUE(m_database.LockDatabase(0));
    Holder other(m_temporary.Name(), "0");
    EXPECT_EQ(other.WaitForEnd(), refused);
    EXPECT_TRUE(m_database.UnLockDatabase());
    Holder next(m_temporary.Name(), "0");
    EXPECT_TRUE(next.HasLocked());
}

TEST_F(DatabaseLockOnAServer, IsRefusedWhileAnotherProcessHoldsIt)
{
    Holder other(m_temporary.Name(), "0");
    ASSERT_TRUE(other.HasLocked());
    EXPECT_FALSE(m_database.LockDatabase(0));
    EXPECT_TRUE(m_database.IsDatabaseLocked());
    EXPECT_FALSE(m_database.UnLockDatabase()) << "it is not ours";
    EXPECT_TRUE(m_database.IsDatabaseLocked());
    const auto start = Clock::now();
    EXPECT_FALSE(m_database.LockDatabase(1));
    EXPECT_GE(Clock::now() - start, milliseconds(900));
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(DatabaseLockOnAServer, IsFreeAfterItsProcessWasKilled)
{
    Holder other(m_temporary.Name(), "0");
    ASSERT_TRUE(other.HasLocked());
    ASSERT_FALSE(m_database.LockDatabase(0));
    other.Kill();
    EXPECT_EQ(other.WaitForEnd(), 128 + 9);
    EXPECT_TRUE(m_database.LockDatabase(20));
}

TEST_F(DatabaseLockOnAServer, GoesToTheOneThatWaitsWhenItsProcessIsKilled)
{
    Holder other(m_temporary.Name(), "0");
    ASSERT_TRUE(other.HasLocked());
    ASSERT_TRUE(m_database.Open(false, ""));
    auto waiting = std::async(std::launch::async, [this] { return m_database.LockDatabase(60); });
    WaitUntilWaiting(m_database.GetThreadID());
    EXPECT_EQ(waiting.wait_for(milliseconds(0)), std::future_status::timeout);
    other.Kill();
    EXPECT_TRUE(waiting.get());
    EXPECT_TRUE(m_database.UnLockDatabase());
}

TEST_F(DatabaseLockOnAServer, IsContendedForByTwoConnectionsOfOneProgram)
{
    CMyDatabase second(Settings(), Name());
    EXPECT_TRUE(m_database.LockDatabase(0));
    EXPECT_FALSE(second.LockDatabase(0));
    EXPECT_FALSE(second.UnLockDatabase());
    EXPECT_TRUE(m_database.UnLockDatabase());
    EXPECT_TRUE(second.LockDatabase(0));
}

TEST_F(DatabaseLockOnAServer, BelongsToOneDatabase)
{
    const harness::TemporaryDatabase elsewhere;
    CMyDatabase other(Settings(), elsewhere.Name().c_str());
    EXPECT_TRUE(m_database.LockDatabase(0));
    EXPECT_TRUE(other.LockDatabase(0));
}

TEST_F(DatabaseLockOnAServer, IsNotThereToGiveBackBeforeItIsTaken)
{
    EXPECT_FALSE(m_database.IsDatabaseLocked());
    EXPECT_FALSE(m_database.UnLockDatabase());
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
}

TEST_F(DatabaseLockOnAServer, Kept_K112_IsLockedForItsOwnHolderToo)
{
    ASSERT_TRUE(m_database.LockDatabase(0));
    EXPECT_TRUE(m_database.IsDatabaseLocked());
    ASSERT_TRUE(m_database.UnLockDatabase());
    EXPECT_FALSE(m_database.IsDatabaseLocked());
}

TEST_F(DatabaseLockOnAServer, Kept_K117_IsGivenBackAsOftenAsItWasTaken)
{
    CMyDatabase second(Settings(), Name());
    EXPECT_TRUE(m_database.LockDatabase(0));
    EXPECT_TRUE(m_database.LockDatabase(0));
    EXPECT_TRUE(m_database.UnLockDatabase());
    EXPECT_FALSE(second.LockDatabase(0));
    EXPECT_TRUE(m_database.UnLockDatabase());
    EXPECT_FALSE(m_database.UnLockDatabase());
    EXPECT_TRUE(second.LockDatabase(0));
}

TEST_F(DatabaseLockOnAServer, EndsWithItsConnection)
{
    CMyDatabase second(Settings(), Name());
    ASSERT_TRUE(m_database.LockDatabase(0));
    m_database.Close();
    EXPECT_TRUE(second.LockDatabase(20));
    EXPECT_FALSE(m_database.LockDatabase(0)) << "the closed connection is opened, and is another one";
}

TEST_F(DatabaseLockOnAServer, Kept_K113_IsLostWithALostConnection)
{
    ASSERT_TRUE(m_database.LockDatabase(0));
    harness::KillConnection(m_database.GetThreadID());
    EXPECT_FALSE(m_database.IsDatabaseLocked());
    EXPECT_FALSE(m_database.UnLockDatabase());
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
}

TEST_F(DatabaseLockOnAServer, Kept_K110_IsRefusedAtOnceForANegativeTime)
{
    const auto start = Clock::now();
    EXPECT_FALSE(m_database.LockDatabase(-1));
    EXPECT_LT(Clock::now() - start, seconds(10));
    EXPECT_FALSE(m_database.IsDatabaseLocked());
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(DatabaseLockOnAServer, TakesTheLongestTime)
{
    EXPECT_TRUE(m_database.LockDatabase(2147483647));
}

TEST_F(DatabaseLockOnAServer, Kept_K118_TellsLetterCasesApart)
{
    CMyDatabase upper(Settings(), Name().toUpper());
    ASSERT_TRUE(upper.Open(false, "")) << "the server has one database of both names";
    EXPECT_TRUE(m_database.LockDatabase(0));
    EXPECT_TRUE(upper.LockDatabase(0));
}

TEST_F(DatabaseLockOnAServer, Kept_K116_IsSharedByAllConnectionsWithoutDatabase)
{
    CMyDatabase first(Settings(), "");
    CMyDatabase second(Settings(), "");
    EXPECT_TRUE(first.LockDatabase(20));
    EXPECT_FALSE(second.LockDatabase(0));
    EXPECT_TRUE(m_database.LockDatabase(0));
}

TEST(DatabaseLockOfTwoServers, Kept_K114_IsGrantedByEachOfThem)
{
    const harness::ServerProcess node;
    const harness::TemporaryDatabase database;
    harness::RawConnection(node.Administrator()).Run("CREATE DATABASE " + database.Name());
    CMyDatabase first(Settings(), database.Name().c_str());
    CMyDatabase second(SettingsOf(node.Tester()), database.Name().c_str());
    EXPECT_TRUE(first.LockDatabase(0));
    EXPECT_TRUE(second.LockDatabase(0));
}

struct OddName
{
    std::string bytes;
    unsigned long error; ///< of the statements about its lock
};

/// A database of any name, which the temporary ones do not have.
class OddlyNamed : public testing::TestWithParam<OddName>
{
protected:
    OddlyNamed() { m_administrator.Run("CREATE DATABASE `" + m_name + "`"); }
    ~OddlyNamed() override { m_administrator.Run("DROP DATABASE `" + m_name + "`"); }

    const std::string m_name = GetParam().bytes;
    harness::RawConnection m_administrator{PrivateServer::Get().Administrator()};
};

TEST_P(OddlyNamed, Kept_K111_GetsTheServersErrorShown)
{
    const harness::MessageRecorder messages;
    CMyDatabase database(SettingsOf(PrivateServer::Get().Administrator()), UtCString(m_name.c_str(), UT_ENCODING_UTF8));
    ASSERT_TRUE(database.Open(false, ""));
    const bool isSound = GetParam().error == 0;
    EXPECT_EQ(database.LockDatabase(0), isSound);
    EXPECT_EQ(database.GetErrorCode(), GetParam().error);
    EXPECT_EQ(database.IsDatabaseLocked(), isSound);
    EXPECT_EQ(database.UnLockDatabase(), isSound);
    EXPECT_EQ(messages.Messages().size(), isSound ? 0U : 3U);
}

/// As many letters of three bytes, of a kind whose names fit into a file name.
std::string ThreeByteLetters(int count)
{
    std::string letters;
    for (; count > 0; --count)
        letters += "\xE1\xB8\x80";
    return letters;
}

INSTANTIATE_TEST_SUITE_P(Names, OddlyNamed,
                         testing::Values(OddName{"mydb_lock_it's", 1064}, OddName{"mydb_lock_b\\", 0},
                                         OddName{"mydb lock-\"%s\";", 0}, OddName{"mydb_gr\xC3\xBC\xC3\x9F", 0},
                                         OddName{ThreeByteLetters(62), 0}, OddName{ThreeByteLetters(63), 1059}));

/// Memory that runs out at each allocation in turn. The work is what a program does; its result is looked at later.
class DatabaseLockMemory : public DatabaseLockOnAServer, public testing::WithParamInterface<bool>
{
protected:
    static void GiveMemory() { harness::AllocationFailure::allocationsLeft = -1; }
};

TEST_P(DatabaseLockMemory, IsReportedAsHeldOnlyWhenItIs)
{
    ASSERT_TRUE(m_database.Open(false, ""));
    const harness::GeneralLog log;
    bool isTrueOnlyWhenHeld = true;
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        const bool isLocked = m_database.LockDatabase(0);
        GiveMemory();
        const bool isHeld = m_database.UnLockDatabase();
        isTrueOnlyWhenHeld = isTrueOnlyWhenHeld && (!isLocked || isHeld);
    });
    EXPECT_GT(failures, 0);
    EXPECT_TRUE(isTrueOnlyWhenHeld);
    for (const std::string& statement : log.Statements(m_database.GetThreadID()))
        EXPECT_TRUE(statement.ends_with("_LOCK('" + m_temporary.Name() + "_lock')") ||
                    statement.ends_with("_LOCK('" + m_temporary.Name() + "_lock', 0)"))
            << "never another statement: " << statement;
}

TEST_P(DatabaseLockMemory, TheOtherQuestionsRunOutWithoutHarm)
{
    ASSERT_TRUE(m_database.Open(false, ""));
    bool isHonest = true;
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        const bool isLocked = m_database.IsDatabaseLocked();
        const bool isReleased = m_database.UnLockDatabase();
        isHonest = isHonest && !isLocked && !isReleased;
    });
    EXPECT_GT(failures, 0);
    EXPECT_TRUE(isHonest);
}

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, DatabaseLockMemory, testing::Bool());

} // namespace
