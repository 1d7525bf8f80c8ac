#include "CMyRecordSet.h"
#include "connection/DatabaseAccess.h"
#include "connection/Guarded.h"
#include "containers/UtArray.h"
#include "containers/UtCMap.h"
#include "metadata/FieldCache.h"
#include "metadata/FieldTypes.h"
#include "recordset/PendingChanges.h"
#include "recordset/ResultColumns.h"
#include "sql/EditStatement.h"
#include "text/TextBuilder.h"

#include <new>
#include <utility>

// Changes that are set and not yet written.

void CMyRecordSet::ClearFieldCache() noexcept
{
    m_pendingChanges.reset();
    m_hasLostChange = false;
}

void CMyRecordSet::SaveFieldValue(const UtCString& column, const UtCString& sqlValue, const void* data,
                                  unsigned long length)
{
    UtCString name(column);
    UtCString text(sqlValue);
    if (name.IsEmpty() != column.IsEmpty() || text.IsEmpty() != sqlValue.IsEmpty())
        LoseChange();
    else
        EnterChange(std::move(name), std::move(text), data, length);
}

bool CMyRecordSet::KeepChange(const UtCString& field, UtCString&& sqlValue, const void* data, size_t length) noexcept
{
    UtCString column = field.toUpper();
    return column.IsEmpty() ? LoseChange() : EnterChange(std::move(column), std::move(sqlValue), data, length);
}

bool CMyRecordSet::EnterChange(UtCString&& column, UtCString&& sqlValue, const void* data, size_t length) noexcept
{
    const bool isEntered = connection::Guarded(false, [&] {
        if (!m_pendingChanges)
            m_pendingChanges = std::make_unique<recordset::PendingChanges>();
        recordset::PendingChange* change = m_pendingChanges->Find(column);
        if (!change) {
            m_pendingChanges->Add(std::move(column), std::move(sqlValue), data, length);
            return true;
        }
        UtCString converted = InColumnEncoding(column, sqlValue);
        if (converted.IsEmpty() != sqlValue.IsEmpty())
            return false;
        change->Replace(std::move(converted), data, length);
        return true;
    });
    return isEntered || LoseChange();
}

/// Notes that the statement would lack a value. Nothing is sent until the pending changes have been discarded.
bool CMyRecordSet::LoseChange() noexcept
{
    m_hasLostChange = true;
    return false;
}

/// The text in the encoding of a text column of the current result; unchanged for every other column, and where it
/// would not survive the way there and back: it may hold bytes that are no text.
UtCString CMyRecordSet::InColumnEncoding(const UtCString& column, const UtCString& sqlValue) const
{
    for (unsigned long no = 0; no < m_fieldCount; ++no) {
        if (!GetFieldName(no).EqualNoCase(column))
            continue;
        const eUtEncodingType encoding = SourceEncoding(no);
        if (encoding == recordset::ResultColumns::unconverted)
            return sqlValue;
        UtCString converted(sqlValue, encoding);
        const bool isKept = UtCString(converted, sqlValue.GetEncodingType()) == sqlValue;
        return isKept ? std::move(converted) : sqlValue;
    }
    return sqlValue;
}

bool CMyRecordSet::RemoveFieldInSetList(const UtCString& field)
{
    return m_pendingChanges && m_pendingChanges->Remove(field.toUpper());
}

bool CMyRecordSet::HasPendingChanges() const noexcept
{
    return m_pendingChanges && !m_pendingChanges->IsEmpty();
}

void CMyRecordSet::CreateSetClause(UtCString& setClause)
{
    text::TextBuilder clause(setClause.GetEncodingType(), m_pendingChanges ? ExpectedSize() : 0);
    AppendSetList(clause);
    setClause = clause.Take();
}

void CMyRecordSet::AppendSetList(text::TextBuilder& statement) const
{
    if (!m_pendingChanges)
        return;
    sql::SetList list(statement, m_tableName);
    for (const recordset::PendingChange& change : *m_pendingChanges)
        list.Add(change.Column(), change.SqlValue());
}

/// The table's entry over the bound connection, which is free while a stream is being read. A table that is not there
/// is asked for once per bracket, not with every value.
const CTableCache* CMyRecordSet::EntryForEditing() const
{
    if (m_isTableMissing || (m_tableEntry && m_tableEntryGeneration == CFieldCache::Instance().GetGeneration()))
        return m_tableEntry.get();
    m_isTableMissing = !LoadTableEntry(m_database);
    return m_tableEntry.get();
}

const CMyField* CMyRecordSet::DeclaredField(const UtCString& name) const
{
    const CTableCache* entry = EntryForEditing();
    return entry ? entry->GetField(name) : nullptr;
}
