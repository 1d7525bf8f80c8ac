#include "CMyDatabase.h"
#include "CMyRecordSet.h"
#include "CMyTable.h"
#include "admin/RowText.h"
#include "connection/Guarded.h"
#include "sql/TableList.h"

#include <limits>
#include <utility>

// What a database holds. The rows walked here are all in memory: a result that breaks off never gets that far, it is a
// statement that has failed.

namespace {

UtCString ListText(CMyDatabase& database, const UtCString& pattern)
{
    const eUtEncodingType encoding = database.GetServer().GetEncodingType();
    CMyRecordSet tables(database, UtCString());
    if (tables.Select(sql::Whole(sql::ShowTables(pattern, encoding)), true, true) < 1)
        return UtCString();
    sql::TableListText list(encoding);
    do {
        list.Add(admin::RowText(tables, 0UL));
    } while (tables.MoveNext());
    return sql::Whole(list.Take());
}

/// Two sizes together; where that is no number of 64 bits, the one next to it.
__int64 Sum(__int64 left, __int64 right)
{
    constexpr __int64 largest = std::numeric_limits<__int64>::max();
    constexpr __int64 smallest = std::numeric_limits<__int64>::min();
    if (right > 0)
        return left > largest - right ? largest : left + right;
    return left < smallest - right ? smallest : left + right;
}

__int64 SizeOfTables(CMyDatabase& database)
{
    CMyRecordSet status(database, UtCString());
    if (status.Select("SHOW TABLE STATUS", false, true) < 1)
        return -1; // KEPT K-132: also when there is no table.
    __int64 size = 0;
    do {
        size = Sum(size, Sum(status.GetFieldInt64("Data_length"), status.GetFieldInt64("Index_length")));
    } while (status.MoveNext());
    return size;
}

} // namespace

UtCString CMyDatabase::GetTables(const UtCString& pattern)
{
    return connection::Guarded(UtCString(), [&] { return IsOpen() ? ListText(*this, pattern) : UtCString(); });
}

long CMyDatabase::GetTables(UtCStringList& list, const UtCString&)
{
    list.Clear();
    return connection::Guarded(0L, [&] {
        if (!IsOpen())
            return 0L;
        UtCStringList names;
        sql::SplitTableList(ListText(*this, UtCString()), names); // KEPT K-131: all tables, whatever the pattern says.
        list = std::move(names);
        return static_cast<long>(list.GetCount());
    });
}

long CMyDatabase::GetTableCount()
{
    return connection::Guarded(
        -1L, [&] { return IsOpen() ? CMyRecordSet(*this, UtCString()).Select("SHOW TABLES", true, true) : 0L; });
}

CMyTable CMyDatabase::GetTable(const UtCString& tableName)
{
    return CMyTable(this, tableName);
}

__int64 CMyDatabase::GetDBSize()
{
    constexpr __int64 failed = -1;
    return connection::Guarded(failed, [&] { return IsOpen() ? SizeOfTables(*this) : failed; });
}
