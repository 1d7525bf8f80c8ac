#include "ConnectionFixture.h"

namespace {

using connection_test::Bytes;
using connection_test::OpenConnectionFixture;
using connection_test::ThrowingInterface;

/// A pointer that no call may write.
MYSQL_RES* const untouched = reinterpret_cast<MYSQL_RES*>(0x10);

fake::Reply TwoRows()
{
    return fake::Reply::Rows({"A"}, {{"1"}, {"2"}});
}

class ExecuteQueryResult : public OpenConnectionFixture
{
protected:
    long Run(const UtCString& sql) { return m_database.ExecuteQuery(sql, false, nullptr, false); }
};

// --- What becomes of the rows

TEST_F(ExecuteQueryResult, StoresTheRowsForTheCaller)
{
    m_client.On("SELECT A FROM t", TwoRows());
    MYSQL_RES* result = untouched;
    EXPECT_EQ(m_database.ExecuteQuery("SELECT A FROM t", false, &result, false), 2L);
    EXPECT_EQ(m_database.GetAffectedRows(), 2L);
    ASSERT_NE(result, untouched);
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(mysql_num_rows(result), 2U);
    mysql_free_result(result);
    EXPECT_EQ(m_client.CountOf("mysql_store_result"), 1U);
    EXPECT_EQ(m_client.CountOf("mysql_use_result"), 0U);
}

TEST_F(ExecuteQueryResult, StreamsTheRowsForTheCaller)
{
    m_client.On("SELECT A FROM t", TwoRows());
    MYSQL_RES* result = untouched;
    EXPECT_EQ(m_database.ExecuteQuery("SELECT A FROM t", false, &result, true), 1L);
    EXPECT_EQ(m_database.GetAffectedRows(), 1L);
    ASSERT_NE(result, untouched);
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(m_client.CountOf("mysql_fetch_row"), 0U);
    EXPECT_EQ(m_client.CountOf("mysql_affected_rows"), 0U);
    EXPECT_STREQ(mysql_fetch_row(result)[0], "1");
    mysql_free_result(result);
}

TEST_F(ExecuteQueryResult, FetchesTheRowsAtOnceAndDropsThem)
{
    m_client.On("SELECT A FROM t", TwoRows());
    EXPECT_EQ(m_database.ExecuteQuery("SELECT A FROM t", false, nullptr, false), 2L);
    EXPECT_EQ(m_client.CountOf("mysql_store_result"), 1U);
    EXPECT_EQ(m_client.CountOf("mysql_free_result"), 1U);
}

TEST_F(ExecuteQueryResult, ReadsTheRowsOneByOneAndDropsThem)
{
    m_client.On("SELECT A FROM t", TwoRows());
    EXPECT_EQ(m_database.ExecuteQuery("SELECT A FROM t", false, nullptr, true), 1L);
    EXPECT_EQ(m_client.CountOf("mysql_use_result"), 1U);
    EXPECT_EQ(m_client.CountOf("mysql_fetch_row"), 3U);
    EXPECT_EQ(m_client.CountOf("mysql_free_result"), 1U);
    EXPECT_EQ(Run("DO 1"), 0L); // nothing is left unread
}

TEST_F(ExecuteQueryResult, GivesANullResultForAStatementWithoutRows)
{
    m_client.On("DELETE FROM t", fake::Reply::Ok(3));
    MYSQL_RES* stored = untouched;
    EXPECT_EQ(m_database.ExecuteQuery("DELETE FROM t", false, &stored, false), 3L);
    EXPECT_EQ(stored, nullptr);
    MYSQL_RES* streamed = untouched;
    EXPECT_EQ(m_database.ExecuteQuery("DELETE FROM t", false, &streamed, true), 1L);
    EXPECT_EQ(streamed, nullptr);
    EXPECT_EQ(m_database.ExecuteQuery("DELETE FROM t", false, nullptr, true), 1L);
    EXPECT_EQ(m_database.ExecuteQuery("DELETE FROM t", false, nullptr, false), 3L);
}

struct RowCount
{
    const char* name;
    unsigned long long counted;
    long returned;
};

class AffectedRows : public ExecuteQueryResult, public testing::WithParamInterface<RowCount>
{
};

TEST_P(AffectedRows, AreKeptIn32Bits)
{
    m_client.On("DELETE FROM t", fake::Reply::Ok(GetParam().counted));
    EXPECT_EQ(Run("DELETE FROM t"), GetParam().returned);
    EXPECT_EQ(m_database.GetAffectedRows(), GetParam().returned);
    EXPECT_EQ(m_database.GetErrorCode(), 0UL);
}

INSTANTIATE_TEST_SUITE_P(Counts, AffectedRows,
                         testing::Values(RowCount{"None", 0, 0}, RowCount{"One", 1, 1},
                                         RowCount{"LargestPositive", 2147483647ULL, 2147483647L},
                                         RowCount{"FirstNegative", 2147483648ULL, -2147483647L - 1},
                                         RowCount{"LastNegative", 4294967294ULL, -2},
                                         RowCount{"TheClientsMinusOne", 4294967295ULL, 0},
                                         RowCount{"Beyond32Bits", 4294967296ULL, 0},
                                         RowCount{"OneBeyond32Bits", 4294967297ULL, 1},
                                         RowCount{"AllOnes", 18446744073709551615ULL, 0}),
                         [](const testing::TestParamInfo<RowCount>& row) { return row.param.name; });

TEST_F(ExecuteQueryResult, Kept_K07_CountsManyRowsAsNegativeAndTheClientsMinusOneAsNone)
{
    m_client.Once("DELETE FROM t", fake::Reply::Ok(3000000000ULL));
    EXPECT_EQ(Run("DELETE FROM t"), -1294967296L);
    m_client.Once("DELETE FROM t", fake::Reply::Ok(4294967295ULL));
    EXPECT_EQ(Run("DELETE FROM t"), 0L);
}

// --- Failures

TEST_F(ExecuteQueryResult, RecordsTheErrorOfTheServer)
{
    m_client.On("BAD STATEMENT", fake::Reply::Error(1064, "You have an error"));
    MYSQL_RES* result = untouched;
    EXPECT_EQ(m_database.ExecuteQuery("BAD STATEMENT", false, &result, false), -1L);
    EXPECT_EQ(result, untouched);
    EXPECT_EQ(m_database.GetErrorCode(), 1064UL);
    EXPECT_EQ(Bytes(m_database.GetErrorMessage()), "1064: You have an error");
    EXPECT_EQ(Bytes(m_database.GetLastSQLCommand()), "BAD STATEMENT");
    EXPECT_EQ(m_database.GetQueryTime(), 0UL);
    EXPECT_EQ(m_database.GetAffectedRows(), 0L);
    EXPECT_TRUE(m_messages.Messages().empty());
    EXPECT_EQ(m_client.Statements().size(), 1U);
}

TEST_F(ExecuteQueryResult, ClearsTheErrorWithTheNextSuccess)
{
    m_client.On("BAD STATEMENT", fake::Reply::Error(1064));
    Run("BAD STATEMENT");
    EXPECT_EQ(Run("DO 1"), 0L);
    EXPECT_EQ(m_database.GetErrorCode(), 0UL);
    EXPECT_EQ(Bytes(m_database.GetErrorMessage()), "Kein Fehler!");
}

TEST_F(ExecuteQueryResult, FailsWhereTheClientGivesNoErrorNumber)
{
    m_client.FailNext(fake::Call::Query, 0);
    EXPECT_EQ(Run("DO 1"), -1L);
    EXPECT_EQ(m_database.GetErrorCode(), 2000UL);
}

struct LateFailure
{
    const char* name;
    bool takesResult;
    bool streams;
};

class FailureAtTheResult : public ExecuteQueryResult, public testing::WithParamInterface<LateFailure>
{
};

TEST_P(FailureAtTheResult, IsAFailureOfTheStatement)
{
    m_client.On("SELECT A FROM t", fake::Reply::ErrorAtResult(1317, "Query execution was interrupted"));
    MYSQL_RES* result = untouched;
    EXPECT_EQ(m_database.ExecuteQuery("SELECT A FROM t", true, GetParam().takesResult ? &result : nullptr,
                                      GetParam().streams),
              -1L);
    EXPECT_EQ(result, untouched);
    EXPECT_EQ(m_database.GetErrorCode(), 1317UL);
    EXPECT_EQ(Bytes(m_database.GetErrorMessage()), "1317: Query execution was interrupted");
    EXPECT_EQ(m_database.GetAffectedRows(), 0L);
    EXPECT_EQ(m_database.GetQueryTime(), 0UL);
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text, "Error in ExecuteQuery\n\n    Error: 1317: Query execution was "
                                             "interrupted\n\n    Query:\n\nSELECT A FROM t\n\n");
}

INSTANTIATE_TEST_SUITE_P(Rows, FailureAtTheResult,
                         testing::Values(LateFailure{"StoredForTheCaller", true, false},
                                         LateFailure{"StreamedForTheCaller", true, true},
                                         LateFailure{"StoredAndDropped", false, false},
                                         LateFailure{"StreamedAndDropped", false, true}),
                         [](const testing::TestParamInfo<LateFailure>& row) { return row.param.name; });

TEST_F(ExecuteQueryResult, FailsWhenTheRowsToDropAreCut)
{
    m_client.On("SELECT A FROM t", TwoRows().CutAfter(1));
    EXPECT_EQ(m_database.ExecuteQuery("SELECT A FROM t", false, nullptr, true), -1L);
    EXPECT_EQ(m_database.GetErrorCode(), 2013UL);
    EXPECT_EQ(m_database.GetAffectedRows(), 0L);
    EXPECT_EQ(m_client.Statements().size(), 1U); // sending it again would not be the same statement
    EXPECT_EQ(m_client.CountOf("mysql_free_result"), 1U);
}

TEST_F(ExecuteQueryResult, ShowsAFailureWhenAsked)
{
    m_client.On("UPDATE t SET a = 'x'", fake::Reply::Error(1366, "Incorrect integer value"));
    EXPECT_EQ(m_database.ExecuteQuery("UPDATE t SET a = 'x' ", true, nullptr, false), -1L);
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text,
              "Error in ExecuteQuery\n\n    Error: 1366: Incorrect integer value\n\n    Query:\n\n"
              "UPDATE t SET a = 'x'\n\n");
    EXPECT_EQ(m_messages.Messages()[0].type, 16U);
}

TEST_F(ExecuteQueryResult, ShowsTheStatementWithItsPercentSignsAndUmlauts)
{
    m_client.OnPrefix("DO", fake::Reply::Error(1064, "near '%s' \xC3\xBC"));
    m_database.ExecuteQuery(UtCString("DO '%s%d\xFC'", UT_ENCODING_DEFAULT), true, nullptr, false);
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text, "Error in ExecuteQuery\n\n    Error: 1064: near '%s' \xC3\xBC\n\n"
                                             "    Query:\n\nDO '%s%d\xC3\xBC'\n\n");
}

TEST_F(ExecuteQueryResult, CutsTheStatementShownAfter32000Characters)
{
    m_client.OnPrefix("DO", fake::Reply::Error(1064, "e"));
    const std::string whole = "DO " + std::string(31996, 'x') + "\xC3\xBC";
    const std::string start = "Error in ExecuteQuery\n\n    Error: 1064: e\n\n    Query:\n\n";
    m_database.ExecuteQuery(UtCString(whole, UT_ENCODING_UTF8), true, nullptr, false);
    EXPECT_TRUE(m_messages.Messages().at(0).text == start + whole + "\n\n");
    m_database.ExecuteQuery(UtCString(whole + "yz", UT_ENCODING_UTF8), true, nullptr, false);
    EXPECT_TRUE(m_messages.Messages().at(1).text == start + whole + "\n\n");
    EXPECT_TRUE(Bytes(m_database.GetLastSQLCommand()) == whole + "yz");
}

TEST_F(ExecuteQueryResult, ShowsTheSummaryWhereThereIsOneWithTheStartMarkAsItsTime)
{
    m_client.FailNext(fake::Call::Query, 0); // a failure without a number leaves the summary of a success
    EXPECT_EQ(m_database.ExecuteQuery("DO 1", true, nullptr, false), -1L);
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    const std::string& text = m_messages.Messages()[0].text;
    EXPECT_TRUE(text.starts_with("Error in ExecuteQuery\n\n    Error: Kein Fehler!\n\n"
                                 "    Info: Query OK. 0 Records in "))
        << text;
    EXPECT_TRUE(text.ends_with(" Sec\n    Query:\n\nDO 1\n\n")) << text;
    EXPECT_EQ(text.find(" in 0.000 Sec"), std::string::npos) << text;
    EXPECT_EQ(m_database.GetQueryTime(), 0UL);
}

TEST_F(ExecuteQueryResult, ShowsNothingForASuccess)
{
    EXPECT_EQ(m_database.ExecuteQuery("DO 1", true, nullptr, false), 0L);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(ExecuteQueryResult, LetsNoExceptionOfTheHostsInterfaceOut)
{
    const ThrowingInterface userInterface;
    m_client.On("BAD STATEMENT", fake::Reply::Error(1064, "syntax"));
    EXPECT_EQ(m_database.ExecuteQuery("BAD STATEMENT", true, nullptr, false), -1L);
    EXPECT_EQ(m_database.GetErrorCode(), 1064UL);
    EXPECT_EQ(m_database.GetQueryTime(), 0UL);
    EXPECT_EQ(Run("DO 1"), 0L);
}

} // namespace
