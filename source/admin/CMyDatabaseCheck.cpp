#include "CMyDatabase.h"
#include "admin/CheckReport.h"
#include "admin/RowText.h"
#include "connection/Guarded.h"

// Looking for damage in all tables.

namespace {

/// Adds all tables of the current database; false when there are none to be had.
bool AddTables(CMyDatabase& database, sql::DatabaseCheck& check)
{
    CMyRecordSet tables(database, UtCString());
    // KEPT K-146: whatever the name of the database to be checked.
    if (tables.Select("SHOW TABLES", true, true) < 1)
        return false;
    do {
        check.Add(admin::RowText(tables, 0UL));
    } while (tables.MoveNext());
    return true;
}

sql::Damage Check(CMyDatabase& database, const UtCString& name, UtCString* errorText)
{
    sql::DatabaseCheck check(name, database.GetServer().GetEncodingType());
    if (!AddTables(database, check))
        return sql::Damage::None;
    return admin::CheckReport(database, sql::Whole(check.Take())).WorstDamage([&](const sql::CheckRow& row) {
        if (errorText)
            sql::AppendDatabaseError(row, check.Filler(), *errorText);
    });
}

eDB_CHECK ResultOf(sql::Damage damage) noexcept
{
    switch (damage) {
    case sql::Damage::Fatal:
        return DB_CHECK_DEFECT;
    case sql::Damage::Repairable:
        return DB_CHECK_REPAIRABLE;
    default:
        return DB_CHECK_OK;
    }
}

} // namespace

eDB_CHECK CMyDatabase::CheckDatabaseIntegrity(const UtCString& databaseName, UtCString* errorText)
{
    return connection::Guarded(DB_CHECK_OK, [&] {
        const UtCString name = databaseName.IsEmpty() ? m_databaseName : databaseName; // it may be the text given
        if (errorText)
            errorText->SetEmpty();
        return name.IsEmpty() ? DB_CHECK_OK : ResultOf(Check(*this, name, errorText));
    });
}
