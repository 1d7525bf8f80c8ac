#pragma once

#include "text/UtCString.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace recordset {

/// One column that has been set and not yet written. When memory runs out std::bad_alloc is thrown and nothing has
/// changed; so it is with the list below.
class PendingChange
{
public:
    PendingChange(const UtCString& column, const UtCString& sqlValue, const void* data, size_t size);

    const UtCString& Column() const noexcept { return m_column; }     ///< upper case, as the setters pass it
    const UtCString& SqlValue() const noexcept { return m_sqlValue; } ///< as it stands in the statement
    /// The value itself, zero-terminated; null when the column is set to NULL.
    char* Data() noexcept { return m_isNull ? nullptr : m_bytes.data(); }
    size_t Size() const noexcept { return m_bytes.size() - 1; }

    void Replace(const UtCString& sqlValue, const void* data, size_t size);

private:
    UtCString m_column;
    UtCString m_sqlValue;
    std::vector<char> m_bytes; ///< with a terminating zero
    bool m_isNull;
};

/// The changes of the current record in the order in which the columns were first set; each column occurs once.
class PendingChanges
{
public:
    /// The change of exactly this column; null when there is none. Valid until the next Add.
    PendingChange* Find(const UtCString& column) noexcept;

    /// The first change whose column has this name in any letter case.
    PendingChange* FindNoCase(std::string_view columnName) noexcept;

    void Add(const UtCString& column, const UtCString& sqlValue, const void* data, size_t size);

private:
    std::vector<PendingChange> m_changes;
};

} // namespace recordset
