#include "CopyFixture.h"

namespace {

using server_test::CopyJob;
using server_test::Texts;

/// What a copy does not carry, found on a real server. The root of each test has a settings file for that server.
class CopyLimits : public server_test::CopyFixture
{
protected:
    /// The copy fails and leaves nothing but the source, whose checksums stay.
    void ExpectFailure(const Texts& statements)
    {
        WithSource(statements, [](CopyJob& job) { server_test::ExpectFailedCopy(job); });
    }
};

TEST_F(CopyLimits, Kept_K150_FailsOnATableThatNeedsBackticks)
{
    ExpectFailure({"CREATE TABLE `order` (a INT)"});
    ExpectFailure({"CREATE TABLE a (a INT)", "CREATE TABLE `b-c` (a INT)"});
}

TEST_F(CopyLimits, FailsOnNamesThatTheListCannotCarry)
{
    ExpectFailure({"CREATE TABLE `a,b` (a INT)"});
    ExpectFailure({"CREATE TABLE `a``b` (a INT)"});
    ExpectFailure({"CREATE TABLE a (a INT)", "CREATE TABLE `o'x` (a INT)"});
}

TEST_F(CopyLimits, Kept_K155_LoadsTheRowsOfAViewIntoItsTableOnceMore)
{
    WithSource({"CREATE TABLE t (a INT)", "CREATE VIEW v AS SELECT * FROM t", "INSERT INTO t VALUES (1)"},
               [](CopyJob& job) {
                   EXPECT_TRUE(job.Copy());
                   EXPECT_EQ(job.sql.Column("SELECT a FROM mydb_to.t"), (Texts{"1", "1"}));
               });
}

TEST_F(CopyLimits, FailsOnAViewThatComesBeforeItsTable)
{
    ExpectFailure({"CREATE TABLE t (a INT)", "CREATE VIEW a AS SELECT * FROM t"});
}

TEST_F(CopyLimits, FailsOnForeignKeysInTheWrongOrder)
{
    ExpectFailure({"CREATE TABLE z (id INT PRIMARY KEY)",
                   "CREATE TABLE a (id INT PRIMARY KEY, z INT, FOREIGN KEY (z) REFERENCES z (id))"});
}

TEST_F(CopyLimits, RefusesATableNameWithAColonBeforeItLocks)
{
    ExpectFailure({"CREATE TABLE t (a INT)", "CREATE TABLE `a:b` (a INT)"});
}

TEST_F(CopyLimits, Kept_K154_GivesANewNumberToAZeroInAnAutoIncrementColumn)
{
    WithSource({"CREATE TABLE t (a INT PRIMARY KEY AUTO_INCREMENT)", "SET sql_mode = 'NO_AUTO_VALUE_ON_ZERO'",
                "INSERT INTO t VALUES (0), (7)"},
               [](CopyJob& job) {
                   EXPECT_TRUE(job.Copy());
                   EXPECT_EQ(job.sql.Column("SELECT a FROM mydb_to.t ORDER BY a"), (Texts{"7", "8"}));
               });
}

TEST_F(CopyLimits, LeavesTriggersAndTheHistoryOfRowsBehind)
{
    WithSource(
        {"CREATE TABLE t (a INT)", "CREATE TRIGGER u BEFORE INSERT ON t FOR EACH ROW SET NEW.a = NEW.a + 1",
         "CREATE TABLE v (a INT) WITH SYSTEM VERSIONING", "INSERT INTO v VALUES (1)", "UPDATE v SET a = 2"},
        [](CopyJob& job) {
            EXPECT_TRUE(job.Copy());
            EXPECT_EQ(job.sql.Column("SHOW TRIGGERS FROM mydb_to"), Texts());
            EXPECT_EQ(job.sql.Column("SELECT a FROM mydb_from.v FOR SYSTEM_TIME ALL ORDER BY a"), (Texts{"1", "2"}));
            EXPECT_EQ(job.sql.Column("SELECT a FROM mydb_to.v FOR SYSTEM_TIME ALL"), Texts{"2"});
        });
}

TEST_F(CopyLimits, Kept_K157_ChangesACommentThatReadsLikeAStatement)
{
    WithSource({"CREATE TABLE t (a INT COMMENT 'CREATE TABLE first')"}, [](CopyJob& job) {
        EXPECT_TRUE(job.Copy());
        EXPECT_EQ(job.sql.Text("SELECT COLUMN_COMMENT FROM information_schema.COLUMNS WHERE TABLE_SCHEMA = 'mydb_to'"),
                  "CREATE TABLE `mydb_to`.first");
    });
}

TEST_F(CopyLimits, ReadsItsBackslashesAsTheyAreInNoBackslashEscapesMode)
{
    WithSource({"CREATE TABLE t (a VARCHAR(20))", "INSERT INTO t VALUES ('a\\\\nb')"}, [](CopyJob& job) {
        job.source.ExecuteQuery("SET sql_mode = 'NO_BACKSLASH_ESCAPES'", false, nullptr, false);
        EXPECT_TRUE(job.Copy());
        EXPECT_EQ(job.sql.Text("SELECT a FROM mydb_to.t"), "a\nb");
    });
}

TEST_F(CopyLimits, FailsWithUmlautsInNamesAndSettingsInTheSingleByteEncoding)
{
    WithSource({"CREATE TABLE t (gr\xC3\xB6\xC3\x9F"
                "e INT)"},
               [](CopyJob& job) {
                   job.source.GetServer().SetCharset("");
                   job.target.GetServer().SetCharset("");
                   server_test::ExpectFailedCopy(job);
               });
}

TEST_F(CopyLimits, Kept_K158_ADumpGoesOnWithoutTheLocksOfALostConnection)
{
    WithSource({"CREATE TABLE t (a INT)", "INSERT INTO t VALUES (1)"}, [](CopyJob& job) {
        EXPECT_TRUE(job.source.Open(false, ""));
        job.source.ExecuteQuery("LOCK TABLES t READ", false, nullptr, false);
        EXPECT_FALSE(job.IsUnlocked());
        harness::KillConnection(Access(), job.source.GetThreadID());
        EXPECT_EQ(job.source.DumpTable((job.temp / "t").string().c_str(), "t", false, "", "", "", "", nullptr), 1);
        EXPECT_TRUE(job.IsUnlocked());
    });
}

/// The same with a server that tells tables apart by letter case.
class CopyLimitsOfLetterCase : public CopyLimits
{
protected:
    static void SetUpTestSuite()
    {
        s_server = std::make_unique<harness::ServerProcess>(
            Texts{"--character-set-server=utf8mb4", "--lower-case-table-names=0"});
    }
};

TEST_F(CopyLimitsOfLetterCase, FailsOnNamesThatDifferInNothingElse)
{
    ExpectFailure({"CREATE TABLE T (a INT)", "CREATE TABLE t (a INT)", "INSERT INTO T VALUES (1)"});
}

/// The same with a server whose default is latin1, as a server without settings has it.
class CopyLimitsOfLatin1 : public CopyLimits
{
protected:
    static void SetUpTestSuite()
    {
        s_server = std::make_unique<harness::ServerProcess>(Texts{"--character-set-server=latin1"});
    }
};

TEST_F(CopyLimitsOfLatin1, Kept_K153_EncodesTextTwiceWhereTheTargetsDefaultIsAnotherCharset)
{
    WithSource({"CREATE TABLE t (a VARCHAR(20))", "INSERT INTO t VALUES ('M\xC3\xBCller'), ('plain')"},
               [](CopyJob& job) {
                   EXPECT_TRUE(job.Copy());
                   EXPECT_EQ(job.sql.Column("SELECT a FROM mydb_to.t"), (Texts{"M\xC3\x83\xC2\xBCller", "plain"}));
                   EXPECT_EQ(job.sql.Text("SELECT CHARACTER_SET_NAME FROM information_schema.COLUMNS WHERE"
                                          " TABLE_SCHEMA = 'mydb_to'"),
                             "utf8mb4");
               });
}

TEST_F(CopyLimitsOfLatin1, Kept_K159_SendsTheSecondTableInTheCharsetThatSetNamesDefaultLeft)
{
    const Texts tables = {"CREATE TABLE a (x INT COMMENT '\xC3\xBC')", "CREATE TABLE b (x INT COMMENT '\xC3\xBC')"};
    WithSource(tables, [](CopyJob& job) {
        EXPECT_TRUE(job.Copy());
        EXPECT_EQ(job.sql.Column("SELECT COLUMN_COMMENT FROM information_schema.COLUMNS WHERE TABLE_SCHEMA ="
                                 " 'mydb_to' ORDER BY TABLE_NAME"),
                  (Texts{"\xC3\xBC", "\xC3\x83\xC2\xBC"}));
    });
}

} // namespace
