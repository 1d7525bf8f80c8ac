#include "CMyDatabase.h"

#include "admin/DatabaseCopy.h"
#include "connection/Guarded.h"
#include "connection/UserInterface.h"
#include "files/PlainName.h"
#include "sql/CopyText.h"
#include "sql/TableList.h"

#include <utility>

namespace {

/// Shows for as long as it lives that something takes its time.
class Waiting
{
public:
    Waiting() { connection::UserInterface().BeginWait(); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;
    ~Waiting()
    {
        connection::Guarded(false, [] { return connection::UserInterface().EndWait(), true; });
    }
};

bool IsSameDatabase(const CMyDatabase& source, const CMyDatabase& target)
{
    return source.GetServer() == target.GetServer() && source.GetDatabaseName().EqualNoCase(target.GetDatabaseName());
}

/// Whether a table can give its name to a file of the folder for temporary files.
bool CanNameAFile(const UtCString& table)
{
    return table != "." && table != ".." && files::IsPlainName(sql::DumpFileName("", table, "tmp"));
}

bool CanNameFiles(const UtCStringList& tables)
{
    for (int i = 0; i < tables.GetCount(); ++i)
        if (!CanNameAFile(tables.item(i)))
            return false;
    return tables.GetCount() > 0;
}

} // namespace

bool CMyDatabase::CopyDatabase(CMyDatabase& target, CWnd*)
{
    return connection::Guarded(false, [&] {
        if (!Open(false, UtCString()) && !m_handle)
            return false;
        // KEPT K-152: open, in a database that must not be there.
        if (!target.IsOpen() || !files::IsPlainName(m_databaseName) || !files::IsPlainName(target.m_databaseName))
            return false;
        if (IsSameDatabase(*this, target) || target.m_server.ExistDatabase(target.m_databaseName))
            return false;
        UtCString tables = GetTables(UtCString());
        UtCStringList names;
        sql::SplitTableList(tables, names);
        if (!CanNameFiles(names))
            return false;
        const Waiting waiting;
        admin::DatabaseCopy copy(*this, target, std::move(tables), std::move(names));
        const bool isCopied = connection::Guarded(false, [&] { return copy.Run(); });
        if (!isCopied)
            copy.Undo();
        return isCopied;
    });
}
