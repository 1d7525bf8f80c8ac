#include "CMyDatabase.h"
#include "connection/Guarded.h"
#include "files/PlainName.h"
#include "files/UtFile.h"
#include "metadata/FieldCache.h"
#include "sql/Maintenance.h"
#include "sql/StatementBuilder.h"

// Where a database lies, and removing it and its tables.

namespace {

/// Drops a database over a connection of its own, whose user is "vela_root" where it would be "root". False, and
/// nothing dropped, when the connection cannot be made; true also when the server refuses the statement.
bool Drop(const CMyServer& server, const UtCString& databaseName)
{
    CMyDatabase administration(server, UtCString());
    if (!administration.Open(false, UtCString()))
        return false;
    const UtCString statement = sql::DropDatabase(databaseName, server.GetEncodingType());
    administration.ExecuteQuery(sql::Whole(statement), false, nullptr, false);
    return administration.Close();
}

} // namespace

UtCString CMyDatabase::GetDBPath()
{
    if (!IsOpen())
        return m_databaseName;
    const UtCString& folder = m_server.GetDataDir();
    const bool isOneEncoding = folder.GetEncodingType() == m_databaseName.GetEncodingType();
    sql::StatementBuilder path(isOneEncoding ? folder.GetEncodingType() : UT_ENCODING_UTF8);
    // KEPT K-136: without a data directory the path is relative.
    return (path << folder << "DBS\\" << m_databaseName << "\\").Take();
}

bool CMyDatabase::ExistDatabase() const
{
    return IsOpen() && m_server.ExistDatabase(m_databaseName);
}

bool CMyDatabase::RemoveTable(const UtCString& tableName)
{
    return connection::Guarded(false, [&] {
        if (!IsOpen() || tableName.IsEmpty())
            return false;
        CFieldCache::Instance().Remove(tableName);
        const UtCString statement = sql::DropTable(m_databaseName, tableName, m_server.GetEncodingType());
        ExecuteQuery(sql::Whole(statement), false, nullptr, false);
        return ExistTable(tableName); // KEPT K-130: true says that the table is still there.
    });
}

bool CMyDatabase::RemoveDatabase()
{
    return connection::Guarded(false, [&] {
        const UtCString name = m_databaseName;
        if (!files::IsPlainName(name)) // nothing outside of the data directory may ever be reached
            return false;
        const bool isRemoved = connection::Guarded(false, [&] { return Remove(name); });
        if (IsConnected()) // what threw has left it open
            Close();
        return isRemoved;
    });
}

bool CMyDatabase::Remove(const UtCString& name)
{
    Close();
    Open(false, UtCString());
    if (!IsOpen()) // a derived class may say that it is, and the path would then be another one
        return false;
    const UtCString path = sql::Whole(GetDBPath());
    // KEPT K-134: asked of the server that the settings file in the root names.
    const bool isKnown = m_server.ExistDatabase(name);
    if (isKnown)
        CloseTableFiles();
    Close();
    if (isKnown && !Drop(m_server, name))
        return false;
    // KEPT K-135: whatever became of the statement.
    // KEPT K-139: whatever letter case the folder has.
    return UtDeleteDirectory(path) == 0;
}

void CMyDatabase::CloseTableFiles()
{
    const UtCString tables = GetTables(UtCString());
    if (!tables.IsEmpty())
        ExecuteQuery(sql::Whole(sql::FlushTables(tables, m_server.GetEncodingType())), false, nullptr, false);
}
