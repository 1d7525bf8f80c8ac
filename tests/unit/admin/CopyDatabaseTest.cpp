#include "CopyFixture.h"

#include "harness/FailurePoints.h"
#include "harness/OtherRoot.h"

#include <stdexcept>

namespace {

using fake::Call;
using fake::Reply;

class CopyDatabase : public CopyFixture
{
protected:
    CopyDatabase() { m_sourceHandle = connection::DatabaseAccess::Handle(m_source); }

    std::string LoadOf(const std::string& table) const
    {
        return "target: LOAD DATA LOCAL INFILE '" + Temp().generic_string() + "/" + table +
               ".000000_tmp' INTO TABLE `shop2`.`" + table +
               "` FIELDS TERMINATED BY ',' ENCLOSED BY '\"' ESCAPED BY '\\\\' LINES TERMINATED BY '\\r\\n';";
    }
    Texts AllStatements() const
    {
        return {"source: FLUSH TABLES `kunden`, `order list`;",
                "source: LOCK TABLES `kunden` READ, `order list` READ;",
                "source: SELECT * FROM kunden",
                "source: SELECT * FROM order list",
                "source: UNLOCK TABLES;",
                "target: CREATE DATABASE `shop2`",
                "source: SHOW CREATE TABLE `shop`.`kunden`",
                "target: CREATE TABLE `shop2`.`kunden` (\n  `ID` int\n)",
                "target: SET NAMES utf8",
                LoadOf("kunden"),
                "target: SET NAMES DEFAULT",
                "source: SHOW CREATE TABLE `shop`.`order list`",
                "target: CREATE TABLE `shop2`.`order list` (`ID` int)",
                "target: SET NAMES utf8",
                LoadOf("order list"),
                "target: SET NAMES DEFAULT"};
    }
    /// The first statements of a copy, then those of its failure.
    Texts UpTo(const std::string& lastStatement) const
    {
        Texts statements = AllStatements();
        const auto last = std::find(statements.begin(), statements.end(), lastStatement);
        EXPECT_NE(last, statements.end()) << lastStatement;
        statements.erase(last + 1, statements.end());
        return statements;
    }
    void ExpectFailureBehind(Texts statements)
    {
        statements.push_back("source: UNLOCK TABLES;");
        EXPECT_EQ(Sent(), statements);
        EXPECT_EQ(TemporaryFiles(), Texts());
        EXPECT_FALSE(std::filesystem::exists(TargetFolder()));
        EXPECT_EQ(NamesIn(SourceFolder()), Texts{"notes.txt"});
        EXPECT_FALSE(m_target.IsConnected());
        EXPECT_TRUE(m_source.IsOpen());
        EXPECT_EQ(m_messages.WaitBegins(), 1);
        EXPECT_EQ(m_messages.WaitEnds(), 1);
        EXPECT_TRUE(m_messages.Messages().empty());
    }
    /// Nothing was locked, nothing sent to the target, nothing waited for.
    void ExpectRefusal()
    {
        for (const std::string& statement : m_client.Statements())
            EXPECT_EQ(statement, "SHOW TABLES");
        EXPECT_EQ(m_messages.WaitBegins(), 0);
        EXPECT_TRUE(m_messages.Cleanups().empty());
    }
};

TEST_F(CopyDatabase, SendsTheseStatementsInThisOrder)
{
    EXPECT_TRUE(Copy());
    EXPECT_EQ(Sent(), AllStatements());
}

TEST_F(CopyDatabase, LeavesBothConnectionsOpenAndNoTemporaryFile)
{
    EXPECT_TRUE(Copy());
    EXPECT_TRUE(m_source.IsOpen());
    EXPECT_TRUE(m_target.IsOpen());
    EXPECT_EQ(TemporaryFiles(), Texts());
    EXPECT_TRUE(m_messages.Cleanups().empty());
}

TEST_F(CopyDatabase, CopiesTheFilesBesideTheTables)
{
    EXPECT_TRUE(Copy());
    EXPECT_EQ(ContentOf(TargetFolder() / "notes.txt"), "beside the tables");
}

TEST_F(CopyDatabase, ShowsTheWaitCursorOnce)
{
    EXPECT_TRUE(Copy());
    EXPECT_EQ(m_messages.WaitBegins(), 1);
    EXPECT_EQ(m_messages.WaitEnds(), 1);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(CopyDatabase, LoadsFilesWithEscapesAndQuotesAndDeletesEachBehindItsLoad)
{
    Texts seen;
    m_client.SetStatementObserver([&](const std::string& statement) {
        if (!statement.starts_with("LOAD DATA"))
            return;
        const size_t begin = statement.find('\'') + 1;
        seen.push_back(ContentOf(statement.substr(begin, statement.find("' INTO") - begin)));
        for (const std::string& name : TemporaryFiles())
            seen.push_back(name);
    });
    EXPECT_TRUE(Copy());
    EXPECT_EQ(seen, (Texts{"\"1\",\"o\\'x\"\r\n\"2\",\\N\r\n", "kunden.000000_tmp", "order list.000000_tmp", "",
                           "order list.000000_tmp"}));
}

TEST_F(CopyDatabase, DumpsWhileTheTablesAreLocked)
{
    m_client.SetStatementObserver([&](const std::string& statement) {
        if (statement.starts_with("UNLOCK")) {
            EXPECT_EQ(TemporaryFiles(), (Texts{"kunden.000000_tmp", "order list.000000_tmp"}));
        } else if (statement.starts_with("LOCK")) {
            EXPECT_EQ(TemporaryFiles(), Texts());
        }
    });
    EXPECT_TRUE(Copy());
}

TEST_F(CopyDatabase, NamesTheFilesByTheTimeOfTheStart)
{
    Texts names;
    m_client.SetStatementObserver([&](const std::string& statement) {
        if (statement.starts_with("UNLOCK"))
            for (const auto& entry : std::filesystem::directory_iterator(Temp()))
                names.push_back(entry.path().filename().string());
    });
    EXPECT_TRUE(Copy());
    std::sort(names.begin(), names.end());
    ASSERT_EQ(names.size(), 2U);
    EXPECT_EQ(names[0].size(), std::string("kunden.143005_tmp").size());
    EXPECT_EQ(names[0].substr(0, 7), "kunden.");
    EXPECT_EQ(names[0].substr(6), names[1].substr(10));
    EXPECT_EQ(names[0].find_first_not_of("0123456789", 7), 13U);
}

TEST_F(CopyDatabase, CopiesThreeHundredTablesWithTheStatementsOfEachAlone)
{
    std::vector<fake::Row> tables;
    for (int i = 0; i < 300; ++i)
        tables.push_back({"t" + std::to_string(i)});
    m_client.On("SHOW TABLES", Reply::Rows({"Tables"}, tables));
    m_client.OnPrefix("SELECT * FROM t", Reply::Rows({"ID"}, {{"1"}}));
    m_client.OnPrefix("SHOW CREATE TABLE",
                      Reply::Rows({"Table", "Create Table"}, {{"t", "CREATE TABLE `t` (`ID` int)"}}));
    EXPECT_TRUE(Copy());
    EXPECT_EQ(Sent().size(), 4U + 300U * 6U);                   // a dump each, and the five of its load
    EXPECT_EQ(m_client.Statements().size(), Sent().size() + 1); // the list of the tables
}

TEST_F(CopyDatabase, StripsBackticksFromTheEndsOfAName)
{
    m_client.On("SHOW TABLES", Reply::Rows({"Tables"}, {{"`kunden`"}}));
    EXPECT_TRUE(Copy());
    EXPECT_EQ(Sent()[2], "source: SELECT * FROM kunden");
    EXPECT_EQ(Sent()[5], "source: SHOW CREATE TABLE `shop`.`kunden`");
}

TEST_F(CopyDatabase, OpensItsOwnConnection)
{
    m_source.Close();
    EXPECT_TRUE(Copy());
}

/// A connection whose Open works and says that it did not.
class Pessimist final : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Open(bool interactive, const UtCString& databaseName) override
    {
        CMyDatabase::Open(interactive, databaseName);
        return false;
    }
};

TEST_F(CopyDatabase, GoesOnWhereTheSourceHasAHandleAlthoughItsOpenFailed)
{
    Pessimist source(Server("one.example"), "shop");
    EXPECT_TRUE(source.CopyDatabase(m_target, nullptr));
    source.Close();
}

TEST_F(CopyDatabase, WantsATrueOpenOfTheTargetOnlyBehindItsCreation)
{
    Pessimist target(Server("two.example"), "shop2");
    target.Open(false, "");
    EXPECT_FALSE(m_source.CopyDatabase(target, nullptr));
    Texts expected = UpTo("target: CREATE DATABASE `shop2`");
    expected.push_back("source: UNLOCK TABLES;");
    EXPECT_EQ(Sent(), expected);
}

// Refusals

TEST_F(CopyDatabase, ChangesNothingWithoutASource)
{
    m_source.Close();
    m_client.FailAlways(Call::Connect, 2002);
    EXPECT_FALSE(Copy());
    ExpectRefusal();
}

TEST_F(CopyDatabase, ChangesNothingWithoutTables)
{
    m_client.On("SHOW TABLES", Reply::Rows({"Tables"}, {}));
    EXPECT_FALSE(Copy());
    ExpectRefusal();
}

TEST_F(CopyDatabase, ChangesNothingWhenTheTablesCannotBeListed)
{
    m_client.On("SHOW TABLES", Reply::Error(1044));
    EXPECT_FALSE(Copy());
    ExpectRefusal();
}

TEST_F(CopyDatabase, Kept_K152_NeedsATargetThatIsOpen)
{
    m_target.Close();
    EXPECT_FALSE(Copy());
    ExpectRefusal();
    EXPECT_FALSE(m_target.IsConnected());
    CMyDatabase withoutName(Server("two.example"), "");
    EXPECT_TRUE(withoutName.Open(false, ""));
    EXPECT_FALSE(m_source.CopyDatabase(withoutName, nullptr));
    ExpectRefusal();
}

TEST_F(CopyDatabase, RefusesNamesThatLeadElsewhereBeforeItLocks)
{
    for (const char* name : {".", "..", "a/b", "a\\b", "a:b", "../x", "C:\\x"}) {
        m_client.On("SHOW TABLES", Reply::Rows({"Tables"}, {{"kunden"}, {name}}));
        EXPECT_FALSE(Copy()) << name;
        CMyDatabase target(Server("two.example"), name);
        EXPECT_TRUE(target.Open(false, ""));
        EXPECT_FALSE(m_source.CopyDatabase(target, nullptr)) << name;
        CMyDatabase source(Server("one.example"), name);
        EXPECT_FALSE(source.CopyDatabase(m_target, nullptr)) << name;
        ExpectRefusal();
    }
}

TEST_F(CopyDatabase, TakesATableNameWithADotAtItsEnd)
{
    m_client.On("SHOW TABLES", Reply::Rows({"Tables"}, {{"kunden."}}));
    m_client.On("SELECT * FROM kunden.", Reply::Rows({"ID"}, {{"1"}}));
    m_client.OnPrefix("SHOW CREATE TABLE", Reply::Rows({"Table", "Create Table"}, {{"t", "CREATE TABLE `t`"}}));
    EXPECT_TRUE(Copy());
}

TEST_F(CopyDatabase, RefusesToCopyADatabaseOntoItself)
{
    EXPECT_FALSE(m_source.CopyDatabase(m_source, nullptr));
    CMyDatabase same(Server("ONE.example"), "SHOP");
    EXPECT_TRUE(same.Open(false, ""));
    EXPECT_FALSE(m_source.CopyDatabase(same, nullptr));
    ExpectRefusal();
    EXPECT_TRUE(std::filesystem::exists(SourceFolder()));
}

TEST_F(CopyDatabase, NeverOverwritesADatabaseThatTheSettingsFileKnows)
{
    std::ofstream(m_folder.Path() / "Server.ini") << "[SQL-Server]\nServer=two.example\nPort=3306\n";
    EXPECT_TRUE(harness::InOtherRoot(m_folder.Path(), [this] {
        m_client.On("SHOW DATABASES", Reply::Rows({"Database"}, {{"mysql"}, {"SHOP2"}}));
        EXPECT_FALSE(Copy());
        EXPECT_EQ(m_client.Statements(), Texts{"SHOW DATABASES"});
        EXPECT_EQ(m_messages.WaitBegins(), 0);
    }));
}

// Failures

/// A step that fails, and the numbers of files left that the host is asked with.
struct FailingStep
{
    size_t statement;
    std::vector<unsigned long> cleanups;
};

class CopyDatabaseStep : public CopyDatabase, public testing::WithParamInterface<FailingStep>
{
};

TEST_P(CopyDatabaseStep, IsUndoneWhenItsStatementFails)
{
    const std::string failing = AllStatements()[GetParam().statement];
    const std::string bytes = failing.substr(std::string("source: ").size());
    m_client.OnceMatch([=](const std::string& statement) { return WithoutTime(statement) == bytes; },
                       Reply::Error(1105));
    Texts expected = UpTo(failing);
    if (bytes.starts_with("LOAD"))
        expected.push_back("target: SET NAMES DEFAULT");
    EXPECT_FALSE(Copy());
    ExpectFailureBehind(expected);
    EXPECT_EQ(m_messages.Cleanups(), GetParam().cleanups);
    EXPECT_TRUE(m_source.ExecuteQuery("DO 1", false, nullptr, false) == 0);
}

INSTANTIATE_TEST_SUITE_P(Statements, CopyDatabaseStep,
                         testing::Values(FailingStep{0, {}}, FailingStep{1, {}}, FailingStep{2, {}},
                                         FailingStep{3, {0}}, FailingStep{4, {1, 0}}, FailingStep{5, {1, 0}},
                                         FailingStep{6, {1, 0}}, FailingStep{7, {1, 0}}, FailingStep{9, {1, 0}},
                                         FailingStep{11, {1, 0}}, FailingStep{12, {1, 0}}, FailingStep{14, {1, 0}}));

TEST_F(CopyDatabase, IgnoresWhatBecomesOfSetNames)
{
    m_client.OnPrefix("SET NAMES", Reply::Error(1231));
    EXPECT_TRUE(Copy());
}

TEST_F(CopyDatabase, IsUndoneWhenATableHasNoCreateStatement)
{
    m_client.On("SHOW CREATE TABLE `shop`.`kunden`", Reply::Rows({"Table", "Create Table"}, {}));
    EXPECT_FALSE(Copy());
    ExpectFailureBehind(UpTo("source: SHOW CREATE TABLE `shop`.`kunden`"));
}

TEST_F(CopyDatabase, IsUndoneWhenTheTargetCannotBeOpened)
{
    m_client.SetStatementObserver([&](const std::string& statement) {
        if (statement != "SHOW TABLES")
            return;
        m_client.FailNext(Call::Ping, 2006);
        m_client.FailNext(Call::Connect, 2003);
    });
    EXPECT_FALSE(Copy());
    EXPECT_EQ(Sent(), Texts{"source: UNLOCK TABLES;"});
    EXPECT_EQ(m_messages.WaitEnds(), 1);
    EXPECT_FALSE(m_target.IsConnected());
}

TEST_F(CopyDatabase, IsUndoneWhenTheTargetIsLostBehindItsCreation)
{
    m_client.SetStatementObserver([&](const std::string& statement) {
        if (!statement.starts_with("CREATE DATABASE"))
            return;
        m_client.FailNext(Call::Ping, 2006);
        m_client.FailNext(Call::Connect, 2003);
    });
    EXPECT_FALSE(Copy());
    ExpectFailureBehind(UpTo("target: CREATE DATABASE `shop2`"));
    EXPECT_EQ(m_messages.Cleanups(), (std::vector<unsigned long>{1, 0}));
}

TEST_F(CopyDatabase, IsUndoneWhenTheDirectoryCannotBeCopied)
{
    std::filesystem::remove_all(SourceFolder());
    EXPECT_FALSE(Copy());
    Texts expected = AllStatements();
    expected.push_back("source: UNLOCK TABLES;");
    EXPECT_EQ(Sent(), expected);
    EXPECT_FALSE(m_target.IsConnected());
    EXPECT_EQ(m_messages.Cleanups(), (std::vector<unsigned long>{1, 0}));
}

TEST_F(CopyDatabase, IsUndoneWhenADumpFileCannotBeWritten)
{
    m_client.On("SHOW TABLES", Reply::Rows({"Tables"}, {{std::string(300, 'x')}})); // too long for a file
    EXPECT_FALSE(Copy());
    EXPECT_EQ(Sent().back(), "source: UNLOCK TABLES;");
    EXPECT_EQ(Sent().size(), 3U); // flush, lock, unlock
    EXPECT_TRUE(m_messages.Cleanups().empty());
}

TEST_F(CopyDatabase, DeletesTheFileOfABrokenDump)
{
    m_client.On("SELECT * FROM kunden", Reply::Rows({"ID"}, {{"1"}, {"2"}}).CutAfter(1));
    EXPECT_FALSE(Copy());
    ExpectFailureBehind(UpTo("source: SELECT * FROM kunden"));
    EXPECT_EQ(m_source.GetErrorCode(), 0U); // the outcome of UNLOCK TABLES
}

TEST_F(CopyDatabase, IsUndoneWhenTheHostThrows)
{
    class BrokenHost final : public MyDbUserInterface
    {
    public:
        BrokenHost() : m_previous(MyDbSetUserInterface(this)) {}
        ~BrokenHost() override { MyDbSetUserInterface(m_previous); }
        int ShowMessage(const UtCString&, unsigned int) override { throw std::runtime_error("broken"); }
        void BeginWait() override {}
        void EndWait() override { throw std::runtime_error("broken"); }
        bool ContinueCleanup(unsigned long) override { throw std::runtime_error("broken"); }

    private:
        MyDbUserInterface* m_previous;
    } host;
    m_client.OnPrefix("LOAD DATA", Reply::Error(4166));
    EXPECT_FALSE(Copy());
    EXPECT_EQ(TemporaryFiles(), Texts{"order list.000000_tmp"}); // it was asked behind the first one
}

/// Each client call fails once, or from then on all of them.
class CopyDatabaseCalls : public CopyDatabase, public testing::WithParamInterface<bool>
{
};

TEST_P(CopyDatabaseCalls, LeaveNothingBehindAndBothConnectionsUsable)
{
    m_source.Close();
    m_target.Close();
    harness::FailurePlan plan;
    plan.persistent = GetParam();
    const size_t points = harness::ForEachFailurePoint(
        Script,
        [this](harness::FailureRun& run) {
            CMyDatabase source(Server("one.example"), "shop");
            CMyDatabase target(Server("two.example"), "shop2");
            const bool isReady = source.Open(false, "") && target.Open(false, "");
            const bool isCopied = source.CopyDatabase(target, nullptr);
            run.EndOfWork();
            EXPECT_TRUE(isCopied || run.Failed());
            EXPECT_EQ(isCopied, std::filesystem::exists(TargetFolder()));
            EXPECT_EQ(TemporaryFiles(), Texts());
            EXPECT_EQ(NamesIn(SourceFolder()), Texts{"notes.txt"});
            EXPECT_EQ(m_messages.WaitBegins(), m_messages.WaitEnds());
            if (run.Failed(Call::Query, "LOAD DATA") && !run.IsLostConnection()) {
                EXPECT_FALSE(isCopied);
            }
            if (!isReady && GetParam()) {
                EXPECT_FALSE(isCopied);
            }
            EXPECT_TRUE(target.Open(false, ""));
            EXPECT_TRUE(source.CopyDatabase(target, nullptr));
            std::filesystem::remove_all(TargetFolder());
        },
        plan);
    EXPECT_GT(points, 30U);
}

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, CopyDatabaseCalls, testing::Bool());

TEST_F(CopyDatabase, Kept_K156_RemovesTheFolderOfATargetThatIsThere)
{
    std::filesystem::create_directories(TargetFolder());
    std::ofstream(TargetFolder() / "precious.txt") << "x";
    m_client.On("CREATE DATABASE `shop2`", Reply::Error(1007));
    EXPECT_FALSE(Copy());
    EXPECT_FALSE(std::filesystem::exists(TargetFolder()));
}

} // namespace
