#include "CMyDatabase.h"
#include "CMyRecordSet.h"

#include "admin/StatusReport.h"
#include "connection/DatabaseAccess.h"
#include "connection/Guarded.h"
#include "sql/ShowVariables.h"
#include "text/TextBuilder.h"

#include <optional>

using connection::DatabaseAccess;
using connection::Guarded;

namespace {

constexpr const char* noName = "Keine Variable angegeben!";

/// The column "Value" of the first row; nothing when there is no row.
std::optional<UtCString> ReadValue(CMyDatabase& database, const UtCString& statement)
{
    if (statement.IsEmpty()) // no memory; a record set would take it for the whole table
        return std::nullopt;
    CMyRecordSet variables(database, UtCString());
    if (variables.Select(statement, false, true) < 1)
        return std::nullopt;
    UtCString value(statement.GetEncodingType());
    variables.GetFieldText("Value", value);
    return value;
}

UtCString UnknownVariable(const UtCString& name)
{
    text::TextBuilder message(name.GetEncodingType());
    message.Append("Variable '", UT_ENCODING_DEFAULT);
    message.AppendText(name);
    message.Append("' unbekannt!", UT_ENCODING_DEFAULT);
    return message.Take();
}

UtCString HostInfo(MYSQL* handle)
{
    const char* host = mysql_get_host_info(handle);
    const std::string compression = handle->net.compress ? ", compressed" : ", NOT compressed";
    return UtCString((host ? host : "") + compression, UT_ENCODING_DEFAULT);
}

int64_t Sum(CMyDatabase& database, std::span<const char* const> variables)
{
    uint64_t sum = 0;
    for (const char* const name : variables)
        sum += static_cast<uint64_t>(database.GetVariableValueInt64(name));
    return static_cast<int64_t>(sum);
}

admin::MemoryEstimate EstimateMemory(CMyDatabase& database, const UtCString& version)
{
    const admin::MemoryVariables variables = admin::MemoryVariablesOf(version);
    const int64_t globalBytes = Sum(database, variables.global);
    const int64_t bytesPerConnection = Sum(database, variables.perConnection);
    return {globalBytes, bytesPerConnection, database.GetVariableValueInt64(variables.connections)};
}

/// No memory, other than for a server that does not tell its version.
bool IsVersionMissing(const CMyDatabase& database, const UtCString& version)
{
    const char* const told = mysql_get_server_info(DatabaseAccess::Handle(database));
    return version.IsEmpty() && told && *told;
}

UtCString Report(CMyDatabase& database)
{
    const UtCString line(mysql_stat(DatabaseAccess::Handle(database)), UT_ENCODING_UTF8);
    if (!line.Contains("Uptime"))
        return line;
    const std::string status = admin::FormatStatusLine(line.View());
    const UtCString version = database.GetInfo(DB_INFO_VERSION);
    if (IsVersionMissing(database, version)) // the wrong variables would be asked for
        return UtCString();
    const admin::MemoryEstimate memory = EstimateMemory(database, version);
    const CMyServer& server = database.GetServer();
    return admin::ReportText({server.GetHost(), version, server.GetDataDir(), memory, status});
}

} // namespace

UtCString CMyDatabase::GetStatusValue(const UtCString& name)
{
    return Guarded(UtCString(), [&] {
        if (name.IsEmpty())
            return UtCString(noName);
        const UtCString unknown = UnknownVariable(name); // `name` may be the last SQL command
        return ReadValue(*this, sql::ShowStatusLike(name, m_server.GetEncodingType())).value_or(unknown);
    });
}

UtCString CMyDatabase::GetVariableValue(const UtCString& name)
{
    return Guarded(UtCString(), [&] {
        if (name.IsEmpty())
            return UtCString(noName);
        // KEPT K-121: nothing and not the text that GetStatusValue gives, so that it converts to no number.
        return ReadValue(*this, sql::ShowVariablesLike(name, m_server.GetEncodingType())).value_or(UtCString());
    });
}

__int64 CMyDatabase::GetVariableValueInt64(const UtCString& name)
{
    __int64 number = 0;
    return GetVariableValue(name).Convert(number) ? number : 0; // KEPT K-124: what does not fit counts as 0, too.
}

UtCString CMyDatabase::GetInfo(DB_INFOS what)
{
    return Guarded(UtCString(), [&] {
        if (!m_handle)
            return UtCString("Not connected");
        switch (what) {
        case DB_INFO_REPORT:
            return Report(*this);
        case DB_INFO_SERVER_VERSION:
        case DB_INFO_VERSION:
            return UtCString(mysql_get_server_info(m_handle));
        case DB_INFO_CLIENT_VERSION:
            return UtCString(mysql_get_client_info());
        case DB_INFO_HOST:
            return HostInfo(m_handle);
        default:
            return UtCString();
        }
    });
}
