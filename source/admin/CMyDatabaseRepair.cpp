#include "CMyDatabase.h"
#include "admin/CheckReport.h"
#include "admin/RowText.h"
#include "connection/Guarded.h"

namespace {

/// What a check leaves of a table list to be repaired.
UtCString CheckedTables(CMyDatabase& database, const UtCString& tables)
{
    UtCString list(tables.GetEncodingType());
    const UtCString statement = sql::CheckTables(tables, database.GetServer().GetEncodingType());
    admin::CheckReport(database, sql::Whole(statement)).ForEachRow([&](const sql::CheckRow& row) {
        sql::AddCheckedTable(row, list);
    });
    return list.trimRight(", ");
}

/// Repairs; false at the first row that says that a table is not sound.
bool Repair(CMyDatabase& database, const UtCString& tables, sql::RepairOption option)
{
    const UtCString statement = sql::RepairTables(tables, option, database.GetServer().GetEncodingType());
    CMyRecordSet report(database, UtCString());
    if (report.Select(sql::Whole(statement), true, true) < 1)
        return true;
    do {
        if (sql::IsFailedRepair(admin::RowText(report, "Msg_type"), admin::RowText(report, "Msg_text")))
            return false;
    } while (report.MoveNext());
    return true;
}

} // namespace

bool CMyDatabase::RepairDatabase(bool useFrm, bool checkFirst)
{
    return connection::Guarded(false, [&] {
        if (!IsOpen())
            return false;
        UtCString tables = GetTables(UtCString());
        if (checkFirst) {
            tables = CheckedTables(*this, tables);
            if (tables.IsEmpty())
                return true;
        } else if (tables.IsEmpty()) {
            return false;
        }
        const sql::RepairOption option = useFrm ? sql::RepairOption::UseFrm : sql::RepairOption::Extended;
        const bool isRepaired = Repair(*this, tables, option);
        if (!isRepaired && !useFrm) // KEPT K-142: all tables because of one.
            return RepairDatabase(true, checkFirst);
        return CheckDatabaseIntegrity(UtCString(), nullptr) == DB_CHECK_OK;
    });
}
