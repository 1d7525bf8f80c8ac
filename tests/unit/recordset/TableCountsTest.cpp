#include "RecordSetFixture.h"

#include "CMyTable.h"
#include "harness/FailurePoints.h"
#include "harness/MessageRecorder.h"

// The counts and sizes of a table handle, which take a record set.

namespace {

using fake::Reply;
using recordset_test::NumberField;
using recordset_test::RecordSetFixture;
using recordset_test::Server;
using recordset_test::TextField;

using Statements = std::vector<std::string>;

constexpr const char* countStatement = "SELECT COUNT(*) FROM `orders`";
constexpr const char* statusStatement = "SHOW TABLE STATUS FROM `shop` LIKE 'orders'";

Reply Status(const fake::Value& dataLength, const fake::Value& indexLength)
{
    return Reply::Rows({TextField("Name"), NumberField("Data_length", MYSQL_TYPE_LONGLONG),
                        NumberField("Index_length", MYSQL_TYPE_LONGLONG)},
                       {{"orders", dataLength, indexLength}, {"other", "1", "2"}});
}

Reply Count(const char* count)
{
    return Reply::Rows({NumberField("COUNT(*)")}, {{count}});
}

void ScriptOrders()
{
    CFieldCache::Instance().RemoveAll();
    fake::Client::Get().OnListFields("ORDERS", {NumberField("ID")});
    fake::Client::Get().On(countStatement, Count("42"));
    fake::Client::Get().On(statusStatement, Status("16384", "32768"));
}

class TableCounts : public RecordSetFixture
{
protected:
    TableCounts() { ScriptOrders(); }

    CMyTable Orders()
    {
        CMyTable table(&m_database, "orders");
        m_client.ForgetCalls();
        return table;
    }

    harness::MessageRecorder m_messages;
};

TEST_F(TableCounts, CountTheRowsAnewEachTime)
{
    const CMyTable table = Orders();
    EXPECT_EQ(table.GetRecordCount(), 42);
    m_client.On(countStatement, Count("43"));
    EXPECT_EQ(table.GetRecordCount(), 43);
    EXPECT_EQ(m_client.Statements(), (Statements{countStatement, countStatement}));
}

TEST_F(TableCounts, OfAnInvalidHandleFailWithoutAStatement)
{
    const CMyTable table(&m_database, "nope");
    m_client.ForgetCalls();
    EXPECT_EQ(table.GetRecordCount(), -1);
    EXPECT_EQ(table.GetTableDataSize(), 0);
    EXPECT_EQ(table.GetTableIndexSize(), 0);
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(TableCounts, WithoutAConnectionFail)
{
    Orders();
    const CMyTable table(nullptr, "orders");
    ASSERT_TRUE(table.IsValid());
    EXPECT_EQ(table.GetRecordCount(), -1);
    EXPECT_TRUE(table.IsEmpty());
    EXPECT_EQ(table.GetTableDataSize(), 0);
    EXPECT_EQ(table.GetTableIndexSize(), 0);
}

TEST_F(TableCounts, AFailedCountIsShown)
{
    const CMyTable table = Orders();
    m_client.On(countStatement, Reply::Error(1146));
    EXPECT_EQ(table.GetRecordCount(), -1);
    EXPECT_EQ(m_messages.Messages().size(), 1U);
}

TEST_F(TableCounts, ATableIsEmptyWithoutRows)
{
    const CMyTable table = Orders();
    EXPECT_FALSE(table.IsEmpty());
    m_client.On(countStatement, Count("1"));
    EXPECT_FALSE(table.IsEmpty());
    m_client.On(countStatement, Count("0"));
    EXPECT_TRUE(table.IsEmpty());
}

TEST_F(TableCounts, Kept_K105_ATableThatCannotBeCountedIsEmpty)
{
    EXPECT_TRUE(CMyTable(&m_database, "nope").IsEmpty());
    const CMyTable table = Orders();
    m_client.On(countStatement, Reply::Error(1146));
    EXPECT_TRUE(table.IsEmpty());
}

TEST_F(TableCounts, SizesAreThoseOfTheStatus)
{
    const CMyTable table = Orders();
    EXPECT_EQ(table.GetTableDataSize(), 16384);
    EXPECT_EQ(table.GetTableIndexSize(), 32768);
    EXPECT_EQ(m_client.Statements(), (Statements{statusStatement, statusStatement}));
}

TEST_F(TableCounts, SizesHave64Bits)
{
    const CMyTable table = Orders();
    m_client.On(statusStatement, Status("9223372036854775807", "4294967296"));
    EXPECT_EQ(table.GetTableDataSize(), 9223372036854775807LL);
    EXPECT_EQ(table.GetTableIndexSize(), 4294967296LL);
    m_client.On(statusStatement, Status("9223372036854775808", "-1"));
    EXPECT_EQ(table.GetTableDataSize(), 0);
    EXPECT_EQ(table.GetTableIndexSize(), -1);
}

TEST_F(TableCounts, SizesAreZeroOnEveryFailureWithoutAMessage)
{
    const CMyTable table = Orders();
    m_client.On(statusStatement, Status(std::nullopt, "unknown"));
    EXPECT_EQ(table.GetTableDataSize(), 0);
    EXPECT_EQ(table.GetTableIndexSize(), 0);
    m_client.On(statusStatement, Reply::Rows({"Name"}, {{"orders"}}));
    EXPECT_EQ(table.GetTableDataSize(), 0);
    m_client.On(statusStatement, Reply::Rows({"Data_length"}, {}));
    EXPECT_EQ(table.GetTableDataSize(), 0);
    m_client.On(statusStatement, Reply::Error(1064));
    EXPECT_EQ(table.GetTableDataSize(), 0);
    EXPECT_EQ(m_database.GetErrorCode(), 1064U);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(TableCounts, Kept_K106_SizesAskWithTheNameAsItWasPassedForAPattern)
{
    m_client.OnListFields("A_B", {NumberField("ID")});
    const CMyTable table(&m_database, "`a_b`");
    ASSERT_TRUE(table.IsValid());
    m_client.ForgetCalls();
    table.GetTableDataSize();
    EXPECT_EQ(LastStatement(), "SHOW TABLE STATUS FROM `shop` LIKE '`a_b`'");
    table.GetRecordCount();
    EXPECT_EQ(LastStatement(), "SELECT COUNT(*) FROM ``a_b``");
}

TEST(TableCountFailures, GiveTheDocumentedValues)
{
    const harness::MessageRecorder messages;
    const size_t points = harness::ForEachFailurePoint(ScriptOrders, [](harness::FailureRun& run) {
        CMyDatabase database(Server(), "shop");
        const CMyTable table(&database, "orders");
        const long count = table.GetRecordCount();
        EXPECT_TRUE(count == 42 || count == -1);
        const __int64 data = table.GetTableDataSize();
        EXPECT_TRUE(data == 16384 || data == 0);
        const __int64 index = table.GetTableIndexSize();
        EXPECT_TRUE(index == 32768 || index == 0);
        run.EndOfWork();
        if (run.Failed(fake::Call::Query, "SELECT") && !run.IsLostConnection()) {
            EXPECT_EQ(count, -1);
        }
        CMyTable again(table);
        EXPECT_TRUE(again.RegisterTable(true));
        EXPECT_EQ(again.GetRecordCount(), 42);
        EXPECT_EQ(again.GetTableDataSize(), 16384);
    });
    EXPECT_GE(points, 12U);
}

} // namespace
