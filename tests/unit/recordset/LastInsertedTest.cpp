#include "RecordSetFixture.h"

#include "harness/MessageRecorder.h"

namespace {

using fake::Reply;
using recordset_test::CountedRows;
using recordset_test::NumberField;
using recordset_test::OpenRecordSet;
using recordset_test::TextField;

fake::Field AutoIncrement(const char* name)
{
    return {.name = name,
            .type = MYSQL_TYPE_LONGLONG,
            .flags = AUTO_INCREMENT_FLAG | NUM_FLAG,
            .length = 20,
            .charsetnr = 63};
}

class LastInserted : public recordset_test::RecordSetFixture
{
protected:
    LastInserted() { m_client.OnListFields("ORDERS", {TextField("NAME"), AutoIncrement("Id"), AutoIncrement("ID2")}); }
    void TearDown() override
    {
        m_records.Close();
        recordset_test::RecordSetFixture::TearDown();
    }

    /// Runs an INSERT that makes this id.
    void Insert(unsigned long long id)
    {
        m_client.Once("INSERT", Reply::Ok(1, id));
        m_database.ExecuteQuery("INSERT", false, nullptr, false);
        m_client.ForgetCalls();
    }

    OpenRecordSet m_records{m_database, "orders"};
    harness::MessageRecorder m_messages;
};

TEST_F(LastInserted, TheIdIsThatOfTheLastStatement)
{
    Insert(17);
    EXPECT_EQ(m_records.GetLastInsertedRecID(), 17);
    EXPECT_TRUE(m_client.Statements().empty());
    m_database.ExecuteQuery("UPDATE", false, nullptr, false);
    EXPECT_EQ(m_records.GetLastInsertedRecID(), 0);
}

TEST_F(LastInserted, TheIdHas32Bits)
{
    struct Case
    {
        unsigned long long id;
        long result;
    };
    for (const Case& row : {Case{0, 0}, Case{2147483647, 2147483647}, Case{2147483648, -2147483647L - 1},
                            Case{4294967295, -1}, Case{4294967301, 5}}) {
        Insert(row.id);
        EXPECT_EQ(m_records.GetLastInsertedRecID(), row.result) << row.id;
    }
}

TEST_F(LastInserted, TheIdIsZeroAfterAFailure)
{
    Insert(17);
    m_client.FailNext(fake::Call::Ping, 2006); // leaves the id and an error
    m_database.Ping();
    EXPECT_EQ(m_records.GetLastInsertedRecID(), 0);
}

TEST_F(LastInserted, TheIdIsZeroWithoutAConnection)
{
    EXPECT_EQ(CMyRecordSet().GetLastInsertedRecID(), 0);
    Insert(17);
    m_database.Close();
    EXPECT_EQ(m_records.GetLastInsertedRecID(), 0);
    EXPECT_FALSE(m_records.SelectLastInsertedRecord());
    EXPECT_FALSE(CMyRecordSet().SelectLastInsertedRecord());
    EXPECT_FALSE(m_database.IsConnected());
}

TEST_F(LastInserted, TheIdOfAStreamingRecordSetIsThatOfItsSecondConnection)
{
    m_client.On("SELECT s", CountedRows(3));
    ASSERT_TRUE(m_records.SelectLargeResult("SELECT s"));
    Insert(17);
    EXPECT_EQ(m_records.GetLastInsertedRecID(), 0);
    EXPECT_FALSE(m_records.SelectLastInsertedRecord());
}

TEST_F(LastInserted, TheRowIsSelectedByItsFirstAutoIncrementColumn)
{
    m_client.OnPrefix("SELECT", CountedRows(1));
    Insert(17);
    EXPECT_TRUE(m_records.SelectLastInsertedRecord());
    EXPECT_EQ(LastStatement(), "SELECT `orders`.* FROM `orders` WHERE ((`orders`.`ID` = 17))");
    EXPECT_FALSE(m_records.IsEOF());
}

TEST_F(LastInserted, ARowBeyond32BitsIsAddressedByItsWholeId)
{
    m_client.OnPrefix("SELECT", CountedRows(1));
    Insert(4294967301);
    EXPECT_TRUE(m_records.SelectLastInsertedRecord());
    EXPECT_EQ(LastStatement(), "SELECT `orders`.* FROM `orders` WHERE ((`orders`.`ID` = 4294967301))");
}

TEST_F(LastInserted, TheRowIsNotSelectedWithoutAnIdAboveZero)
{
    for (const unsigned long long id : {0ULL, 2147483648ULL, 4294967295ULL, 4294967296ULL}) {
        Insert(id);
        EXPECT_FALSE(m_records.SelectLastInsertedRecord()) << id;
        EXPECT_TRUE(m_client.Statements().empty()) << id;
    }
}

TEST_F(LastInserted, TheRowIsNotSelectedAfterAFailedStatement)
{
    m_client.OnPrefix("SELECT", CountedRows(1));
    Insert(17);
    m_client.Once("WRONG", Reply::Error(1064));
    m_database.ExecuteQuery("WRONG", false, nullptr, false);
    EXPECT_FALSE(m_records.SelectLastInsertedRecord());
}

TEST_F(LastInserted, TheRowIsNotSelectedWithoutColumnsOrAnAutoIncrementColumn)
{
    m_client.On("SELECT * FROM items", CountedRows(2));
    m_client.OnListFields("ITEMS", {NumberField("ID")});
    for (const char* table : {"items", "nope"}) {
        m_records.SetTableName("items");
        m_records.Select("");
        m_records.SetTableName(table);
        Insert(17);
        EXPECT_FALSE(m_records.SelectLastInsertedRecord()) << table;
        EXPECT_EQ(m_records.GetRecordCount(), 2) << table; // the result stays
    }
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(LastInserted, OnlyASingleRowCounts)
{
    for (const size_t rows : {0U, 2U}) {
        m_client.OnPrefix("SELECT", CountedRows(rows));
        Insert(17);
        EXPECT_FALSE(m_records.SelectLastInsertedRecord());
        EXPECT_EQ(m_records.GetRecordCount(), static_cast<long>(rows));
    }
}

} // namespace
