#include "CMyRecordSet.h"
#include "connection/Guarded.h"
#include "containers/UtArray.h"
#include "containers/UtCMap.h"
#include "metadata/TableCache.h"
#include "recordset/PendingChanges.h"
#include "recordset/ResultColumns.h"

// Changes that are set and not yet written.

void CMyRecordSet::ClearFieldCache() noexcept
{
    m_pendingChanges.reset();
}

void CMyRecordSet::SaveFieldValue(const UtCString& column, const UtCString& sqlValue, const void* data,
                                  unsigned long length)
{
    connection::Guarded(false, [&] {
        if (!m_pendingChanges)
            m_pendingChanges = std::make_unique<recordset::PendingChanges>();
        recordset::PendingChange* change = m_pendingChanges->Find(column);
        if (change)
            change->Replace(InColumnEncoding(column, sqlValue), data, length);
        else
            m_pendingChanges->Add(column, sqlValue, data, length);
        return true;
    });
}

/// The text in the encoding of a text column of the current result; unchanged for every other column.
UtCString CMyRecordSet::InColumnEncoding(const UtCString& column, const UtCString& sqlValue) const
{
    for (unsigned long no = 0; no < m_fieldCount; ++no) {
        if (!GetFieldName(no).EqualNoCase(column))
            continue;
        const eUtEncodingType encoding = SourceEncoding(no);
        return encoding == recordset::ResultColumns::unconverted ? sqlValue : UtCString(sqlValue, encoding);
    }
    return sqlValue;
}

bool CMyRecordSet::ModifyEnd()
{
    m_modifyState = MODIFY_NONE;
    return false;
}

bool CMyRecordSet::AppendEnd()
{
    m_modifyState = MODIFY_NONE;
    return false;
}
