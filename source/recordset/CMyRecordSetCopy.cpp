#include "CMyRecordSet.h"
#include "connection/Guarded.h"
#include "containers/UtArray.h"
#include "containers/UtCMap.h"
#include "metadata/TableCache.h"
#include "recordset/PendingChanges.h"
#include "recordset/ResultColumns.h"

#include <algorithm>
#include <array>
#include <memory>
#include <new>

// A row of one record set becomes the pending changes of another.

namespace {

bool IsAuditColumn(const UtCString& name)
{
    static constexpr std::array<const char*, 4> columns = {"ERF_TIME", "ERFASST", "MUT_TIME", "MUTATOR"};
    return std::any_of(columns.begin(), columns.end(), [&](const char* column) { return name.EqualNoCase(column); });
}

/// Unlike the entry's own search this one needs no memory: without memory it would lose a column.
const CMyField* FindColumn(const CTableCache& entry, const UtCString& name)
{
    for (unsigned long no = 0; no < entry.GetFieldCount(); ++no) {
        if (entry.GetField(no)->GetName().EqualNoCase(name))
            return entry.GetField(no);
    }
    return nullptr;
}

} // namespace

bool CMyRecordSet::CopyRecord(const CMyRecordSet& source)
{
    if (source.IsEOF() || !IsAppendOrModifyStarted())
        return false;
    const bool isCopied = connection::Guarded(false, [&] {
        // Held by itself: reading and setting may load the table anew.
        const std::shared_ptr<const CTableCache> entry = EntryForEditing() ? m_tableEntry : nullptr;
        for (unsigned long no = 0; entry && no < source.GetFieldCount(); ++no) {
            const MYSQL_FIELD& column = *source.ResultField(no);
            const UtCString name = source.GetFieldName(no);
            if (name.GetByteLength() != column.name_length)
                throw std::bad_alloc();
            const bool isKey = (column.flags & (PRI_KEY_FLAG | AUTO_INCREMENT_FLAG)) != 0;
            const CMyField* target = isKey || IsAuditColumn(name) ? nullptr : FindColumn(*entry, name);
            if (target && !CopyColumn(source, no, *target))
                return false;
        }
        return true;
    });
    return isCopied || LoseChange();
}

bool CMyRecordSet::CopyColumn(const CMyRecordSet& source, unsigned long no, const CMyField& target)
{
    const UtCString name = source.GetFieldName(no);
    if (source.IsFieldNull(no)) {
        const bool isNullable = (target.GetFlags() & NOT_NULL_FLAG) == 0;
        return SetFieldValue(name, isNullable ? "null" : "", MYTYPE_TEXT); // KEPT K-109: an empty text for NULL.
    }
    // In the encoding of the statement, so that the bytes of a blob are not converted on their way into it.
    UtCString text(GetEncodingType());
    source.GetFieldText(no, text);
    if (text.IsEmpty() && !source.IsFieldEmpty(no))
        throw std::bad_alloc();
    return SetFieldValue(name, text, target.GetFieldType());
}
