#include "recordset/PendingChanges.h"

#include <algorithm>
#include <new>

namespace recordset {
namespace {

std::vector<char> TerminatedCopy(const void* data, size_t size)
{
    std::vector<char> bytes(data ? size + 1 : 1);
    if (data)
        std::copy_n(static_cast<const char*>(data), size, bytes.begin());
    return bytes;
}

/// A text that finds no memory is empty; here it throws.
UtCString WholeCopy(const UtCString& text)
{
    UtCString copy(text);
    if (copy.IsEmpty() != text.IsEmpty())
        throw std::bad_alloc();
    return copy;
}

} // namespace

PendingChange::PendingChange(const UtCString& column, const UtCString& sqlValue, const void* data, size_t size)
    : m_column(WholeCopy(column)), m_sqlValue(WholeCopy(sqlValue)), m_bytes(TerminatedCopy(data, size)),
      m_isNull(data == nullptr)
{
}

void PendingChange::Replace(const UtCString& sqlValue, const void* data, size_t size)
{
    std::vector<char> bytes = TerminatedCopy(data, size);
    m_sqlValue = WholeCopy(sqlValue);
    m_bytes.swap(bytes);
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

void PendingChanges::Add(const UtCString& column, const UtCString& sqlValue, const void* data, size_t size)
{
    m_changes.emplace_back(column, sqlValue, data, size);
}

} // namespace recordset
