#include "ConnectionFixture.h"

#include "MyDbFunctions.h"
#include "platform/ModuleFileName.h"
#include "platform/TickCount.h"

#include <thread>

namespace {

using connection_test::Bytes;
using connection_test::OpenConnectionFixture;
using Texts = std::vector<std::string>;

MYSQL_RES* const untouched = reinterpret_cast<MYSQL_RES*>(0x10);

/// A statement whose first sending meets a lost connection; one run for each error number that says so.
class Resend : public OpenConnectionFixture, public testing::WithParamInterface<unsigned int>
{
protected:
    Resend()
    {
        m_client.On("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {{"a"}, {"b"}, {"c"}}));
        m_client.OnPrefix("INSERT", fake::Reply::Ok(2));
        m_client.OncePrefix("INSERT", fake::Reply::Error(GetParam(), "lost"));
    }
    long Run(MYSQL_RES** result = nullptr, bool showError = false)
    {
        return m_database.ExecuteQuery("INSERT INTO t VALUES (1) \r\n", showError, result, false);
    }
};

TEST_P(Resend, ClosesOpensAndSendsTheSameBytes)
{
    EXPECT_EQ(Run(), 2L);
    EXPECT_EQ(m_client.Statements(), (Texts{"INSERT INTO t VALUES (1)", "SHOW TABLES", "INSERT INTO t VALUES (1)"}));
    EXPECT_EQ(m_client.Connects().size(), 1U);
    EXPECT_EQ(m_client.CountOf("mysql_close"), 1U);
    EXPECT_EQ(m_client.CountOf("mysql_ping"), 0U);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(Resend, LeavesTheOutcomeOfTheStatementAndNotOfTheReopening)
{
    EXPECT_EQ(Run(), 2L);
    EXPECT_EQ(Bytes(m_database.GetLastSQLCommand()), "INSERT INTO t VALUES (1)");
    EXPECT_EQ(m_database.GetErrorCode(), 0UL);
    EXPECT_EQ(Bytes(m_database.GetErrorMessage()), "Kein Fehler!");
    EXPECT_EQ(m_database.GetAffectedRows(), 2L);
    EXPECT_NE(m_database.GetThreadID(), 0UL);
}

TEST_P(Resend, RecordsThatThereIsNoErrorAsItsMessage)
{
    Run();
    m_database.Close();
    EXPECT_EQ(Bytes(m_database.GetErrorMessage()), "Kein Fehler!"); // and not that the connection is closed
}

TEST_P(Resend, WritesTheLongTimeOfTheSummaryInSeconds)
{
    Run();
    std::string seconds = std::to_string(m_database.GetQueryTime());
    ASSERT_GT(seconds.size(), 3U);
    seconds.insert(seconds.size() - 3, ".");
    EXPECT_EQ(Bytes(m_database.GetQueryInfo()), "Query OK. 2 Records in " + seconds + " Sec");
}

TEST_P(Resend, Kept_K09_ReportsTheTickCountAsTheTime)
{
    uint32_t atTheResend = 0;
    m_client.SetStatementObserver([&](const std::string& statement) {
        if (statement == "SHOW TABLES")
            std::this_thread::sleep_for(std::chrono::milliseconds(20)); // so that reopening leaves a time too
        atTheResend = platform::TickCount();
    });
    Run();
    const uint32_t sinceTheResend = static_cast<uint32_t>(m_database.GetQueryTime()) - atTheResend;
    EXPECT_LT(sinceTheResend, 60000U);
}

TEST_P(Resend, Kept_K10_RepeatsAWrite)
{
    Run();
    size_t writes = 0;
    for (const std::string& statement : m_client.Statements()) {
        writes += statement.starts_with("INSERT") ? 1 : 0;
    }
    EXPECT_EQ(writes, 2U);
}

TEST_P(Resend, Kept_K11_LeavesTheReturnValueAsTheCodeWhenItFailsAgain)
{
    m_client.SetStatementObserver([&](const std::string& statement) {
        if (statement == "SHOW TABLES")
            m_client.OncePrefix("INSERT", fake::Reply::Error(1062, "Duplicate entry"));
    });
    MYSQL_RES* result = untouched;
    EXPECT_EQ(Run(&result, true), -1L);
    EXPECT_EQ(result, untouched);
    EXPECT_EQ(m_database.GetErrorCode(), 1UL);
    EXPECT_EQ(Bytes(m_database.GetErrorMessage()), "1062: Duplicate entry");
    EXPECT_EQ(Bytes(m_database.GetLastSQLCommand()), "INSERT INTO t VALUES (1)");
    EXPECT_EQ(m_database.GetQueryTime(), 0UL);
    EXPECT_EQ(m_database.GetAffectedRows(), 0L);
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text, "Error in ExecuteQuery\n\n    Error: 1062: Duplicate entry\n\n"
                                             "    Query:\n\nINSERT INTO t VALUES (1)\n\n");
}

TEST_P(Resend, StoresANegativeReturnValueIn32Bits)
{
    m_client.SetStatementObserver([&](const std::string& statement) {
        if (statement == "SHOW TABLES") {
            m_client.OncePrefix("INSERT", fake::Reply::Error(1062, "Duplicate entry"));
            m_client.SetQueryFailureResult(-1);
        }
    });
    EXPECT_EQ(Run(), -1L);
    EXPECT_EQ(m_database.GetErrorCode(), 4294967295UL);
}

TEST_P(Resend, FailsWithTheErrorOfTheOpenWhenThatFails)
{
    m_client.FailAlways(fake::Call::Connect, 2002, "no connection");
    MYSQL_RES* result = untouched;
    EXPECT_EQ(Run(&result), -1L);
    EXPECT_EQ(result, untouched);
    EXPECT_FALSE(m_database.IsConnected());
    EXPECT_EQ(m_database.GetErrorCode(), 2002UL);
    EXPECT_EQ(Bytes(m_database.GetErrorMessage()), "2002: no connection");
    EXPECT_EQ(Bytes(m_database.GetLastSQLCommand()), "INSERT INTO t VALUES (1)");
    EXPECT_EQ(m_database.GetQueryTime(), 0UL);
    EXPECT_EQ(m_database.GetAffectedRows(), 0L);
    EXPECT_EQ(m_client.Statements().size(), 1U);
    EXPECT_EQ(connection::ProcessConnectLimit().failedConnects, 1U);
}

TEST_P(Resend, ShowsTheErrorOfTheOpenWhenAsked)
{
    m_client.FailAlways(fake::Call::Connect, 2002, "no connection");
    Run(nullptr, true);
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text, "Error in ExecuteQuery\n\n    Error: 2002: no connection\n\n"
                                             "    Query:\n\nINSERT INTO t VALUES (1)\n\n");
}

TEST_P(Resend, FailsWithTheFirstErrorWhenTheLimitForbidsToOpen)
{
    MyDbSetMaxTryConnect(0);
    EXPECT_EQ(Run(), -1L);
    EXPECT_FALSE(m_database.IsConnected());
    EXPECT_EQ(m_database.GetErrorCode(), GetParam());
    EXPECT_EQ(Bytes(m_database.GetErrorMessage()), std::to_string(GetParam()) + ": lost");
    EXPECT_EQ(Bytes(m_database.GetLastSQLCommand()), "INSERT INTO t VALUES (1)");
}

TEST_P(Resend, FailsWithTheFirstErrorWhenTheOpenRecordsNone)
{
    m_client.FailNext(fake::Call::Init, 2008);
    EXPECT_EQ(Run(), -1L);
    EXPECT_FALSE(m_database.IsConnected());
    EXPECT_EQ(m_database.GetErrorCode(), GetParam());
    EXPECT_EQ(Bytes(m_database.GetErrorMessage()), std::to_string(GetParam()) + ": lost");
}

TEST_P(Resend, FailsWithTheFirstErrorWhenTheSettingsHaveBecomeInvalid)
{
    m_database.GetServer().SetPort(0);
    EXPECT_EQ(Run(), -1L);
    EXPECT_FALSE(m_database.IsConnected());
    EXPECT_EQ(m_database.GetErrorCode(), GetParam());
    EXPECT_EQ(Bytes(m_database.GetErrorMessage()), std::to_string(GetParam()) + ": lost");
}

TEST_P(Resend, OpensAgainWithTheNextStatementAfterAFailedOpen)
{
    m_client.FailNext(fake::Call::Connect, 2002);
    EXPECT_EQ(Run(), -1L);
    EXPECT_EQ(Run(), 2L);
    EXPECT_EQ(m_database.GetErrorCode(), 0UL);
}

TEST_P(Resend, SendsAgainWhenTheTablesCannotBeListed)
{
    m_client.Once("SHOW TABLES", fake::Reply::Error(1142));
    EXPECT_EQ(Run(), 2L);
    EXPECT_EQ(m_database.GetErrorCode(), 0UL);
}

TEST_P(Resend, OpensOnceOnlyWhenTheListOfTablesMeetsALostConnectionToo)
{
    m_client.Once("SHOW TABLES", fake::Reply::Error(2006));
    EXPECT_EQ(Run(), 2L);
    EXPECT_EQ(m_client.Connects().size(), 1U);
}

TEST_P(Resend, TakesTheRowsOfTheSecondAttempt)
{
    m_client.On("SELECT A FROM t", fake::Reply::Rows({"A"}, {{"1"}}));
    m_client.Once("SELECT A FROM t", fake::Reply::Error(GetParam()));
    MYSQL_RES* result = untouched;
    EXPECT_EQ(m_database.ExecuteQuery("SELECT A FROM t", false, &result, false), 1L);
    ASSERT_NE(result, nullptr);
    ASSERT_NE(result, untouched);
    mysql_free_result(result);
}

INSTANTIATE_TEST_SUITE_P(ErrorNumbers, Resend, testing::Values(2001U, 2006U, 2013U));

/// A connection that is lost a second time, at the second sending.
class LostTwice : public OpenConnectionFixture, public testing::WithParamInterface<unsigned int>
{
protected:
    LostTwice()
    {
        m_client.On("DO 1", fake::Reply::Error(GetParam(), "lost again"));
        m_client.Once("DO 1", fake::Reply::Error(2006, "lost"));
    }
};

TEST_P(LostTwice, SendsNoThirdTime)
{
    EXPECT_EQ(m_database.ExecuteQuery("DO 1", false, nullptr, false), -1L);
    EXPECT_EQ(m_client.Statements(), (Texts{"DO 1", "SHOW TABLES", "DO 1"}));
    EXPECT_EQ(m_client.Connects().size(), 1U);
    EXPECT_EQ(m_database.GetErrorCode(), 1UL);
    EXPECT_EQ(Bytes(m_database.GetErrorMessage()), std::to_string(GetParam()) + ": lost again");
    EXPECT_TRUE(m_database.IsConnected());
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(LostTwice, AsksToReportItWhenTheCallReturnsTheErrorNumber)
{
    m_client.SetStatementObserver([&](const std::string& statement) {
        if (statement == "SHOW TABLES")
            m_client.SetQueryFailureResult(static_cast<int>(GetParam()));
    });
    EXPECT_EQ(m_database.ExecuteQuery("DO 1", false, nullptr, false), -1L);
    EXPECT_EQ(m_database.GetErrorCode(), GetParam());
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text, "Unerwarteter Fehler in Programm " + platform::ModuleFileName() +
                                                 "!\n\nModul: \tMyDB\nZeile: \t2524\n\n\n"
                                                 "Melden Sie bitte diesen Fehler der Hotline:\n\nMyDB\n");
    EXPECT_EQ(m_messages.Messages()[0].type, 64U);
}

TEST_P(LostTwice, ShowsTheFailureBehindThatWhenAsked)
{
    m_client.SetStatementObserver([&](const std::string& statement) {
        if (statement == "SHOW TABLES")
            m_client.SetQueryFailureResult(static_cast<int>(GetParam()));
    });
    m_database.ExecuteQuery("DO 1", true, nullptr, false);
    ASSERT_EQ(m_messages.Messages().size(), 2U);
    EXPECT_EQ(m_messages.Messages()[0].type, 64U);
    EXPECT_EQ(m_messages.Messages()[1].text, "Error in ExecuteQuery\n\n    Error: " + std::to_string(GetParam()) +
                                                 ": lost again\n\n    Query:\n\nDO 1\n\n");
    EXPECT_EQ(m_messages.Messages()[1].type, 16U);
}

INSTANTIATE_TEST_SUITE_P(ErrorNumbers, LostTwice, testing::Values(2001U, 2006U, 2013U));

class NotResent : public OpenConnectionFixture, public testing::WithParamInterface<unsigned int>
{
};

TEST_P(NotResent, FailsAtOnce)
{
    m_client.On("DO 1", fake::Reply::Error(GetParam()));
    EXPECT_EQ(m_database.ExecuteQuery("DO 1", false, nullptr, false), -1L);
    EXPECT_EQ(m_database.GetErrorCode(), GetParam());
    EXPECT_EQ(m_client.Statements(), Texts{"DO 1"});
    EXPECT_TRUE(m_client.Connects().empty());
}

INSTANTIATE_TEST_SUITE_P(OtherErrorNumbers, NotResent,
                         testing::Values(1U, 1053U, 1064U, 1205U, 1927U, 2000U, 2002U, 2003U, 2005U, 2007U, 2012U,
                                         2014U, 2055U));

class ClosingOpen : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Open(bool interactive, const UtCString& databaseName) override
    {
        if (refuses)
            return false;
        if (throws)
            throw 1;
        return CMyDatabase::Open(interactive, databaseName);
    }
    bool refuses = false;
    bool throws = false;
};

using ResendThroughADerivedOpen = connection_test::ConnectionFixture;

TEST_F(ResendThroughADerivedOpen, FailsWithTheFirstErrorWhenItOpensNothing)
{
    ClosingOpen database(connection_test::ValidServer(), "shop");
    EXPECT_TRUE(database.Open(false, ""));
    m_client.On("DO 1", fake::Reply::Error(2006, "lost"));
    database.refuses = true;
    EXPECT_EQ(database.ExecuteQuery("DO 1", false, nullptr, false), -1L);
    EXPECT_EQ(database.GetErrorCode(), 2006UL);
    EXPECT_EQ(Bytes(database.GetErrorMessage()), "2006: lost");
    EXPECT_EQ(Bytes(database.GetLastSQLCommand()), "DO 1");
}

TEST_F(ResendThroughADerivedOpen, FailsWithTheFirstErrorWhenItThrows)
{
    ClosingOpen database(connection_test::ValidServer(), "shop");
    EXPECT_TRUE(database.Open(false, ""));
    m_client.On("DO 1", fake::Reply::Error(2006, "lost"));
    database.throws = true;
    EXPECT_EQ(database.ExecuteQuery("DO 1", false, nullptr, false), -1L);
    EXPECT_EQ(database.GetErrorCode(), 2006UL);
    EXPECT_EQ(Bytes(database.GetLastSQLCommand()), "DO 1");
    EXPECT_EQ(database.ExecuteQuery("DO 2", false, nullptr, false), -1L);
    database.throws = false;
    EXPECT_EQ(database.ExecuteQuery("DO 2", false, nullptr, false), 0L);
}

} // namespace
