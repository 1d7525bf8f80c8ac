#include "fake_client/FakeClient.h"
#include "fake_client/FakeClientFixture.h"

#include <cstring>

namespace {

using fake::Call;
using fake::Reply;

int Send(MYSQL* handle, const std::string& statement)
{
    return mysql_real_query(handle, statement.data(), static_cast<unsigned long>(statement.size()));
}

class FakeClient : public fake::ClientFixture
{
protected:
    MYSQL* Connected(const char* database = "d")
    {
        MYSQL* handle = mysql_init(nullptr);
        EXPECT_NE(mysql_real_connect(handle, "h", "u", "p", database, 3306, nullptr, 0), nullptr);
        return handle;
    }
};

using FakeClientDeathTest = FakeClient;

TEST_F(FakeClient, RecordsTheStatementWithItsZeroBytes)
{
    MYSQL* handle = Connected();
    Send(handle, std::string("SELECT 'a\0b'", 12));
    ASSERT_EQ(m_client.Statements().size(), 1U);
    EXPECT_EQ(m_client.Statements()[0], std::string("SELECT 'a\0b'", 12));
    mysql_close(handle);
}

TEST_F(FakeClient, RecordsTheArgumentsOfAConnect)
{
    MYSQL* handle = mysql_init(nullptr);
    mysql_real_connect(handle, "host", "user", "secret", "", 3307, nullptr, 5);
    const fake::ConnectRecord connect = m_client.Connects().at(0);
    EXPECT_EQ(connect.host, "host");
    EXPECT_EQ(connect.user, "user");
    EXPECT_EQ(connect.password, "secret");
    EXPECT_EQ(connect.database, "");
    EXPECT_EQ(connect.port, 3307U);
    EXPECT_EQ(connect.socket, std::nullopt);
    EXPECT_EQ(connect.flags, 5UL);
    EXPECT_EQ(m_client.Calls().at(1).arguments,
              "host=host user=user password=secret database= port=3307 socket=NULL flags=5");
    mysql_close(handle);
}

TEST_F(FakeClient, RecordsTheCallsInTheirOrder)
{
    mysql_close(Connected());
    EXPECT_EQ(m_client.CallNames(), (std::vector<std::string>{"mysql_init", "mysql_real_connect", "mysql_close"}));
    EXPECT_EQ(m_client.CountOf("mysql_close"), 1U);
}

TEST_F(FakeClient, SetsTheReconnectMemberThroughTheOption)
{
    MYSQL* handle = mysql_init(nullptr);
    const my_bool on = 1;
    EXPECT_EQ(mysql_options(handle, MYSQL_OPT_RECONNECT, &on), 0);
    EXPECT_EQ(handle->options.reconnect, 1);
    ASSERT_EQ(m_client.Options().size(), 1U);
    EXPECT_EQ(m_client.Options()[0].option, MYSQL_OPT_RECONNECT);
    EXPECT_EQ(m_client.Options()[0].value, 1);
    mysql_close(handle);
}

TEST_F(FakeClient, AnswersByText)
{
    m_client.On("A", Reply::Ok(1));
    MYSQL* handle = Connected();
    Send(handle, "A");
    EXPECT_EQ(mysql_affected_rows(handle), 1U);
    Send(handle, "AB");
    EXPECT_EQ(mysql_affected_rows(handle), 0U);
    mysql_close(handle);
}

TEST_F(FakeClient, AnswersByPrefix)
{
    m_client.OnPrefix("UPDATE ", Reply::Ok(2));
    MYSQL* handle = Connected();
    Send(handle, "UPDATE t");
    EXPECT_EQ(mysql_affected_rows(handle), 2U);
    mysql_close(handle);
}

TEST_F(FakeClient, AnswersByPredicate)
{
    m_client.OnMatch([](const std::string& statement) { return statement.size() == 3; }, Reply::Ok(3));
    MYSQL* handle = Connected();
    Send(handle, "xyz");
    EXPECT_EQ(mysql_affected_rows(handle), 3U);
    mysql_close(handle);
}

TEST_F(FakeClient, PrefersTheNewestStandingRule)
{
    m_client.On("A", Reply::Ok(1));
    m_client.On("A", Reply::Ok(2));
    MYSQL* handle = Connected();
    Send(handle, "A");
    EXPECT_EQ(mysql_affected_rows(handle), 2U);
    mysql_close(handle);
}

TEST_F(FakeClient, UsesOnceRulesInTheirOrderBeforeTheStandingOne)
{
    m_client.Once("A", Reply::Ok(1));
    m_client.OncePrefix("A", Reply::Ok(2));
    m_client.On("A", Reply::Ok(3));
    MYSQL* handle = Connected();
    std::vector<unsigned long long> affected;
    for (int i = 0; i < 4; ++i) {
        Send(handle, "A");
        affected.push_back(mysql_affected_rows(handle));
    }
    EXPECT_EQ(affected, (std::vector<unsigned long long>{1, 2, 3, 3}));
    mysql_close(handle);
}

TEST_F(FakeClient, GivesTheQueueToStatementsWithoutARule)
{
    m_client.On("A", Reply::Ok(9));
    m_client.Enqueue(Reply::Ok(1));
    m_client.Enqueue(Reply::Ok(2));
    MYSQL* handle = Connected();
    std::vector<unsigned long long> affected;
    for (const char* statement : {"B", "A", "C", "D"}) {
        Send(handle, statement);
        affected.push_back(mysql_affected_rows(handle));
    }
    EXPECT_EQ(affected, (std::vector<unsigned long long>{1, 9, 2, 0}));
    mysql_close(handle);
}

TEST_F(FakeClient, TellsTheObserverBeforeItAnswers)
{
    m_client.SetStatementObserver([this](const std::string& statement) { m_client.On(statement, Reply::Ok(7)); });
    MYSQL* handle = Connected();
    Send(handle, "A");
    EXPECT_EQ(mysql_affected_rows(handle), 7U);
    mysql_close(handle);
}

TEST_F(FakeClient, FailsTheOrderedKindOfCallAndThenWorks)
{
    m_client.FailNext(Call::Ping, 2006);
    MYSQL* handle = Connected();
    EXPECT_NE(mysql_ping(handle), 0);
    EXPECT_EQ(mysql_errno(handle), 2006U);
    EXPECT_STREQ(mysql_error(handle), "Server has gone away");
    EXPECT_EQ(mysql_ping(handle), 0);
    EXPECT_EQ(mysql_errno(handle), 0U);
    EXPECT_STREQ(mysql_error(handle), "");
    mysql_close(handle);
}

TEST_F(FakeClient, FailsAKindOfCallUntilItIsToldToSucceed)
{
    m_client.FailAlways(Call::Connect, 1045, "Access denied");
    MYSQL* handle = mysql_init(nullptr);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(mysql_real_connect(handle, "h", "u", "p", "d", 1, nullptr, 0), nullptr);
    }
    EXPECT_EQ(mysql_errno(handle), 1045U);
    EXPECT_STREQ(mysql_error(handle), "Access denied");
    m_client.Succeed(Call::Connect);
    EXPECT_EQ(mysql_real_connect(handle, "h", "u", "p", "d", 1, nullptr, 0), handle);
    mysql_close(handle);
}

TEST_F(FakeClient, FailsInitWithNull)
{
    m_client.FailNext(Call::Init, 2008);
    EXPECT_EQ(mysql_init(nullptr), nullptr);
    EXPECT_EQ(m_client.HandlesOpened(), 0U);
}

TEST_F(FakeClient, FailsTheNthCallOnly)
{
    m_client.FailCall(3, 1105, "broken");
    MYSQL* handle = Connected(); // calls 1 and 2
    EXPECT_EQ(Send(handle, "A"), 1);
    EXPECT_EQ(mysql_errno(handle), 1105U);
    EXPECT_EQ(mysql_affected_rows(handle), ~0ULL);
    EXPECT_EQ(Send(handle, "A"), 0);
    EXPECT_EQ(m_client.CountedCalls(), 4U);
    ASSERT_EQ(m_client.FailedCalls().size(), 1U);
    EXPECT_EQ(m_client.FailedCalls()[0].call, Call::Query);
    EXPECT_EQ(m_client.FailedCalls()[0].arguments, "A");
    mysql_close(handle);
}

TEST_F(FakeClient, FailsEveryCallFromTheNthOn)
{
    MYSQL* handle = Connected();
    m_client.FailFromCall(2, 2002);
    EXPECT_EQ(mysql_ping(handle), 0);
    EXPECT_NE(mysql_ping(handle), 0);
    EXPECT_NE(mysql_ping(handle), 0);
    m_client.StopFailing();
    EXPECT_EQ(mysql_ping(handle), 0);
    EXPECT_EQ(m_client.CountedCalls(), 3U);
    mysql_close(handle);
}

TEST_F(FakeClient, FailsStoreAndUseOfAStatementWithRowsOnly)
{
    m_client.On("rows", Reply::Rows({"A"}, {{"1"}}));
    m_client.FailNext(Call::StoreResult, 1317);
    m_client.FailNext(Call::UseResult, 1213);
    MYSQL* handle = Connected();
    Send(handle, "no rows");
    EXPECT_EQ(mysql_store_result(handle), nullptr);
    EXPECT_EQ(mysql_errno(handle), 0U);
    Send(handle, "rows");
    EXPECT_EQ(mysql_store_result(handle), nullptr);
    EXPECT_EQ(mysql_errno(handle), 1317U);
    Send(handle, "rows");
    EXPECT_EQ(mysql_use_result(handle), nullptr);
    EXPECT_EQ(mysql_errno(handle), 1213U);
    mysql_close(handle);
}

TEST_F(FakeClient, FailsTheListingWithoutAnErrorNumberWhenToldSo)
{
    m_client.OnListFieldsError("T", 0);
    MYSQL* handle = Connected();
    EXPECT_EQ(mysql_list_fields(handle, "T", nullptr), nullptr);
    EXPECT_EQ(mysql_errno(handle), 0U);
    mysql_close(handle);
}

TEST_F(FakeClient, GivesTheStatTextOrTheErrorText)
{
    m_client.SetStat("Uptime: 1");
    MYSQL* handle = Connected();
    EXPECT_STREQ(mysql_stat(handle), "Uptime: 1");
    m_client.FailNext(Call::Stat, 2006);
    EXPECT_STREQ(mysql_stat(handle), "Server has gone away");
    EXPECT_EQ(mysql_errno(handle), 2006U);
    mysql_close(handle);
}

TEST_F(FakeClient, GivesTheInfoTexts)
{
    m_client.SetServerInfo("5.1");
    m_client.SetHostInfo("here");
    m_client.SetClientInfo("3.0");
    MYSQL* handle = mysql_init(nullptr);
    EXPECT_EQ(mysql_get_server_info(handle), nullptr);
    EXPECT_EQ(mysql_get_host_info(handle), nullptr);
    mysql_real_connect(handle, "h", "u", "p", "d", 1, nullptr, 0);
    EXPECT_STREQ(mysql_get_server_info(handle), "5.1");
    EXPECT_STREQ(mysql_get_host_info(handle), "here");
    EXPECT_STREQ(mysql_get_client_info(), "3.0");
    mysql_close(handle);
}

TEST_F(FakeClient, NumbersTheConnections)
{
    m_client.SetNextThreadId(77);
    MYSQL* first = Connected();
    MYSQL* second = Connected();
    EXPECT_EQ(mysql_thread_id(first), 77U);
    EXPECT_EQ(first->thread_id, 77U);
    EXPECT_EQ(mysql_thread_id(second), 78U);
    mysql_close(first);
    mysql_close(second);
}

TEST_F(FakeClient, LosesEveryConnectionButNotThoseOfLater)
{
    MYSQL* lost = Connected();
    m_client.LoseConnection();
    MYSQL* later = Connected();
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(Send(lost, "A"), 1);
        EXPECT_EQ(mysql_errno(lost), 2006U);
        EXPECT_NE(mysql_ping(lost), 0);
        EXPECT_EQ(mysql_list_fields(lost, "T", nullptr), nullptr);
        EXPECT_EQ(mysql_errno(lost), 2006U);
    }
    EXPECT_EQ(Send(later, "A"), 0);
    mysql_close(lost);
    mysql_close(later);
}

TEST_F(FakeClient, FailsToStoreRowsWhenTheConnectionIsLost)
{
    m_client.On("rows", Reply::Rows({"A"}, {{"1"}}));
    MYSQL* handle = Connected();
    Send(handle, "rows");
    m_client.LoseConnection();
    EXPECT_EQ(mysql_store_result(handle), nullptr);
    EXPECT_EQ(mysql_errno(handle), 2013U);
    mysql_close(handle);
}

TEST_F(FakeClient, GivesADefaultInAListingOnly)
{
    const fake::Field field{.name = "A", .def = "x"};
    m_client.On("rows", Reply::Rows({field}, {}));
    m_client.OnListFields("T", {field});
    MYSQL* handle = Connected();
    Send(handle, "rows");
    MYSQL_RES* rows = mysql_store_result(handle);
    MYSQL_RES* listing = mysql_list_fields(handle, "T", nullptr);
    EXPECT_EQ(mysql_fetch_fields(rows)[0].def, nullptr);
    EXPECT_STREQ(mysql_fetch_fields(listing)[0].def, "x");
    mysql_free_result(rows);
    mysql_free_result(listing);
    mysql_close(handle);
}

TEST_F(FakeClient, CutsAStreamWhenTheConnectionIsLost)
{
    m_client.On("rows", Reply::Rows({"A"}, {{"1"}, {"2"}}));
    MYSQL* handle = Connected();
    Send(handle, "rows");
    MYSQL_RES* result = mysql_use_result(handle);
    EXPECT_NE(mysql_fetch_row(result), nullptr);
    m_client.LoseConnection();
    EXPECT_EQ(mysql_fetch_row(result), nullptr);
    EXPECT_EQ(mysql_errno(handle), 2013U);
    mysql_free_result(result);
    mysql_close(handle);
}

TEST_F(FakeClient, CutsAStreamBehindTheGivenRow)
{
    m_client.On("rows", Reply::Rows({"A"}, {{"1"}, {"2"}}).CutAfter(1));
    MYSQL* handle = Connected();
    Send(handle, "rows");
    MYSQL_RES* result = mysql_use_result(handle);
    EXPECT_NE(mysql_fetch_row(result), nullptr);
    EXPECT_EQ(mysql_errno(handle), 0U);
    EXPECT_EQ(mysql_fetch_row(result), nullptr);
    EXPECT_EQ(mysql_errno(handle), 2013U);
    EXPECT_EQ(mysql_fetch_row(result), nullptr);
    mysql_free_result(result);
    EXPECT_EQ(Send(handle, "A"), 0);
    mysql_close(handle);
}

TEST_F(FakeClient, FailsToStoreRowsThatAreCut)
{
    m_client.On("rows", Reply::Rows({"A"}, {{"1"}, {"2"}}).CutAfter(1));
    MYSQL* handle = Connected();
    Send(handle, "rows");
    EXPECT_EQ(mysql_store_result(handle), nullptr);
    EXPECT_EQ(mysql_errno(handle), 2013U);
    EXPECT_EQ(mysql_affected_rows(handle), ~0ULL);
    mysql_close(handle);
}

TEST_F(FakeClient, TellsWhatWasNotClosed)
{
    m_client.On("rows", Reply::Rows({"A"}, {{"1"}}));
    MYSQL* handle = Connected();
    Send(handle, "rows");
    MYSQL_RES* result = mysql_store_result(handle);
    EXPECT_EQ(m_client.Leaks(), "1 handle(s) and 1 result(s) not closed");
    mysql_free_result(result);
    EXPECT_EQ(m_client.Leaks(), "1 handle(s) and 0 result(s) not closed");
    mysql_close(handle);
    EXPECT_EQ(m_client.HandlesOpened(), 1U);
    EXPECT_EQ(m_client.HandlesClosed(), 1U);
    EXPECT_EQ(m_client.ResultsOpened(), 1U);
    EXPECT_EQ(m_client.ResultsClosed(), 1U);
}

TEST_F(FakeClient, KeepsTheScriptWhenTheCallsAreForgotten)
{
    m_client.On("A", Reply::Ok(1));
    MYSQL* handle = Connected();
    m_client.ForgetCalls();
    EXPECT_TRUE(m_client.Calls().empty());
    EXPECT_TRUE(m_client.Connects().empty());
    Send(handle, "A");
    EXPECT_EQ(mysql_affected_rows(handle), 1U);
    mysql_close(handle);
}

TEST_F(FakeClientDeathTest, StopsAtAClosedHandle)
{
    MYSQL* handle = Connected();
    mysql_close(handle);
    EXPECT_DEATH(mysql_errno(handle), "mysql_errno with a closed handle");
    EXPECT_DEATH(mysql_close(handle), "mysql_close with a closed handle");
}

TEST_F(FakeClientDeathTest, StopsAtANullHandle)
{
    EXPECT_DEATH(mysql_ping(nullptr), "mysql_ping with a null handle");
}

TEST_F(FakeClientDeathTest, StopsAtAFreedResult)
{
    m_client.On("rows", Reply::Rows({"A"}, {{"1"}}));
    MYSQL* handle = Connected();
    Send(handle, "rows");
    MYSQL_RES* result = mysql_store_result(handle);
    mysql_free_result(result);
    EXPECT_DEATH(mysql_free_result(result), "mysql_free_result with a freed result");
    EXPECT_DEATH(mysql_fetch_row(result), "mysql_fetch_row with a freed result");
    mysql_close(handle);
}

TEST_F(FakeClientDeathTest, StopsAtAStreamWhoseHandleWasClosed)
{
    m_client.On("rows", Reply::Rows({"A"}, {{"1"}}));
    EXPECT_DEATH(
        {
            MYSQL* handle = Connected();
            Send(handle, "rows");
            MYSQL_RES* result = mysql_use_result(handle);
            mysql_close(handle);
            mysql_free_result(result);
        },
        "streamed result whose handle was closed");
}

TEST_F(FakeClientDeathTest, StopsAtATableNameThatTheClientCannotSend)
{
    MYSQL* handle = Connected();
    EXPECT_EQ(mysql_list_fields(handle, std::string(126, 'x').c_str(), nullptr), nullptr);
    EXPECT_DEATH(mysql_list_fields(handle, std::string(127, 'x').c_str(), nullptr), "more than 126 bytes");
    mysql_close(handle);
}

TEST_F(FakeClientDeathTest, StopsAtASeekInAStream)
{
    m_client.On("rows", Reply::Rows({"A"}, {{"1"}}));
    MYSQL* handle = Connected();
    Send(handle, "rows");
    MYSQL_RES* result = mysql_use_result(handle);
    EXPECT_DEATH(mysql_data_seek(result, 0), "mysql_data_seek on a streamed result");
    mysql_free_result(result);
    mysql_close(handle);
}

TEST_F(FakeClientDeathTest, StopsAtAScriptedRowOfTheWrongWidth)
{
    EXPECT_DEATH(Reply::Rows({"A", "B"}, {{"1"}}), "does not have as many values as there are fields");
}

TEST_F(FakeClientDeathTest, StopsAtTheCallLimit)
{
    MYSQL* handle = Connected();
    m_client.SetCallLimit(2);
    m_client.FailCall(0);
    mysql_ping(handle);
    mysql_ping(handle);
    EXPECT_DEATH(mysql_ping(handle), "more than 2 client calls");
    mysql_close(handle);
}

TEST_F(FakeClient, ClosesAndFreesNull)
{
    mysql_close(nullptr);
    mysql_free_result(nullptr);
    EXPECT_EQ(m_client.HandlesClosed(), 0U);
}

} // namespace
