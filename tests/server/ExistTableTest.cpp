#include "RecordSetFixture.h"

#include <vector>

namespace {

class ExistTable : public server_test::RecordSetFixture
{
};

TEST_F(ExistTable, FindsATableInAnyLetterCaseAndQuoting)
{
    MakeOrders(1);
    for (const char* name : {"orders", "ORDERS", "Orders", "`orders`", " `Orders` "})
        EXPECT_TRUE(m_database.ExistTable(name)) << name;
    for (const char* name : {"order", "orders2", "", " ", "``", "orders; DROP TABLE orders", "o'rders", "\\"})
        EXPECT_FALSE(m_database.ExistTable(name)) << name;
}

TEST_F(ExistTable, FindsAView)
{
    MakeOrders(1);
    Run("CREATE VIEW recent AS SELECT * FROM orders");
    EXPECT_TRUE(m_database.ExistTable("recent"));
}

TEST_F(ExistTable, SendsTheStatementThatItDocuments)
{
    const harness::GeneralLog log;
    m_database.ExistTable(" `Kunden` ");
    EXPECT_EQ(log.Statements(m_database.GetThreadID()),
              std::vector<std::string>{"SHOW TABLES FROM " + m_temporary.Name() + " LIKE 'KUNDEN'"});
}

TEST_F(ExistTable, SendsNothingForAnEmptyNameAndOnAClosedConnection)
{
    const harness::GeneralLog log;
    EXPECT_FALSE(m_database.ExistTable(""));
    const unsigned long threadId = m_database.GetThreadID();
    EXPECT_TRUE(log.Statements(threadId).empty());
    m_database.Close();
    EXPECT_FALSE(m_database.ExistTable("orders"));
    EXPECT_FALSE(m_database.IsConnected());
}

TEST_F(ExistTable, TakesUnderscoreAndPercentForWildcards)
{
    MakeOrders(1);
    EXPECT_TRUE(m_database.ExistTable("order_"));
    EXPECT_TRUE(m_database.ExistTable("%"));
    EXPECT_FALSE(m_database.ExistTable("customer%"));
}

TEST_F(ExistTable, DoesNotSeeTheTablesOfOtherDatabases)
{
    harness::TemporaryDatabase other;
    other.Sql().Run("CREATE TABLE elsewhere (a INT)");
    EXPECT_FALSE(m_database.ExistTable("elsewhere"));
}

} // namespace
