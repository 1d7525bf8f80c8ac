#include "sql/TableStatus.h"

#include "text/TextBuilder.h"
#include "text/UtCStringList.h"

namespace sql {

UtCString ShowTableStatus(const UtCString& database, const UtCString& table)
{
    UtCString statement(table.GetEncodingType());
    // KEPT K-22: the database name stands without backticks and the table name is a LIKE pattern.
    statement.FormatStringList("SHOW TABLE STATUS FROM %s LIKE '%s'", {database, table}, table.GetEncodingType());
    return statement;
}

UtCString ShowTableStatusQuoted(const UtCString& database, const UtCString& table, eUtEncodingType encoding)
{
    text::TextBuilder statement(encoding);
    statement.Append("SHOW TABLE STATUS FROM `", UT_ENCODING_DEFAULT);
    statement.AppendText(database);
    statement.Append("` LIKE '", UT_ENCODING_DEFAULT);
    statement.AppendText(table); // KEPT K-106: a pattern, and as the handle holds it.
    statement.Append("'", UT_ENCODING_DEFAULT);
    return statement.Take();
}

} // namespace sql
