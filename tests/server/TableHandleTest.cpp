#include "RecordSetFixture.h"

#include "CMyTable.h"
#include "harness/MessageRecorder.h"

#include <vector>

namespace {

class TableHandle : public server_test::RecordSetFixture
{
protected:
    std::vector<std::string> Sent() const { return m_log.Statements(m_database.GetThreadID()); }

    CMyTable Table(const char* name)
    {
        CMyTable table(&m_database, name);
        m_log.Mark();
        return table;
    }

    __int64 StatusOf(const std::string& table, const std::string& column)
    {
        return std::stoll(*m_temporary.Sql().Text("SELECT " + column + " FROM information_schema.TABLES WHERE " +
                                                  "TABLE_SCHEMA = DATABASE() AND TABLE_NAME = '" + table + "'"));
    }

    harness::GeneralLog m_log;
    harness::MessageRecorder m_messages;
};

TEST_F(TableHandle, SendsTheStatementsThatItDocuments)
{
    MakeOrders(10);
    const CMyTable table = Table("Orders");
    EXPECT_EQ(table.GetRecordCount(), 10);
    EXPECT_FALSE(table.IsEmpty());
    EXPECT_GT(table.GetTableDataSize(), 0);
    EXPECT_EQ(table.GetTableIndexSize(), 0);
    const std::string count = "SELECT COUNT(*) FROM `Orders`";
    const std::string status = "SHOW TABLE STATUS FROM `" + m_temporary.Name() + "` LIKE 'Orders'";
    EXPECT_EQ(Sent(), (std::vector<std::string>{count, count, status, status}));
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(TableHandle, TellsTheSizesThatTheServerHas)
{
    Run("CREATE TABLE sizes (ID INT PRIMARY KEY, A CHAR(200), KEY (A)) ENGINE=MyISAM");
    const CMyTable table = Table("sizes");
    EXPECT_EQ(table.GetTableDataSize(), 0);
    Run("INSERT INTO sizes SELECT seq, seq FROM seq_1_to_500");
    EXPECT_EQ(table.GetTableDataSize(), StatusOf("sizes", "DATA_LENGTH"));
    EXPECT_EQ(table.GetTableIndexSize(), StatusOf("sizes", "INDEX_LENGTH"));
    EXPECT_GT(table.GetTableDataSize(), 100000);
    EXPECT_GT(table.GetTableIndexSize(), 0);
}

TEST_F(TableHandle, CountsAnewEachTime)
{
    MakeOrders(3);
    const CMyTable table = Table("orders");
    EXPECT_EQ(table.GetRecordCount(), 3);
    Run("DELETE FROM orders");
    EXPECT_EQ(table.GetRecordCount(), 0);
    EXPECT_TRUE(table.IsEmpty());
}

TEST_F(TableHandle, OfAMissingTableIsEmptyAndCountsNothing)
{
    const CMyTable table = Table("missing");
    EXPECT_FALSE(table.IsValid());
    EXPECT_EQ(table.GetRecordCount(), -1);
    EXPECT_TRUE(table.IsEmpty());
    EXPECT_EQ(table.GetTableDataSize(), 0);
    EXPECT_EQ(table.GetTableIndexSize(), 0);
    EXPECT_TRUE(Sent().empty());
}

TEST_F(TableHandle, OfADroppedTableFails)
{
    MakeOrders(3);
    const CMyTable table = Table("orders");
    Run("DROP TABLE orders");
    EXPECT_EQ(table.GetRecordCount(), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 1146U);
    EXPECT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_TRUE(table.IsEmpty());
    EXPECT_EQ(table.GetTableDataSize(), 0);
}

TEST_F(TableHandle, OfAViewCountsButHasNoSize)
{
    MakeOrders(3);
    Run("CREATE VIEW some AS SELECT * FROM orders WHERE ID < 3");
    const CMyTable table = Table("some");
    EXPECT_EQ(table.GetRecordCount(), 2);
    EXPECT_EQ(table.GetTableDataSize(), 0);
    EXPECT_EQ(table.GetTableIndexSize(), 0);
}

TEST_F(TableHandle, WithAnUnderscoreInItsNameCanTellTheSizeOfAnotherTable)
{
    Run("CREATE TABLE a_b (ID INT) ENGINE=MyISAM");
    Run("CREATE TABLE a1b (ID CHAR(200)) ENGINE=MyISAM");
    Run("INSERT INTO a1b VALUES ('x')");
    EXPECT_EQ(Table("a_b").GetTableDataSize(), StatusOf("a1b", "DATA_LENGTH"));
    EXPECT_EQ(Table("a_b").GetRecordCount(), 0);
}

TEST_F(TableHandle, QuotesTheDatabaseAndCountsATableWithABlank)
{
    Run("CREATE TABLE `my table` (ID INT)");
    Run("INSERT INTO `my table` VALUES (1), (2)");
    EXPECT_EQ(Table("my table").GetRecordCount(), 2);
    EXPECT_GT(Table("my table").GetTableDataSize(), 0);
}

TEST_F(TableHandle, WithBackticksOrQuotesInItsNameIsRefused)
{
    Run("CREATE TABLE `it's` (ID INT)");
    Run("CREATE TABLE `a``b` (ID INT)");
    MakeOrders(1);
    EXPECT_EQ(Table("`orders`").GetRecordCount(), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 1103U); // the name is empty
    EXPECT_EQ(Table("`orders`").GetTableDataSize(), 0);
    EXPECT_EQ(Table("it's").GetRecordCount(), 0);
    EXPECT_EQ(Table("it's").GetTableDataSize(), 0);
    EXPECT_EQ(m_database.GetErrorCode(), 1064U);
    EXPECT_EQ(Table("a`b").GetRecordCount(), -1);
}

TEST_F(TableHandle, AsksItsOwnDatabase)
{
    const harness::TemporaryDatabase other;
    CMyDatabase otherDatabase(Server(), other.Name().c_str());
    ASSERT_TRUE(otherDatabase.Open(false, ""));
    Run("CREATE TABLE both_have (ID INT) ENGINE=MyISAM");
    Run("CREATE TABLE `" + other.Name() + "`.both_have (ID INT) ENGINE=MyISAM");
    Run("INSERT INTO both_have VALUES (1), (2), (3)");
    EXPECT_EQ(Table("both_have").GetRecordCount(), 3);
    EXPECT_EQ(CMyTable(&otherDatabase, "both_have").GetRecordCount(), 0);
    EXPECT_GT(Table("both_have").GetTableDataSize(), 0);
    EXPECT_EQ(CMyTable(&otherDatabase, "both_have").GetTableDataSize(), 0);
}

TEST_F(TableHandle, AnswersAfterItsConnectionWasKilledOrClosed)
{
    MakeOrders(3);
    const CMyTable table = Table("orders");
    harness::KillConnection(m_database.GetThreadID());
    EXPECT_EQ(table.GetRecordCount(), 3);
    m_database.Close();
    EXPECT_EQ(table.GetRecordCount(), 3);
    m_database.Close();
    EXPECT_GT(table.GetTableDataSize(), 0);
}

TEST_F(TableHandle, DescribesARealTable)
{
    Run("CREATE TABLE prices (id INT, Name VARCHAR(20), price DOUBLE, LastName INT, PRIMARY KEY (id, Name)) "
        "ENGINE=MEMORY");
    const CMyTable table = Table("prices");
    EXPECT_EQ(table.GetFields(""), "`ID`, `NAME`, `PRICE`, `LASTNAME`");
    EXPECT_EQ(table.GetFields("name"), "`ID`, `PRICE`, `LASTNAME`");
    EXPECT_EQ(table.GetFields("`LASTNAME`, id"), "`NAME`, `PRICE`");
    EXPECT_EQ(table.GetPrimaryKeyFieldName(), "Name,id");
    EXPECT_EQ(table.GetTableType(), TABLE_TYPE_MEMORY);
    EXPECT_FALSE(table.SupportTransaction());
    EXPECT_EQ(table.GetEncodingType(), UT_ENCODING_DEFAULT);
}

} // namespace
