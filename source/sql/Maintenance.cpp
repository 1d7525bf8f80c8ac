#include "sql/Maintenance.h"

#include "sql/StatementBuilder.h"

namespace sql {

UtCString DropTable(const UtCString& database, const UtCString& table, eUtEncodingType encoding) noexcept
{
    // KEPT K-138: without backticks, so a name that needs them makes a statement that fails.
    return (StatementBuilder(encoding) << "DROP TABLE IF EXISTS " << database << "." << table).Take();
}

UtCString DropDatabase(const UtCString& database, eUtEncodingType encoding) noexcept
{
    return (StatementBuilder(encoding) << "DROP DATABASE " << database).Take();
}

UtCString FlushTables(const UtCString& tables, eUtEncodingType encoding) noexcept
{
    return (StatementBuilder(encoding) << "FLUSH TABLES " << tables).Take();
}

UtCString OptimizeTables(const UtCString& tables, eUtEncodingType encoding) noexcept
{
    return (StatementBuilder(encoding) << "OPTIMIZE TABLE " << tables).Take();
}

} // namespace sql
