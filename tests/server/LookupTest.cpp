#include "RecordSetFixture.h"

#include "CMyKey.h"
#include "framework/CByteArray.h"
#include "harness/MessageRecorder.h"

#include <vector>

namespace {

using server_test::OpenRecordSet;

using Statements = std::vector<std::string>;

class Lookup : public server_test::RecordSetFixture
{
protected:
    Statements Sent() const { return m_log.Statements(m_database.GetThreadID()); }

    /// Loads the table's columns, so that the log shows the lookup only.
    void MarkLoaded(OpenRecordSet& records)
    {
        records.GetTableFieldPtr("ID");
        m_log.Mark();
    }

    harness::GeneralLog m_log;
    harness::MessageRecorder m_messages;
};

TEST_F(Lookup, ByKeySendsItsStatementAndSelects)
{
    MakeOrders(10);
    OpenRecordSet records(m_database, "orders");
    MarkLoaded(records);
    EXPECT_EQ(records.Select(CMyKey("ID", 7, ">"), "ID,NAME", "NAME"), 3);
    EXPECT_EQ(records.GetFieldLong("ID"), 10);
    EXPECT_EQ(records.Select(CMyKey("NAME", "order 1%", "LIKE"), "", "ORDER BY ID DESC"), 2);
    EXPECT_EQ(records.GetFieldLong("ID"), 10);
    EXPECT_EQ(records.Select(CMyKey(), "", ""), 10);
    EXPECT_EQ(Sent(), (Statements{"SELECT ID,NAME FROM `orders` WHERE ((`orders`.`ID` > 7)) ORDER BY NAME",
                                  "SELECT `orders`.* FROM `orders` WHERE ((`orders`.`NAME` LIKE 'order 1%')) "
                                  "ORDER BY ID DESC",
                                  "SELECT `orders`.* FROM `orders`"}));
}

TEST_F(Lookup, ByKeyWithAnUnknownColumnIsRefused)
{
    MakeOrders(3);
    OpenRecordSet records(m_database, "orders");
    EXPECT_EQ(records.Select(CMyKey("NOPE", 7, "="), "", ""), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 1054U);
    EXPECT_EQ(records.CountSQL(CMyKey("NOPE", 7, "=")), -1);
    EXPECT_FALSE(records.ExistRecord(CMyKey("NOPE", 7, "=")));
    EXPECT_EQ(m_messages.Messages().size(), 3U);
    EXPECT_EQ(records.Select(CMyKey("ID", 2, "="), "", "order by ID"), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 1064U);
}

struct CountRow
{
    const char* condition;
    const char* statement;
    long count;
};

TEST_F(Lookup, CountsSendTheStatementsThatTheyDocument)
{
    MakeOrders(10);
    const CountRow rows[] = {
        {"", "SELECT COUNT(*) FROM `orders`", 10},
        {"id > 5", "SELECT COUNT(*) FROM `orders` WHERE id > 5", 5},
        {"WHERE id > 5", "SELECT COUNT(*) FROM `orders` WHERE id > 5", 5},
        {"where id > 5", "SELECT COUNT(*) FROM `orders` where id > 5", 5},
        {"id > 5;", "SELECT COUNT(*) FROM `orders` WHERE id > 5", 5}, // the server's log drops the semicolon
        {"id > 5 GROUP BY id = 6", "SELECT COUNT(*) FROM `orders` WHERE id > 5 GROUP BY id = 6", -1},
        {"id > 50 GROUP BY id", "SELECT COUNT(*) FROM `orders` WHERE id > 50 GROUP BY id", -1},
        {"SELECT 3 AS A", "SELECT 3 AS A", 3},
        {"SELECT NAME FROM orders WHERE ID = 1", "SELECT NAME FROM orders WHERE ID = 1", 0},
        {"nope", "SELECT COUNT(*) FROM `orders` WHERE nope", -1},
    };
    const CMyRecordSet records(m_database, "orders");
    for (const CountRow& row : rows) {
        SCOPED_TRACE(row.condition);
        m_log.Mark();
        EXPECT_EQ(records.CountSQL(row.condition), row.count);
        ASSERT_FALSE(Sent().empty());
        EXPECT_EQ(Sent().front(), row.statement);
    }
    EXPECT_EQ(m_messages.Messages().size(), 1U);
}

struct ExistRow
{
    const char* condition;
    const char* statement;
    bool exists;
};

TEST_F(Lookup, ExistenceTestsSendTheStatementsThatTheyDocument)
{
    MakeOrders(10);
    const ExistRow rows[] = {
        {"", "SELECT '1' FROM `orders` LIMIT 1", true},
        {"id > 5;", "SELECT '1' FROM `orders` WHERE (id > 5) LIMIT 1", true},
        {"id > 50", "SELECT '1' FROM `orders` WHERE (id > 50) LIMIT 1", false},
        {"WHERE id > 5 ; ", "SELECT '1' FROM `orders` WHERE id > 5 LIMIT 1", true},
        {"SELECT id FROM orders;", "SELECT id FROM orders LIMIT 1", true},
        {"SELECT id FROM orders LIMIT 5", "SELECT id FROM orders LIMIT 5 LIMIT 1", false},
        {"id > 5 LIMIT 1", "SELECT '1' FROM `orders` WHERE (id > 5 LIMIT 1) LIMIT 1", false},
    };
    const CMyRecordSet records(m_database, "orders");
    for (const ExistRow& row : rows) {
        SCOPED_TRACE(row.condition);
        m_log.Mark();
        EXPECT_EQ(records.ExistRecord(row.condition), row.exists);
        EXPECT_EQ(Sent(), Statements{row.statement});
    }
    EXPECT_EQ(m_messages.Messages().size(), 2U);
}

TEST_F(Lookup, TheMaximumIsThatOfTheColumn)
{
    MakeOrders(10);
    Run("CREATE TABLE `my items` (`no one` INT)");
    const CMyRecordSet records(m_database, "orders");
    m_log.Mark();
    EXPECT_EQ(records.GetMaxFieldValue("ID", "orders"), 10);
    EXPECT_EQ(records.GetMaxFieldValue("`no one`", "`my items`"), 0); // no rows: NULL
    EXPECT_EQ(records.GetMaxFieldValue("NAME", "orders"), 0);         // "order 9" is no number
    EXPECT_EQ(records.GetMaxValue("SELECT MAX(ID) + 1 FROM orders"), 11);
    EXPECT_EQ(records.GetMaxValue("WHERE ID = 4"), 4);
    EXPECT_EQ(records.GetMaxValue("SELECT 2147483647 AS A"), 2147483647);
    EXPECT_EQ(records.GetMaxValue("SELECT 2147483648 AS A"), 0);
    EXPECT_EQ(Sent().front(), "SELECT MAX(orders.ID) FROM orders");
    EXPECT_EQ(records.GetMaxFieldValue("ID", "my items"), -1);
    EXPECT_EQ(m_messages.Messages().size(), 1U);
}

TEST_F(Lookup, EndsItsStatementAtAZeroByte)
{
    MakeOrders(10);
    const CMyRecordSet records(m_database, "orders");
    const UtCString condition(std::string_view("id > 5\0 AND id > 8", 18), UT_ENCODING_DEFAULT);
    m_log.Mark();
    EXPECT_EQ(records.CountSQL(condition), 5);
    EXPECT_FALSE(records.ExistRecord(condition)); // its parenthesis is not closed
    EXPECT_EQ(Sent(),
              (Statements{"SELECT COUNT(*) FROM `orders` WHERE id > 5", "SELECT '1' FROM `orders` WHERE (id > 5"}));
    EXPECT_EQ(m_database.GetErrorCode(), 1064U);
}

TEST_F(Lookup, FindsTheFirstEmptyTextOrNull)
{
    Run("CREATE TABLE names (ID INT, NAME VARCHAR(20))");
    Run("INSERT INTO names VALUES (1, 'x'), (2, ''), (3, NULL), (4, 'y')");
    CMyRecordSet records(m_database, "names");
    ASSERT_EQ(records.Select("ORDER BY ID"), 4);
    EXPECT_EQ(records.FindRow("NAME", "x", 0, true, nullptr), 1);
    EXPECT_EQ(records.FindRow("NAME", "x", 2, true, nullptr), 2);
    EXPECT_EQ(records.FindRow("NAME", "x", 3, true, nullptr), -1);
    EXPECT_EQ(records.FindRow("NAME", "x", 3, false, nullptr), 2);
    EXPECT_EQ(records.FindRow("ID", "x", 0, true, nullptr), -1);
    EXPECT_EQ(records.FindRow("name", "x", 0, true, nullptr), 0);
}

class LastInserted : public Lookup
{
protected:
    LastInserted()
    {
        Run("CREATE TABLE people (NAME VARCHAR(20), ID BIGINT AUTO_INCREMENT PRIMARY KEY)");
        m_records.EnableAutoUserAndTimeStamp(false);
    }

    bool Append(const char* name)
    {
        return m_records.AppendStart() && m_records.SetFieldText("NAME", name) && m_records.AppendEnd();
    }

    OpenRecordSet m_records{m_database, "people"};
};

TEST_F(LastInserted, TheRowIsReadBackAfterAppendEnd)
{
    ASSERT_TRUE(Append("one"));
    ASSERT_TRUE(Append("two"));
    EXPECT_EQ(m_records.GetLastInsertedRecID(), 2);
    m_log.Mark();
    EXPECT_TRUE(m_records.SelectLastInsertedRecord());
    EXPECT_EQ(Sent(), Statements{"SELECT `people`.* FROM `people` WHERE ((`people`.`ID` = 2))"});
    UtCString name;
    m_records.GetFieldText("NAME", name);
    EXPECT_EQ(name, "two");
    EXPECT_EQ(m_records.GetRecordCount(), 1);
}

TEST_F(LastInserted, TheRowIsReadBackWhenTheTableIsNotCached)
{
    ASSERT_TRUE(Append("one"));
    CFieldCache::Instance().RemoveAll();
    EXPECT_TRUE(m_records.SelectLastInsertedRecord());
    EXPECT_EQ(m_records.GetFieldLong("ID"), 1);
}

TEST_F(LastInserted, AStatementWithoutRowsEndsTheId)
{
    ASSERT_TRUE(Append("one"));
    EXPECT_GE(m_database.ExecuteQuery("UPDATE people SET NAME = 'x'", false, nullptr, false), 0);
    EXPECT_EQ(m_records.GetLastInsertedRecID(), 0);
    EXPECT_FALSE(m_records.SelectLastInsertedRecord());
}

TEST_F(LastInserted, NothingIsReadBackAfterAFailedStatement)
{
    ASSERT_TRUE(Append("one"));
    EXPECT_EQ(m_database.ExecuteQuery("WRONG STATEMENT", false, nullptr, false), -1);
    EXPECT_EQ(m_records.GetLastInsertedRecID(), 0);
    EXPECT_FALSE(m_records.SelectLastInsertedRecord());
}

TEST_F(LastInserted, IdsBeyond32BitsAddressTheirOwnRow)
{
    Run("INSERT INTO people (NAME, ID) VALUES ('five', 5)");
    Run("ALTER TABLE people AUTO_INCREMENT = 4294967301"); // 2^32 + 5
    ASSERT_TRUE(Append("far"));
    EXPECT_EQ(m_records.GetLastInsertedRecID(), 5);
    EXPECT_TRUE(m_records.SelectLastInsertedRecord());
    EXPECT_EQ(m_records.GetFieldInt64("ID"), 4294967301LL);
    Run("ALTER TABLE people AUTO_INCREMENT = 6442450944"); // 2^32 + 2^31
    ASSERT_TRUE(Append("farther"));
    EXPECT_EQ(m_records.GetLastInsertedRecID(), -2147483647L - 1);
    EXPECT_FALSE(m_records.SelectLastInsertedRecord());
}

class CopyRow : public Lookup
{
protected:
    CopyRow() : m_utf8(Server("utf8mb4"), m_temporary.Name().c_str()) { EXPECT_TRUE(m_utf8.Open(false, "")); }

    /// Copies the row that `source` stands on into the table of `target` and writes it.
    static bool Copy(const CMyRecordSet& source, CMyRecordSet& target)
    {
        return target.AppendStart() && target.CopyRecord(source) && target.AppendEnd();
    }

    CMyDatabase m_utf8;
};

TEST_F(CopyRow, BetweenTwoDatabases)
{
    const char* const columns = " (ID INT AUTO_INCREMENT PRIMARY KEY, NAME VARCHAR(40), AGE INT NOT NULL, NOTE TEXT, "
                                "BORN DATETIME, PRICE DECIMAL(10,2), ERFASST VARCHAR(40), ERF_TIME DATETIME)";
    const harness::TemporaryDatabase other;
    Run(std::string("CREATE TABLE people") + columns);
    Run("CREATE TABLE `" + other.Name() + "`.clients" + columns);
    Run("INSERT INTO people VALUES (7, 'O\\'Neil \xC3\xA4\xF0\x9F\x98\x80', 40, NULL, '2020-05-06 07:08:09', 12.50, "
        "'somebody', '2001-01-01')");
    CMyDatabase otherDatabase(Server("utf8mb4"), other.Name().c_str());
    CMyRecordSet source(m_utf8, "people");
    CMyRecordSet target(otherDatabase, "clients");
    ASSERT_EQ(source.Select(""), 1);
    m_log.Mark();
    EXPECT_TRUE(Copy(source, target)) << Bytes(target.GetModifyErrorMessage());
    const std::vector<harness::RawConnection::Row> rows = m_temporary.Sql().Rows(
        "SELECT ID, NAME, AGE, NOTE, BORN, PRICE, ERFASST = 'somebody', ERF_TIME = '2001-01-01' FROM `" + other.Name() +
        "`.clients");
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0], (harness::RawConnection::Row{"1", "O'Neil \xC3\xA4\xF0\x9F\x98\x80", "40", std::nullopt,
                                                    "2020-05-06 07:08:09", "12.50", "0", "0"}));
    EXPECT_TRUE(target.GetLastInsertedRecID() == 1);
}

TEST_F(CopyRow, WithABlobOf16MiB)
{
    Run("CREATE TABLE blobs (ID INT AUTO_INCREMENT PRIMARY KEY, B LONGBLOB)");
    Run("CREATE TABLE copies (ID INT AUTO_INCREMENT PRIMARY KEY, B LONGBLOB)");
    Run("INSERT INTO blobs (B) SELECT REPEAT(UNHEX(GROUP_CONCAT(LPAD(HEX(seq), 2, '0') ORDER BY seq SEPARATOR '')), "
        "65536) FROM seq_0_to_255");
    ASSERT_EQ(m_temporary.Sql().Text("SELECT LENGTH(B) FROM blobs"), "16777216");
    for (CMyDatabase* database : {&m_database, &m_utf8}) {
        CMyRecordSet source(m_utf8, "blobs");
        CMyRecordSet target(database, "copies");
        ASSERT_EQ(source.Select(""), 1);
        EXPECT_TRUE(Copy(source, target)) << Bytes(target.GetModifyErrorMessage());
        EXPECT_EQ(m_temporary.Sql().Text("SELECT COUNT(*) FROM copies, blobs WHERE copies.B = blobs.B"), "1");
        Run("DELETE FROM copies");
    }
}

TEST_F(CopyRow, OfItselfAndOfAStream)
{
    MakeOrders(3);
    Run("ALTER TABLE orders MODIFY ID INT AUTO_INCREMENT");
    {
        CMyRecordSet records(m_database, "orders");
        ASSERT_EQ(records.Select("ID = 2"), 1);
        EXPECT_TRUE(Copy(records, records)) << Bytes(records.GetModifyErrorMessage());
        CMyRecordSet stream(m_database, "orders");
        ASSERT_TRUE(stream.SelectLargeResult("SELECT * FROM orders WHERE ID = 3"));
        EXPECT_TRUE(Copy(stream, records)) << Bytes(records.GetModifyErrorMessage());
    }
    EXPECT_EQ(m_temporary.Sql().Column("SELECT NAME FROM orders ORDER BY ID"),
              (Statements{"order 1", "order 2", "order 3", "order 2", "order 3"}));
}

TEST_F(CopyRow, OfAStreamOverAUtf8ConnectionKeepsItsLetters)
{
    MakeOrders(2);
    Run("ALTER TABLE orders MODIFY ID INT AUTO_INCREMENT");
    Run("UPDATE orders SET NAME = CONCAT('\xC3\xA4\xF0\x9F\x98\x80 ', ID)");
    CMyRecordSet stream(m_utf8, "orders");
    ASSERT_TRUE(stream.SelectLargeResult("SELECT * FROM orders ORDER BY ID"));
    EXPECT_TRUE(Copy(stream, stream)) << Bytes(stream.GetModifyErrorMessage()); // into itself, while it streams
    ASSERT_TRUE(stream.MoveNext());
    EXPECT_TRUE(Copy(stream, stream)) << Bytes(stream.GetModifyErrorMessage());
    EXPECT_FALSE(stream.MoveNext());
    EXPECT_EQ(m_temporary.Sql().Column("SELECT NAME FROM orders ORDER BY ID"),
              (Statements{"\xC3\xA4\xF0\x9F\x98\x80 1", "\xC3\xA4\xF0\x9F\x98\x80 2", "\xC3\xA4\xF0\x9F\x98\x80 1",
                          "\xC3\xA4\xF0\x9F\x98\x80 2"}));
}

TEST_F(CopyRow, TakesBinaryColumnsThroughWindows1252)
{
    Run("CREATE TABLE bins (ID INT AUTO_INCREMENT PRIMARY KEY, B VARBINARY(20))");
    Run("INSERT INTO bins (B) VALUES (X'41E481FF')");
    for (CMyDatabase* database : {&m_database, &m_utf8}) {
        CMyRecordSet records(database, "bins");
        ASSERT_EQ(records.Select("ID = 1"), 1);
        EXPECT_TRUE(Copy(records, records)) << Bytes(records.GetModifyErrorMessage());
    }
    EXPECT_EQ(m_temporary.Sql().Column("SELECT HEX(B) FROM bins ORDER BY ID"),
              (Statements{"41E481FF", "41E481FF", "41C3A4C281C3BF"}));
    CMyRecordSet records(m_utf8, "bins"); // what to do instead
    ASSERT_EQ(records.Select("ID = 1"), 1);
    CByteArray bytes;
    ASSERT_TRUE(records.GetFieldBlob("B", bytes));
    EXPECT_TRUE(records.AppendStart() && records.CopyRecord(records) && records.RemoveFieldInSetList("B") &&
                records.SetFieldBlob("B", bytes) && records.AppendEnd());
    EXPECT_EQ(m_temporary.Sql().Text("SELECT HEX(B) FROM bins WHERE ID = 4"), "41E481FF");
}

TEST_F(CopyRow, MakesWrongNumbersOfBitsAndStatementsOfTexts)
{
    Run("CREATE TABLE bits (ID INT AUTO_INCREMENT PRIMARY KEY, B BIT(8))");
    Run("INSERT INTO bits (B) VALUES (49), (1), (0)"); // the character 1, a control character and a zero byte
    CMyRecordSet records(m_database, "bits");
    ASSERT_EQ(records.Select("ORDER BY ID"), 3);
    EXPECT_TRUE(Copy(records, records));
    ASSERT_TRUE(records.MoveNext());
    EXPECT_FALSE(Copy(records, records));
    EXPECT_EQ(m_database.GetErrorCode(), 1064U);
    ASSERT_TRUE(records.MoveNext());
    EXPECT_FALSE(Copy(records, records));
    EXPECT_EQ(m_temporary.Sql().Column("SELECT B + 0 FROM bits ORDER BY ID"), (Statements{"49", "1", "0", "1"}));
    Run("CREATE TABLE texts (N VARCHAR(20))");
    Run("CREATE TABLE numbers (N INT, ADMIN INT DEFAULT 0)");
    Run("INSERT INTO texts VALUES ('1, ADMIN = 1'), ('')");
    CMyRecordSet texts(m_database, "texts");
    CMyRecordSet numbers(m_database, "numbers");
    ASSERT_EQ(texts.Select(""), 2);
    EXPECT_TRUE(Copy(texts, numbers));
    EXPECT_EQ(m_temporary.Sql().Text("SELECT ADMIN FROM numbers"), "1");
    ASSERT_TRUE(texts.MoveNext());
    EXPECT_FALSE(Copy(texts, numbers));
    EXPECT_EQ(m_database.GetErrorCode(), 1064U);
}

TEST_F(CopyRow, OverAConnectionThatIsKilledOrClosedInBetween)
{
    MakeOrders(3);
    Run("CREATE TABLE names (NAME VARCHAR(40))");
    Run("UPDATE orders SET NAME = 'it\\'s'"); // has to be escaped
    CMyRecordSet source(m_utf8, "orders");
    CMyRecordSet target(m_database, "names");
    ASSERT_EQ(source.Select("ID = 1"), 1);
    ASSERT_TRUE(target.AppendStart());
    harness::KillConnection(m_database.GetThreadID());
    EXPECT_TRUE(target.CopyRecord(source));
    EXPECT_TRUE(target.AppendEnd()) << Bytes(target.GetModifyErrorMessage());
    ASSERT_TRUE(target.AppendStart());
    m_database.Close();
    EXPECT_TRUE(target.CopyRecord(source));
    EXPECT_TRUE(target.AppendEnd()) << Bytes(target.GetModifyErrorMessage());
    EXPECT_EQ(m_temporary.Sql().Column("SELECT NAME FROM names"), (Statements{"it's", "it's"}));
}

TEST_F(CopyRow, OfNullIntoANotNullColumnIsAnEmptyText)
{
    Run("CREATE TABLE loose (A VARCHAR(10), B INT)");
    Run("CREATE TABLE strict (A VARCHAR(10) NOT NULL, B INT NOT NULL)");
    Run("INSERT INTO loose VALUES (NULL, NULL)");
    CMyRecordSet source(m_database, "loose");
    CMyRecordSet target(m_database, "strict");
    ASSERT_EQ(source.Select(""), 1);
    EXPECT_FALSE(Copy(source, target));
    EXPECT_TRUE(Bytes(target.GetModifyErrorMessage()).starts_with("1366: ")) << Bytes(target.GetModifyErrorMessage());
    EXPECT_EQ(m_temporary.Sql().Text("SELECT COUNT(*) FROM strict"), "0");
    m_database.ExecuteQuery("SET SESSION sql_mode = ''", false, nullptr, false);
    EXPECT_TRUE(Copy(source, target));
    EXPECT_EQ(m_temporary.Sql().Text("SELECT CONCAT('<', A, '>', B) FROM strict"), "<>0");
}

TEST_F(Lookup, GoOnAfterTheConnectionWasKilled)
{
    MakeOrders(3);
    OpenRecordSet records(m_database, "orders");
    records.GetTableFieldPtr("ID");
    harness::KillConnection(m_database.GetThreadID());
    EXPECT_EQ(records.CountSQL("ID > 1"), 2);
    const CMyRecordSet sameConnection(m_database, "orders");
    harness::KillConnection(static_cast<unsigned long>(sameConnection.GetMaxValue("SELECT CONNECTION_ID() AS N")));
    EXPECT_TRUE(records.ExistRecord("ID > 1"));
    m_database.Close();
    EXPECT_EQ(records.Select(CMyKey("ID", 1, ">"), "", ""), 2);
}

} // namespace
