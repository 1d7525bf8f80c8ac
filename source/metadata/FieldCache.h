#pragma once

#include "framework/CObject.h"
#include "metadata/TableCache.h"

#include <cstdint>
#include <memory>

class CMyDatabase;

/// The metadata of every table that the process has asked for: loaded from the server on first use, then kept until it
/// is removed. One object serves all connections.
///
/// The key of a table is its name alone, in upper case. The database is not part of it: two databases that hold a table
/// of the same name share one entry, that of the table loaded first. Opening a connection therefore removes the
/// entries of all tables of the database opened (RemoveListedTables).
///
/// There is no lock: all calls come from one thread at a time.
class CFieldCache : public CObject
{
public:
    /// The cache of the process. It exists before the library is first used and is freed when the library is unloaded.
    static CFieldCache& Instance();

    CFieldCache() = default;
    CFieldCache(const CFieldCache&) = delete;
    CFieldCache& operator=(const CFieldCache&) = delete;
    ~CFieldCache() override; ///< RemoveAll

    /// The position of a table's entry. Backticks around the name and its letter case do not matter; blanks around it
    /// do: such a name is never found. False, with `position` untouched, for an empty or unknown name.
    bool Find(const UtCString& tableName, unsigned long& position) const;

    /// The entry at a position; null at or beyond GetCount().
    std::shared_ptr<CTableCache> GetEntry(unsigned long position) const;
    unsigned long GetCount() const; ///< the number of entries

    /// The entry of a table, loaded from the server when Find does not know it (a field listing and a SHOW TABLE
    /// STATUS, before them an Open when the connection is closed).
    ///
    /// Null, and nothing added, for a null connection, an empty name, a connection that cannot be opened, a table that
    /// cannot be listed and one without columns. After a failed listing the connection's last error is the client's, or
    /// 1103 for a name longer than a listing can carry (126 bytes in the connection's encoding); it is 0 and
    /// "Kein Fehler!" where the client gives no reason. Only a lost connection (2001, 2006, 2013) is tried again, once,
    /// over a new Open. A failed SHOW TABLE STATUS leaves its error on the connection and the engine empty; the entry
    /// is valid all the same.
    ///
    /// A name with blanks around it is loaded anew on every call, each time as a further entry under the same key; the
    /// newest is the one found.
    std::shared_ptr<CTableCache> GetOrLoad(CMyDatabase* database, const UtCString& tableName);

    /// Drops the entry that Find gives; the next GetOrLoad asks the server again. False when there is none. When the
    /// key has further entries, the oldest of them is found from now on.
    bool Remove(const UtCString& tableName);

    void RemoveAll(); ///< Drops the entries of all tables of all databases.

    /// Asks the server for the tables of the current database (SHOW TABLES, one round trip; the connection's last
    /// statement and error become those of this query) and removes the entry of every table listed, as Remove does for
    /// one table after the other, but in one pass over the entries. A failed listing removes nothing.
    void RemoveListedTables(CMyDatabase& database);

    /// A number that changes whenever an entry is added or removed, so that what was derived from entries can be kept
    /// as long as it stays the same.
    uint64_t GetGeneration() const noexcept { return m_generation; }

private:
    std::shared_ptr<CTableCache> Load(CMyDatabase* database, const UtCString& tableName);
    bool Append(const std::shared_ptr<CTableCache>& entry); ///< false, and nothing added, when memory ran out
    void RebuildIndex();                                    ///< among entries with the same key the first wins
    /// Drops as many entries of each key as `counts` says, the oldest first.
    void RemoveOldest(UtCMap<UtCString, unsigned long>& counts);

    UtArray<std::shared_ptr<CTableCache>> m_tables; ///< in the order in which they were loaded
    UtCMap<UtCString, unsigned long> m_tableIndex;
    uint64_t m_generation = 0;
};
