#include "CMyRecordSet.h"
#include "client/ErrorText.h"
#include "connection/DatabaseAccess.h"
#include "connection/Guarded.h"
#include "containers/UtArray.h"
#include "containers/UtCMap.h"
#include "metadata/TableCache.h"
#include "recordset/PendingChanges.h"
#include "recordset/ResultColumns.h"
#include "sql/EditStatement.h"
#include "sql/ValueText.h"

#include <cstdint>
#include <utility>

// The edit bracket. Statements go over the bound connection, which is free while a stream is being read.

namespace {

constexpr unsigned long syntaxError = 1064;
constexpr unsigned long wrongTableName = 1103;
constexpr unsigned long outOfMemory = 2008;

} // namespace

void CMyRecordSet::StartEditing(eModifyStates state) noexcept
{
    ClearFieldCache();
    m_isTableMissing = false;
    m_modifyState = state;
}

bool CMyRecordSet::AppendStart()
{
    m_where.SetEmpty();
    ClearFieldCache();
    if (m_tableName.IsEmpty())
        return false;
    StartEditing(MODIFY_APPEND);
    return true;
}

bool CMyRecordSet::ModifyStart(const UtCString& where)
{
    m_where = where;
    StartEditing(MODIFY_EDIT);
    return !m_where.IsEmpty();
}

bool CMyRecordSet::DeleteRec()
{
    if (m_modifyState != MODIFY_EDIT)
        return false;
    m_modifyState = MODIFY_DELETE;
    return !m_where.IsEmpty() && !m_tableName.IsEmpty();
}

bool CMyRecordSet::AppendEnd()
{
    ResetOutcome();
    if (!m_tableName.IsEmpty())
        SetUserAndTimeStamp(true);
    m_modifyState = MODIFY_NONE;
    if (m_hasLostChange)
        return RefuseLostChange();
    if (m_tableName.IsEmpty() || !HasPendingChanges())
        return false;
    if (sql::CanSwallowStatement(m_tableName))
        return RefuseTableName();
    return Send(InsertStatement()) && TakeAffectedRows();
}

// KEPT K-96: neither end discards the changes or the condition, so that a second one sends them again.
bool CMyRecordSet::ModifyEnd()
{
    ResetOutcome();
    const bool isDelete = std::exchange(m_modifyState, MODIFY_NONE) == MODIFY_DELETE;
    if (m_where.IsEmpty() || m_tableName.IsEmpty())
        return false;
    return isDelete ? Delete() : Update();
}

bool CMyRecordSet::Delete()
{
    if (!sql::IsSingleName(m_tableName))
        return RefuseTableName();
    return Send(DeleteStatement()) && TakeAffectedRows();
}

bool CMyRecordSet::Update()
{
    SetUserAndTimeStamp(false);
    if (m_hasLostChange)
        return RefuseLostChange();
    if (!HasPendingChanges())
        return false;
    if (sql::CanSwallowStatement(m_tableName))
        return RefuseTableName();
    return Send(UpdateStatement()) && TakeMatchedRows();
}

bool CMyRecordSet::SetUserAndTimeStamp(bool appending)
{
    static const UtCString columns[2][2] = {{"MUT_TIME", "MUTATOR"}, {"ERF_TIME", "ERFASST"}};
    if (!m_autoUserAndTimeStamp || !m_database)
        return false;
    m_isTableMissing = false; // what could not be asked before may be there now, and stamps must not be left out
    const auto& [time, user] = columns[appending];
    if (!DeclaredField(time) || !DeclaredField(user))
        return false;
    CDateTime now;
    now.SetCurrentDateTime();
    SetFieldDate(time, now); // KEPT K-98: the caller's own values are replaced.
    SetFieldValue(user, sql::StampUser(m_database->GetServer().GetUser()), MYTYPE_TEXT);
    return true;
}

UtCString CMyRecordSet::InsertStatement() const
{
    text::TextBuilder statement(EditEncoding(), ExpectedSize());
    sql::AppendInsertInto(statement, m_tableName);
    AppendSetList(statement);
    return statement.Take();
}

UtCString CMyRecordSet::UpdateStatement() const
{
    text::TextBuilder statement(EditEncoding(), ExpectedSize() + m_where.GetByteLength());
    sql::AppendUpdate(statement, m_tableName);
    AppendSetList(statement);
    sql::AppendUpdateCondition(statement, m_where);
    return statement.Take();
}

UtCString CMyRecordSet::DeleteStatement() const
{
    text::TextBuilder statement(EditEncoding());
    sql::AppendDelete(statement, m_tableName, m_where);
    return statement.Take();
}

eUtEncodingType CMyRecordSet::EditEncoding() const noexcept
{
    return m_database ? m_database->GetServer().GetEncodingType() : UT_ENCODING_DEFAULT;
}

/// The bytes of an INSERT or UPDATE, a little more rather than less.
size_t CMyRecordSet::ExpectedSize() const noexcept
{
    constexpr size_t keywords = 32;
    constexpr size_t marks = 10;
    size_t size = keywords + m_tableName.GetByteLength();
    for (const recordset::PendingChange& change : *m_pendingChanges)
        size +=
            m_tableName.GetByteLength() + change.Column().GetByteLength() + change.SqlValue().GetByteLength() + marks;
    return size;
}

void CMyRecordSet::ResetOutcome() noexcept
{
    m_errorCode = 0;
    m_errorMessage.SetEmpty();
}

/// A statement is sent whole or not at all: cut at a zero byte, it could lose its condition.
bool CMyRecordSet::Send(const UtCString& statement)
{
    if (!m_database) {
        m_errorMessage = client::ErrorText(nullptr);
        return false;
    }
    if (statement.IsEmpty())
        return Refuse(outOfMemory, "2008: Out of memory");
    if (statement.View().find('\0') != std::string_view::npos)
        return Refuse(syntaxError, "1064: The statement holds a zero byte and was not sent");
    if (m_database->ExecuteQuery(statement, false, nullptr, false) != -1)
        return true;
    m_errorMessage = m_database->GetErrorMessage();
    return false;
}

/// Reports a statement that is not sent, here and on the connection, as a failed one is.
bool CMyRecordSet::Refuse(unsigned long code, const UtCString& message)
{
    m_errorMessage = message;
    if (m_database)
        connection::DatabaseAccess::SetLastError(*m_database, code, message);
    return false;
}

bool CMyRecordSet::RefuseTableName()
{
    return Refuse(wrongTableName,
                  UtCString("1103: Incorrect table name '", m_tableName.GetEncodingType()) + m_tableName + "'");
}

bool CMyRecordSet::RefuseLostChange()
{
    if (m_database && m_database->IsConnected())
        return Refuse(outOfMemory, "2008: Out of memory");
    m_errorMessage = m_database ? m_database->GetErrorMessage() : client::ErrorText(nullptr);
    return false;
}

bool CMyRecordSet::TakeAffectedRows()
{
    m_errorCode = static_cast<int32_t>(m_database->GetAffectedRows());
    m_errorMessage = m_database->GetQueryInfo();
    return m_errorCode > 0;
}

/// KEPT K-95: the first number of the info counts the rows found, so that a change to what is there already succeeds.
bool CMyRecordSet::TakeMatchedRows()
{
    TakeAffectedRows();
    m_errorCode = sql::RowFigure(m_errorMessage.View(), m_errorCode);
    return m_errorCode > 0;
}
