#include "RecordSetFixture.h"

#include "harness/MessageRecorder.h"

namespace {

using fake::Reply;
using recordset_test::Bytes;
using recordset_test::CountedRows;
using recordset_test::NumberField;
using recordset_test::OpenRecordSet;
using recordset_test::Server;
using recordset_test::TextField;

using Statements = std::vector<std::string>;

Reply Number(const fake::Value& value)
{
    return Reply::Rows({NumberField("N")}, {{value}});
}

Reply OfText(const fake::Value& value)
{
    return Reply::Rows({TextField("N")}, {{value}});
}

class Lookups : public recordset_test::RecordSetFixture
{
protected:
    void TearDown() override
    {
        m_records.Close();
        recordset_test::RecordSetFixture::TearDown();
    }

    OpenRecordSet m_records{m_database, "orders"};
    harness::MessageRecorder m_messages;
};

// ---------------------------------------------------------------------------------------------------------------
// CountSQL

TEST_F(Lookups, CountSendsItsStatementAndGivesTheNumber)
{
    m_client.On("SELECT COUNT(*) FROM `orders` WHERE id > 5", Number("17"));
    EXPECT_EQ(m_records.CountSQL("id > 5"), 17);
    EXPECT_EQ(m_client.Statements(), Statements{"SELECT COUNT(*) FROM `orders` WHERE id > 5"});
    EXPECT_EQ(m_client.CountOf("mysql_ping"), 1U);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(Lookups, CountOfNoConditionIsThatOfTheTable)
{
    m_client.On("SELECT COUNT(*) FROM `orders`", Number("3"));
    EXPECT_EQ(m_records.CountSQL(""), 3);
}

TEST_F(Lookups, CountOfAStatementIsThatStatement)
{
    m_client.On("SELECT 4", Number("4"));
    EXPECT_EQ(m_records.CountSQL("SELECT 4"), 4);
    EXPECT_EQ(m_client.Statements(), Statements{"SELECT 4"});
}

TEST_F(Lookups, Kept_K103_CountsAResultOfSeveralRowsAsAFailure)
{
    m_client.On("SELECT 4", CountedRows(2));
    EXPECT_EQ(m_records.CountSQL("SELECT 4"), -1);
    m_client.On("SELECT 5", CountedRows(0));
    EXPECT_EQ(m_records.CountSQL("SELECT 5"), -1);
}

TEST_F(Lookups, CountReadsTheFirstColumnAsAnInteger)
{
    struct Case
    {
        fake::Value value;
        long count;
    };
    const Case cases[] = {{"0", 0},          {"-3", -3}, {" 12 ", 12}, {"+5", 5}, {"2147483647", 2147483647},
                          {"2147483648", 0}, {"1.5", 0}, {"many", 0},  {"", 0},   {std::nullopt, 0}};
    for (const Case& row : cases) {
        m_client.On("SELECT N", Reply::Rows({TextField("N"), TextField("M")}, {{row.value, "99"}}));
        EXPECT_EQ(m_records.CountSQL("SELECT N"), row.count) << row.value.value_or("NULL");
    }
}

TEST_F(Lookups, AFailedCountIsShownAndLeavesItsErrorOnTheConnection)
{
    m_client.OnPrefix("SELECT COUNT", Reply::Error(1054, "Unknown column 'nope'"));
    EXPECT_EQ(m_records.CountSQL("nope > 5"), -1);
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_NE(m_messages.Messages()[0].text.find("1054: Unknown column 'nope'"), std::string::npos);
    EXPECT_EQ(m_database.GetErrorCode(), 1054U);
}

TEST_F(Lookups, OfAnUnboundRecordSetFail)
{
    const CMyRecordSet unbound;
    EXPECT_EQ(unbound.CountSQL("id > 5"), -1);
    EXPECT_EQ(unbound.CountSQL(""), -1);
    EXPECT_FALSE(unbound.ExistRecord("id > 5"));
    EXPECT_FALSE(unbound.ExistRecord(""));
    EXPECT_EQ(unbound.GetMaxValue("SELECT 1"), -1);
    EXPECT_EQ(unbound.GetMaxFieldValue("ID", "orders"), -1);
    EXPECT_EQ(unbound.GetRecordCount(), 0);
}

TEST_F(Lookups, OpenAClosedConnection)
{
    m_client.OnPrefix("SELECT", Number("1"));
    m_database.Close();
    EXPECT_EQ(m_records.CountSQL("id = 1"), 1);
    m_database.Close();
    EXPECT_TRUE(m_records.ExistRecord("id = 1"));
    m_database.Close();
    EXPECT_EQ(m_records.GetMaxValue("SELECT 1 AS N"), 1);
}

TEST_F(Lookups, GoOnWhenTheSecondAttemptToOpenTheConnectionSucceeds)
{
    m_client.OnPrefix("SELECT", Number("1"));
    const auto afterAFailedConnect = [&](auto lookup) {
        m_database.Close();
        m_client.FailNext(fake::Call::Connect, 2003);
        return lookup();
    };
    EXPECT_EQ(afterAFailedConnect([&] { return m_records.CountSQL("id = 1"); }), 1);
    EXPECT_EQ(LastStatement(), "SELECT COUNT(*) FROM `orders` WHERE id = 1");
    EXPECT_TRUE(afterAFailedConnect([&] { return m_records.ExistRecord("id = 1"); }));
    EXPECT_EQ(afterAFailedConnect([&] { return m_records.GetMaxValue("LIMIT 1"); }), 1);
    EXPECT_EQ(LastStatement(), "SELECT orders.* FROM orders LIMIT 1");
    EXPECT_EQ(afterAFailedConnect([&] { return m_records.GetMaxFieldValue("ID", "orders"); }), 1);
}

TEST_F(Lookups, FailWithoutAMessageWhenTheConnectionCannotBeOpened)
{
    m_database.Close();
    m_client.FailAlways(fake::Call::Connect, 2003);
    EXPECT_EQ(m_records.CountSQL("id = 1"), -1);
    EXPECT_FALSE(m_records.ExistRecord("id = 1"));
    EXPECT_EQ(m_records.GetMaxValue("SELECT 1 AS N"), -1);
    EXPECT_TRUE(m_messages.Messages().empty());
    EXPECT_EQ(m_database.GetErrorCode(), 2003U);
}

TEST_F(Lookups, ConvertTheirConditionToTheEncodingOfTheConnection)
{
    CMyDatabase database(Server("utf8mb4"), "shop");
    const CMyRecordSet records(database, "orders");
    m_client.ForgetCalls();
    records.CountSQL("NAME = '\xE4'");
    records.ExistRecord("NAME = '\xE4'");
    records.GetMaxValue("SELECT '\xE4' AS A");
    EXPECT_EQ(m_client.Statements(),
              (Statements{"SELECT COUNT(*) FROM `orders` WHERE NAME = '\xC3\xA4'",
                          "SELECT '1' FROM `orders` WHERE (NAME = '\xC3\xA4') LIMIT 1", "SELECT '\xC3\xA4' AS A"}));
}

TEST_F(Lookups, LeaveTheCallersResultRowAndChangesAlone)
{
    m_client.On("SELECT * FROM orders", CountedRows(5));
    m_client.OnPrefix("SELECT COUNT", Number("1"));
    m_client.OnPrefix("SELECT '1'", Number("1"));
    m_client.OnPrefix("SELECT MAX", Number("1"));
    m_records.Select("");
    m_records.MoveTo(3);
    m_records.Set("A", "changed");
    m_records.CountSQL("id = 1");
    m_records.ExistRecord("id = 1");
    m_records.GetMaxFieldValue("ID", "orders");
    EXPECT_EQ(m_records.GetRecordCount(), 5);
    EXPECT_EQ(m_records.GetLastSQLCommand(), "SELECT * FROM orders");
    EXPECT_STREQ(m_records.GetFieldValue("A"), "changed");
    EXPECT_EQ(m_records.GetCurrentRow(), 3);
}

TEST_F(Lookups, WorkWhileTheRecordSetStreams)
{
    m_client.On("SELECT * FROM orders", CountedRows(5));
    m_client.OnPrefix("SELECT COUNT", Number("7"));
    ASSERT_TRUE(m_records.SelectLargeResult("SELECT * FROM orders"));
    ASSERT_TRUE(m_records.MoveNext());
    EXPECT_EQ(m_records.CountSQL("id = 1"), 7);
    EXPECT_EQ(m_records.GetFieldLong("A"), 1);
    EXPECT_TRUE(m_records.MoveNext());
}

TEST_F(Lookups, TakeAConditionThatIsTheirOwnLastStatement)
{
    m_client.On("SELECT 4", Number("4"));
    m_records.Select("SELECT 4", false, true);
    EXPECT_EQ(m_records.CountSQL(m_records.GetLastSQLCommand()), 4);
    EXPECT_EQ(m_records.CountSQL(m_database.GetLastSQLCommand()), 4);
}

// ---------------------------------------------------------------------------------------------------------------
// ExistRecord

TEST_F(Lookups, ExistSendsItsStatementAndIsTrueForARow)
{
    m_client.On("SELECT '1' FROM `orders` WHERE (id > 5) LIMIT 1", OfText("1"));
    EXPECT_TRUE(m_records.ExistRecord("id > 5;"));
    EXPECT_EQ(m_client.Statements(), Statements{"SELECT '1' FROM `orders` WHERE (id > 5) LIMIT 1"});
}

TEST_F(Lookups, ExistIsFalseWithoutARowAndForAFailure)
{
    m_client.OnPrefix("SELECT '1'", CountedRows(0));
    EXPECT_FALSE(m_records.ExistRecord("id > 5"));
    EXPECT_TRUE(m_messages.Messages().empty());
    m_client.OnPrefix("SELECT '1'", Reply::Error(1064));
    EXPECT_FALSE(m_records.ExistRecord("id >"));
    EXPECT_EQ(m_messages.Messages().size(), 1U);
}

TEST_F(Lookups, ExistAsksForOneRowWithoutACondition)
{
    m_records.ExistRecord(" ; ");
    EXPECT_EQ(LastStatement(), "SELECT '1' FROM `orders` LIMIT 1");
}

// ---------------------------------------------------------------------------------------------------------------
// Maximum

TEST_F(Lookups, TheMaximumIsTheNumberOfTheOnlyRow)
{
    m_client.On("SELECT 1 AS N", Number("12"));
    EXPECT_EQ(m_records.GetMaxValue("SELECT 1 AS N"), 12);
    m_client.On("SELECT 1 AS N", Number(std::nullopt));
    EXPECT_EQ(m_records.GetMaxValue("SELECT 1 AS N"), 0);
    m_client.On("SELECT 1 AS N", CountedRows(2));
    EXPECT_EQ(m_records.GetMaxValue("SELECT 1 AS N"), -1);
    m_client.On("SELECT 1 AS N", CountedRows(0));
    EXPECT_EQ(m_records.GetMaxValue("SELECT 1 AS N"), -1);
}

TEST_F(Lookups, TheMaximumOfNothingFailsWithoutAStatement)
{
    EXPECT_EQ(m_records.GetMaxValue(""), -1);
    EXPECT_EQ(m_records.GetMaxFieldValue("", "orders"), -1);
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(Lookups, TheMaximumCompletesAClauseWithTheTable)
{
    m_client.On("SELECT orders.* FROM orders LIMIT 1", Number("8"));
    EXPECT_EQ(m_records.GetMaxValue("LIMIT 1"), 8);
}

TEST_F(Lookups, AFailedMaximumIsShown)
{
    m_client.OnPrefix("SELECT", Reply::Error(1146));
    EXPECT_EQ(m_records.GetMaxValue("SELECT MAX(a) FROM nope"), -1);
    EXPECT_EQ(m_messages.Messages().size(), 1U);
}

TEST_F(Lookups, TheMaximumOfAColumnSendsTheNamesUnquoted)
{
    m_client.On("SELECT MAX(items.ID) FROM items", Number("99"));
    EXPECT_EQ(m_records.GetMaxFieldValue("ID", "items"), 99);
    EXPECT_EQ(m_client.Statements(), Statements{"SELECT MAX(items.ID) FROM items"});
}

TEST_F(Lookups, Kept_K102_TheBoundTableDoesNotStandInForAnEmptyTableName)
{
    EXPECT_EQ(m_records.GetMaxFieldValue("ID", ""), -1);
    EXPECT_TRUE(m_client.Calls().empty());
}

// ---------------------------------------------------------------------------------------------------------------
// GetRecordCount

TEST_F(Lookups, TheRecordCountIsThatOfTheResult)
{
    EXPECT_EQ(m_records.GetRecordCount(), 0);
    m_client.On("SELECT * FROM orders", CountedRows(3));
    m_records.Select("");
    EXPECT_EQ(m_records.GetRecordCount(), 3);
    m_records.MoveTo(7);
    EXPECT_EQ(m_records.GetRecordCount(), 3);
    m_records.Close();
    EXPECT_EQ(m_records.GetRecordCount(), 0);
}

TEST_F(Lookups, TheRecordCountOfAStreamIsWhatHasBeenRead)
{
    m_client.On("SELECT * FROM orders", CountedRows(3));
    ASSERT_TRUE(m_records.SelectLargeResult("SELECT * FROM orders"));
    EXPECT_EQ(m_records.GetRecordCount(), 1);
    m_records.MoveNext();
    EXPECT_EQ(m_records.GetRecordCount(), 2);
}

} // namespace
