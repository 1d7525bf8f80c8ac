#include "sql/LookupStatement.h"

#include "sql/StatementBuilder.h"
#include "text/TextSearch.h"

namespace sql {
namespace {

text::Tagged TaggedView(const UtCString& text) noexcept
{
    return {text.View(), text.GetEncodingType()};
}

bool BeginsWith(text::Tagged text, const char* word) noexcept
{
    return text::PrefixSize(text, {word, UT_ENCODING_DEFAULT}, text::LetterCase::Ignored) != text::notFound;
}

text::Tagged WithoutEnd(text::Tagged text, const char* set) noexcept
{
    const size_t end = text::TrailingBegin(text, {set, UT_ENCODING_DEFAULT});
    return {text.bytes.substr(0, end), text.encoding};
}

} // namespace

UtCString SelectRows(const RowSelection& selection, eUtEncodingType encoding)
{
    StatementBuilder statement(encoding);
    statement << "SELECT ";
    if (selection.fields.IsEmpty())
        statement << "`" << selection.table << "`.*";
    else
        statement << selection.fields;
    statement << " FROM `" << selection.table << "`";
    if (!selection.condition.IsEmpty())
        statement << " WHERE (" << selection.condition << ")";
    statement << " ";
    if (!selection.order.IsEmpty() && !selection.order.StartsWith("ORDER BY", true))
        statement << "ORDER BY "; // KEPT K-108: "order by" in lower case gets a second one.
    statement << selection.order;
    return statement.Take();
}

UtCString CountTable(const UtCString& table, eUtEncodingType encoding)
{
    return (StatementBuilder(encoding) << "SELECT COUNT(*) FROM `" << table << "`").Take();
}

UtCString CountRows(const UtCString& table, const UtCString& condition, eUtEncodingType encoding)
{
    StatementBuilder statement(encoding);
    const text::Tagged text = TaggedView(condition);
    if (BeginsWith(text, "SELECT "))
        return (statement << text).Take();
    statement << "SELECT COUNT(*) FROM `" << table << "` ";
    if (!condition.IsEmpty() && !BeginsWith(text, "WHERE "))
        statement << "WHERE ";
    return (statement << text).Take(); // KEPT K-104: no parentheses, so clauses may follow the condition.
}

UtCString ExistRows(const UtCString& table, const UtCString& condition, eUtEncodingType encoding)
{
    StatementBuilder statement(encoding);
    const text::Tagged text = WithoutEnd(TaggedView(condition), "; ");
    if (BeginsWith(text, "SELECT ")) // KEPT K-107: also behind a LIMIT of the caller's.
        return (statement << text << " LIMIT 1").Take();
    statement << "SELECT '1' FROM `" << table << "`";
    if (BeginsWith(text, "WHERE "))
        statement << " " << text;
    else if (!text.bytes.empty())
        statement << " WHERE (" << text << ")";
    return (statement << " LIMIT 1").Take();
}

UtCString MaxOfField(const UtCString& table, const UtCString& field, eUtEncodingType encoding)
{
    return (StatementBuilder(encoding) << "SELECT MAX(" << table << "." << field << ") FROM " << table).Take();
}

} // namespace sql
