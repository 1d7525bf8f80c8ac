#include "sql/TableStatus.h"

#include "text/UtCStringList.h"

namespace sql {

UtCString ShowTableStatus(const UtCString& database, const UtCString& table)
{
    UtCString statement(table.GetEncodingType());
    // KEPT K-22: the database name stands without backticks and the table name is a LIKE pattern.
    statement.FormatStringList("SHOW TABLE STATUS FROM %s LIKE '%s'", {database, table}, table.GetEncodingType());
    return statement;
}

} // namespace sql
