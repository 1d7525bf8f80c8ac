#include "RecordSetFixture.h"

#include "harness/System.h"

#include <chrono>
#include <thread>
#include <vector>

namespace {

using server_test::OpenRecordSet;

class RecordSet : public server_test::RecordSetFixture
{
protected:
    /// What the library sent over the bound connection since the mark.
    std::vector<std::string> Sent() const { return m_log.Statements(m_database.GetThreadID()); }

    harness::GeneralLog m_log;
};

struct StatementRow
{
    const char* name;
    const char* sql;
    bool asIs;
    const char* statement;
    long rows;
};

TEST_F(RecordSet, SendsTheStatementsThatItDocuments)
{
    MakeOrders(10);
    const StatementRow rows[] = {
        {"nothing", "", false, "SELECT * FROM orders", 10},
        {"blanks", "  ", true, "SELECT * FROM orders", 10},
        {"a condition", "id > 5", false, "SELECT orders.* FROM orders WHERE id > 5", 5},
        {"a condition as it is", "id > 5", true, "id > 5", -1},
        {"a WHERE clause", " WHERE id > 5 ", false, "SELECT orders.* FROM orders WHERE id > 5", 5},
        {"an ORDER BY clause", "ORDER BY id DESC", false, "SELECT orders.* FROM orders ORDER BY id DESC", 10},
        {"in lower case", "order by id desc", false, "SELECT orders.* FROM orders order by id desc", 10},
        {"a GROUP BY clause", "GROUP BY id % 3", false, "SELECT orders.* FROM orders GROUP BY id % 3", 3},
        {"a HAVING clause", "HAVING id > 8", false, "SELECT orders.* FROM orders HAVING id > 8", 2},
        {"a LIMIT clause", "LIMIT 4", false, "SELECT orders.* FROM orders LIMIT 4", 4},
        {"a statement", "SELECT 1 AS A FROM DUAL", false, "SELECT 1 AS A FROM DUAL", 1},
        {"a statement with a line break", "SELECT\n1 AS A", false, "SELECT\n1 AS A", 1},
        {"an empty result", "id > 50", false, "SELECT orders.* FROM orders WHERE id > 50", 0},
        {"a wrong condition", "nope > 5", false, "SELECT orders.* FROM orders WHERE nope > 5", -1},
        {"an update", "UPDATE orders SET NAME = 'x' WHERE ID = 1", true, "UPDATE orders SET NAME = 'x' WHERE ID = 1",
         -1},
    };
    CMyRecordSet records(m_database, "`orders`");
    for (const StatementRow& row : rows) {
        SCOPED_TRACE(row.name);
        m_log.Mark();
        EXPECT_EQ(records.Select(row.sql, false, row.asIs), row.rows);
        EXPECT_EQ(Sent(), std::vector<std::string>{row.statement});
        EXPECT_EQ(records.GetLastSQLCommand(), row.statement);
    }
    EXPECT_EQ(m_temporary.Sql().Text("SELECT NAME FROM orders WHERE ID = 1"), "x"); // the update ran
}

TEST_F(RecordSet, WalksAndJumpsThroughAStoredResult)
{
    MakeOrders(100);
    CMyRecordSet records(m_database, "orders");
    ASSERT_EQ(records.Select("ORDER BY ID"), 100);
    long expected = 1;
    do
        EXPECT_EQ(records.GetFieldLong("ID"), expected++);
    while (records.MoveNext());
    EXPECT_EQ(expected, 101);
    EXPECT_TRUE(records.MoveTo(41));
    EXPECT_EQ(records.GetFieldLong("ID"), 42);
    EXPECT_TRUE(records.MoveNext());
    EXPECT_EQ(records.GetFieldLong("ID"), 43);
    EXPECT_EQ(records.GetCurrentRow(), 42);
    EXPECT_EQ(records.GetFieldLong("ID"), 1);
    EXPECT_TRUE(records.MoveTo(99));
    EXPECT_FALSE(records.MoveNext());
    EXPECT_FALSE(records.MoveTo(100));
    EXPECT_TRUE(records.IsEOF());
    EXPECT_TRUE(records.MoveFirst());
    EXPECT_EQ(records.GetFieldLong("ID"), 1);
}

TEST_F(RecordSet, KnowsTheLengthsOfEveryRowAfterMoveTo)
{
    Run("CREATE TABLE t (a VARBINARY(20), b VARCHAR(20), c VARBINARY(20))");
    Run("INSERT INTO t VALUES (x'00', 'one', x'6100'), (NULL, '', x'616263'), (x'610062', NULL, '')");
    CMyRecordSet records(m_database, "t");
    ASSERT_EQ(records.Select(""), 3);
    const unsigned long lengths[3][3] = {{1, 3, 2}, {0, 0, 3}, {3, 0, 0}};
    for (long row : {2L, 0L, 1L, 2L}) {
        ASSERT_TRUE(records.MoveTo(row));
        for (unsigned long no = 0; no < 3; ++no)
            EXPECT_EQ(records.GetFieldDataLen(no), lengths[row][no]) << row << " " << no;
    }
    ASSERT_TRUE(records.MoveTo(0));
    ASSERT_TRUE(records.MoveNext());
    EXPECT_EQ(records.GetFieldDataLen(2), 3U);
}

TEST_F(RecordSet, FindsTheFirstOfSeveralColumnsWithOneAlias)
{
    MakeOrders(20);
    CMyRecordSet records(m_database, "orders");
    ASSERT_EQ(records.Select("SELECT ID AS A, ID + 100 AS B, ID + 200 AS A, ID + 300 AS B FROM orders ORDER BY ID"),
              20);
    unsigned long no = 99;
    EXPECT_TRUE(records.GetFieldNo("A", no));
    EXPECT_EQ(no, 0U);
    EXPECT_EQ(records.GetFieldLong("B"), 101);
    EXPECT_EQ(records.GetFieldName(3), "B");
    EXPECT_FALSE(records.GetFieldNo("a", no));
}

TEST_F(RecordSet, StreamsAJoinOverASecondConnection)
{
    MakeOrders(1000);
    Run("CREATE TABLE items (ORDER_ID INT, TITLE VARCHAR(20))");
    Run("INSERT INTO items SELECT ID, CONCAT('item ', ID) FROM orders");
    const long before = Connections();
    {
        OpenRecordSet records(m_database, "orders");
        ASSERT_TRUE(records.SelectLargeResult("SELECT o.ID, o.NAME, i.TITLE, 1 AS ONE FROM orders o JOIN items i ON"
                                              " i.ORDER_ID = o.ID ORDER BY o.ID"));
        EXPECT_EQ(Connections(), before + 1);
        EXPECT_EQ(records.GetAffectedRows(), 1);
        EXPECT_EQ(m_database.ExecuteQuery("SELECT 1", false, nullptr, false), 1); // the first one is free
        long count = 0;
        while (!records.IsEOF()) {
            ++count;
            ASSERT_EQ(records.GetFieldLong("ID"), count);
            ASSERT_STREQ(records.GetFieldValue("TITLE"), ("item " + std::to_string(count)).c_str());
            records.MoveNext();
        }
        EXPECT_EQ(count, 1000);
        EXPECT_EQ(records.GetErrorMessage(), "Kein Fehler!");
    }
    for (int i = 0; i < 500 && Connections() != before; ++i) // the server needs a moment to notice
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(Connections(), before);
}

TEST_F(RecordSet, AStreamNeedsTheMemoryOfOneRowHoweverManyThereAre)
{
    MakeOrders(1000);
    CMyRecordSet records(m_database, "orders");
    ASSERT_TRUE(records.SelectLargeResult("SELECT a.ID, a.NAME FROM orders a JOIN orders b ON b.ID <= 300"));
    const size_t atFirst = harness::MemoryInUse();
    long count = 1;
    while (records.MoveNext())
        ++count;
    EXPECT_EQ(count, 300000);
    EXPECT_LT(harness::MemoryInUse(), atFirst + 1'000'000) << "all rows take more than ten times as much";
}

TEST_F(RecordSet, AStreamThatIsClosedEarlyLeavesEverythingUsable)
{
    MakeOrders(5000);
    CMyRecordSet records(m_database, "orders");
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(records.SelectLargeResult("SELECT * FROM orders"));
        ASSERT_TRUE(records.MoveNext());
    }
    EXPECT_EQ(records.Select("ID < 4"), 3);
    EXPECT_TRUE(records.MoveTo(2));
}

TEST_F(RecordSet, AStreamWhoseConnectionIsKilledEndsWithTheReason)
{
    MakeOrders(2000);
    OpenRecordSet records(m_database, "orders");
    ASSERT_TRUE(records.SelectLargeResult("SELECT a.ID, REPEAT('x', 1000) FROM orders a, orders b"));
    harness::KillConnection(records.GetDB()->GetThreadID());
    long count = 1;
    while (records.MoveNext())
        ++count;
    EXPECT_LT(count, 4000000);
    EXPECT_TRUE(Bytes(records.GetErrorMessage()).starts_with("2013: ")) << Bytes(records.GetErrorMessage());
    EXPECT_TRUE(m_database.Ping());
    EXPECT_TRUE(records.Close());
    EXPECT_EQ(records.Select("ID < 4"), 3);
}

TEST_F(RecordSet, AStreamWhoseConnectionIsKilledCanBeClosed)
{
    MakeOrders(2000);
    OpenRecordSet records(m_database, "orders");
    ASSERT_TRUE(records.SelectLargeResult("SELECT a.ID, REPEAT('x', 1000) FROM orders a, orders b"));
    harness::KillConnection(records.GetDB()->GetThreadID());
    EXPECT_TRUE(records.Close());
    EXPECT_TRUE(records.SelectLargeResult("SELECT * FROM orders"));
    EXPECT_EQ(records.GetFieldLong(0), 1);
}

TEST_F(RecordSet, SelectsAgainAfterTheConnectionWasKilled)
{
    MakeOrders(3);
    CMyRecordSet records(m_database, "orders");
    ASSERT_EQ(records.Select(""), 3);
    harness::KillConnection(m_database.GetThreadID());
    EXPECT_TRUE(records.MoveTo(2)); // the result is in memory
    EXPECT_EQ(records.GetFieldLong(0), 3);
    EXPECT_EQ(records.Select("ID < 3"), 2);
}

TEST_F(RecordSet, TellsTheErrorOfTheServer)
{
    CMyRecordSet records(m_database, "missing");
    EXPECT_EQ(records.Select(""), -1);
    EXPECT_EQ(Bytes(records.GetErrorMessage()), "1146: Table '" + m_temporary.Name() + ".missing' doesn't exist");
    EXPECT_FALSE(records.IsOpen());
    EXPECT_FALSE(records.SelectLargeResult("SELECT * FROM missing"));
    EXPECT_EQ(Bytes(records.GetErrorMessage()), "1146: Table '" + m_temporary.Name() + ".missing' doesn't exist");
    EXPECT_EQ(records.Select("SELECT 1 AS A FROM DUAL"), 1);
    EXPECT_EQ(records.GetErrorMessage(), "Kein Fehler!");
}

TEST_F(RecordSet, AnErrorInALaterRowFailsAStoredSelect)
{
    MakeOrders(10);
    CMyRecordSet records(m_database, "orders");
    EXPECT_EQ(
        records.Select("SELECT ID, (SELECT b.ID FROM orders b WHERE b.ID >= a.ID) FROM orders a ORDER BY ID DESC"), -1);
    EXPECT_TRUE(Bytes(records.GetErrorMessage()).starts_with("1242: "));
    EXPECT_EQ(records.Select(""), 10);
}

TEST_F(RecordSet, KnowsTheColumnsOfItsTable)
{
    MakeOrders(1);
    OpenRecordSet records(m_database, "orders");
    ASSERT_NE(records.GetTableFieldPtr("name"), nullptr);
    EXPECT_EQ(records.GetTableFieldPtr("name")->GetLength(), 160U);
    ASSERT_NE(records.GetTableFieldPtr(0L), nullptr);
    EXPECT_EQ(records.GetTableFieldPtr(0L)->GetName(), "ID");
    EXPECT_TRUE(records.IsValidTable());
    EXPECT_FALSE(CMyRecordSet(m_database, "missing").IsValidTable());
}

} // namespace
