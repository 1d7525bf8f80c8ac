#include "CMyDatabase.h"

#include "client/ErrorText.h"
#include "client/Result.h"
#include "connection/ErrorBox.h"
#include "connection/Guarded.h"
#include "platform/TickCount.h"
#include "sql/StatementKind.h"
#include "sql/StatementText.h"
#include "text/UtCUtf8.h"

#include <cstdint>
#include <cstring>
#include <utility>

namespace {

constexpr long failed = -1;
constexpr unsigned long unknownError = 2000; // where the client gives no number: a failure never reads as a success
constexpr unsigned long outOfMemory = 2008;

/// The client's count as the signed 32-bit number that the interface carries.
long NarrowRowCount(my_ulonglong count) noexcept
{
    constexpr uint32_t clientFailure = 4294967295u;
    const uint32_t narrowed = static_cast<uint32_t>(count);
    // KEPT K-07: from 2147483648 rows on the count comes out negative; 4294967295 comes out as 0, so that it is never
    // -1.
    return narrowed == clientFailure ? 0 : static_cast<int32_t>(narrowed);
}

/// Sets a flag while it lives.
class FlagScope
{
public:
    explicit FlagScope(bool& flag) noexcept : m_flag(flag), m_previous(std::exchange(flag, true)) {}
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;
    ~FlagScope() { m_flag = m_previous; }

private:
    bool& m_flag;
    bool m_previous;
};

} // namespace

bool CMyDatabase::IsSelectQuery(const UtCString& sql) const
{
    return sql::IsSelectQuery(sql);
}

long CMyDatabase::ExecuteQuery(const UtCString& sql, bool showError, MYSQL_RES** result, bool useResult)
{
    try {
        if (&sql == &m_lastSQLCommand)
            return RunStatement(UtCString(sql), showError, result, useResult);
        return RunStatement(sql, showError, result, useResult);
    } catch (...) {
        if (m_errorCode == 0)
            RecordOutOfMemory();
        m_queryTime = 0;
        m_affectedRows = 0;
        return failed;
    }
}

long CMyDatabase::RunStatement(const UtCString& sql, bool showError, MYSQL_RES** result, bool useResult)
{
    if (!m_handle && !(Open(false, UtCString()) && m_handle)) {
        m_lastSQLCommand.SetEmpty();
        return failed;
    }
    m_queryTime = 0;
    m_affectedRows = 0;
    if (!KeepStatement(sql))
        return failed;

    m_queryTime = platform::TickCount();
    m_errorMessage.SetEmpty();
    m_errorCode = 0;
    if (SendStatement() != 0)
        RecordClientError();
    if (client::IsConnectionLost(m_errorCode) && !m_isReopening)
        ResendStatement();
    if (m_errorCode != 0 || !TakeResult(result, useResult))
        return FailStatement(showError);

    m_queryTime = platform::TickCount() - static_cast<uint32_t>(m_queryTime);
    return m_affectedRows;
}

bool CMyDatabase::KeepStatement(const UtCString& sql)
{
    const std::string_view text = sql::TrimStatement(sql.View(), sql.GetEncodingType());
    m_lastSQLCommand.SetMemCopy(reinterpret_cast<const unsigned char*>(text.data()), text.size(),
                                sql.GetEncodingType());
    m_lastSQLCommand.ChangeEncodingType(m_server.GetEncodingType());
    if (!m_lastSQLCommand.IsEmpty())
        return true;
    // A text for which there is no memory is empty.
    if (!text.empty())
        RecordOutOfMemory();
    return false;
}

int CMyDatabase::SendStatement()
{
    const char* bytes = m_lastSQLCommand.string();
    if (m_lastSQLCommand.GetEncodingType() == UT_ENCODING_UTF8)
        bytes = UtCUtf8::SkipBOM(bytes);
    // KEPT K-08: the statement ends at its first zero byte; in UTF-16 that is before or behind its first letter.
    return mysql_real_query(m_handle, bytes, static_cast<unsigned long>(std::strlen(bytes)));
}

void CMyDatabase::RecordClientError()
{
    m_errorCode = client::ErrorNumber(m_handle);
    if (m_errorCode == 0)
        m_errorCode = unknownError;
    m_errorMessage = client::ErrorText(m_handle);
}

void CMyDatabase::RecordOutOfMemory()
{
    m_errorCode = outOfMemory;
    m_errorMessage = "2008: Out of memory"; // short enough to need none
}

void CMyDatabase::ResendStatement()
{
    // Opening runs a statement of its own over this object's state.
    UtCString statement = std::move(m_lastSQLCommand);
    const unsigned long firstCode = m_errorCode;
    const UtCString firstMessage = m_errorMessage;
    {
        const FlagScope reopening(m_isReopening);
        connection::Guarded(false, [&] {
            Close();
            return Open(false, UtCString());
        });
    }
    m_lastSQLCommand = std::move(statement);
    m_affectedRows = 0;
    if (!m_handle) {
        if (m_errorCode == 0) {
            m_errorCode = firstCode;
            m_errorMessage = firstMessage;
        }
        return;
    }
    // KEPT K-09: the start mark is 0, so the query time of a statement that succeeds now is the raw tick count.
    m_queryTime = 0;
    // KEPT K-10: a write is sent again although the first attempt may have taken effect.
    const int sent = SendStatement();
    // KEPT K-11: the code is the return value of the call, not the client's error number; only the message has that.
    m_errorCode = static_cast<uint32_t>(sent);
    m_errorMessage = client::ErrorText(m_handle);
    if (client::IsConnectionLost(m_errorCode))
        connection::ShowUnexpectedError();
}

bool CMyDatabase::TakeResult(MYSQL_RES** result, bool useResult)
{
    client::Result rows(useResult ? mysql_use_result(m_handle) : mysql_store_result(m_handle));
    if (useResult && !result && rows) {
        while (mysql_fetch_row(rows.get())) {
        }
    }
    // No rows and the end of the rows look like a failure; only the error number tells.
    const bool mayHaveFailed = !rows || (useResult && !result);
    if (mayHaveFailed && client::ErrorNumber(m_handle) != 0) {
        RecordClientError();
        return false;
    }
    m_affectedRows = useResult ? 1 : NarrowRowCount(mysql_affected_rows(m_handle));
    if (result)
        *result = rows.release();
    return true;
}

long CMyDatabase::FailStatement(bool showError)
{
    if (showError)
        connection::ShowStatementError(GetErrorMessage(), GetQueryInfo(), m_lastSQLCommand);
    m_queryTime = 0;
    return failed;
}
