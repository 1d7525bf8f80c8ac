#pragma once

#include "CMyDatabase.h"
#include "Settings.h"

#include "ServerIniFile.h"
#include "harness/GeneralLog.h"
#include "harness/MessageRecorder.h"
#include "harness/OtherRoot.h"
#include "harness/ServerProcess.h"
#include "harness/System.h"
#include "harness/TemporaryFolder.h"
#include "metadata/FieldCache.h"
#include "unit/Environment.h"
#include "unit/NewFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace server_test {

using Texts = std::vector<std::string>;

/// The settings file in the root by which RemoveDatabase asks what the server knows.
inline void WriteSettingsFile(const std::filesystem::path& root, const harness::ServerAccess& access)
{
    std::ofstream(root / "Server.ini") << "[SQL-Server]\nServer=" << access.host << "\nPort=" << access.port
                                       << "\nUser=" << access.user
                                       << "\nPassword=" << EncipherPassword(access.password).value_or("") << "\n";
}

inline const Texts twoLargeTables = {"CREATE TABLE a (id INT PRIMARY KEY, t VARCHAR(200)) ENGINE=MyISAM",
                                     "CREATE TABLE b (id INT PRIMARY KEY, t VARCHAR(200)) ENGINE=InnoDB",
                                     "INSERT INTO a SELECT seq, REPEAT('o''x', 30) FROM seq_1_to_100000",
                                     "INSERT INTO b SELECT seq, REPEAT('o''x', 30) FROM seq_1_to_100000"};

/// One copy on a real server: from "mydb_from" to "mydb_to", both opened as a host does. `root` holds the data
/// directories and the temporary files.
class CopyJob
{
public:
    CopyJob(const harness::ServerAccess& access, const std::filesystem::path& root, const char* charset = "utf8mb4")
        : sql(access), temp(root / "temp"), source(Settings(access, root / "one", charset), "mydb_from"),
          target(Settings(access, root / "two", charset), "mydb_to")
    {
        std::filesystem::create_directories(temp);
        std::filesystem::create_directories(root / "one" / "DBS" / "mydb_from");
        std::ofstream(root / "one" / "DBS" / "mydb_from" / "notes.txt") << "beside";
        sql.Run("SET SESSION foreign_key_checks = 0");
        sql.Run("DROP DATABASE IF EXISTS mydb_from");
        sql.Run("CREATE DATABASE mydb_from CHARACTER SET utf8mb4");
        sql.Run("CREATE OR REPLACE DATABASE mydb_to");
        EXPECT_TRUE(target.Open(false, ""));
        sql.Run("DROP DATABASE mydb_to");
        sql.Run("USE mydb_from");
        sql.Run("SET SESSION foreign_key_checks = 1");
    }
    CopyJob(const CopyJob&) = delete;
    CopyJob& operator=(const CopyJob&) = delete;
    ~CopyJob() { CFieldCache::Instance().RemoveAll(); }

    static CMyServer Settings(const harness::ServerAccess& access, const std::filesystem::path& data,
                              const char* charset)
    {
        CMyServer server = server_test::SettingsOf(access, charset);
        server.SetDataDir(UtCString(Utf8(data), UT_ENCODING_UTF8).replace("/", "\\"));
        return server;
    }

    bool Copy() { return source.CopyDatabase(target, nullptr); }

    /// The checksum of each table, by the table's name.
    std::map<std::string, std::string> Checksums(const std::string& database)
    {
        std::map<std::string, std::string> sums;
        for (const std::string& table : sql.Column("SHOW FULL TABLES FROM " + database + " WHERE Table_type <> 'VIEW'"))
            sums[table] = sql.Rows("CHECKSUM TABLE " + database + "." + Quoted(table))[0][1].value_or("none");
        return sums;
    }
    bool HasTarget() { return !sql.Column("SHOW DATABASES LIKE 'mydb\\_to'").empty(); }
    Texts TemporaryFiles() const
    {
        Texts names;
        for (const auto& entry : std::filesystem::directory_iterator(temp))
            names.push_back(entry.path().filename().string());
        return names;
    }
    /// Whether somebody else may write into every table of the source.
    bool IsUnlocked()
    {
        sql.Run("SET SESSION lock_wait_timeout = 1");
        for (const std::string& table : sql.Column("SHOW FULL TABLES FROM mydb_from WHERE Table_type = 'BASE TABLE'"))
            if (sql.ErrorOf("LOCK TABLES mydb_from." + Quoted(table) + " WRITE") != 0)
                return false;
        sql.Run("UNLOCK TABLES");
        return true;
    }

    static std::string Quoted(const std::string& name)
    {
        std::string quoted = "`";
        for (const char character : name)
            quoted.append(character == '`' ? 2 : 1, character);
        return quoted + "`";
    }

    harness::RawConnection sql;
    std::filesystem::path temp;
    Environment tempFolder{harness::temporaryFolderVariable, temp.string().c_str()};
    harness::MessageRecorder messages;
    CMyDatabase source;
    CMyDatabase target;
};

/// Copies, and checks that it failed and left nothing behind but the source as it was, which others may write to.
inline void ExpectFailedCopy(CopyJob& job)
{
    const auto before = job.Checksums("mydb_from");
    EXPECT_FALSE(job.Copy());
    EXPECT_EQ(job.Checksums("mydb_from"), before);
    EXPECT_FALSE(job.HasTarget());
    EXPECT_FALSE(std::filesystem::exists("two/DBS/mydb_to"));
    EXPECT_EQ(job.TemporaryFiles(), Texts());
    EXPECT_TRUE(job.IsUnlocked());
    EXPECT_EQ(job.messages.WaitBegins(), job.messages.WaitEnds());
}

/// A server with utf8mb4 as its default, shared by the tests of a suite.
class CopyFixture : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_server = std::make_unique<harness::ServerProcess>(
            Texts{"--character-set-server=utf8mb4", "--max-allowed-packet=64M", "--skip-name-resolve"});
    }
    static void TearDownTestSuite() { s_server.reset(); }

    static const harness::ServerAccess& Access() { return s_server->Administrator(); }

    /// Runs `body` where the test's folder is the root and the working directory and has the settings file of the
    /// server, with a job whose source is made by the statements.
    template <class Body> void WithSource(const Texts& statements, Body&& body)
    {
        WriteSettingsFile(m_folder.Path(), Access());
        EXPECT_TRUE(harness::InOtherRoot(m_folder.Path(), [&] {
            try {
                CopyJob job(Access(), std::filesystem::current_path());
                for (const std::string& statement : statements)
                    job.sql.Run(statement);
                body(job);
            } catch (const std::exception& error) {
                ADD_FAILURE() << error.what();
            }
        }));
    }

    inline static std::unique_ptr<harness::ServerProcess> s_server;
    harness::TemporaryFolder m_folder;
};

} // namespace server_test
