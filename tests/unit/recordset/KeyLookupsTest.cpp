#include "RecordSetFixture.h"

#include "CMyKey.h"
#include "harness/MessageRecorder.h"

#include <stdexcept>

namespace {

using fake::Reply;
using recordset_test::CountedRows;
using recordset_test::NumberField;
using recordset_test::OpenRecordSet;
using recordset_test::Server;
using recordset_test::TextField;

using Statements = std::vector<std::string>;

class KeyLookups : public recordset_test::RecordSetFixture
{
protected:
    KeyLookups()
    {
        m_client.OnListFields("ORDERS", {NumberField("ID"), TextField("NAME")});
        m_database.Open(false, "");
        m_records.GetTableFieldPtr("ID"); // into the cache
        m_client.ForgetCalls();
    }
    void TearDown() override
    {
        m_records.Close();
        recordset_test::RecordSetFixture::TearDown();
    }

    OpenRecordSet m_records{m_database, "orders"};
    harness::MessageRecorder m_messages;
};

TEST_F(KeyLookups, SelectSendsConditionFieldsAndOrder)
{
    m_client.OnPrefix("SELECT", CountedRows(3));
    const CMyKey key("ID", 5, ">");
    EXPECT_EQ(m_records.Select(key, "a,b", "NAME"), 3);
    EXPECT_EQ(m_client.Statements(), Statements{"SELECT a,b FROM `orders` WHERE ((`orders`.`ID` > 5)) ORDER BY NAME"});
    EXPECT_EQ(m_records.GetFieldLong("A"), 0); // on the first row
    EXPECT_EQ(m_records.GetRecordCount(), 3);
}

TEST_F(KeyLookups, SelectWithAnEmptyKeySelectsAllRowsAndColumns)
{
    m_client.OnPrefix("SELECT", CountedRows(3));
    EXPECT_EQ(m_records.Select(CMyKey(), "", ""), 3);
    EXPECT_EQ(m_client.Statements(), Statements{"SELECT `orders`.* FROM `orders`"}); // the blank at its end is not sent
}

TEST_F(KeyLookups, SelectReplacesTheResultAndItsChanges)
{
    m_client.OnPrefix("SELECT", CountedRows(3));
    m_records.Select(CMyKey(), "", "");
    m_records.Set("A", "x");
    m_client.OnPrefix("SELECT", CountedRows(0));
    EXPECT_EQ(m_records.Select(CMyKey("ID", 5, "="), "", ""), 0);
    EXPECT_TRUE(m_records.IsOpen());
    EXPECT_TRUE(m_records.IsEOF());
    EXPECT_FALSE(m_records.IsRecordModified());
}

TEST_F(KeyLookups, SelectConvertsItsTextsToTheEncodingOfTheConnection)
{
    CMyDatabase database(Server("utf8mb4"), "shop");
    CMyRecordSet records(database, "orders");
    m_client.ForgetCalls();
    records.Select(CMyKey(), "\xE4", "\xF6");
    EXPECT_EQ(LastStatement(), "SELECT \xC3\xA4 FROM `orders` ORDER BY \xC3\xB6");
}

TEST_F(KeyLookups, SelectIsShownWhenItFails)
{
    m_client.OnPrefix("SELECT", Reply::Error(1054, "Unknown column"));
    EXPECT_EQ(m_records.Select(CMyKey(), "nope", ""), -1);
    EXPECT_FALSE(m_records.IsOpen());
    EXPECT_EQ(m_messages.Messages().size(), 1U);
}

TEST_F(KeyLookups, SelectOfAnUnknownColumnSendsTheTextThatSaysSo)
{
    m_client.OnPrefix("SELECT", Reply::Error(1054));
    EXPECT_EQ(m_records.Select(CMyKey("NOPE", 5, "="), "", ""), -1);
    EXPECT_EQ(LastStatement(),
              "SELECT `orders`.* FROM `orders` WHERE (CMyKey_CreateClause_Field_Not_Exist_orders_NOPE)");
}

TEST_F(KeyLookups, OfAnUnboundRecordSetFail)
{
    CMyRecordSet unbound;
    EXPECT_EQ(unbound.Select(CMyKey("ID", 5, "="), "", ""), -1);
    EXPECT_EQ(unbound.CountSQL(CMyKey("ID", 5, "=")), -1);
    EXPECT_FALSE(unbound.ExistRecord(CMyKey("ID", 5, "=")));
}

class WatchedDatabase : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Open(bool interactive, const UtCString& databaseName) override
    {
        opens.push_back({interactive, std::string(databaseName.View())});
        if (throws)
            throw std::runtime_error("host");
        return CMyDatabase::Open(interactive, databaseName) && succeeds;
    }
    bool succeeds = true;
    bool throws = false;
    std::vector<std::pair<bool, std::string>> opens;
};

TEST_F(KeyLookups, SelectOpensAClosedConnectionThroughItsVirtualOpen)
{
    WatchedDatabase database(Server(), "shop");
    CMyRecordSet records(database, "orders");
    m_client.OnPrefix("SELECT", CountedRows(1));
    database.opens.clear();
    EXPECT_EQ(records.Select(CMyKey(), "", ""), 1);
    EXPECT_EQ(database.opens.size(), 1U); // the one of the select
    database.Close();
    database.opens.clear();
    EXPECT_EQ(records.Select(CMyKey(), "", ""), 1);
    const std::pair<bool, std::string> quietly(false, "");
    EXPECT_EQ(database.opens, (std::vector{quietly, quietly}));
}

TEST_F(KeyLookups, SelectGoesOnWithAHandleThatAFailedOpenLeaves)
{
    WatchedDatabase database(Server(), "shop");
    CMyRecordSet records(database, "orders");
    m_client.OnPrefix("SELECT", CountedRows(1));
    database.Close();
    database.succeeds = false;
    EXPECT_EQ(records.Select(CMyKey(), "", ""), 1);
}

TEST_F(KeyLookups, FailWhenOpenThrows)
{
    WatchedDatabase database(Server(), "shop");
    CMyRecordSet records(database, "orders");
    database.Close();
    database.throws = true;
    EXPECT_EQ(records.Select(CMyKey(), "", ""), -1);
    EXPECT_EQ(records.CountSQL(CMyKey()), -1);
    EXPECT_FALSE(records.ExistRecord(CMyKey()));
    EXPECT_EQ(records.GetMaxValue("SELECT 1"), -1);
}

TEST_F(KeyLookups, SelectKeepsTheResultWhenTheConnectionCannotBeOpened)
{
    m_client.OnPrefix("SELECT", CountedRows(3));
    ASSERT_EQ(m_records.Select(CMyKey(), "", ""), 3);
    m_database.Close();
    m_client.FailAlways(fake::Call::Connect, 2003);
    EXPECT_EQ(m_records.Select(CMyKey(), "", ""), -1);
    EXPECT_EQ(m_records.GetRecordCount(), 3);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(KeyLookups, CountAndExistTakeTheConditionOfTheKey)
{
    m_client.OnPrefix("SELECT COUNT", Reply::Rows({NumberField("N")}, {{"4"}}));
    m_client.OnPrefix("SELECT '1'", CountedRows(1));
    const CMyKey key("NAME", "M%", "LIKE");
    EXPECT_EQ(m_records.CountSQL(key), 4);
    EXPECT_TRUE(m_records.ExistRecord(key));
    EXPECT_EQ(m_client.Statements(),
              (Statements{"SELECT COUNT(*) FROM `orders` WHERE (`orders`.`NAME` LIKE 'M%')",
                          "SELECT '1' FROM `orders` WHERE ((`orders`.`NAME` LIKE 'M%')) LIMIT 1"}));
}

TEST_F(KeyLookups, CountAndExistOfAnEmptyKeyAskForAllRows)
{
    m_records.CountSQL(CMyKey());
    m_records.ExistRecord(CMyKey());
    EXPECT_EQ(m_client.Statements(), (Statements{"SELECT COUNT(*) FROM `orders`", "SELECT '1' FROM `orders` LIMIT 1"}));
}

} // namespace
