#include "sql/TableStatus.h"

#include "sql/StatementBuilder.h"
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
    // KEPT K-106: the table name is a pattern, and as the handle holds it.
    return (StatementBuilder(encoding) << "SHOW TABLE STATUS FROM `" << database << "` LIKE '" << table << "'").Take();
}

} // namespace sql
