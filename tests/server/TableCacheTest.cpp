#include "CMyDatabase.h"
#include "CMyTable.h"
#include "MyDbFunctions.h"
#include "Settings.h"
#include "harness/GeneralLog.h"
#include "harness/PrivateServer.h"
#include "harness/ServerProcess.h"
#include "metadata/FieldCache.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

CMyServer Settings(const harness::ServerAccess& access, const char* charset = "")
{
    return server_test::SettingsOf(access, charset);
}

CMyServer TesterSettings(const char* charset = "")
{
    return Settings(harness::PrivateServer::Get().Tester(), charset);
}

std::string Text(const UtCString& text)
{
    return std::string(text.View());
}

/// A database of its own with an open connection of the library to it.
class TableCacheOnServer : public testing::Test
{
protected:
    TableCacheOnServer() : m_database(TesterSettings(), m_temporary.Name().c_str()) {}

    void SetUp() override
    {
        ASSERT_TRUE(m_database.Open(false, ""));
        CFieldCache::Instance().RemoveAll();
    }
    void Run(const std::string& sql) { m_temporary.Sql().Run(sql); }
    CMyTable Table(const char* name) { return CMyTable(&m_database, name); }

    harness::TemporaryDatabase m_temporary;
    CMyDatabase m_database;
};

TEST_F(TableCacheOnServer, AsksWithAFieldListingAndOneStatement)
{
    Run("CREATE TABLE orders (id INT)");
    const harness::GeneralLog log;
    EXPECT_TRUE(Table("`Orders`").IsValid());
    EXPECT_TRUE(Table("ORDERS").IsValid());
    const std::vector<harness::LoggedCommand> commands = log.Commands(m_database.GetThreadID());
    ASSERT_EQ(commands.size(), 2U);
    EXPECT_EQ(commands[0].name, "Field List");
    EXPECT_EQ(commands[0].text.substr(0, 6), "orders");
    EXPECT_EQ(commands[1].name, "Query");
    EXPECT_EQ(commands[1].text, "SHOW TABLE STATUS FROM " + m_temporary.Name() + " LIKE 'ORDERS'");
}

TEST_F(TableCacheOnServer, OpeningADatabaseListsItsTables)
{
    CMyDatabase opened(TesterSettings(), m_temporary.Name().c_str());
    const harness::GeneralLog log;
    ASSERT_TRUE(opened.Open(false, ""));
    EXPECT_EQ(log.Statements(opened.GetThreadID()), std::vector<std::string>{"SHOW TABLES"});
}

struct EngineCase
{
    const char* engine;
    eTableTypes type;
    bool transactional;
};

TEST_F(TableCacheOnServer, KnowsTheStorageEngine)
{
    const EngineCase cases[] = {
        {"InnoDB", TABLE_TYPE_INNODB, true}, {"MyISAM", TABLE_TYPE_MYISAM, false}, {"MEMORY", TABLE_TYPE_MEMORY, false},
        {"CSV", TABLE_TYPE_CSV, false},      {"Aria", TABLE_TYPE_UNKNOWN, false},
    };
    for (const EngineCase& row : cases) {
        const std::string name = std::string("e") + row.engine;
        Run("CREATE TABLE " + name + " (id INT NOT NULL) ENGINE=" + row.engine);
        const CMyTable table = Table(name.c_str());
        EXPECT_TRUE(table.IsValid()) << row.engine;
        EXPECT_EQ(table.GetTableType(), row.type) << row.engine;
        EXPECT_EQ(table.SupportTransaction(), row.transactional) << row.engine;
    }
}

TEST_F(TableCacheOnServer, LoadsAViewWithoutEngineAndKey)
{
    Run("CREATE TABLE orders (id INT PRIMARY KEY, name VARCHAR(10))");
    Run("CREATE VIEW shortlist AS SELECT id, name, 1 + 1 AS two FROM orders");
    const CMyTable view = Table("shortlist");
    EXPECT_TRUE(view.IsValid());
    EXPECT_EQ(Text(view.GetFields("")), "`ID`, `NAME`, `TWO`");
    EXPECT_EQ(view.GetTableType(), TABLE_TYPE_UNKNOWN);
    EXPECT_FALSE(view.SupportTransaction());
    EXPECT_EQ(Text(view.GetPrimaryKeyFieldName()), "");
}

TEST_F(TableCacheOnServer, NamesPrimaryKeys)
{
    Run("CREATE TABLE k0 (a INT, b INT UNIQUE)");
    Run("CREATE TABLE k1 (a INT, Id INT PRIMARY KEY)");
    Run("CREATE TABLE k2 (a INT, x INT, b INT, PRIMARY KEY (a, b))");
    EXPECT_EQ(Text(Table("k0").GetPrimaryKeyFieldName()), "");
    EXPECT_EQ(Text(Table("k1").GetPrimaryKeyFieldName()), "Id");
    EXPECT_EQ(Text(Table("k2").GetPrimaryKeyFieldName()), "b,a");
}

TEST_F(TableCacheOnServer, AFieldListServesInAStatement)
{
    Run("CREATE TABLE prices (id INT, Name VARCHAR(10), price DOUBLE, `group` INT, `two words` INT)");
    Run("INSERT INTO prices VALUES (1, 'a', 2.5, 3, 4)");
    const UtCString fields = Table("prices").GetFields("name, price");
    EXPECT_EQ(Text(fields), "`ID`, `GROUP`, `TWO WORDS`");
    EXPECT_EQ(m_database.ExecuteQuery(UtCString("SELECT ") + fields + " FROM prices", false, nullptr, false), 1);
}

TEST_F(TableCacheOnServer, AnswersForTheTableLoadedFirstUntilTheOtherDatabaseIsOpened)
{
    harness::TemporaryDatabase other;
    Run("CREATE TABLE orders (first_column INT)");
    other.Sql().Run("CREATE TABLE orders (second_column INT)");
    CMyDatabase otherDatabase(TesterSettings(), other.Name().c_str());
    ASSERT_TRUE(otherDatabase.Open(false, ""));

    EXPECT_TRUE(Table("orders").ExistField("first_column"));
    EXPECT_TRUE(CMyTable(&otherDatabase, "orders").ExistField("first_column"));

    otherDatabase.Close();
    ASSERT_TRUE(otherDatabase.Open(false, ""));
    EXPECT_TRUE(CMyTable(&otherDatabase, "orders").ExistField("second_column"));
    EXPECT_TRUE(Table("orders").ExistField("second_column"));

    EXPECT_TRUE(MyDbStaticFieldCacheRemove("orders"));
    EXPECT_TRUE(Table("orders").ExistField("first_column"));
}

TEST_F(TableCacheOnServer, SeesATableThatWasReplacedOnlyAfterItsEntryIsRemoved)
{
    Run("CREATE TABLE orders (old_column INT) ENGINE=MyISAM");
    CMyTable table = Table("orders");
    Run("DROP TABLE orders");
    Run("CREATE TABLE orders (new_column INT, x INT) ENGINE=InnoDB");
    EXPECT_TRUE(Table("orders").ExistField("old_column"));
    EXPECT_TRUE(table.RegisterTable(false));
    EXPECT_TRUE(table.ExistField("old_column"));

    const CMyTable held(table);
    EXPECT_TRUE(table.RegisterTable(true));
    EXPECT_TRUE(table.ExistField("new_column"));
    EXPECT_TRUE(table.SupportTransaction());
    EXPECT_TRUE(Table("orders").ExistField("new_column"));
    EXPECT_TRUE(held.ExistField("old_column")) << "a handle keeps the entry that it holds";
}

TEST_F(TableCacheOnServer, ADroppedTableIsGoneAfterItsEntryIsRemoved)
{
    Run("CREATE TABLE orders (id INT)");
    CMyTable table = Table("orders");
    Run("DROP TABLE orders");
    EXPECT_TRUE(Table("orders").IsValid());
    EXPECT_TRUE(table.UnregisterTable());
    EXPECT_FALSE(Table("orders").IsValid());
    EXPECT_EQ(m_database.GetErrorCode(), 1146U);
}

TEST_F(TableCacheOnServer, ClearTableCacheReloads)
{
    Run("CREATE TABLE orders (old_column INT)");
    CMyTable table = Table("orders");
    Run("ALTER TABLE orders ADD new_column INT");
    table.ClearTableCache();
    EXPECT_TRUE(table.ExistField("new_column"));
}

TEST_F(TableCacheOnServer, LeavesTheServersReasonForATableThatItDoesNotKnow)
{
    EXPECT_FALSE(Table("missing").IsValid());
    EXPECT_EQ(m_database.GetErrorCode(), 1146U);
    EXPECT_EQ(Text(m_database.GetErrorMessage()), "1146: Table '" + m_temporary.Name() + ".missing' doesn't exist");
}

TEST_F(TableCacheOnServer, LoadsNoTableThatIsNotLockedUnderLockTables)
{
    Run("CREATE TABLE locked (id INT)");
    Run("CREATE TABLE unlocked (id INT)");
    ASSERT_EQ(m_database.ExecuteQuery("LOCK TABLES locked READ", false, nullptr, false), 0);
    EXPECT_TRUE(Table("locked").IsValid());
    EXPECT_FALSE(Table("unlocked").IsValid());
    EXPECT_EQ(m_database.GetErrorCode(), 1100U);
}

TEST_F(TableCacheOnServer, FailsWithoutACurrentDatabase)
{
    CMyDatabase noDatabase(TesterSettings(), "");
    EXPECT_FALSE(CMyTable(&noDatabase, "orders_of_nobody").IsValid());
    EXPECT_EQ(noDatabase.GetErrorCode(), 1046U);
}

TEST_F(TableCacheOnServer, LoadsAgainOverAConnectionThatTheServerDropped)
{
    Run("CREATE TABLE orders (id INT)");
    harness::KillConnection(m_database.GetThreadID());
    const CMyTable table = Table("orders");
    EXPECT_TRUE(table.IsValid());
    EXPECT_EQ(table.GetTableType(), TABLE_TYPE_INNODB);
}

// ---------------------------------------------------------------------------------------------------------------
// Names

struct NameCase
{
    const char* what;
    const char* quoted; ///< in a statement
    const char* name;   ///< as passed to the handle
};

constexpr NameCase loadedNames[] = {
    {"a blank inside", "`two words`", "two words"},
    {"a blank inside, in backticks", "`two words 2`", "`two words 2`"},
    {"a backtick", "`a``b`", "a`b"},
    {"a double quote", "`a\"b`", "a\"b"},
    {"a percent sign", "`100%s`", "100%s"},
    {"a reserved word", "`select`", "select"},
    {"a hyphen", "`a-b`", "a-b"},
    {"a backslash", "`a\\b`", "a\\b"},
};

TEST_F(TableCacheOnServer, LoadsTablesWithUnusualNames)
{
    for (const NameCase& row : loadedNames) {
        Run(std::string("CREATE TABLE ") + row.quoted + " (id INT, x INT)");
        EXPECT_EQ(Table(row.name).GetFieldCount(), 2) << row.what;
    }
}

TEST_F(TableCacheOnServer, Kept_K22_LeavesTheEngineUnknownForANameWithAnApostrophe)
{
    Run("CREATE TABLE `it's` (id INT) ENGINE=InnoDB");
    const CMyTable table = Table("it's");
    EXPECT_TRUE(table.IsValid());
    EXPECT_EQ(table.GetTableType(), TABLE_TYPE_UNKNOWN);
    EXPECT_EQ(m_database.GetErrorCode(), 1064U) << "the error of a query that the load does not need";
}

TEST_F(TableCacheOnServer, Kept_K22_ReadsTheEngineOfAnotherTableThatThePatternMatches)
{
    Run("CREATE TABLE a1b (id INT) ENGINE=MyISAM");
    Run("CREATE TABLE a_b (id INT) ENGINE=InnoDB");
    EXPECT_EQ(Table("a_b").GetTableType(), TABLE_TYPE_MYISAM);
    EXPECT_FALSE(Table("a_b").SupportTransaction());
}

TEST_F(TableCacheOnServer, Kept_K22_LeavesTheEngineUnknownInADatabaseWhoseNameNeedsBackticks)
{
    const std::string name = m_temporary.Name() + "-x";
    Run("CREATE DATABASE `" + name + "`");
    Run("CREATE TABLE `" + name + "`.orders (id INT)");
    CMyDatabase database(TesterSettings(), name.c_str());
    const CMyTable table(&database, "orders");
    EXPECT_TRUE(table.IsValid());
    EXPECT_EQ(table.GetTableType(), TABLE_TYPE_UNKNOWN);
    EXPECT_EQ(database.GetErrorCode(), 1064U);
    Run("DROP DATABASE `" + name + "`");
}

TEST_F(TableCacheOnServer, DoesNotFindATableWhoseNameBeginsWithABlank)
{
    Run("CREATE TABLE ` lead` (id INT)");
    EXPECT_FALSE(Table(" lead").IsValid());
    EXPECT_EQ(m_database.GetErrorCode(), 1146U);
}

TEST_F(TableCacheOnServer, LoadsTheLongestNameAndGetsTheServersRefusalForALongerOne)
{
    const std::string longest(64, 'x');
    Run("CREATE TABLE " + longest + " (id INT)");
    EXPECT_TRUE(Table(longest.c_str()).IsValid());
    for (const size_t length : {size_t{65}, size_t{126}}) {
        EXPECT_FALSE(Table(std::string(length, 'x').c_str()).IsValid()) << length;
        EXPECT_EQ(m_database.GetErrorCode(), 1103U) << length;
    }
}

TEST_F(TableCacheOnServer, RefusesALongerNameWithTheServersOwnText)
{
    EXPECT_FALSE(Table(std::string(126, 'x').c_str()).IsValid());
    const std::string fromServer = Text(m_database.GetErrorMessage());
    const harness::GeneralLog log;
    EXPECT_FALSE(Table(std::string(127, 'x').c_str()).IsValid());
    EXPECT_EQ(Text(m_database.GetErrorMessage()), fromServer);
    EXPECT_TRUE(log.Commands(m_database.GetThreadID()).empty());
    EXPECT_EQ(m_database.GetErrorCode(), 1103U);
    EXPECT_TRUE(m_database.Ping());
}

TEST_F(TableCacheOnServer, CutsTheRefusedNameWhereTheServerCutsIt)
{
    std::string name = "X";
    for (int i = 0; i < 70; ++i)
        name += "\xC3\x96";
    CMyDatabase database(TesterSettings("utf8mb4"), m_temporary.Name().c_str());
    EXPECT_FALSE(CMyTable(&database, UtCString(name.c_str(), UT_ENCODING_UTF8)).IsValid());
    const std::string refusal = Text(database.GetErrorMessage());
    const UtCString statement(("SELECT * FROM `" + name + "`").c_str(), UT_ENCODING_UTF8);
    EXPECT_EQ(database.ExecuteQuery(statement, false, nullptr, false), -1);
    EXPECT_EQ(refusal, Text(database.GetErrorMessage()));
}

TEST_F(TableCacheOnServer, LoadsATableWithUmlautsOnAUtf8Connection)
{
    Run("CREATE TABLE `gr\xC3\xB6\xC3\x9F"
        "e` (id INT) ENGINE=MyISAM");
    CMyDatabase database(TesterSettings("utf8mb4"), m_temporary.Name().c_str());
    const CMyTable table(&database, "Gr\xF6\xDF"
                                    "e");
    EXPECT_TRUE(table.IsValid());
    EXPECT_EQ(table.GetTableType(), TABLE_TYPE_MYISAM);
}

TEST_F(TableCacheOnServer, RefusesANameOf64TwoByteLetters)
{
    std::string name;
    for (int i = 0; i < 64; ++i)
        name += "\xC3\xA4";
    Run("CREATE TABLE `" + name + "` (id INT)");
    CMyDatabase database(TesterSettings("utf8mb4"), m_temporary.Name().c_str());
    EXPECT_FALSE(CMyTable(&database, UtCString(name.c_str(), UT_ENCODING_UTF8)).IsValid());
    EXPECT_EQ(database.GetErrorCode(), 1103U);
}

TEST_F(TableCacheOnServer, Kept_K28_GivesColumnNamesAsTheServersBytes)
{
    Run("CREATE TABLE t (`gr\xC3\xB6\xC3\x9F"
        "e` INT, `\xC3\x9C` INT)");
    const CMyTable table = Table("t");
    EXPECT_EQ(Text(table.GetFieldName(0)), "gr\xC3\xB6\xC3\x9F"
                                           "e");
    EXPECT_EQ(table.GetField(0UL)->GetName().GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_FALSE(table.ExistField("gr\xF6\xDF"
                                  "e"));
    EXPECT_TRUE(table.ExistField("gr\xC3\xB6\xC3\x9F"
                                 "e"));
    EXPECT_EQ(Text(table.GetFields("")), "`GR\xC3\xB6\xC3\x9F"
                                         "E`, `\xC3\x8C`")
        << "the second byte is turned to upper case as a letter of its own";
}

TEST(TableCacheOnCaseSensitiveServer, Kept_K25_FindsOnlyTablesNamedInUpperCase)
{
    CFieldCache::Instance().RemoveAll();
    harness::ServerProcess server({"--lower-case-table-names=0"});
    harness::TemporaryDatabase temporary(server.Administrator(), server.Tester());
    temporary.Sql().Run("CREATE TABLE orders (id INT)");
    temporary.Sql().Run("CREATE TABLE ITEMS (id INT)");
    CMyDatabase database(Settings(server.Tester()), temporary.Name().c_str());
    EXPECT_FALSE(CMyTable(&database, "orders").IsValid());
    EXPECT_EQ(database.GetErrorCode(), 1146U);
    EXPECT_TRUE(CMyTable(&database, "items").IsValid());
}

} // namespace
