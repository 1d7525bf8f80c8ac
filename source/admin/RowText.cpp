#include "admin/RowText.h"

#include "CMyRecordSet.h"

#include <new>

namespace admin {

UtCString RowText(const CMyRecordSet& rows, unsigned long column)
{
    UtCString text(rows.GetDatabase()->GetServer().GetEncodingType());
    rows.GetFieldText(column, text);
    if (text.IsEmpty() && rows.GetFieldDataLen(column) != 0)
        throw std::bad_alloc();
    return text;
}

UtCString RowText(const CMyRecordSet& rows, const UtCString& column)
{
    unsigned long position = 0;
    return rows.GetFieldNo(column, position) ? RowText(rows, position) : UtCString();
}

} // namespace admin
