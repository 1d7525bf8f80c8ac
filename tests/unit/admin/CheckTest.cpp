#include "CMyTable.h"
#include "CatalogueFixture.h"

#include "harness/FailurePoints.h"

namespace {

using fake::Reply;
using fake::Row;

/// A row of the answer to a check.
Row Says(const char* table, const char* type, const char* message)
{
    return {table, "check", type, message};
}

Reply Answer(std::vector<Row> rows)
{
    return Reply::Rows({"Table", "Op", "Msg_type", "Msg_text"}, std::move(rows));
}

// ---- One table ------------------------------------------------------------------------------------------------------

class CheckOneTable : public CatalogueFixture
{
protected:
    void Script(std::vector<Row> rows)
    {
        m_client.On("CHECK TABLE `shop`.`orders` FAST QUICK", Answer(std::move(rows)));
    }
    eTABLE_CHECK Check(UtCString* text = nullptr) { return CMyTable(&m_database, "orders").CheckTable(text); }
};

TEST_F(CheckOneTable, SendsOneStatementAboutIt)
{
    CMyTable table(&m_database, "orders");
    m_client.ForgetCalls();
    Script({Says("shop.orders", "status", "OK")});
    EXPECT_EQ(table.CheckTable(nullptr), TABLE_CHECK_OK);
    EXPECT_EQ(m_client.Statements(), Statements{"CHECK TABLE `shop`.`orders` FAST QUICK"});
}

TEST_F(CheckOneTable, IsSoundWithoutAnErrorRow)
{
    UtCString text;
    Script({Says("shop.orders", "warning", "a.frm"), Says("shop.orders", "status", "Operation failed")});
    EXPECT_EQ(Check(&text), TABLE_CHECK_OK);
    EXPECT_EQ(Bytes(text), "");
    Script({});
    EXPECT_EQ(Check(&text), TABLE_CHECK_OK);
}

TEST_F(CheckOneTable, TellsRepairableDamageFromFatalOne)
{
    Script({Says("shop.orders", "Error", "Corrupt"), Says("shop.orders", "status", "Operation failed")});
    EXPECT_EQ(Check(), TABLE_CHECK_REPAIRABLE);
    Script({Says("shop.orders", "error", "orders.frm")});
    EXPECT_EQ(Check(), TABLE_CHECK_DEFECT);
}

TEST_F(CheckOneTable, StaysFatalWhateverFollows)
{
    Script({Says("t", "error", "orders.frm"), Says("t", "error", "Corrupt")});
    EXPECT_EQ(Check(), TABLE_CHECK_DEFECT);
    Script({Says("t", "error", "Corrupt"), Says("t", "error", "orders.frm"), Says("t", "status", "OK")});
    EXPECT_EQ(Check(), TABLE_CHECK_DEFECT);
}

TEST_F(CheckOneTable, DescribesEachError)
{
    UtCString text;
    Script({Says("shop.orders", "error", "Size of indexfile is: 500"), Says("shop.orders", "note", "x"),
            Says("shop.orders", "Error", "Corrupt")});
    EXPECT_EQ(Check(&text), TABLE_CHECK_REPAIRABLE);
    EXPECT_EQ(Bytes(text), "shop.orders: Size of indexfile is: 500\nshop.orders: Corrupt");
}

TEST_F(CheckOneTable, AppendsToTheText)
{
    UtCString text;
    Script({Says("shop.orders", "error", "Corrupt")});
    Check(&text);
    Check(&text);
    EXPECT_EQ(Bytes(text), "shop.orders: Corrupt\nshop.orders: Corrupt");
}

TEST_F(CheckOneTable, ReadsTheColumnsByTheirPosition)
{
    UtCString text;
    m_client.On("CHECK TABLE `shop`.`orders` FAST QUICK",
                Reply::Rows({"Msg_text", "Msg_type", "c", "d"}, {{"t", "error", "error", "m"}}));
    EXPECT_EQ(Check(&text), TABLE_CHECK_REPAIRABLE);
    EXPECT_EQ(Bytes(text), "t: m");
}

TEST_F(CheckOneTable, TakesColumnsThatAreMissingForEmptyTexts)
{
    m_client.On("CHECK TABLE `shop`.`orders` FAST QUICK", Reply::Rows({"Table"}, {{"error"}}));
    EXPECT_EQ(Check(), TABLE_CHECK_OK);
    m_client.On("CHECK TABLE `shop`.`orders` FAST QUICK",
                Answer({{std::nullopt, std::nullopt, "error", std::nullopt}}));
    UtCString text;
    EXPECT_EQ(Check(&text), TABLE_CHECK_REPAIRABLE);
    EXPECT_EQ(Bytes(text), ": ");
}

TEST_F(CheckOneTable, IsInvalidWithoutANameOrAConnection)
{
    UtCString text("as it was");
    CMyTable nameless(&m_database, "");
    CMyTable unconnected(nullptr, "orders");
    m_client.ForgetCalls();
    EXPECT_EQ(nameless.CheckTable(&text), TABLE_CHECK_INVALID);
    EXPECT_EQ(unconnected.CheckTable(&text), TABLE_CHECK_INVALID);
    EXPECT_EQ(Bytes(text), "as it was");
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(CheckOneTable, Kept_K145_IsSoundWhenTheCheckFails)
{
    m_client.On("CHECK TABLE `shop`.`orders` FAST QUICK", Reply::Error(1142, "denied"));
    EXPECT_EQ(Check(), TABLE_CHECK_OK);
    EXPECT_EQ(m_database.GetErrorCode(), 1142UL);
    EXPECT_EQ(m_messages.Messages().size(), 1U);
    m_client.On("CHECK TABLE `shop`.`orders` FAST QUICK", Answer({Says("t", "error", "x")}).CutAfter(0, 1105));
    EXPECT_EQ(Check(), TABLE_CHECK_OK);
}

TEST_F(CheckOneTable, OpensAClosedConnection)
{
    CMyTable table(&m_database, "orders");
    m_database.Close();
    Script({Says("shop.orders", "error", "Corrupt")});
    EXPECT_EQ(table.CheckTable(nullptr), TABLE_CHECK_REPAIRABLE);
    EXPECT_TRUE(m_database.IsOpen());
}

// ---- All tables -----------------------------------------------------------------------------------------------------

class CheckDatabase : public CatalogueFixture
{
protected:
    CheckDatabase() { m_client.On("SHOW TABLES", Tables({{"a"}, {"bcd"}})); }

    void Script(std::vector<Row> rows) { m_client.On(statement, Answer(std::move(rows))); }
    eDB_CHECK Check(UtCString* text = nullptr) { return m_database.CheckDatabaseIntegrity("", text); }

    static constexpr const char* statement = "CHECK TABLE  `shop`.`a`,  `shop`.`bcd`,  FAST QUICK";
};

TEST_F(CheckDatabase, ChecksAllTablesInOneStatement)
{
    Script({Says("shop.a", "status", "OK"), Says("shop.bcd", "status", "OK")});
    EXPECT_EQ(Check(), DB_CHECK_OK);
    EXPECT_EQ(m_client.Statements(), (Statements{"SHOW TABLES", statement}));
}

TEST_F(CheckDatabase, TellsRepairableDamageFromFatalOne)
{
    Script({Says("shop.a", "Error", "Corrupt"), Says("shop.a", "status", "Operation failed")});
    EXPECT_EQ(Check(), DB_CHECK_REPAIRABLE);
    Script({Says("shop.a", "ERROR", "'./shop/a.MYD' not found (Errcode: 2)")});
    EXPECT_EQ(Check(), DB_CHECK_DEFECT);
    Script({Says("shop.a", "status", "a.frm")});
    EXPECT_EQ(Check(), DB_CHECK_OK);
}

TEST_F(CheckDatabase, StaysFatalWhateverFollows)
{
    Script({Says("shop.a", "error", "a.frm"), Says("shop.bcd", "error", "Corrupt")});
    EXPECT_EQ(Check(), DB_CHECK_DEFECT);
    Script({Says("shop.a", "error", "Corrupt"), Says("shop.bcd", "error", "bcd.frm")});
    EXPECT_EQ(Check(), DB_CHECK_DEFECT);
}

TEST_F(CheckDatabase, DescribesEachErrorAnew)
{
    UtCString text("what was there");
    Script({Says("shop.a", "error", "Corrupt"), Says("shop.a", "note", "x"), Says("shop.bcd", "Error", "bad")});
    EXPECT_EQ(Check(&text), DB_CHECK_REPAIRABLE);
    EXPECT_EQ(Bytes(text), "      shop.a:32.00 \tCorrupt\n      shop.bcd:32.00 \tbad");
}

TEST_F(CheckDatabase, EmptiesTheTextInAnyCase)
{
    UtCString text("what was there");
    Script({});
    EXPECT_EQ(Check(&text), DB_CHECK_OK);
    EXPECT_EQ(Bytes(text), "");
    CMyDatabase nameless(Settings(), "");
    text = "what was there";
    EXPECT_EQ(nameless.CheckDatabaseIntegrity("", &text), DB_CHECK_OK);
    EXPECT_EQ(Bytes(text), "");
}

TEST_F(CheckDatabase, IsSoundWithoutTables)
{
    UtCString text("what was there");
    m_client.On("SHOW TABLES", Tables({}));
    EXPECT_EQ(Check(&text), DB_CHECK_OK);
    EXPECT_EQ(Bytes(text), "");
    EXPECT_EQ(m_client.Statements(), Statements{"SHOW TABLES"});
}

TEST_F(CheckDatabase, Kept_K146_ChecksTheTablesOfItsOwnDatabaseUnderTheOtherName)
{
    EXPECT_EQ(m_database.CheckDatabaseIntegrity("store", nullptr), DB_CHECK_OK);
    EXPECT_EQ(m_client.Statements(),
              (Statements{"SHOW TABLES", "CHECK TABLE  `store`.`a`,  `store`.`bcd`,  FAST QUICK"}));
}

TEST_F(CheckDatabase, TakesItsNameFromTheTextThatItEmpties)
{
    UtCString text("store");
    m_database.CheckDatabaseIntegrity(text, &text);
    EXPECT_EQ(m_client.Statements().back(), "CHECK TABLE  `store`.`a`,  `store`.`bcd`,  FAST QUICK");
}

TEST_F(CheckDatabase, AsksNobodyWithoutAName)
{
    CMyDatabase nameless(Settings(), "");
    m_client.ForgetCalls();
    EXPECT_EQ(nameless.CheckDatabaseIntegrity("", nullptr), DB_CHECK_OK);
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(CheckDatabase, ShowsAFailedStatementAndCallsItSound)
{
    m_client.On(statement, Reply::Error(1066, "Not unique table/alias: 'fast'"));
    EXPECT_EQ(Check(), DB_CHECK_OK);
    EXPECT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_database.GetErrorCode(), 1066UL);
    m_client.On("SHOW TABLES", Reply::Error(1044, "denied"));
    EXPECT_EQ(Check(), DB_CHECK_OK);
    EXPECT_EQ(m_messages.Messages().size(), 2U);
}

TEST_F(CheckDatabase, IsSoundWithoutAConnection)
{
    m_database.Close();
    m_client.FailAlways(fake::Call::Connect, 2002);
    EXPECT_EQ(Check(), DB_CHECK_OK);
    EXPECT_FALSE(m_database.IsConnected());
}

TEST_F(CheckDatabase, OpensAClosedConnection)
{
    m_database.Close();
    Script({Says("shop.a", "error", "Corrupt")});
    EXPECT_EQ(Check(), DB_CHECK_REPAIRABLE);
    EXPECT_TRUE(m_database.IsOpen());
}

TEST(CheckFailures, EveryClientCallMayFail)
{
    const harness::MessageRecorder messages;
    const auto script = [] {
        fake::Client& client = fake::Client::Get();
        client.On("SHOW TABLES", Reply::Rows({"t"}, {{"a"}}));
        client.OnPrefix("CHECK", Answer({Says("shop.a", "error", "a.frm")}));
    };
    const std::size_t calls = harness::ForEachFailurePoint(script, [](harness::FailureRun& run) {
        CMyServer server;
        server.SetHost("db.example");
        server.SetPort(3307);
        CMyDatabase database(server, "shop");
        UtCString text("what was there");
        const eDB_CHECK found = database.CheckDatabaseIntegrity("", &text);
        const eTABLE_CHECK foundInTable = CMyTable(&database, "a").CheckTable(nullptr);
        run.EndOfWork();
        EXPECT_EQ(found == DB_CHECK_DEFECT ? "      shop.a:32 \ta.frm" : "", std::string(text.View()));
        EXPECT_TRUE(found == DB_CHECK_DEFECT || found == DB_CHECK_OK);
        EXPECT_TRUE(foundInTable == TABLE_CHECK_DEFECT || foundInTable == TABLE_CHECK_OK);
        if (!run.Failed()) {
            EXPECT_EQ(found, DB_CHECK_DEFECT);
            EXPECT_EQ(foundInTable, TABLE_CHECK_DEFECT);
        }
        EXPECT_EQ(database.CheckDatabaseIntegrity("", nullptr), DB_CHECK_DEFECT) << "the object can be used again";
    });
    EXPECT_GE(calls, 8U);
}

} // namespace
