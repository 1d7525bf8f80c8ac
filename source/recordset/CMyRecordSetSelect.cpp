#include "CMyRecordSet.h"
#include "containers/UtArray.h"
#include "containers/UtCMap.h"
#include "metadata/TableCache.h"
#include "recordset/PendingChanges.h"
#include "recordset/ResultColumns.h"
#include "sql/SelectStatement.h"
#include "sql/StatementText.h"

#include <new>

// From a statement to a result.

/// The outermost step of every select: what throws leaves no half-adopted result.
template <class Body> long CMyRecordSet::Selecting(Body&& body) noexcept
{
    try {
        return body();
    } catch (...) {
        FreeRecordSet();
        return -1;
    }
}

long CMyRecordSet::Select(const UtCString& sql, bool showError, bool asIs)
{
    return Selecting([&] {
        if (!m_database || (!m_database->Open(false, UtCString()) && !m_database->IsConnected()))
            return -1L;
        const UtCString statement = CompleteStatement(sql, asIs);
        FreeRecordSet();
        return Run(statement, showError, false);
    });
}

UtCString CMyRecordSet::CompleteStatement(const UtCString& sql, bool asIs) const
{
    if (sql::IsBlank(sql.View(), sql.GetEncodingType()))
        return sql::SelectAll(m_tableName, GetEncodingType());
    const UtCString text(sql.trim(), GetEncodingType());
    if (text.IsEmpty()) // no memory; the whole table is not what was asked for
        throw std::bad_alloc();
    if (asIs || GetDB()->IsSelectQuery(text))
        return text;
    return sql::SelectByClause(m_tableName, text);
}

bool CMyRecordSet::SelectLargeResult(const UtCString& sql)
{
    return SetSQLCommand(sql, false, true) >= 0;
}

long CMyRecordSet::SetSQLCommand(const UtCString& sql, bool showError, bool large)
{
    return Selecting([&] {
        if (!m_database)
            return -1L;
        const UtCString statement(sql); // it may be the last command of the connection that is freed next
        FreeRecordSet();
        if (large)
            m_largeResultConnection =
                std::make_unique<CMyDatabase>(m_database->GetServer(), m_database->GetDatabaseName());
        return Run(statement, showError, large);
    });
}

long CMyRecordSet::Run(const UtCString& statement, bool showError, bool useResult)
{
    CMyDatabase& connection = *GetDB();
    MYSQL_RES* result = nullptr;
    const long outcome = connection.ExecuteQuery(statement, showError, &result, useResult);
    m_result.reset(result);
    m_lastSQLCommand = connection.GetLastSQLCommand();
    if (outcome == -1 || !m_result) // KEPT K-41: a statement without a result set counts as failed.
        return -1;
    return AdoptResult(connection);
}

long CMyRecordSet::AdoptResult(CMyDatabase& connection)
{
    m_rowCount = static_cast<int32_t>(connection.GetAffectedRows()); // KEPT K-42: a stream counts one row.
    m_queryTime = static_cast<uint32_t>(connection.GetQueryTime());
    m_queryInfo = connection.GetQueryInfo();
    m_fieldCount = mysql_num_fields(m_result.get());
    if (!m_columns)
        m_columns = std::make_unique<recordset::ResultColumns>();
    m_columns->Assign(mysql_fetch_fields(m_result.get()), m_fieldCount);
    if (m_rowCount < 0)
        return -1;
    if (!MoveFirst())
        m_rowCount = 0;
    return m_rowCount;
}
