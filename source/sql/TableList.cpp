#include "sql/TableList.h"

namespace sql {
namespace {

bool IsNothingBut(const UtCString& text, const char* set) noexcept
{
    return text::LeadingEnd({text.View(), text.GetEncodingType()}, {set, UT_ENCODING_DEFAULT}) == text.GetByteLength();
}

} // namespace

UtCString ShowTables(const UtCString& pattern, eUtEncodingType encoding) noexcept
{
    StatementBuilder statement(encoding);
    statement << "SHOW TABLES";
    if (!pattern.IsEmpty())
        statement << " LIKE '" << pattern << "'";
    return statement.Take();
}

void TableListText::Add(const UtCString& name) noexcept
{
    m_text << "`" << name << "`, "; // KEPT K-133: not escaped.
}

void SplitTableList(const UtCString& listText, UtCStringList& names)
{
    constexpr const char* decoration = "` ";
    if (listText.Tokenize(",", names) == 0) // the empty text has one piece
        throw std::bad_alloc();
    for (int position = names.GetCount() - 1; position >= 0; --position) {
        UtCString& name = names.item(position);
        if (IsNothingBut(name, decoration))
            names.Remove(position);
        else
            name = Whole(name.trim(decoration));
    }
}

} // namespace sql
