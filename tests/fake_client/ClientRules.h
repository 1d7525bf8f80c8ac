#pragma once

#include <gtest/gtest.h>
#include <mysql.h>

#include <optional>
#include <string>
#include <vector>

// The rules of the client that the library relies on, as tests. They run twice, in a unit-test program against the fake
// client and in the server tests against the real one, so that the fake cannot drift away from what it stands for.
// Included by one source of each program, which defines the functions of the first block.
namespace client_rules {

constexpr const char* WITHOUT_ROWS = "DO 1";
constexpr const char* FAILING = "NONSENSE";
constexpr const char* TWO_ROWS = "SELECT 1 AS a, NULL AS b, 'x' AS c UNION ALL SELECT 22, 'yy', ''";
/// More than fits into what the server and the system keep for a reader that does not read.
constexpr const char* MANY_ROWS = "SELECT REPEAT('x', 10000) AS a FROM seq_1_to_20000";
constexpr const char* NO_ROW = "SELECT 1 AS a FROM DUAL WHERE 1 = 0";
/// Into a new table t (id INT NOT NULL AUTO_INCREMENT PRIMARY KEY, b VARCHAR(5) DEFAULT 'zz', c INT).
constexpr const char* INSERT_TWO = "INSERT INTO t (b) VALUES ('x'), ('y')";
constexpr const char* NO_BACKSLASH_ESCAPES = "SET sql_mode = 'NO_BACKSLASH_ESCAPES'";

/// Connects the handle to a database that holds the table t; null and the error as mysql_real_connect.
MYSQL* ConnectTo(MYSQL* handle);
/// The same without a database.
MYSQL* ConnectWithoutDatabase(MYSQL* handle);
/// Tries it with a password that the server refuses.
MYSQL* ConnectWithWrongPassword(MYSQL* handle);
/// Cuts the connection from the outside.
void CutConnection(MYSQL* handle);

class ClientRules : public testing::Test
{
protected:
    ClientRules() : m_handle(mysql_init(nullptr)) { EXPECT_EQ(ConnectTo(m_handle), m_handle); }
    ~ClientRules() override { mysql_close(m_handle); }

    int Send(const std::string& statement)
    {
        return mysql_real_query(m_handle, statement.data(), static_cast<unsigned long>(statement.size()));
    }
    MYSQL_RES* Stored(const std::string& statement)
    {
        EXPECT_EQ(Send(statement), 0);
        return mysql_store_result(m_handle);
    }
    MYSQL_RES* Streamed(const std::string& statement)
    {
        EXPECT_EQ(Send(statement), 0);
        return mysql_use_result(m_handle);
    }
    std::string Escaped(const std::string& text)
    {
        std::string escaped(2 * text.size() + 1, '#');
        const unsigned long length =
            mysql_real_escape_string(m_handle, escaped.data(), text.data(), static_cast<unsigned long>(text.size()));
        EXPECT_EQ(escaped[length], '\0');
        return escaped.substr(0, length);
    }

    MYSQL* m_handle;
};

TEST_F(ClientRules, ANewHandleIsNotConnected)
{
    MYSQL* handle = mysql_init(nullptr);
    EXPECT_EQ(mysql_errno(handle), 0U);
    EXPECT_STREQ(mysql_error(handle), "");
    EXPECT_EQ(mysql_affected_rows(handle), 0U);
    EXPECT_EQ(mysql_thread_id(handle), 0U);
    EXPECT_EQ(mysql_get_server_info(handle), nullptr);
    EXPECT_EQ(mysql_get_host_info(handle), nullptr);
    EXPECT_EQ(mysql_info(handle), nullptr);
    EXPECT_NE(mysql_ping(handle), 0);
    EXPECT_EQ(mysql_errno(handle), 2006U);
    EXPECT_NE(mysql_real_query(handle, "DO 1", 4), 0);
    EXPECT_EQ(mysql_errno(handle), 2006U);
    EXPECT_EQ(mysql_list_fields(handle, "t", nullptr), nullptr);
    EXPECT_EQ(mysql_errno(handle), 2006U);
    EXPECT_STREQ(mysql_stat(handle), "Server has gone away");
    mysql_close(handle);
}

TEST_F(ClientRules, AConnectedHandleKnowsItsServer)
{
    EXPECT_NE(mysql_thread_id(m_handle), 0U);
    EXPECT_EQ(m_handle->thread_id, mysql_thread_id(m_handle));
    EXPECT_NE(mysql_get_server_info(m_handle), nullptr);
    EXPECT_STREQ(mysql_get_host_info(m_handle), "127.0.0.1 via TCP/IP");
    EXPECT_EQ(mysql_ping(m_handle), 0);
    EXPECT_TRUE(std::string(mysql_stat(m_handle)).starts_with("Uptime: "));
    EXPECT_EQ(mysql_errno(m_handle), 0U);
}

TEST_F(ClientRules, AHandleConnectsOnce)
{
    EXPECT_EQ(ConnectTo(m_handle), nullptr);
    EXPECT_EQ(mysql_errno(m_handle), 2058U);
}

TEST_F(ClientRules, ARefusedHandleMayTryAgain)
{
    MYSQL* handle = mysql_init(nullptr);
    EXPECT_EQ(ConnectWithWrongPassword(handle), nullptr);
    EXPECT_EQ(mysql_errno(handle), 1045U);
    EXPECT_EQ(ConnectTo(handle), handle);
    EXPECT_EQ(mysql_errno(handle), 0U);
    mysql_close(handle);
}

TEST_F(ClientRules, TheReconnectFlagIsOffUntilTheOptionSetsIt)
{
    EXPECT_EQ(m_handle->options.reconnect, 0);
    const my_bool on = 1;
    EXPECT_EQ(mysql_options(m_handle, MYSQL_OPT_RECONNECT, &on), 0);
    EXPECT_EQ(m_handle->options.reconnect, 1);
}

TEST_F(ClientRules, AStatementWithoutRowsGivesNullAndNoError)
{
    EXPECT_EQ(Send(WITHOUT_ROWS), 0);
    EXPECT_EQ(mysql_affected_rows(m_handle), 0U);
    EXPECT_EQ(mysql_store_result(m_handle), nullptr);
    EXPECT_EQ(mysql_errno(m_handle), 0U);
    EXPECT_EQ(mysql_use_result(m_handle), nullptr);
    EXPECT_EQ(mysql_errno(m_handle), 0U);
    EXPECT_EQ(mysql_affected_rows(m_handle), 0U);
}

TEST_F(ClientRules, AffectedRowsAreAllOnesUntilTheRowsAreStored)
{
    EXPECT_EQ(Send(TWO_ROWS), 0);
    EXPECT_EQ(mysql_affected_rows(m_handle), ~0ULL);
    MYSQL_RES* result = mysql_store_result(m_handle);
    EXPECT_EQ(mysql_affected_rows(m_handle), 2U);
    mysql_free_result(result);
}

TEST_F(ClientRules, AffectedRowsStayAllOnesForAStream)
{
    MYSQL_RES* result = Streamed(TWO_ROWS);
    EXPECT_EQ(mysql_affected_rows(m_handle), ~0ULL);
    mysql_free_result(result);
    EXPECT_EQ(mysql_affected_rows(m_handle), ~0ULL);
}

TEST_F(ClientRules, AFailedStatementKeepsItsErrorUntilTheNextCommand)
{
    EXPECT_NE(Send(FAILING), 0);
    EXPECT_EQ(mysql_errno(m_handle), 1064U);
    EXPECT_EQ(mysql_affected_rows(m_handle), ~0ULL);
    EXPECT_EQ(mysql_store_result(m_handle), nullptr);
    EXPECT_EQ(mysql_errno(m_handle), 1064U);
    EXPECT_EQ(mysql_info(m_handle), nullptr);
    EXPECT_EQ(Send(WITHOUT_ROWS), 0);
    EXPECT_EQ(mysql_errno(m_handle), 0U);
    EXPECT_STREQ(mysql_error(m_handle), "");
}

TEST_F(ClientRules, APingClearsTheError)
{
    Send(FAILING);
    EXPECT_EQ(mysql_ping(m_handle), 0);
    EXPECT_EQ(mysql_errno(m_handle), 0U);
}

TEST_F(ClientRules, TheInsertIdOutlivesASelect)
{
    EXPECT_EQ(Send(INSERT_TWO), 0);
    EXPECT_EQ(mysql_affected_rows(m_handle), 2U);
    EXPECT_EQ(mysql_insert_id(m_handle), 1U);
    EXPECT_STREQ(mysql_info(m_handle), "Records: 2  Duplicates: 0  Warnings: 0");
    mysql_free_result(Stored(TWO_ROWS));
    EXPECT_EQ(mysql_insert_id(m_handle), 1U);
    EXPECT_EQ(mysql_info(m_handle), nullptr);
    Send(WITHOUT_ROWS);
    EXPECT_EQ(mysql_insert_id(m_handle), 0U);
}

TEST_F(ClientRules, ARowHasItsBytesItsLengthsAndAPointerBehindTheLastValue)
{
    MYSQL_RES* result = Stored(TWO_ROWS);
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(mysql_num_rows(result), 2U);
    EXPECT_EQ(mysql_num_fields(result), 3U);
    EXPECT_EQ(mysql_fetch_lengths(result), nullptr);
    MYSQL_ROW row = mysql_fetch_row(result);
    ASSERT_NE(row, nullptr);
    EXPECT_STREQ(row[0], "1");
    EXPECT_EQ(row[1], nullptr);
    EXPECT_STREQ(row[2], "x");
    EXPECT_EQ(row[2] - row[0], 2);
    EXPECT_EQ(row[3] - row[2], 2);
    const unsigned long* lengths = mysql_fetch_lengths(result);
    EXPECT_EQ(std::vector<unsigned long>(lengths, lengths + 3), (std::vector<unsigned long>{1, 0, 1}));
    mysql_free_result(result);
}

TEST_F(ClientRules, AStoredResultEndsAndCanBeReadAgain)
{
    MYSQL_RES* result = Stored(TWO_ROWS);
    MYSQL_ROW first = mysql_fetch_row(result);
    MYSQL_ROW second = mysql_fetch_row(result);
    EXPECT_EQ(mysql_fetch_row(result), nullptr);
    EXPECT_EQ(mysql_fetch_lengths(result), nullptr);
    mysql_data_seek(result, 1);
    EXPECT_EQ(mysql_fetch_lengths(result), nullptr);
    EXPECT_EQ(mysql_fetch_row(result), second);
    mysql_data_seek(result, 0);
    EXPECT_EQ(mysql_fetch_lengths(result), nullptr);
    EXPECT_EQ(mysql_fetch_row(result), first);
    mysql_data_seek(result, 2);
    EXPECT_EQ(mysql_fetch_row(result), nullptr);
    mysql_data_seek(result, 99);
    EXPECT_EQ(mysql_fetch_row(result), nullptr);
    EXPECT_EQ(mysql_errno(m_handle), 0U);
    mysql_free_result(result);
}

TEST_F(ClientRules, AStoredResultOutlivesItsHandle)
{
    MYSQL* handle = mysql_init(nullptr);
    ASSERT_NE(ConnectTo(handle), nullptr);
    mysql_real_query(handle, TWO_ROWS, static_cast<unsigned long>(std::string(TWO_ROWS).size()));
    MYSQL_RES* result = mysql_store_result(handle);
    mysql_close(handle);
    EXPECT_STREQ(mysql_fetch_row(result)[0], "1");
    mysql_free_result(result);
}

TEST_F(ClientRules, AnEmptyResultHasFieldsButNoRow)
{
    MYSQL_RES* result = Stored(NO_ROW);
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(mysql_num_fields(result), 1U);
    EXPECT_EQ(mysql_num_rows(result), 0U);
    EXPECT_EQ(mysql_fetch_row(result), nullptr);
    EXPECT_EQ(mysql_affected_rows(m_handle), 0U);
    mysql_free_result(result);
}

TEST_F(ClientRules, AnExpressionHasNoOriginalNameAndNoDefault)
{
    MYSQL_RES* result = Stored(TWO_ROWS);
    const MYSQL_FIELD* fields = mysql_fetch_fields(result);
    EXPECT_STREQ(fields[0].name, "a");
    EXPECT_EQ(fields[0].name_length, 1U);
    EXPECT_STREQ(fields[0].org_name, "");
    // Null or empty, which differs between versions of the client.
    EXPECT_STREQ(fields[0].def ? fields[0].def : "", "");
    mysql_free_result(result);
}

TEST_F(ClientRules, RowsThatAreNotFetchedBlockTheHandle)
{
    EXPECT_EQ(Send(TWO_ROWS), 0);
    EXPECT_NE(mysql_ping(m_handle), 0);
    EXPECT_EQ(mysql_errno(m_handle), 2014U);
    EXPECT_STREQ(mysql_error(m_handle), "Commands out of sync; you can't run this command now");
    MYSQL_RES* result = mysql_store_result(m_handle);
    EXPECT_NE(result, nullptr);
    mysql_free_result(result);
    EXPECT_EQ(Send(WITHOUT_ROWS), 0);
}

TEST_F(ClientRules, AStatementOverRowsThatAreNotFetchedMakesTheHandleUseless)
{
    EXPECT_EQ(Send(TWO_ROWS), 0);
    EXPECT_NE(Send(WITHOUT_ROWS), 0);
    EXPECT_EQ(mysql_errno(m_handle), 2014U);
    EXPECT_EQ(mysql_store_result(m_handle), nullptr);
    EXPECT_NE(Send(WITHOUT_ROWS), 0);
    EXPECT_EQ(mysql_errno(m_handle), 2014U);
}

TEST_F(ClientRules, ASecondStoreGivesNullAndNoError)
{
    MYSQL_RES* result = Stored(TWO_ROWS);
    EXPECT_EQ(mysql_store_result(m_handle), nullptr);
    EXPECT_EQ(mysql_errno(m_handle), 0U);
    EXPECT_EQ(mysql_use_result(m_handle), nullptr);
    EXPECT_EQ(mysql_errno(m_handle), 0U);
    mysql_free_result(result);
}

TEST_F(ClientRules, AStreamBlocksTheHandleUntilItsEnd)
{
    MYSQL_RES* result = Streamed(TWO_ROWS);
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(mysql_num_rows(result), 0U);
    EXPECT_STREQ(mysql_fetch_row(result)[0], "1");
    EXPECT_EQ(mysql_num_rows(result), 1U);
    EXPECT_NE(Send(WITHOUT_ROWS), 0);
    EXPECT_EQ(mysql_errno(m_handle), 2014U);
    EXPECT_EQ(mysql_list_fields(m_handle, "t", nullptr), nullptr);
    EXPECT_EQ(mysql_errno(m_handle), 2014U);
    MYSQL_ROW row = mysql_fetch_row(result);
    EXPECT_STREQ(row[0], "22");
    EXPECT_EQ(row[2] - row[1], 3);
    EXPECT_EQ(row[3] - row[2], 1);
    EXPECT_EQ(mysql_fetch_lengths(result)[1], 2U);
    EXPECT_EQ(mysql_fetch_row(result), nullptr);
    EXPECT_EQ(mysql_fetch_row(result), nullptr);
    EXPECT_EQ(Send(WITHOUT_ROWS), 0);
    mysql_free_result(result);
}

TEST_F(ClientRules, FreeingAHalfReadStreamFreesTheHandle)
{
    MYSQL_RES* result = Streamed(TWO_ROWS);
    mysql_fetch_row(result);
    mysql_free_result(result);
    EXPECT_EQ(Send(WITHOUT_ROWS), 0);
}

TEST_F(ClientRules, AFieldListingHasDefaultsButNoRows)
{
    MYSQL_RES* result = mysql_list_fields(m_handle, "t", nullptr);
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(mysql_errno(m_handle), 0U);
    EXPECT_EQ(mysql_num_fields(result), 3U);
    EXPECT_EQ(mysql_num_rows(result), 0U);
    EXPECT_EQ(mysql_fetch_row(result), nullptr);
    const MYSQL_FIELD* fields = mysql_fetch_fields(result);
    EXPECT_STREQ(fields[1].name, "b");
    EXPECT_STREQ(fields[1].org_name, "b");
    EXPECT_STREQ(fields[1].table, "t");
    EXPECT_STREQ(fields[1].def, "zz");
    EXPECT_EQ(fields[1].def_length, 0U); // so the text's end is its terminating zero
    EXPECT_EQ(fields[2].def, nullptr);
    EXPECT_EQ(fields[0].type, MYSQL_TYPE_LONG);
    EXPECT_NE(fields[0].flags & PRI_KEY_FLAG, 0U);
    mysql_free_result(result);
    EXPECT_EQ(Send(WITHOUT_ROWS), 0);
}

TEST_F(ClientRules, AFieldListingOfAMissingTableFails)
{
    EXPECT_EQ(mysql_list_fields(m_handle, "nothing", nullptr), nullptr);
    EXPECT_EQ(mysql_errno(m_handle), 1146U);
}

TEST_F(ClientRules, AFieldListingNeedsADatabase)
{
    MYSQL* handle = mysql_init(nullptr);
    ASSERT_NE(ConnectWithoutDatabase(handle), nullptr);
    EXPECT_EQ(mysql_list_fields(handle, "t", nullptr), nullptr);
    EXPECT_EQ(mysql_errno(handle), 1046U);
    mysql_close(handle);
}

TEST_F(ClientRules, ACutConnectionFailsItsNextCommands)
{
    CutConnection(m_handle);
    EXPECT_NE(Send(WITHOUT_ROWS), 0);
    EXPECT_TRUE(mysql_errno(m_handle) == 2006 || mysql_errno(m_handle) == 2013) << mysql_errno(m_handle);
    EXPECT_NE(Send(WITHOUT_ROWS), 0);
    EXPECT_EQ(mysql_errno(m_handle), 2006U);
    EXPECT_NE(mysql_ping(m_handle), 0);
    EXPECT_NE(mysql_get_server_info(m_handle), nullptr);
}

TEST_F(ClientRules, ACutConnectionBreaksTheStream)
{
    MYSQL_RES* result = Streamed(MANY_ROWS);
    ASSERT_NE(result, nullptr);
    ASSERT_NE(mysql_fetch_row(result), nullptr);
    CutConnection(m_handle);
    while (mysql_fetch_row(result) != nullptr) {
    }
    EXPECT_EQ(mysql_errno(m_handle), 2013U);
    EXPECT_EQ(mysql_fetch_row(result), nullptr);
    mysql_free_result(result);
    EXPECT_NE(Send(WITHOUT_ROWS), 0);
    EXPECT_EQ(mysql_errno(m_handle), 2006U);
}

TEST_F(ClientRules, EscapingPutsABackslashBeforeTheSpecialBytes)
{
    EXPECT_EQ(Escaped(std::string("a\0\n\r\\'\"\x1A%_\t\b", 12)), "a\\0\\n\\r\\\\\\'\\\"\\Z%_\t\b");
}

TEST_F(ClientRules, EscapingKeepsBytesThatAreNoUtf8)
{
    EXPECT_EQ(Escaped("\xE4' \xFC\\ \xC3\xBC \xED\xA0\x80 \xC0"), "\xE4\\' \xFC\\\\ \xC3\xBC \xED\xA0\x80 \xC0");
}

TEST_F(ClientRules, EscapingDoublesTheQuoteOnlyInTheModeWithoutBackslashes)
{
    EXPECT_EQ(Send(NO_BACKSLASH_ESCAPES), 0);
    EXPECT_EQ(Escaped(std::string("a\0\n\r\\'\"\x1A", 8)), std::string("a\0\n\r\\''\"\x1A", 9));
}

} // namespace client_rules
