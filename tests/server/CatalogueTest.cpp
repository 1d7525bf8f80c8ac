#include "RecordSetFixture.h"
#include "Settings.h"

#include "CMyTable.h"
#include "ServerIniFile.h"
#include "harness/AllocationFailure.h"
#include "harness/MessageRecorder.h"
#include "harness/OtherRoot.h"
#include "text/UtCStringList.h"

#include <filesystem>
#include <fstream>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Statements = std::vector<std::string>;

class CatalogueOnAServer : public server_test::RecordSetFixture
{
protected:
    CatalogueOnAServer() { m_database.GetServer().SetCharset("utf8mb4"); }

    std::string ListText(const char* pattern = "") { return Bytes(m_database.GetTables(pattern)); }
    std::vector<std::string> Names(const char* pattern = "")
    {
        UtCStringList list;
        const long count = m_database.GetTables(list, pattern);
        EXPECT_EQ(count, list.GetCount());
        std::vector<std::string> names;
        for (int position = 0; position < list.GetCount(); ++position)
            names.push_back(Bytes(list.item(position)));
        return names;
    }
    bool Exists(const std::string& table)
    {
        return m_temporary.Sql().Text("SELECT COUNT(*) FROM information_schema.TABLES WHERE TABLE_SCHEMA = '" +
                                      m_temporary.Name() + "' AND TABLE_NAME = " + m_temporary.Sql().Quoted(table)) ==
               "1";
    }

    harness::MessageRecorder m_messages;
};

TEST_F(CatalogueOnAServer, ListsTablesAndViews)
{
    Run("CREATE TABLE b (id INT)");
    Run("CREATE TABLE a (id INT)");
    Run("CREATE VIEW x1 AS SELECT * FROM a");
    EXPECT_EQ(ListText(), "`a`, `b`, `x1`");
    EXPECT_EQ(Names(), (std::vector<std::string>{"a", "b", "x1"}));
    EXPECT_EQ(ListText("x%"), "`x1`");
    EXPECT_EQ(Names("x%"), (std::vector<std::string>{"a", "b", "x1"}));
    EXPECT_EQ(m_database.GetTableCount(), 3);
    EXPECT_EQ(ListText("nothing"), "");
}

TEST_F(CatalogueOnAServer, SendsTheStatementsThatItDocuments)
{
    Run("CREATE TABLE a (id INT) ENGINE=MyISAM");
    Run("CREATE TABLE b (id INT) ENGINE=MyISAM");
    const harness::GeneralLog log;
    UtCStringList list;
    m_database.GetTables("");
    m_database.GetTables("x%");
    m_database.GetTables(list, "x%");
    m_database.GetTableCount();
    m_database.GetDBSize();
    EXPECT_TRUE(m_database.CompressDatabase(true));
    EXPECT_FALSE(m_database.RemoveTable("a"));
    EXPECT_EQ(log.Statements(m_database.GetThreadID()),
              (Statements{"SHOW TABLES", "SHOW TABLES LIKE 'x%'", "SHOW TABLES", "SHOW TABLES", "SHOW TABLE STATUS",
                          "SHOW TABLES", "OPTIMIZE TABLE `a`, `b`", "DROP TABLE IF EXISTS " + m_temporary.Name() + ".a",
                          "SHOW TABLES FROM " + m_temporary.Name() + " LIKE 'A'"}));
}

TEST_F(CatalogueOnAServer, HasNothingInAnEmptyDatabase)
{
    EXPECT_EQ(ListText(), "");
    EXPECT_TRUE(Names().empty());
    EXPECT_EQ(m_database.GetTableCount(), 0);
    EXPECT_EQ(m_database.GetDBSize(), -1);
    EXPECT_FALSE(m_database.CompressDatabase(true));
    EXPECT_FALSE(m_database.CompressDatabase(false));
}

TEST_F(CatalogueOnAServer, CopesWithNamesThatNeedBackticks)
{
    for (const char* name : {"my table", "x-y", "order", "it's", "say \"hi\"", "100%",
                             "k\xC3\xBC"
                             "che"})
        Run(std::string("CREATE TABLE `") + name + "` (id INT) ENGINE=MyISAM");
    EXPECT_EQ(Names(), (std::vector<std::string>{"100%", "it's",
                                                 "k\xC3\xBC"
                                                 "che",
                                                 "my table", "order", "say \"hi\"", "x-y"}));
    EXPECT_TRUE(m_database.CompressDatabase(true));
    EXPECT_EQ(m_database.GetErrorCode(), 0UL);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(CatalogueOnAServer, FailsWithANameThatHoldsABacktick)
{
    Run("CREATE TABLE `a``b` (id INT)");
    EXPECT_EQ(ListText(), "`a`b`");
    EXPECT_EQ(Names(), std::vector<std::string>{"a`b"});
    EXPECT_TRUE(m_database.CompressDatabase(true));
    EXPECT_EQ(m_database.GetErrorCode(), 1064UL);
}

TEST_F(CatalogueOnAServer, CutsANameAtItsComma)
{
    Run("CREATE TABLE `a,b` (id INT)");
    EXPECT_EQ(Names(), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(m_database.GetTableCount(), 1);
}

TEST_F(CatalogueOnAServer, AddsUpTheSizesThatTheServerReports)
{
    MakeOrders(1000);
    Run("CREATE TABLE m (a INT, KEY (a)) ENGINE=MyISAM SELECT ID AS a FROM orders");
    Run("CREATE VIEW v AS SELECT * FROM m");
    const std::string size = m_temporary.Sql()
                                 .Text("SELECT SUM(DATA_LENGTH + INDEX_LENGTH) FROM "
                                       "information_schema.TABLES WHERE TABLE_SCHEMA = '" +
                                       m_temporary.Name() + "'")
                                 .value();
    EXPECT_EQ(std::to_string(m_database.GetDBSize()), size);
    EXPECT_GT(m_database.GetDBSize(), 7000);
}

TEST_F(CatalogueOnAServer, GivesTheSpaceOfDeletedRowsBack)
{
    MakeOrders(2000);
    Run("ALTER TABLE orders ENGINE=MyISAM");
    Run("DELETE FROM orders WHERE ID > 10");
    const __int64 before = m_database.GetDBSize();
    EXPECT_TRUE(m_database.CompressDatabase(true));
    EXPECT_LT(m_database.GetDBSize(), before / 2);
}

TEST_F(CatalogueOnAServer, GivesAHandleOnATable)
{
    MakeOrders(3);
    EXPECT_EQ(m_database.GetTable("orders").GetRecordCount(), 3);
    EXPECT_FALSE(m_database.GetTable("nothing").IsValid());
}

// ---- Removing -------------------------------------------------------------------------------------------------------

TEST_F(CatalogueOnAServer, RemovesATable)
{
    MakeOrders(1);
    ASSERT_TRUE(m_database.GetTable("orders").IsValid());
    EXPECT_FALSE(m_database.RemoveTable("orders"));
    EXPECT_FALSE(Exists("orders"));
    EXPECT_FALSE(m_database.GetTable("orders").IsValid());
    EXPECT_FALSE(m_database.RemoveTable("orders")) << "it is gone, too";
}

TEST_F(CatalogueOnAServer, SaysThatAViewIsStillThere)
{
    MakeOrders(1);
    Run("CREATE VIEW recent AS SELECT * FROM orders");
    EXPECT_TRUE(m_database.RemoveTable("recent"));
    EXPECT_TRUE(Exists("recent"));
}

TEST_F(CatalogueOnAServer, TakesAnotherTableForTheRemovedOne)
{
    Run("CREATE TABLE a_b (id INT)");
    Run("CREATE TABLE a1b (id INT)");
    EXPECT_TRUE(m_database.RemoveTable("a_b"));
    EXPECT_FALSE(Exists("a_b"));
    EXPECT_TRUE(Exists("a1b"));
}

TEST_F(CatalogueOnAServer, RemovesATableThatNeedsBackticksInBackticksOnly)
{
    for (const char* name : {"my table", "x-y", "it's"}) {
        Run(std::string("CREATE TABLE `") + name + "` (id INT)");
        m_database.RemoveTable(name);
        EXPECT_TRUE(Exists(name)) << name;
        m_database.RemoveTable((std::string("`") + name + "`").c_str());
        EXPECT_FALSE(Exists(name)) << name;
    }
}

TEST_F(CatalogueOnAServer, RemovesATableNamedByAReservedWord)
{
    MakeOrders(1);
    Run("RENAME TABLE orders TO `order`");
    EXPECT_FALSE(m_database.RemoveTable("order"));
    EXPECT_FALSE(Exists("order"));
}

TEST_F(CatalogueOnAServer, DropsAnotherTableWhereTheNameHoldsAComment)
{
    Run("CREATE TABLE a (id INT)");
    Run("CREATE TABLE `a#b` (id INT)");
    EXPECT_TRUE(m_database.RemoveTable("a#b"));
    EXPECT_FALSE(Exists("a"));
    EXPECT_TRUE(Exists("a#b"));
}

/// A root folder for a process of its own, with a settings file in it that names the real server, and a database whose
/// folder lies below it.
class RemoveDatabaseOnAServer : public testing::Test
{
protected:
    RemoveDatabaseOnAServer()
    {
        fs::create_directories(Folder() / "deep");
        std::ofstream(Folder() / "deep" / "file") << "x";
    }

    fs::path Folder() const { return m_ini.DataPath() + "/dbs/" + m_temporary.Name(); }

    CMyServer Settings() const
    {
        const harness::ServerAccess& access = harness::PrivateServer::Get().Administrator();
        CMyServer server = server_test::SettingsOf(access, "");
        server.SetDataDir("/data");
        return server;
    }
    bool IsKnown() const
    {
        return harness::RawConnection(harness::PrivateServer::Get().Administrator())
                   .Text("SELECT COUNT(*) FROM information_schema.SCHEMATA WHERE SCHEMA_NAME = '" + m_temporary.Name() +
                         "'") == "1";
    }

    server_test::ServerIniFile m_ini{harness::PrivateServer::Get().Administrator()};
    harness::TemporaryDatabase m_temporary;
};

TEST_F(RemoveDatabaseOnAServer, DropsItAndDeletesItsDirectory)
{
    m_temporary.Sql().Run("CREATE TABLE a (id INT)");
    m_temporary.Sql().Run("CREATE TABLE `my table` (id INT)");
    const harness::GeneralLog log;
    EXPECT_TRUE(harness::InOtherRoot(fs::path(m_ini.Path()).parent_path(), [&] {
        CMyDatabase database(Settings(), m_temporary.Name().c_str());
        EXPECT_TRUE(database.RemoveDatabase());
        EXPECT_FALSE(database.IsConnected());
    }));
    const Statements sent = log.Statements();
    EXPECT_FALSE(IsKnown());
    EXPECT_FALSE(fs::exists(Folder()));
    EXPECT_TRUE(fs::exists(Folder().parent_path()));
    EXPECT_EQ(sent, (Statements{"SHOW TABLES", "SHOW DATABASES", "SHOW TABLES", "FLUSH TABLES `a`, `my table`",
                                "DROP DATABASE " + m_temporary.Name()}));
}

TEST_F(RemoveDatabaseOnAServer, DropsAnotherDatabaseWhereTheNameHoldsAComment)
{
    const std::string name = m_temporary.Name() + "#1";
    harness::RawConnection administrator(harness::PrivateServer::Get().Administrator());
    administrator.Run("CREATE DATABASE `" + name + "`");
    EXPECT_TRUE(harness::InOtherRoot(fs::path(m_ini.Path()).parent_path(), [&] {
        CMyDatabase database(Settings(), name.c_str());
        EXPECT_TRUE(database.RemoveDatabase());
    }));
    EXPECT_FALSE(IsKnown());
    EXPECT_TRUE(fs::exists(Folder())) << "only the directory is the one of the name";
    EXPECT_EQ(administrator.ErrorOf("DROP DATABASE `" + name + "`"), 0U) << "it is still there";
}

TEST_F(RemoveDatabaseOnAServer, OnlyDeletesTheDirectoryWithoutASettingsFileInTheRoot)
{
    fs::remove(m_ini.Path());
    EXPECT_TRUE(harness::InOtherRoot(fs::path(m_ini.Path()).parent_path(), [&] {
        CMyDatabase database(Settings(), m_temporary.Name().c_str());
        EXPECT_TRUE(database.RemoveDatabase());
    }));
    EXPECT_TRUE(IsKnown());
    EXPECT_FALSE(fs::exists(Folder()));
}

TEST_F(RemoveDatabaseOnAServer, DoesNothingForADatabaseThatTheServerDoesNotHave)
{
    m_temporary.Sql().Run("DROP DATABASE " + m_temporary.Name());
    EXPECT_TRUE(harness::InOtherRoot(fs::path(m_ini.Path()).parent_path(), [&] {
        CMyDatabase database(Settings(), m_temporary.Name().c_str());
        EXPECT_FALSE(database.RemoveDatabase());
        EXPECT_EQ(database.GetErrorCode(), 1049UL);
    }));
    EXPECT_TRUE(fs::exists(Folder()));
}

// ---- Memory that runs out -------------------------------------------------------------------------------------------

class CatalogueMemory : public CatalogueOnAServer, public testing::WithParamInterface<bool>
{
protected:
    CatalogueMemory()
    {
        Run(std::string("CREATE TABLE ") + first + " (id INT) ENGINE=MyISAM");
        Run(std::string("CREATE TABLE ") + second + " (id INT) ENGINE=MyISAM");
    }

    static constexpr const char* first = "a_table_with_a_name_that_does_not_fit_into_the_text_itself";
    static constexpr const char* second = "b_table_with_a_name_that_does_not_fit_into_the_text_itself";
};

TEST_P(CatalogueMemory, ListsAllTablesOrNone)
{
    const UtCString whole = m_database.GetTables("");
    bool isAllOrNothing = !whole.IsEmpty();
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        const UtCString text = m_database.GetTables("");
        UtCStringList list;
        const long count = m_database.GetTables(list, "");
        isAllOrNothing = isAllOrNothing && (text.IsEmpty() || text == whole) && (count == 0 || count == 2) &&
                         list.GetCount() == count;
    });
    EXPECT_GT(failures, 5);
    EXPECT_TRUE(isAllOrNothing);
}

TEST_P(CatalogueMemory, SendsItsStatementsWholeOrNotAtAll)
{
    const std::string drop = "DROP TABLE IF EXISTS " + m_temporary.Name() + ".c_" + first;
    const std::string optimize = std::string("OPTIMIZE TABLE `") + first + "`, `" + second + "`";
    const UtCString missing = (std::string("c_") + first).c_str();
    const harness::GeneralLog log;
    bool isHonest = true;
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        const bool isThere = m_database.RemoveTable(missing);
        m_database.CompressDatabase(true);
        const __int64 size = m_database.GetDBSize();
        isHonest = isHonest && !isThere && size >= -1;
    });
    EXPECT_GT(failures, 5);
    EXPECT_TRUE(isHonest);
    for (const std::string& statement : log.Statements(m_database.GetThreadID()))
        EXPECT_TRUE(statement == drop || statement == optimize || statement.starts_with("SHOW TABLE")) << statement;
}

TEST_P(CatalogueMemory, DeletesTheDirectoryOfTheDatabaseOrNothing)
{
    const harness::TemporaryFolder folder;
    const fs::path own = folder.Path() / "DBS" / m_temporary.Name();
    m_database.GetServer().SetDataDir(folder.Path().string().c_str());
    fs::create_directories(folder.Path() / "DBS" / "other");
    bool isHonest = true;
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        const long left = std::exchange(harness::AllocationFailure::allocationsLeft, -1);
        fs::create_directories(own);
        harness::AllocationFailure::allocationsLeft = left;
        const bool isRemoved = m_database.RemoveDatabase();
        harness::AllocationFailure::allocationsLeft = -1;
        isHonest = isHonest && isRemoved == !fs::exists(own) && !m_database.IsConnected();
    });
    EXPECT_GT(failures, 5);
    EXPECT_TRUE(isHonest);
    EXPECT_TRUE(fs::exists(folder.Path() / "DBS" / "other"));
    EXPECT_TRUE(m_messages.Messages().empty());
}

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, CatalogueMemory, testing::Bool());

} // namespace
