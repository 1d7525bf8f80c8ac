#include "sql/ShowTables.h"

#include "text/TextBuilder.h"

namespace sql {

UtCString ShowTablesLike(const UtCString& database, const UtCString& table)
{
    text::TextBuilder statement(table.GetEncodingType());
    statement.Append("SHOW TABLES FROM ", UT_ENCODING_DEFAULT);
    statement.AppendText(database); // KEPT K-46: not quoted.
    statement.Append(" LIKE '", UT_ENCODING_DEFAULT);
    statement.AppendText(table);
    statement.Append("'", UT_ENCODING_DEFAULT);
    return statement.Take();
}

} // namespace sql
