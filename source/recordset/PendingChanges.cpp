#include "recordset/PendingChanges.h"

#include <algorithm>
#include <new>
#include <utility>

namespace recordset {
namespace {

constexpr size_t usualColumns = 12; ///< room for these is made at once

/// A text that finds no memory is empty; here it throws.
UtCString BytesOf(const void* data, size_t size)
{
    const size_t taken = data ? size : 0;
    UtCString bytes(std::string_view(static_cast<const char*>(data), taken), UT_ENCODING_DEFAULT);
    if (bytes.GetByteLength() != taken)
        throw std::bad_alloc();
    return bytes;
}

} // namespace

PendingChange::PendingChange(UtCString&& column, UtCString&& sqlValue, const void* data, size_t size)
    : m_column(std::move(column)), m_sqlValue(std::move(sqlValue)), m_bytes(BytesOf(data, size)),
      m_isNull(data == nullptr)
{
}

void PendingChange::Replace(UtCString&& sqlValue, const void* data, size_t size)
{
    m_bytes = BytesOf(data, size);
    m_sqlValue = std::move(sqlValue);
    m_isNull = data == nullptr;
}

PendingChange* PendingChanges::Find(const UtCString& column) noexcept
{
    const auto found = std::find_if(m_changes.begin(), m_changes.end(),
                                    [&](const PendingChange& change) { return change.Column() == column; });
    return found == m_changes.end() ? nullptr : &*found;
}

PendingChange* PendingChanges::FindNoCase(std::string_view columnName) noexcept
{
    const UtCString name(columnName, UT_ENCODING_DEFAULT);
    const auto found = std::find_if(m_changes.begin(), m_changes.end(),
                                    [&](const PendingChange& change) { return change.Column().EqualNoCase(name); });
    return found == m_changes.end() ? nullptr : &*found;
}

void PendingChanges::Add(UtCString column, UtCString sqlValue, const void* data, size_t size)
{
    if (m_changes.empty())
        m_changes.reserve(usualColumns);
    m_changes.emplace_back(std::move(column), std::move(sqlValue), data, size);
}

bool PendingChanges::Remove(const UtCString& column) noexcept
{
    const PendingChange* const found = Find(column);
    if (!found)
        return false;
    m_changes.erase(m_changes.begin() + (found - m_changes.data()));
    return true;
}

} // namespace recordset
