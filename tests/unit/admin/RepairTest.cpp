#include "CatalogueFixture.h"

#include "harness/FailurePoints.h"

#include <utility>

namespace {

using fake::Reply;
using fake::Row;

constexpr const char* check = "CHECK TABLE  `shop`.`a`,  `shop`.`b`,  FAST QUICK";
constexpr const char* extended = "REPAIR TABLE `a`, `b` EXTENDED";
constexpr const char* byDefinition = "REPAIR TABLE `a`, `b` USE_FRM";

Reply Answer(std::vector<std::pair<const char*, const char*>> typeAndText)
{
    std::vector<Row> rows;
    for (const auto& [type, text] : typeAndText)
        rows.push_back({"shop.a", "x", type, text});
    return Reply::Rows({"Table", "Op", "Msg_type", "Msg_text"}, std::move(rows));
}

/// A database of two tables. Unless a test says otherwise every repair succeeds and the check finds nothing.
class Repair : public CatalogueFixture
{
protected:
    Repair()
    {
        m_client.On("SHOW TABLES", Tables({{"a"}, {"b"}}));
        for (const char* statement : {check, extended, byDefinition})
            m_client.On(statement, Answer({{"status", "OK"}}));
    }
    Statements RepairsSent() const
    {
        Statements repairs;
        for (const std::string& statement : m_client.Statements()) {
            if (statement.starts_with("REPAIR"))
                repairs.push_back(statement);
        }
        return repairs;
    }
};

TEST_F(Repair, RepairsAllTablesAndChecksThem)
{
    EXPECT_TRUE(m_database.RepairDatabase(false, false));
    EXPECT_EQ(m_client.Statements(), (Statements{"SHOW TABLES", extended, "SHOW TABLES", check}));
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(Repair, RepairsByTheDefinitionsWhenAsked)
{
    EXPECT_TRUE(m_database.RepairDatabase(true, false));
    EXPECT_EQ(m_client.Statements(), (Statements{"SHOW TABLES", byDefinition, "SHOW TABLES", check}));
}

TEST_F(Repair, IsDecidedByTheCheckAlone)
{
    m_client.On(byDefinition, Answer({{"error", "Corrupt"}}));
    EXPECT_TRUE(m_database.RepairDatabase(true, false));
    m_client.On(byDefinition, Answer({{"status", "OK"}}));
    m_client.On(check, Answer({{"error", "Corrupt"}}));
    EXPECT_FALSE(m_database.RepairDatabase(true, false));
    m_client.On(check, Answer({{"error", "a.frm"}}));
    EXPECT_FALSE(m_database.RepairDatabase(true, false));
}

TEST_F(Repair, Kept_K142_GoesOnWithAllTablesByTheirDefinitionsWhenOneFails)
{
    m_client.On(extended, Answer({{"status", "OK"}, {"error", "Corrupt"}, {"status", "OK"}}));
    EXPECT_TRUE(m_database.RepairDatabase(false, false));
    EXPECT_EQ(m_client.Statements(),
              (Statements{"SHOW TABLES", extended, "SHOW TABLES", byDefinition, "SHOW TABLES", check}));
}

TEST_F(Repair, GoesOnAfterAStatusThatIsNotOk)
{
    m_client.On(extended, Answer({{"Error", "Table doesn't exist"}, {"status", "Operation failed"}}));
    m_database.RepairDatabase(false, false);
    EXPECT_EQ(RepairsSent(), (Statements{extended, byDefinition}));
}

TEST_F(Repair, MakesNoThirdAttempt)
{
    m_client.On(extended, Answer({{"error", "Corrupt"}}));
    m_client.On(byDefinition, Answer({{"error", "Corrupt"}}));
    m_client.On(check, Answer({{"error", "Corrupt"}}));
    EXPECT_FALSE(m_database.RepairDatabase(false, false));
    EXPECT_EQ(RepairsSent(), (Statements{extended, byDefinition}));
}

TEST_F(Repair, ReadsTheReportByTheNamesOfItsColumns)
{
    m_client.On(extended, Reply::Rows({"Msg_text", "a", "b", "Msg_type"}, {{"Corrupt", "x", "error", "note"}}));
    m_database.RepairDatabase(false, false);
    EXPECT_EQ(RepairsSent(), Statements{extended});
    m_client.On(extended, Reply::Rows({"Msg_text", "Msg_type"}, {{"Corrupt", "error"}}));
    m_database.RepairDatabase(false, false);
    EXPECT_EQ(RepairsSent(), (Statements{extended, extended, byDefinition}));
    m_client.On(extended, Reply::Rows({"msg_text", "MSG_TYPE"}, {{"Corrupt", "error"}}));
    m_database.RepairDatabase(false, false);
    EXPECT_EQ(RepairsSent().size(), 4U) << "columns of other names are missing";
}

TEST_F(Repair, ChecksAlsoWhenTheStatementFails)
{
    m_client.On(extended, Reply::Error(1142, "denied"));
    EXPECT_TRUE(m_database.RepairDatabase(false, false));
    EXPECT_EQ(RepairsSent(), Statements{extended});
    EXPECT_EQ(m_messages.Messages().size(), 1U);
}

TEST_F(Repair, IsFalseWithoutTables)
{
    m_client.On("SHOW TABLES", Tables({}));
    EXPECT_FALSE(m_database.RepairDatabase(false, false));
    EXPECT_FALSE(m_database.RepairDatabase(true, false));
    EXPECT_EQ(m_client.Statements(), (Statements{"SHOW TABLES", "SHOW TABLES"}));
}

TEST_F(Repair, IsFalseWithoutAnOpenConnection)
{
    CMyDatabase nameless(Settings(), "");
    ASSERT_TRUE(nameless.Open(false, ""));
    m_database.Close();
    m_client.ForgetCalls();
    for (const bool checkFirst : {false, true}) {
        EXPECT_FALSE(m_database.RepairDatabase(false, checkFirst));
        EXPECT_FALSE(nameless.RepairDatabase(false, checkFirst));
    }
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(Repair, Kept_K141_RepairsNothingWhenItChecksFirst)
{
    m_client.On("CHECK TABLE `a`, `b` FAST QUICK", Answer({{"error", "Corrupt"}, {"status", "OK"}}));
    EXPECT_TRUE(m_database.RepairDatabase(false, true));
    EXPECT_TRUE(m_database.RepairDatabase(true, true));
    EXPECT_TRUE(RepairsSent().empty());
    EXPECT_EQ(m_client.Statements()[1], "CHECK TABLE `a`, `b` FAST QUICK");
}

TEST_F(Repair, RepairsNothingWhateverTheCheckSays)
{
    m_client.On(
        "CHECK TABLE `a`, `b` FAST QUICK",
        Reply::Rows({"Table", "Op", "Msg_type", "Msg_text"},
                    {{"", "check", "status", "OK"}, {", ", "check", "status", "OK"}, {"a", "x", "status", ""}}));
    EXPECT_TRUE(m_database.RepairDatabase(false, true));
    m_client.On("CHECK TABLE `a`, `b` FAST QUICK", Reply::Error(1142, "denied"));
    EXPECT_TRUE(m_database.RepairDatabase(false, true));
    EXPECT_TRUE(RepairsSent().empty());
}

TEST_F(Repair, ChecksFirstEvenWithoutTables)
{
    m_client.On("SHOW TABLES", Tables({}));
    EXPECT_TRUE(m_database.RepairDatabase(false, true));
    EXPECT_EQ(m_client.Statements(), (Statements{"SHOW TABLES", "CHECK TABLE  FAST QUICK"}));
}

// ---- With a person --------------------------------------------------------------------------------------------------

const std::string repairable =
    "Die Datenbank shop ist defekt, kann aber wahrscheinlich repariert werden.\nErstellen Sie zuerst eine "
    "Datensicherung dieser Datenbank bevor Sie die\nReparatur durchf\xFChren.\n\n\nFehlerbeschreibung:\n      "
    "shop.a:32 "
    "\tCorrupt\n\n\nM\xF6"
    "chten Sie die Datenbank jetzt reparieren?\n\n";

std::string NotRepairable(const std::string& description)
{
    return "Die Datenbank shop ist defekt und kann NICHT repariert werden!\nSie m\xFCssen diese Datenbank von Ihrer "
           "Datensicherung zur\xFC"
           "ckholen.\n\n\nFehlerbeschreibung:\n" +
           description + "\n\n\n";
}

class CheckAndRepair : public Repair
{
protected:
    void ScriptCheck(const char* message) { m_client.On(check, Answer({{"error", message}})); }
    bool CheckAsking() { return m_database.CheckAndRepairDatabaseIntegrity(true); }
    bool CheckSilently() { return m_database.CheckAndRepairDatabaseIntegrity(false); }

    void ExpectError(unsigned long code, const std::string& message)
    {
        EXPECT_EQ(m_database.GetErrorCode(), code);
        EXPECT_EQ(Bytes(m_database.GetErrorMessage()), message);
        EXPECT_EQ(m_database.GetErrorMessage().GetEncodingType(), UT_ENCODING_DEFAULT);
    }
};

TEST_F(CheckAndRepair, SaysNothingAboutASoundDatabase)
{
    EXPECT_TRUE(CheckAsking());
    EXPECT_TRUE(CheckSilently());
    EXPECT_TRUE(m_messages.Messages().empty());
    ExpectError(0, "Kein Fehler!");
    EXPECT_TRUE(RepairsSent().empty());
}

TEST_F(CheckAndRepair, SaysThatOnlyABackupHelps)
{
    ScriptCheck("a.frm");
    EXPECT_FALSE(CheckAsking());
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].type, 16U);
    EXPECT_EQ(m_messages.Messages()[0].text, NotRepairable("      shop.a:32 \ta.frm"));
    ExpectError(1017, NotRepairable("      shop.a:32 \ta.frm"));
    EXPECT_TRUE(RepairsSent().empty());
}

TEST_F(CheckAndRepair, RecordsSilentlyThatOnlyABackupHelps)
{
    ScriptCheck("a.frm");
    EXPECT_FALSE(CheckSilently());
    EXPECT_TRUE(m_messages.Messages().empty());
    ExpectError(1017, NotRepairable("      shop.a:32 \ta.frm"));
}

TEST_F(CheckAndRepair, AsksBeforeARepairAndTakesNoForNo)
{
    ScriptCheck("Corrupt");
    EXPECT_FALSE(CheckAsking());
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].type, 36U);
    EXPECT_EQ(m_messages.Messages()[0].text, repairable);
    ExpectError(1016, repairable);
    EXPECT_EQ(m_client.Statements(), (Statements{"SHOW TABLES", check})) << "nothing is done";
}

TEST_F(CheckAndRepair, TakesEveryAnswerButYesForNo)
{
    ScriptCheck("Corrupt");
    m_messages.Answer(MYDB_ANSWER_OK);
    EXPECT_FALSE(CheckAsking());
    EXPECT_EQ(m_client.Statements(), (Statements{"SHOW TABLES", check}));
}

TEST_F(CheckAndRepair, Kept_K149_RepairsNothingAfterYesAndSucceeds)
{
    ScriptCheck("Corrupt");
    m_messages.Answer(MYDB_ANSWER_YES);
    EXPECT_TRUE(CheckAsking());
    EXPECT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_client.Statements(),
              (Statements{"SHOW TABLES", check, "SHOW TABLES", "CHECK TABLE `a`, `b` FAST QUICK"}));
}

TEST_F(CheckAndRepair, RepairsWithoutAskingWhenNobodyIsToBeAsked)
{
    ScriptCheck("Corrupt");
    EXPECT_TRUE(CheckSilently());
    EXPECT_TRUE(m_messages.Messages().empty());
    EXPECT_EQ(m_client.Statements().back(), "CHECK TABLE `a`, `b` FAST QUICK");
}

/// Takes the server away while the question is shown, and says yes.
class Unplugs final : public MyDbUserInterface
{
public:
    explicit Unplugs(CMyDatabase& database) : m_database(database), m_previous(MyDbSetUserInterface(this)) {}
    Unplugs(const Unplugs&) = delete;
    Unplugs& operator=(const Unplugs&) = delete;
    ~Unplugs() override { MyDbSetUserInterface(m_previous); }

    int ShowMessage(const UtCString& text, unsigned int type) override
    {
        messages.emplace_back(text.View(), type);
        m_database.Close();
        fake::Client::Get().FailAlways(fake::Call::Connect, 2002);
        return MYDB_ANSWER_YES;
    }
    void BeginWait() override {}
    void EndWait() override {}

    std::vector<std::pair<std::string, unsigned int>> messages;

private:
    CMyDatabase& m_database;
    MyDbUserInterface* m_previous;
};

TEST_F(CheckAndRepair, GivesUpWhenTheRepairFails)
{
    ScriptCheck("Corrupt");
    Unplugs person(m_database);
    EXPECT_FALSE(CheckAsking());
    const std::vector<std::pair<std::string, unsigned int>> expected = {{repairable, 36U}, {NotRepairable(""), 16U}};
    EXPECT_EQ(person.messages, expected);
    ExpectError(1017, NotRepairable(""));
}

class ThrowingPerson final : public MyDbUserInterface
{
public:
    ThrowingPerson() : m_previous(MyDbSetUserInterface(this)) {}
    ThrowingPerson(const ThrowingPerson&) = delete;
    ThrowingPerson& operator=(const ThrowingPerson&) = delete;
    ~ThrowingPerson() override { MyDbSetUserInterface(m_previous); }
    int ShowMessage(const UtCString&, unsigned int) override { throw 1; }
    void BeginWait() override {}
    void EndWait() override {}

private:
    MyDbUserInterface* m_previous;
};

TEST_F(CheckAndRepair, IsFalseWhenTheHostsMessageBoxThrows)
{
    ScriptCheck("Corrupt");
    const ThrowingPerson person;
    EXPECT_FALSE(CheckAsking());
    ExpectError(1016, repairable);
    ScriptCheck("a.frm");
    EXPECT_FALSE(CheckAsking());
    ExpectError(1017, NotRepairable("      shop.a:32 \ta.frm"));
}

TEST_F(CheckAndRepair, IsAskedByAnInteractiveOpen)
{
    ScriptCheck("Corrupt");
    m_database.Close();
    m_client.ForgetCalls();
    EXPECT_FALSE(m_database.Open(true, ""));
    EXPECT_TRUE(m_database.IsOpen());
    ExpectError(1016, repairable);
    EXPECT_EQ(m_client.Statements(), (Statements{"SHOW TABLES", check}));
}

TEST_F(CheckAndRepair, LetsAnInteractiveOpenGoOnAfterYes)
{
    ScriptCheck("Corrupt");
    m_database.Close();
    m_messages.Answer(MYDB_ANSWER_YES);
    EXPECT_TRUE(m_database.Open(true, ""));
    ExpectError(0, "Kein Fehler!");
    EXPECT_EQ(m_client.Statements().back(), "SHOW TABLES");
}

TEST_F(CheckAndRepair, IsNotAskedByASilentOpen)
{
    ScriptCheck("Corrupt");
    m_database.Close();
    EXPECT_TRUE(m_database.Open(false, ""));
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST(RepairFailures, EveryClientCallMayFail)
{
    const harness::MessageRecorder messages;
    const auto script = [] {
        fake::Client& client = fake::Client::Get();
        client.On("SHOW TABLES", Reply::Rows({"t"}, {{"a"}, {"b"}}));
        client.On(extended, Answer({{"error", "Corrupt"}}));
        client.On(byDefinition, Answer({{"status", "OK"}}));
        client.On(check, Answer({{"error", "a.frm"}}));
    };
    const std::size_t calls = harness::ForEachFailurePoint(script, [](harness::FailureRun& run) {
        CMyServer server;
        server.SetHost("db.example");
        server.SetPort(3307);
        CMyDatabase database(server, "shop");
        database.Open(false, "");
        const bool isRepaired = database.RepairDatabase(false, false);
        const bool isSound = database.CheckAndRepairDatabaseIntegrity(true);
        const unsigned long code = database.GetErrorCode();
        run.EndOfWork();
        if (!run.Failed()) {
            EXPECT_FALSE(isRepaired);
        }
        EXPECT_EQ(!isSound, code == 1017) << "a check that fails calls the database sound";
        EXPECT_FALSE(database.CheckAndRepairDatabaseIntegrity(false)) << "the object can be used again";
        EXPECT_EQ(database.GetErrorCode(), 1017UL);
    });
    EXPECT_GE(calls, 15U);
}

} // namespace
