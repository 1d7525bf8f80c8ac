#include "CMyKey.h"
#include "CMyRecordSet.h"
#include "connection/Guarded.h"
#include "sql/LookupStatement.h"

#include <new>

// Rows found by a key.

using connection::Guarded;

namespace {

bool HasHandle(CMyDatabase& database)
{
    return database.IsConnected() || database.Open(false, UtCString()) || database.IsConnected();
}

} // namespace

/// The key's condition; throws when it came out empty although the key is not: the statement would address all rows.
UtCString CMyRecordSet::ConditionOf(const CMyKey& key) const
{
    UtCString condition = key.CreateClause(this);
    if (condition.IsEmpty() && !key.IsEmpty())
        throw std::bad_alloc();
    return condition;
}

long CMyRecordSet::Select(const CMyKey& key, const UtCString& fields, const UtCString& order)
{
    if (!m_database || !Guarded(false, [&] { return HasHandle(*m_database); }))
        return -1;
    const UtCString statement = Guarded(UtCString(), [&] {
        return sql::SelectRows({m_tableName, fields, ConditionOf(key), order}, GetEncodingType());
    });
    if (!statement.IsEmpty())
        return Select(statement, true, true);
    FreeRecordSet();
    return -1;
}

long CMyRecordSet::CountSQL(const CMyKey& key) const
{
    return Guarded(-1L, [&] { return CountSQL(ConditionOf(key)); });
}

bool CMyRecordSet::ExistRecord(const CMyKey& key) const
{
    return Guarded(false, [&] { return ExistRecord(ConditionOf(key)); });
}
