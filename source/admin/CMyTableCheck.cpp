#include "CMyDatabase.h"
#include "CMyTable.h"
#include "admin/CheckReport.h"
#include "connection/Guarded.h"

namespace {

sql::Damage Check(CMyDatabase& database, const UtCString& table, UtCString* errorText)
{
    const eUtEncodingType encoding = database.GetServer().GetEncodingType();
    const UtCString statement = sql::CheckTable(database.GetDatabaseName(), table, encoding);
    return admin::CheckReport(database, sql::Whole(statement)).WorstDamage([&](const sql::CheckRow& row) {
        if (errorText)
            sql::AppendTableError(row, *errorText);
    });
}

eTABLE_CHECK ResultOf(sql::Damage damage) noexcept
{
    switch (damage) {
    case sql::Damage::Fatal:
        return TABLE_CHECK_DEFECT;
    case sql::Damage::Repairable:
        return TABLE_CHECK_REPAIRABLE;
    default:
        return TABLE_CHECK_OK;
    }
}

} // namespace

eTABLE_CHECK CMyTable::CheckTable(UtCString* errorText)
{
    if (m_tableName.IsEmpty() || !m_database)
        return TABLE_CHECK_INVALID;
    return connection::Guarded(TABLE_CHECK_OK, [&] { return ResultOf(Check(*m_database, m_tableName, errorText)); });
}
