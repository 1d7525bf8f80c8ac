#include "CMyKey.h"
#include "CMyRecordSet.h"
#include "connection/Guarded.h"
#include "sql/LookupStatement.h"

// Rows found by a key.

using connection::Guarded;

namespace {

bool HasHandle(CMyDatabase& database)
{
    return database.IsConnected() || database.Open(false, UtCString()) || database.IsConnected();
}

} // namespace

long CMyRecordSet::Select(const CMyKey& key, const UtCString& fields, const UtCString& order)
{
    if (!m_database || !Guarded(false, [&] { return HasHandle(*m_database); }))
        return -1;
    const UtCString statement = Guarded(UtCString(), [&] {
        return sql::SelectRows({m_tableName, fields, key.CreateClause(this), order}, GetEncodingType());
    });
    if (!statement.IsEmpty())
        return Select(statement, true, true);
    FreeRecordSet();
    return -1;
}

long CMyRecordSet::CountSQL(const CMyKey& key) const
{
    return Guarded(-1L, [&] { return CountSQL(key.CreateClause(this)); });
}

bool CMyRecordSet::ExistRecord(const CMyKey& key) const
{
    return Guarded(false, [&] { return ExistRecord(key.CreateClause(this)); });
}
