#pragma once

#include "text/UtCStringList.h"

class CMyDatabase;

namespace admin {

/// One run of CMyDatabase::CopyDatabase, once it is clear that there is something to copy and that the target is free.
class DatabaseCopy
{
public:
    /// `tables` is the table list text of the source and `names` what it lists.
    /// Throws std::bad_alloc.
    DatabaseCopy(CMyDatabase& source, CMyDatabase& target, UtCString tables, UtCStringList names);

    /// Copies all tables, then the directory. False when something failed; what there is of the copy is left.
    bool Run();

    /// Ends the locks, removes the target and deletes the files, as long as the host wants.
    void Undo() noexcept;

private:
    bool LockTables();
    bool DumpTables();
    bool DumpOne(const UtCString& name);
    bool UnlockTables();
    bool CreateDatabase();
    bool CopyOne(const UtCString& name);
    bool CreateTable(const UtCString& name);
    bool LoadTable(const UtCString& name);
    bool CopyDirectory();
    UtCString FileNameOf(const UtCString& name);
    void DeleteFiles();

    CMyDatabase& m_source;
    CMyDatabase& m_target;
    UtCString m_tables;
    UtCStringList m_names;
    UtCString m_folder;
    UtCString m_stamp;
    UtCStringList m_files; ///< the dump files that were written
    UtCString m_lastFile;  ///< the dump file named last
};

} // namespace admin
