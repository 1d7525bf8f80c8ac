#include "CMyDatabase.h"
#include "connection/Guarded.h"
#include "sql/ShowTables.h"

bool CMyDatabase::ExistTable(const UtCString& tableName)
{
    return connection::Guarded(false, [&] {
        // KEPT K-30: the name goes into the LIKE pattern as it is, so "_" and "%" match other names.
        const UtCString pattern = tableName.trim(" `").toUpper(); // KEPT K-49: in upper case on every server.
        if (!IsOpen() || pattern.IsEmpty())                       // the empty pattern would match every table
            return false;
        return ExecuteQuery(sql::ShowTablesLike(m_databaseName, pattern), false, nullptr, false) > 0;
    });
}
