#include "metadata/TableLoad.h"

#include "client/ErrorText.h"
#include "client/Result.h"
#include "connection/DatabaseAccess.h"
#include "metadata/FieldTypes.h"
#include "sql/TableStatus.h"
#include "text/UtCStringList.h"
#include "text/UtCUtf8.h"

#include <cstring>
#include <string_view>

namespace metadata {
namespace {

using connection::DatabaseAccess;

// The client writes the name into 128 bytes and sends as many as it wanted to write, whatever lies behind them.
constexpr size_t longestListedName = 126;
constexpr unsigned long incorrectTableName = 1103;
constexpr size_t longestQuotedName = 100; // the server cuts the name in its text there, at a whole letter

const char* BytesToSend(const UtCString& text) noexcept
{
    return text.GetEncodingType() == UT_ENCODING_UTF8 ? UtCUtf8::SkipBOM(text.string()) : text.string();
}

UtCString QuotedName(const UtCString& key)
{
    UtCString name(key.substr(0, longestQuotedName), UT_ENCODING_UTF8);
    while (name.GetByteLength() > longestQuotedName)
        name.Delete(name.GetLength() - 1);
    return name;
}

void RefuseName(CMyDatabase& database, const UtCString& key)
{
    UtCString message(UT_ENCODING_UTF8);
    message.FormatStringList("1103: Incorrect table name '%s'", {QuotedName(key)}, UT_ENCODING_UTF8);
    DatabaseAccess::SetLastError(database, incorrectTableName, message);
}

client::Result ListFields(CMyDatabase& database, const char* table)
{
    MYSQL* handle = DatabaseAccess::Handle(database);
    if (!handle)
        return nullptr;
    client::Result listing(mysql_list_fields(handle, table, nullptr));
    if (!listing)
        DatabaseAccess::SetLastError(database, client::ErrorNumber(handle), client::ErrorText(handle));
    return listing;
}

client::Result ListFieldsOrReconnect(CMyDatabase& database, const char* table)
{
    client::Result listing = ListFields(database, table);
    if (listing || !client::IsConnectionLost(database.GetErrorCode()) || !database.Open(false, UtCString()))
        return listing;
    return ListFields(database, table);
}

bool AppendFields(CTableCache& entry, const MYSQL_FIELD* fields, unsigned count)
{
    for (unsigned i = 0; i < count; ++i)
        if (!entry.AppendField(DescribeField(fields[i])))
            return false;
    return true;
}

/// Whether memory sufficed for the names: a text that finds none comes out empty.
bool HasAllNames(const CTableCache& entry, const UtCString& key, const MYSQL_FIELD* fields, unsigned count)
{
    unsigned long position = 0;
    for (unsigned i = 0; i < count; ++i) {
        const UtCString name = NameInTable(fields[i]);
        if (!name.IsEmpty() && !entry.FindField(name, position))
            return false;
    }
    return entry.GetName() == key;
}

/// The position of the column with this name, whatever its letter case; `count` when there is none.
unsigned ColumnNamed(const char* name, const MYSQL_FIELD* fields, unsigned count)
{
    unsigned column = 0;
    while (column < count && !UtCString(fields[column].name).EqualNoCase(name))
        ++column;
    return column;
}

unsigned EngineColumn(const MYSQL_FIELD* fields, unsigned count)
{
    const unsigned column = ColumnNamed("Engine", fields, count);
    return column < count ? column : ColumnNamed("Type", fields, count);
}

UtCString EngineOfFirstRow(MYSQL_RES* status)
{
    const unsigned count = mysql_num_fields(status);
    const unsigned column = EngineColumn(mysql_fetch_fields(status), count);
    MYSQL_ROW row = column < count ? mysql_fetch_row(status) : nullptr;
    if (!row || !row[column])
        return UtCString();
    return UtCString(std::string_view(row[column], mysql_fetch_lengths(status)[column]), UT_ENCODING_DEFAULT);
}

} // namespace

std::shared_ptr<CTableCache> LoadColumns(CMyDatabase& database, const UtCString& key)
{
    const char* table = BytesToSend(key);
    if (std::strlen(table) > longestListedName) {
        RefuseName(database, key);
        return nullptr;
    }
    const client::Result listing = ListFieldsOrReconnect(database, table);
    if (!listing)
        return nullptr;
    const unsigned count = mysql_num_fields(listing.get());
    if (count == 0)
        return nullptr;
    const MYSQL_FIELD* fields = mysql_fetch_fields(listing.get());
    auto entry = std::make_shared<CTableCache>(key);
    const bool isComplete = AppendFields(*entry, fields, count) && HasAllNames(*entry, key, fields, count);
    return isComplete ? entry : nullptr;
}

void LoadEngine(CMyDatabase& database, CTableCache& entry)
{
    MYSQL_RES* rows = nullptr;
    const UtCString statement = sql::ShowTableStatus(database.GetDatabaseName(), entry.GetName());
    const bool failed = database.ExecuteQuery(statement, false, &rows, false) < 0;
    const client::Result status(rows);
    if (!failed && status)
        entry.SetEngine(EngineOfFirstRow(status.get()));
}

} // namespace metadata
