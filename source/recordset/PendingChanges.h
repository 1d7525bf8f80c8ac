#pragma once

#include "text/UtCString.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace recordset {

/// One column that has been set and not yet written. When memory runs out std::bad_alloc is thrown and nothing has
/// changed; so it is with the list below. Texts are taken over, so that short values need no memory of their own and
/// long ones are not copied twice.
class PendingChange
{
public:
    PendingChange(UtCString&& column, UtCString&& sqlValue, const void* data, size_t size);

    const UtCString& Column() const noexcept { return m_column; }     ///< upper case, as the setters pass it
    const UtCString& SqlValue() const noexcept { return m_sqlValue; } ///< as it stands in the statement
    /// The value itself, zero-terminated; null when the column is set to NULL. It may be written to, but not beyond
    /// its size.
    char* Data() noexcept { return m_isNull ? nullptr : const_cast<char*>(m_bytes.string()); }
    size_t Size() const noexcept { return m_bytes.GetByteLength(); }

    void Replace(UtCString&& sqlValue, const void* data, size_t size);

private:
    UtCString m_column;
    UtCString m_sqlValue;
    UtCString m_bytes; ///< not a text: the tag means nothing
    bool m_isNull;
};

/// The changes of the current record in the order in which the columns were first set; each column occurs once.
class PendingChanges
{
public:
    /// The change of exactly this column; null when there is none. Valid until the next Add or Remove.
    PendingChange* Find(const UtCString& column) noexcept;

    /// The first change whose column has this name in any letter case.
    PendingChange* FindNoCase(std::string_view columnName) noexcept;

    void Add(UtCString column, UtCString sqlValue, const void* data, size_t size);

    /// Takes out the change of exactly this column; false when there is none.
    bool Remove(const UtCString& column) noexcept;

    bool IsEmpty() const noexcept { return m_changes.empty(); }
    auto begin() const noexcept { return m_changes.begin(); }
    auto end() const noexcept { return m_changes.end(); }

private:
    std::vector<PendingChange> m_changes;
};

} // namespace recordset
