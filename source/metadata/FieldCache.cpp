#include "metadata/FieldCache.h"

#include "CMyDatabase.h"
#include "MyDbFunctions.h"
#include "client/Result.h"
#include "connection/DatabaseAccess.h"
#include "connection/Guarded.h"
#include "connection/TableCacheHook.h"
#include "metadata/TableKey.h"
#include "metadata/TableLoad.h"

#include <string_view>
#include <utility>

namespace {

// Creates the cache when the library is loaded, so that it outlives every static object of the host application.
[[maybe_unused]] const CFieldCache& createdAtStart = CFieldCache::Instance();

void CountKey(UtCMap<UtCString, unsigned long>& counts, const UtCString& key)
{
    if (unsigned long* count = counts.Find(key))
        ++*count;
    else
        counts.Insert(key, 1);
}

} // namespace

CFieldCache& CFieldCache::Instance()
{
    static CFieldCache cache;
    return cache;
}

CFieldCache::~CFieldCache()
{
    RemoveAll();
}

bool CFieldCache::Find(const UtCString& tableName, unsigned long& position) const
{
    if (tableName.IsEmpty())
        return false;
    // KEPT K-21: the database is not part of the key, so tables of the same name in two databases share one entry.
    const unsigned long* found = m_tableIndex.Find(metadata::LookupKey(tableName));
    if (!found)
        return false;
    position = *found;
    return true;
}

std::shared_ptr<CTableCache> CFieldCache::GetEntry(unsigned long position) const
{
    return position < m_tables.GetCount() ? m_tables[position] : nullptr;
}

unsigned long CFieldCache::GetCount() const
{
    return static_cast<unsigned long>(m_tables.GetCount());
}

std::shared_ptr<CTableCache> CFieldCache::GetOrLoad(CMyDatabase* database, const UtCString& tableName)
{
    return connection::Guarded(std::shared_ptr<CTableCache>(), [&] {
        unsigned long position = 0;
        return Find(tableName, position) ? GetEntry(position) : Load(database, tableName);
    });
}

std::shared_ptr<CTableCache> CFieldCache::Load(CMyDatabase* database, const UtCString& tableName)
{
    if (!database || tableName.IsEmpty())
        return nullptr;
    if (!connection::DatabaseAccess::Handle(*database) && !database->Open(false, UtCString()))
        return nullptr;
    const UtCString key = metadata::LoadKey(tableName, database->GetServer().GetEncodingType());
    std::shared_ptr<CTableCache> entry = metadata::LoadColumns(*database, key);
    if (!entry || !Append(entry))
        return nullptr;
    // The statement may reconnect, and opening a connection drops entries, this one too: `entry` keeps it alive.
    metadata::LoadEngine(*database, *entry);
    return entry;
}

bool CFieldCache::Append(const std::shared_ptr<CTableCache>& entry)
{
    if (!m_tables.Add(entry))
        return false;
    ++m_generation;
    // KEPT K-27: an older entry under the same key stays, hidden behind this one until this one is removed.
    m_tableIndex.Set(entry->GetName(), GetCount() - 1);
    const unsigned long* position = m_tableIndex.Find(entry->GetName());
    if (position && *position == GetCount() - 1)
        return true;
    m_tables.RemoveAt(GetCount() - 1); // memory ran out
    RebuildIndex();
    return false;
}

bool CFieldCache::Remove(const UtCString& tableName)
{
    unsigned long position = 0;
    if (!Find(tableName, position))
        return false;
    m_tables.RemoveAt(position);
    RebuildIndex();
    ++m_generation;
    return true;
}

void CFieldCache::RebuildIndex()
{
    m_tableIndex.Clear();
    for (unsigned long position = 0; position < GetCount(); ++position)
        m_tableIndex.Insert(m_tables[position]->GetName().toUpper(), position);
}

void CFieldCache::RemoveAll()
{
    while (!m_tables.IsEmpty())
        m_tables.RemoveAt(m_tables.GetCount() - 1);
    m_tableIndex.Clear();
    ++m_generation;
}

void CFieldCache::RemoveListedTables(CMyDatabase& database)
{
    MYSQL_RES* rows = nullptr;
    const bool failed = database.ExecuteQuery(UtCString("SHOW TABLES"), false, &rows, false) < 0;
    const client::Result tables(rows);
    if (failed || !tables)
        return;
    const eUtEncodingType encoding = database.GetServer().GetEncodingType();
    UtCMap<UtCString, unsigned long> counts;
    bool isOldestFound = false;
    while (MYSQL_ROW row = mysql_fetch_row(tables.get())) {
        const UtCString name(row[0] ? std::string_view(row[0], mysql_fetch_lengths(tables.get())[0]) : "", encoding);
        if (!isOldestFound)
            isOldestFound = Remove(name); // from here on the oldest entry of each key is the one to remove
        else if (!name.IsEmpty())
            CountKey(counts, metadata::LookupKey(name));
    }
    RemoveOldest(counts);
}

void CFieldCache::RemoveOldest(UtCMap<UtCString, unsigned long>& counts)
{
    unsigned long kept = 0;
    for (unsigned long position = 0; position < GetCount(); ++position) {
        unsigned long* left = counts.Find(m_tables[position]->GetName().toUpper());
        if (left && *left > 0)
            --*left;
        else
            std::swap(m_tables[kept++], m_tables[position]);
    }
    if (kept == GetCount())
        return;
    while (GetCount() > kept)
        m_tables.RemoveAt(GetCount() - 1);
    RebuildIndex();
    ++m_generation;
}

void connection::AlignTableCache(CMyDatabase& database)
{
    CFieldCache::Instance().RemoveListedTables(database);
}

bool MyDbStaticFieldCacheRemove(const UtCString& tableName)
{
    return CFieldCache::Instance().Remove(tableName);
}
