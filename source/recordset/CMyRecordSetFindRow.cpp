#include "CMyRecordSet.h"
#include "connection/Guarded.h"
#include "containers/UtArray.h"
#include "containers/UtCMap.h"
#include "metadata/TableCache.h"
#include "recordset/PendingChanges.h"
#include "recordset/ResultColumns.h"
#include "sql/TextPattern.h"

#include <new>

// The search through the rows of a stored result.

namespace {

using Conversion = UtCString (*)(const UtCString&);

/// The column's text in lower case. Throws when there is no memory for it: a text lost would look like an empty one.
void ReadLowerCase(const CMyRecordSet& records, unsigned long no, UtCString& text)
{
    records.GetFieldText(no, text);
    text.SetToLower();
    if (text.IsEmpty() && !records.IsFieldEmpty(no))
        throw std::bad_alloc();
}

} // namespace

long CMyRecordSet::FindRow(const UtCString& field, const UtCString& value, long startRow, bool forward,
                           Conversion convert)
{
    if (value.IsEmpty())
        return -1;
    unsigned long no = 0;
    if (!GetFieldNo(field, no))
        return 0; // KEPT K-101: the number of the first row, not a failure.
    return connection::Guarded(-1L, [&] {
        const eUtEncodingType encoding = GetEncodingType();
        const sql::TextPattern pattern{UtCString(encoding)}; // KEPT K-100: empty whatever `value` says.
        const long step = forward ? 1 : -1;
        UtCString text(encoding); // of all rows in turn, so that its memory serves them all
        for (long row = startRow; MoveTo(row); row += step) {
            ReadLowerCase(*this, no, text);
            if (convert ? pattern.Matches(convert(text)) : pattern.Matches(text))
                return GetCurrentRow();
        }
        return -1L;
    });
}
