#include "CMyRecordSet.h"
#include "CMyTable.h"
#include "connection/Guarded.h"
#include "sql/LookupStatement.h"
#include "sql/StatementBuilder.h"
#include "sql/TableStatus.h"

// What a table handle asks the server: rows and sizes.

namespace {

/// A number out of the table's status; 0 when it cannot be had.
__int64 StatusNumber(CMyDatabase* database, const UtCString& table, const char* column)
{
    constexpr __int64 unknown = 0;
    if (!database)
        return unknown;
    return connection::Guarded(unknown, [&] {
        const eUtEncodingType encoding = database->GetServer().GetEncodingType();
        const UtCString statement = sql::ShowTableStatusQuoted(database->GetDatabaseName(), table, encoding);
        CMyRecordSet status(database, UtCString());
        return status.Select(sql::Whole(statement), false, true) > 0 ? status.GetFieldInt64(column) : unknown;
    });
}

} // namespace

long CMyTable::GetRecordCount() const
{
    if (!m_entry)
        return -1;
    return connection::Guarded(-1L, [&] {
        const UtCString statement = sql::CountTable(m_tableName, GetEncodingType());
        sql::Whole(statement); // before the record set opens a connection for nothing
        return CMyRecordSet(m_database, m_tableName).CountSQL(statement);
    });
}

bool CMyTable::IsEmpty() const
{
    return GetRecordCount() < 1; // KEPT K-105: a table that cannot be counted is empty, too.
}

__int64 CMyTable::GetTableDataSize() const
{
    return m_entry ? StatusNumber(m_database, m_tableName, "Data_length") : 0;
}

__int64 CMyTable::GetTableIndexSize() const
{
    return m_entry ? StatusNumber(m_database, m_tableName, "Index_length") : 0;
}
