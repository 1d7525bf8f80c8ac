#include "admin/DatabaseCopy.h"

#include "CMyDatabase.h"
#include "CMyRecordSet.h"
#include "admin/RowText.h"
#include "connection/Guarded.h"
#include "connection/UserInterface.h"
#include "files/RemoveFile.h"
#include "files/UtFile.h"
#include "framework/CTime.h"
#include "sql/CopyText.h"
#include "sql/StatementBuilder.h"

#include <utility>

namespace admin {
namespace {

UtCString StampOfNow()
{
    const CTime now = CTime::GetCurrentTime();
    return sql::DumpFileStamp(now.GetHour(), now.GetMinute(), now.GetSecond());
}

bool Execute(CMyDatabase& database, const UtCString& statement)
{
    return database.ExecuteQuery(statement, false, nullptr, false) != -1;
}

template <class Step> bool ForEach(const UtCStringList& names, Step&& step)
{
    for (int i = 0; i < names.GetCount(); ++i)
        if (!step(names.item(i)))
            return false;
    return true;
}

} // namespace

DatabaseCopy::DatabaseCopy(CMyDatabase& source, CMyDatabase& target, UtCString tables, UtCStringList names)
    : m_source(source), m_target(target), m_tables(std::move(tables)), m_names(std::move(names)),
      m_folder(sql::Whole(UtGetTempDir())), m_stamp(StampOfNow())
{
}

bool DatabaseCopy::Run()
{
    if (!m_target.Open(false, UtCString()) && !m_target.IsConnected())
        return false;
    return LockTables() && DumpTables() && UnlockTables() && CreateDatabase() &&
           ForEach(m_names, [this](const UtCString& name) { return CopyOne(name); }) && CopyDirectory();
}

bool DatabaseCopy::LockTables()
{
    return Execute(m_source, sql::FlushForCopy(m_tables)) && Execute(m_source, sql::LockForReading(m_tables));
}

bool DatabaseCopy::DumpTables()
{
    // KEPT K-158: a connection that is lost between two dumps is silently replaced, and its locks are gone.
    return ForEach(m_names, [this](const UtCString& name) { return DumpOne(name); });
}

bool DatabaseCopy::DumpOne(const UtCString& name)
{
    const UtCString file = FileNameOf(name);
    files::RemoveFile(file);
    const bool isWritten =
        m_source.DumpTable(file, name, false, UtCString(), ",", "\"", "\r\n", nullptr) >= 0 && m_files.Add(file);
    if (!isWritten)
        files::RemoveFile(file);
    return isWritten;
}

bool DatabaseCopy::UnlockTables()
{
    return Execute(m_source, "UNLOCK TABLES;");
}

bool DatabaseCopy::CreateDatabase()
{
    return Execute(m_target, sql::CreateDatabase(m_target.GetDatabaseName())) && m_target.Open(false, UtCString());
}

bool DatabaseCopy::CopyOne(const UtCString& name)
{
    return CreateTable(name) && LoadTable(name); // KEPT K-155: a view is created and loaded as a table.
}

bool DatabaseCopy::CreateTable(const UtCString& name)
{
    CMyRecordSet rows(m_source, UtCString());
    const UtCString statement = sql::ShowCreateTable(m_source.GetDatabaseName(), name);
    if (rows.Select(sql::Whole(statement), false, true) < 1)
        return false;
    return Execute(m_target, sql::CreateTableIn(m_target.GetDatabaseName(), RowText(rows, 1UL)));
}

bool DatabaseCopy::LoadTable(const UtCString& name)
{
    const UtCString file = FileNameOf(name);
    Execute(m_target, "SET NAMES utf8");
    // KEPT K-153: SET NAMES does not act on the file, which is read in the character set of the target database.
    // KEPT K-154: a 0 in an AUTO_INCREMENT column gets a new number.
    const bool isLoaded = Execute(m_target, sql::LoadDumpFile(file, m_target.GetDatabaseName(), name));
    Execute(m_target, "SET NAMES DEFAULT"); // KEPT K-159: the tables that follow are created in that character set.
    if (isLoaded)
        files::RemoveFile(file);
    return isLoaded;
}

bool DatabaseCopy::CopyDirectory()
{
    if (!m_source.IsOpen() || !m_target.IsOpen()) // the path would be the name alone, in the working directory
        return false;
    return UtCopyDirectory(sql::Whole(m_source.GetDBPath()), sql::Whole(m_target.GetDBPath())) == 0;
}

UtCString DatabaseCopy::FileNameOf(const UtCString& name)
{
    m_lastFile = sql::DumpFileName(m_folder, name, m_stamp);
    return m_lastFile;
}

void DatabaseCopy::Undo() noexcept
{
    connection::Guarded(false, [this] { return UnlockTables(); });
    // KEPT K-156: also a target that was there before, when its creation failed for that reason.
    connection::Guarded(false, [this] { return m_target.RemoveDatabase(); });
    connection::Guarded(false, [this] { return DeleteFiles(), true; });
}

void DatabaseCopy::DeleteFiles()
{
    const auto goesOn = [](int filesLeft) {
        return connection::UserInterface().ContinueCleanup(static_cast<unsigned long>(filesLeft));
    };
    const int count = m_files.GetCount();
    for (int i = 0; i < count; ++i) {
        files::RemoveFile(m_files.item(i));
        if (!goesOn(count - i - 1))
            return;
    }
    // KEPT K-151: from here on the list is as long as the host wants, and every name in it is the last one.
    while (count != 0) {
        files::RemoveFile(m_lastFile);
        if (!goesOn(0))
            return;
    }
}

} // namespace admin
