#include "CMyDatabase.h"
#include "CMyRecordSet.h"
#include "admin/RowText.h"
#include "connection/Guarded.h"
#include "sql/Maintenance.h"
#include "sql/StatementBuilder.h"

namespace {

bool Optimize(CMyDatabase& database, const UtCString& tables)
{
    CMyRecordSet report(database, UtCString());
    const UtCString statement = sql::OptimizeTables(tables, database.GetServer().GetEncodingType());
    if (report.Select(sql::Whole(statement), false, true) < 1)
        return true; // KEPT K-137: a statement that fails has no error row either.
    do {
        if (admin::RowText(report, "Msg_type").EqualNoCase("error"))
            return false;
    } while (report.MoveNext());
    return true;
}

} // namespace

bool CMyDatabase::CompressDatabase(bool optimize)
{
    return connection::Guarded(false, [&] {
        if (!IsOpen())
            return false;
        const UtCString tables = GetTables(UtCString());
        if (tables.IsEmpty())
            return false;
        return optimize ? Optimize(*this, tables) : RepairDatabase(false, false);
    });
}
