#include "CMyKey.h"
#include "CMyRecordSet.h"
#include "containers/UtArray.h"
#include "containers/UtCMap.h"
#include "metadata/TableCache.h"
#include "recordset/PendingChanges.h"
#include "recordset/ResultColumns.h"

// The rows that the edit bracket changes, named by a key.

// KEPT K-99: a key with an unknown column gives a text too, and only the server refuses that.
bool CMyRecordSet::ModifyStart(const CMyKey& key)
{
    return ModifyStart(key.CreateClause(this));
}

bool CMyRecordSet::ModifyStart()
{
    CMyKey key;
    return GetPrimaryKey(key) && ModifyStart(key);
}

bool CMyRecordSet::GetPrimaryKey(CMyKey& key) const
{
    key.Clear();
    m_isTableMissing = false;
    const CTableCache* entry = EntryForEditing();
    const unsigned long count = entry ? entry->GetFieldCount() : 0;
    for (unsigned long position = 0; position < count; ++position) {
        const CMyField& field = *entry->GetField(position);
        if ((field.GetFlags() & PRI_KEY_FLAG) == 0)
            continue;
        unsigned long no = 0;
        if (!GetFieldNo(field.GetName(), no))
            return false;
        const int before = key.GetFieldCount();
        // KEPT K-94: the condition tells whether there is a value, not which.
        key.Add(field.GetName(), GetFieldDataPtr(no) != nullptr, "=");
        if (key.GetFieldCount() == before) { // no memory: fewer conditions would address other rows
            key.Clear();
            return false;
        }
    }
    return !key.IsEmpty();
}
