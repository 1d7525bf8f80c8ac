#include "recordset/ResultColumns.h"

#include "metadata/FieldTypes.h"

namespace recordset {

void ResultColumns::Assign(const MYSQL_FIELD* fields, unsigned long count)
{
    m_fields = fields;
    m_knowsEncodings = false;
    m_columns.clear();
    m_columns.reserve(fields ? count : 0);
    for (const MYSQL_FIELD* field = fields; field && field != fields + count; ++field) {
        const MYTYPES type = metadata::ClassifyField(*field);
        m_columns.push_back({type == MYTYPE_TEXT || type == MYTYPE_MEMO, unconverted});
    }
}

unsigned long ResultColumns::Find(const UtCString& name) const noexcept
{
    const bool isPlain = name.GetEncodingType() == UT_ENCODING_DEFAULT; // then no text is needed to compare with
    unsigned long no = 0;
    while (no < Count() && !(isPlain ? name.View() == Name(no) : name == UtCString(Name(no), UT_ENCODING_DEFAULT)))
        ++no;
    return no;
}

} // namespace recordset
