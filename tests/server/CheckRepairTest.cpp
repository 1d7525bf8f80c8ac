#include "RecordSetFixture.h"

#include "CMyTable.h"
#include "harness/AllocationFailure.h"
#include "harness/MessageRecorder.h"

#include <algorithm>
#include <vector>

namespace {

using Statements = std::vector<std::string>;

class CheckRepairOnAServer : public server_test::RecordSetFixture
{
protected:
    CheckRepairOnAServer() { m_database.GetServer().SetCharset("utf8mb4"); }

    void MakeTable(const std::string& name) { Run("CREATE TABLE `" + name + "` (id INT) ENGINE=MyISAM"); }
    std::string Name() const { return m_temporary.Name(); }
    Statements Sent(const harness::GeneralLog& log) const { return log.Statements(m_database.GetThreadID()); }
    std::string Missing() const { return "      " + Name() + ".fast:32 \tTable '" + Name() + ".fast' doesn't exist"; }

    harness::MessageRecorder m_messages;
};

TEST_F(CheckRepairOnAServer, SendsTheStatementsThatItDocuments)
{
    MakeTable("a");
    MakeTable("my table");
    CMyTable table(&m_database, "a");
    const harness::GeneralLog log;
    EXPECT_EQ(table.CheckTable(nullptr), TABLE_CHECK_OK);
    m_database.CheckDatabaseIntegrity("", nullptr);
    m_database.RepairDatabase(false, false);
    m_database.RepairDatabase(true, false);
    m_database.RepairDatabase(false, true);
    const std::string check = "CHECK TABLE  `" + Name() + "`.`a`,  `" + Name() + "`.`my table`,  FAST QUICK";
    const Statements expected = {"CHECK TABLE `" + Name() + "`.`a` FAST QUICK", "SHOW TABLES", check, "SHOW TABLES",
                                 "REPAIR TABLE `a`, `my table` EXTENDED",       "SHOW TABLES", check, "SHOW TABLES",
                                 "REPAIR TABLE `a`, `my table` USE_FRM",        "SHOW TABLES", check, "SHOW TABLES",
                                 "CHECK TABLE `a`, `my table` FAST QUICK"};
    EXPECT_EQ(Sent(log), expected);
}

TEST_F(CheckRepairOnAServer, FindsNothingInAnEmptyDatabase)
{
    UtCString text;
    EXPECT_EQ(m_database.CheckDatabaseIntegrity("", &text), DB_CHECK_OK);
    EXPECT_EQ(Bytes(text), "");
    EXPECT_TRUE(m_database.CheckAndRepairDatabaseIntegrity(true));
    EXPECT_FALSE(m_database.RepairDatabase(false, false));
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(CheckRepairOnAServer, FindsEverySoundDatabaseDamagedBecauseOfATableThatNobodyHas)
{
    MakeTable("a");
    UtCString text(UT_ENCODING_UTF8);
    EXPECT_EQ(m_database.CheckDatabaseIntegrity("", &text), DB_CHECK_REPAIRABLE);
    EXPECT_EQ(Bytes(text), Missing());
    EXPECT_FALSE(m_database.RepairDatabase(false, false));
    EXPECT_FALSE(m_database.CompressDatabase(false));
    EXPECT_TRUE(m_database.RepairDatabase(false, true));
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(CheckRepairOnAServer, FindsEveryDatabaseSoundThatHasATableOfThatName)
{
    MakeTable("a");
    MakeTable("fast");
    EXPECT_EQ(m_database.CheckDatabaseIntegrity("", nullptr), DB_CHECK_OK);
    EXPECT_EQ(m_database.GetErrorCode(), 1066UL);
    EXPECT_EQ(m_messages.Messages().size(), 1U);
}

TEST_F(CheckRepairOnAServer, WritesANumberBetweenTableAndMessage)
{
    MakeTable("a");
    MakeTable("abcd");
    UtCString text;
    m_database.CheckDatabaseIntegrity("", &text);
    EXPECT_EQ(Bytes(text), "      " + Name() + ".fast:32.000 \tTable '" + Name() + ".fast' doesn't exist");
}

TEST_F(CheckRepairOnAServer, ChecksItsOwnTablesUnderAnotherName)
{
    const harness::TemporaryDatabase other;
    MakeTable("a");
    UtCString text;
    EXPECT_EQ(m_database.CheckDatabaseIntegrity(other.Name().c_str(), &text), DB_CHECK_REPAIRABLE);
    EXPECT_EQ(Bytes(text),
              "      " + other.Name() + ".a:32 \tTable '" + other.Name() + ".a' doesn't exist\n" + Missing());
}

TEST_F(CheckRepairOnAServer, ChecksTablesWhoseNamesNeedBackticks)
{
    for (const char* name : {"my table", "x-y", "order", "it's", "say \"hi\"", "100%s",
                             "k\xC3\xBC"
                             "che"}) {
        MakeTable(name);
        UtCString text;
        CMyTable table(&m_database, UtCString(name, UT_ENCODING_UTF8));
        EXPECT_EQ(table.CheckTable(&text), TABLE_CHECK_OK) << name;
        EXPECT_EQ(m_database.GetErrorCode(), 0UL) << name;
    }
    UtCString text;
    EXPECT_EQ(m_database.CheckDatabaseIntegrity("", &text), DB_CHECK_REPAIRABLE);
    EXPECT_FALSE(text.Contains("\n")) << text.string();
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(CheckRepairOnAServer, CannotCheckATableWhoseNameHoldsABacktick)
{
    Run("CREATE TABLE `a``b` (id INT)");
    EXPECT_EQ(CMyTable(&m_database, "a`b").CheckTable(nullptr), TABLE_CHECK_OK);
    EXPECT_EQ(m_database.GetErrorCode(), 1064UL);
    EXPECT_EQ(m_database.CheckDatabaseIntegrity("", nullptr), DB_CHECK_OK);
    EXPECT_EQ(m_database.GetErrorCode(), 1064UL);
    EXPECT_EQ(m_messages.Messages().size(), 2U);
}

TEST_F(CheckRepairOnAServer, ChecksViews)
{
    MakeTable("a");
    Run("CREATE VIEW v AS SELECT * FROM a");
    Run("DROP TABLE a");
    UtCString text;
    EXPECT_EQ(CMyTable(&m_database, "v").CheckTable(&text), TABLE_CHECK_REPAIRABLE);
    EXPECT_TRUE(text.Contains((Name() + ".v: ").c_str())) << text.string();
}

TEST_F(CheckRepairOnAServer, AsksAPersonWhenADatabaseIsOpened)
{
    MakeTable("a");
    CMyDatabase database(Server("utf8mb4"), Name().c_str());
    EXPECT_FALSE(database.Open(true, ""));
    EXPECT_TRUE(database.IsOpen());
    EXPECT_EQ(database.GetErrorCode(), 1016UL);
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].type, 36U);
    EXPECT_EQ(m_messages.Messages()[0].text,
              "Die Datenbank " + Name() +
                  " ist defekt, kann aber wahrscheinlich repariert werden.\nErstellen Sie zuerst eine Datensicherung "
                  "dieser Datenbank bevor Sie die\nReparatur durchf\xFChren.\n\n\nFehlerbeschreibung:\n" +
                  Missing() +
                  "\n\n\nM\xF6"
                  "chten Sie die Datenbank jetzt reparieren?\n\n");
    EXPECT_EQ(Bytes(database.GetErrorMessage()), m_messages.Messages()[0].text);

    database.Close();
    m_messages.Answer(MYDB_ANSWER_YES);
    EXPECT_TRUE(database.Open(true, ""));
    EXPECT_EQ(database.GetErrorCode(), 0UL);
}

TEST_F(CheckRepairOnAServer, GoesOnOverANewConnectionWhenItsOwnIsLost)
{
    MakeTable("a");
    harness::KillConnection(m_database.GetThreadID());
    EXPECT_EQ(m_database.CheckDatabaseIntegrity("", nullptr), DB_CHECK_REPAIRABLE);
}

TEST_F(CheckRepairOnAServer, CannotRepairInnoDBTablesAndCallsThemSound)
{
    Run("CREATE TABLE a (id INT) ENGINE=InnoDB");
    const harness::GeneralLog log;
    m_database.RepairDatabase(false, false);
    const Statements sent = Sent(log);
    EXPECT_EQ(std::count_if(sent.begin(), sent.end(), [](const auto& text) { return text.starts_with("REPAIR"); }), 1);
}

// ---- Memory that runs out -------------------------------------------------------------------------------------------

class CheckMemory : public CheckRepairOnAServer, public testing::WithParamInterface<bool>
{
};

TEST_P(CheckMemory, ChecksAllTablesOrNone)
{
    const char* const table = "a_table_with_a_name_that_does_not_fit_into_the_text_itself";
    MakeTable(table);
    const CMyTable handle(&m_database, table);
    const std::string check = "CHECK TABLE  `" + Name() + "`.`" + table + "`,  FAST QUICK";
    const std::string checkTable = "CHECK TABLE `" + Name() + "`.`" + table + "` FAST QUICK";
    const std::string checkFirst = std::string("CHECK TABLE `") + table + "` FAST QUICK";
    const std::string repair = std::string("REPAIR TABLE `") + table + "` EXTENDED";
    const harness::GeneralLog log;
    bool isHonest = true;
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        UtCString text;
        const eDB_CHECK found = m_database.CheckDatabaseIntegrity("", &text);
        CMyTable copy(handle);
        const eTABLE_CHECK foundInTable = copy.CheckTable(&text);
        const bool isRepaired = m_database.RepairDatabase(false, false);
        m_database.CheckAndRepairDatabaseIntegrity(false);
        isHonest = isHonest && (found == DB_CHECK_OK || found == DB_CHECK_REPAIRABLE) &&
                   (foundInTable == TABLE_CHECK_OK || foundInTable == TABLE_CHECK_INVALID);
        static_cast<void>(isRepaired);
    });
    EXPECT_GT(failures, 10);
    EXPECT_TRUE(isHonest);
    for (const std::string& sent : Sent(log))
        EXPECT_TRUE(sent == check || sent == checkTable || sent == checkFirst || sent == repair ||
                    sent == "SHOW TABLES" || sent == "CHECK TABLE  FAST QUICK")
            << sent;
}

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, CheckMemory, testing::Bool());

} // namespace
