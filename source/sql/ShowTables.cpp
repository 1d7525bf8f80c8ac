#include "sql/ShowTables.h"

#include "sql/StatementBuilder.h"

namespace sql {

UtCString ShowTablesLike(const UtCString& database, const UtCString& table)
{
    StatementBuilder statement(table.GetEncodingType());
    statement << "SHOW TABLES FROM " << database << " LIKE '" << table << "'"; // KEPT K-46: the database is not quoted.
    return statement.Take();
}

} // namespace sql
