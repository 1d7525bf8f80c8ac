#include "CMyRecordSet.h"
#include "connection/Guarded.h"
#include "containers/UtArray.h"
#include "containers/UtCMap.h"
#include "metadata/TableCache.h"
#include "recordset/PendingChanges.h"
#include "recordset/ResultColumns.h"
#include "sql/LookupStatement.h"
#include "sql/StatementBuilder.h"

#include <cstdint>

// Questions that a record set of its own answers, so that this one stays as it is.

using connection::Guarded;

namespace {

/// The number in the first column; `rows` is what the select returned.
long SingleNumber(const CMyRecordSet& query, long rows)
{
    return rows == 1 ? query.GetFieldLong(0UL) : -1; // KEPT K-103: several rows count as a failure.
}

} // namespace

long CMyRecordSet::CountSQL(const UtCString& condition) const
{
    return Guarded(-1L, [&] {
        const UtCString statement = sql::CountRows(m_tableName, condition, GetEncodingType());
        CMyRecordSet query(m_database, m_tableName);
        return SingleNumber(query, query.Select(sql::Whole(statement), true, true));
    });
}

bool CMyRecordSet::ExistRecord(const UtCString& condition) const
{
    return Guarded(false, [&] {
        const UtCString statement = sql::ExistRows(m_tableName, condition, GetEncodingType());
        CMyRecordSet query(m_database, m_tableName);
        return query.Select(sql::Whole(statement), true, true) > 0;
    });
}

long CMyRecordSet::GetMaxValue(const UtCString& sql) const
{
    if (sql.IsEmpty())
        return -1;
    return Guarded(-1L, [&] {
        CMyRecordSet query(m_database, m_tableName);
        query.SetTableName(m_tableName);         // also when the connection could not be opened yet
        if (query.GetTableName() != m_tableName) // no memory for the table of a clause
            return -1L;
        return SingleNumber(query, query.Select(sql, true, false));
    });
}

long CMyRecordSet::GetMaxFieldValue(const UtCString& field, const UtCString& table) const
{
    if (field.IsEmpty() || table.IsEmpty()) // KEPT K-102: the bound table does not stand in for an empty name.
        return -1;
    return GetMaxValue(sql::MaxOfField(table, field, GetEncodingType()));
}

long CMyRecordSet::GetRecordCount() const
{
    return m_result ? static_cast<int32_t>(mysql_num_rows(m_result.get())) : 0;
}
