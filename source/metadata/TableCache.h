#pragma once

#include "CMyField.h"
#include "containers/UtArray.h"
#include "containers/UtCMap.h"
#include "text/UtCString.h"

#include <memory>

/// What the cache knows of one table: its columns in the server's order, and its storage engine.
///
/// Entries are handed out as std::shared_ptr. Whoever holds one, or a CMyField of one, may go on using it after the
/// cache has dropped the entry; it then describes the table as it was when the entry was loaded.
class CTableCache
{
public:
    /// An entry without columns and engine. `key` is the name in the form in which the cache looks tables up.
    explicit CTableCache(const UtCString& key);
    CTableCache(const CTableCache&) = delete;
    CTableCache& operator=(const CTableCache&) = delete;

    const UtCString& GetName() const noexcept { return m_name; } ///< the key: trimmed and in upper case
    /// The engine as the server spells it ("InnoDB"), encoding 256; empty while unknown, and for views.
    const UtCString& GetEngine() const noexcept { return m_engine; }
    bool IsTransactional() const noexcept { return m_transactional; } ///< the engine is InnoDB
    unsigned long GetFieldCount() const noexcept;

    /// The column at a zero-based position; null at or beyond the column count. Owned by the entry.
    const CMyField* GetField(unsigned long position) const noexcept;

    /// The column of a name, as FindField finds it; null when there is none. Owned by the entry.
    const CMyField* GetField(const UtCString& name) const;

    /// The position of a column by its name, whatever its letter case. The name is not trimmed. False, with `position`
    /// untouched, for an empty or unknown name. Of two columns whose names differ in case only, the later is found.
    bool FindField(const UtCString& name, unsigned long& position) const;

    /// Adds a copy of `field` as the last column. False when memory ran out; the entry is then not fit for use.
    bool AppendField(const CMyField& field);
    void SetEngine(const UtCString& engine); ///< Also decides IsTransactional; the letter case does not matter.

private:
    UtCString m_name;
    UtCString m_engine;
    bool m_transactional = false;
    UtArray<std::unique_ptr<CMyField>> m_fields;
    UtCMap<UtCString, unsigned long> m_fieldIndex; ///< upper-case name -> position
};
