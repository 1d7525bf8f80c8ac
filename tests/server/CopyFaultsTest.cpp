#include "CopyFixture.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace {

using server_test::CopyJob;
using server_test::Texts;
using server_test::twoLargeTables;

/// Waits in a thread of its own until a statement runs, and then does something once.
class Saboteur
{
public:
    template <class Deed>
    Saboteur(const harness::ServerAccess& access, const std::string& statementStart, Deed deed)
        : m_thread([=, this] {
              harness::RawConnection connection(access);
              while (!m_isOver) {
                  const auto found = connection.Column(
                      "SELECT ID FROM information_schema.PROCESSLIST WHERE INFO LIKE '" + statementStart + "%'");
                  if (!found.empty()) {
                      deed(connection, found.front());
                      m_hasActed = true;
                      return;
                  }
                  std::this_thread::sleep_for(std::chrono::milliseconds(1));
              }
          })
    {
    }
    ~Saboteur() { End(); }

    bool End()
    {
        m_isOver = true;
        if (m_thread.joinable())
            m_thread.join();
        return m_hasActed;
    }

private:
    std::atomic<bool> m_isOver = false;
    std::atomic<bool> m_hasActed = false;
    std::thread m_thread;
};

class CopyFaults : public server_test::CopyFixture
{
};

TEST_F(CopyFaults, UndoesTheCopyWhenTheSourceIsLostWhileItIsDumped)
{
    WithSource(twoLargeTables, [](CopyJob& job) {
        Saboteur saboteur(Access(), "SELECT * FROM b",
                          [](harness::RawConnection& sql, const std::string& id) { sql.ErrorOf("KILL " + id); });
        server_test::ExpectFailedCopy(job);
        EXPECT_TRUE(saboteur.End());
    });
}

TEST_F(CopyFaults, CopiesOrUndoesTheCopyWhenTheTargetIsLostWhileItIsLoaded)
{
    // The load is sent again over a new connection: its rows are there already in part, and what is there twice is
    // left.
    WithSource(twoLargeTables, [](CopyJob& job) {
        const auto before = job.Checksums("mydb_from");
        Saboteur saboteur(Access(), "LOAD DATA",
                          [](harness::RawConnection& sql, const std::string& id) { sql.ErrorOf("KILL " + id); });
        EXPECT_TRUE(job.Copy());
        EXPECT_TRUE(saboteur.End());
        EXPECT_EQ(job.Checksums("mydb_to"), before);
        EXPECT_EQ(job.Checksums("mydb_from"), before);
        EXPECT_EQ(job.TemporaryFiles(), Texts());
        EXPECT_TRUE(job.IsUnlocked());
    });
}

TEST_F(CopyFaults, LocksAgainWhenTheSourceIsLostWhileItWaitsForItsLocks)
{
    WithSource(twoLargeTables, [](CopyJob& job) {
        harness::RawConnection writer(Access(), "mydb_from");
        writer.Run("LOCK TABLES b WRITE");
        Saboteur saboteur(Access(), "FLUSH TABLES", [&](harness::RawConnection& sql, const std::string& id) {
            sql.ErrorOf("KILL " + id);
            writer.Run("UNLOCK TABLES");
        });
        EXPECT_TRUE(job.Copy());
        EXPECT_TRUE(saboteur.End());
        EXPECT_EQ(job.Checksums("mydb_to"), job.Checksums("mydb_from"));
        EXPECT_TRUE(job.IsUnlocked());
    });
}

TEST_F(CopyFaults, UndoesTheCopyWhenTheDirectoryCannotBeCopied)
{
    WithSource(twoLargeTables, [](CopyJob& job) {
        std::filesystem::remove_all("one/DBS/mydb_from");
        server_test::ExpectFailedCopy(job);
    });
}

TEST_F(CopyFaults, UndoesTheCopyWhenSomebodyElseCreatesTheTargetMeanwhile)
{
    WithSource(twoLargeTables, [](CopyJob& job) {
        Saboteur saboteur(Access(), "SELECT * FROM a",
                          [](harness::RawConnection& sql, const std::string&) { sql.Run("CREATE DATABASE mydb_to"); });
        server_test::ExpectFailedCopy(job);
        EXPECT_TRUE(saboteur.End());
    });
}

class CopyFaultsWithoutLoad : public CopyFaults
{
protected:
    static void SetUpTestSuite() { s_server = std::make_unique<harness::ServerProcess>(Texts{"--local-infile=0"}); }
};

TEST_F(CopyFaultsWithoutLoad, UndoesTheCopyWhenTheServerRefusesToLoad)
{
    WithSource({"CREATE TABLE t (a INT)", "INSERT INTO t VALUES (1)"}, [](CopyJob& job) {
        server_test::ExpectFailedCopy(job);
        EXPECT_EQ(job.messages.Cleanups(), std::vector<unsigned long>{0});
    });
}

/// The server is killed while a statement runs.
class CopyFaultsOfTheServer : public CopyFaults, public testing::WithParamInterface<const char*>
{
};

TEST_P(CopyFaultsOfTheServer, LeaveTheSourceAsItWasAndNoTemporaryFile)
{
    CopyJob job(Access(), m_folder.Path());
    for (const std::string& statement : twoLargeTables)
        job.sql.Run(statement);
    job.sql.Run("FLUSH TABLES");
    const auto before = job.Checksums("mydb_from");
    Saboteur saboteur(Access(), GetParam(), [](harness::RawConnection&, const std::string&) { s_server->Kill(); });
    EXPECT_FALSE(job.Copy());
    EXPECT_TRUE(saboteur.End());
    EXPECT_EQ(job.TemporaryFiles(), Texts());
    s_server->Start();
    harness::RawConnection sql(Access());
    EXPECT_EQ(sql.Rows("CHECKSUM TABLE mydb_from.a")[0][1], before.at("a"));
    EXPECT_EQ(sql.Rows("CHECKSUM TABLE mydb_from.b")[0][1], before.at("b"));
}

INSTANTIATE_TEST_SUITE_P(Statements, CopyFaultsOfTheServer, testing::Values("SELECT * FROM a", "LOAD DATA"));

} // namespace
