#include "CMyKey.h"
#include "CMyRecordSet.h"
#include "connection/DatabaseAccess.h"
#include "connection/Guarded.h"
#include "metadata/TableCache.h"

#include <cstdint>

// The row inserted last.

namespace {

/// The last AUTO_INCREMENT value of a connection whose last call succeeded; 0 otherwise.
uint64_t LastInsertId(const CMyDatabase* connection)
{
    MYSQL* const handle = connection ? connection::DatabaseAccess::Handle(*connection) : nullptr;
    return handle && *mysql_error(handle) == '\0' ? mysql_insert_id(handle) : 0;
}

const CMyField* FindAutoIncrement(const CTableCache& entry)
{
    for (unsigned long no = 0; no < entry.GetFieldCount(); ++no) {
        if ((entry.GetField(no)->GetFlags() & AUTO_INCREMENT_FLAG) != 0)
            return entry.GetField(no);
    }
    return nullptr;
}

} // namespace

long CMyRecordSet::GetLastInsertedRecID() const
{
    return static_cast<int32_t>(LastInsertId(GetDB()));
}

bool CMyRecordSet::SelectLastInsertedRecord()
{
    const uint64_t id = LastInsertId(GetDB());
    if (static_cast<int32_t>(id) < 1)
        return false;
    return connection::Guarded(false, [&] {
        if (!LoadTableEntry())
            return false;
        const CMyField* field = FindAutoIncrement(*m_tableEntry);
        if (!field)
            return false;
        // All 64 bits: the 32 that are tested may be those of another row.
        const CMyKey key(field->GetName(), UtCString(static_cast<unsigned __int64>(id)), "=");
        return Select(key, UtCString(), UtCString()) == 1;
    });
}
