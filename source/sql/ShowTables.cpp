#include "sql/ShowTables.h"

namespace sql {

UtCString ShowTablesLike(const UtCString& database, const UtCString& table)
{
    UtCString statement("SHOW TABLES FROM ", table.GetEncodingType());
    statement += database; // KEPT K-46: not quoted.
    statement += " LIKE '";
    statement += table;
    statement += "'";
    return statement;
}

} // namespace sql
