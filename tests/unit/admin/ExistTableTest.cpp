#include "CMyDatabase.h"
#include "fake_client/FakeClientFixture.h"
#include "harness/FailurePoints.h"

namespace {

using fake::Reply;

CMyServer Server()
{
    CMyServer server;
    server.SetHost("127.0.0.1");
    server.SetPort(3306);
    server.SetUser("tester");
    return server;
}

class ExistTable : public fake::ClientFixture
{
protected:
    ExistTable()
    {
        EXPECT_TRUE(m_database.Open(false, ""));
        m_client.ForgetCalls();
    }
    void TearDown() override
    {
        m_database.Close();
        fake::ClientFixture::TearDown();
    }

    CMyDatabase m_database{Server(), "shop"};
};

TEST_F(ExistTable, IsTrueWhenTheServerListsATable)
{
    m_client.On("SHOW TABLES FROM shop LIKE 'ORDERS'", Reply::Rows({"Tables_in_shop"}, {{"orders"}}));
    EXPECT_TRUE(m_database.ExistTable("ORDERS"));
}

TEST_F(ExistTable, IsFalseWhenTheServerListsNone)
{
    m_client.On("SHOW TABLES FROM shop LIKE 'ORDERS'", Reply::Rows({"Tables_in_shop"}, {}));
    EXPECT_FALSE(m_database.ExistTable("ORDERS"));
    EXPECT_EQ(m_client.Statements().size(), 1U);
}

TEST_F(ExistTable, AsksForTheNameInUpperCaseWithoutBlanksAndBackquotesAtItsEnds)
{
    m_client.On("SHOW TABLES FROM shop LIKE 'KUNDEN'", Reply::Rows({"Tables_in_shop"}, {{"kunden"}}));
    EXPECT_TRUE(m_database.ExistTable(" `Kunden` "));
    EXPECT_EQ(m_client.Statements(), std::vector<std::string>{"SHOW TABLES FROM shop LIKE 'KUNDEN'"});
}

TEST_F(ExistTable, RaisesLettersOfEveryEncodingToUpperCase)
{
    m_database.ExistTable("k\xFChe");
    m_database.ExistTable(UtCString("k\xC3\xBChe", UT_ENCODING_UTF8));
    const std::string statement = "SHOW TABLES FROM shop LIKE 'K\xDCHE'";
    EXPECT_EQ(m_client.Statements(), (std::vector<std::string>{statement, statement}));
}

TEST_F(ExistTable, LeavesBlanksAndBackquotesWithinTheName)
{
    m_database.ExistTable("a `b` c");
    EXPECT_EQ(m_client.Statements(), std::vector<std::string>{"SHOW TABLES FROM shop LIKE 'A `B` C'"});
}

TEST_F(ExistTable, SendsNothingForAnEmptyNameHoweverItIsQuoted)
{
    for (const char* name : {"", " ", "``", " `` "})
        EXPECT_FALSE(m_database.ExistTable(name)) << name;
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(ExistTable, SendsNothingOnAClosedConnection)
{
    m_database.Close();
    m_client.ForgetCalls();
    EXPECT_FALSE(m_database.ExistTable("ORDERS"));
    EXPECT_TRUE(m_client.Calls().empty());
    EXPECT_FALSE(m_database.IsConnected());
}

TEST_F(ExistTable, SendsNothingOnAConnectionWithoutDatabase)
{
    CMyDatabase connected(Server(), "");
    ASSERT_TRUE(connected.Open(false, ""));
    m_client.ForgetCalls();
    EXPECT_FALSE(connected.ExistTable("ORDERS"));
    EXPECT_TRUE(m_client.Statements().empty());
}

TEST_F(ExistTable, IsFalseWhenTheStatementFails)
{
    m_client.On("SHOW TABLES FROM shop LIKE 'O'X'", Reply::Error(1064));
    EXPECT_FALSE(m_database.ExistTable("o'x"));
    EXPECT_EQ(m_database.GetErrorCode(), 1064U);
}

TEST_F(ExistTable, Kept_K30_TakesUnderscoreAndPercentForWildcards)
{
    m_client.On("SHOW TABLES FROM shop LIKE 'A_B'", Reply::Rows({"Tables_in_shop"}, {{"axb"}}));
    EXPECT_TRUE(m_database.ExistTable("a_b"));
}

TEST_F(ExistTable, Kept_K49_AsksInUpperCaseAlsoWhereTheServerTellsLetterCasesApart)
{
    m_client.On("SHOW TABLES FROM shop LIKE 'ORDERS'", Reply::Rows({"Tables_in_shop"}, {})); // it has "orders"
    EXPECT_FALSE(m_database.ExistTable("orders"));
}

TEST_F(ExistTable, FailsCleanlyAtEveryClientCall)
{
    m_database.Close();
    const size_t points = harness::ForEachFailurePoint(
        [this] { m_client.On("SHOW TABLES FROM shop LIKE 'ORDERS'", Reply::Rows({"Tables_in_shop"}, {{"orders"}})); },
        [](harness::FailureRun& run) {
            CMyDatabase database(Server(), "shop");
            const bool isOpen = database.Open(false, "");
            const bool exists = database.ExistTable("orders");
            run.EndOfWork();
            if (!isOpen) {
                EXPECT_FALSE(exists);
            } else if (database.GetErrorCode() != 0) {
                EXPECT_FALSE(exists);
            } else {
                EXPECT_TRUE(exists);
            }
            EXPECT_TRUE(database.Open(false, ""));
            EXPECT_TRUE(database.ExistTable("orders"));
        });
    EXPECT_GE(points, 4U); // init, connect, query, store
}

} // namespace
