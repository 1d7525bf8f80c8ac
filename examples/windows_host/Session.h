// What the buttons do, without a window: one connection, its tables, their repair and their dump.
#pragma once

#include "MyDB.h"

#include <optional>
#include <vector>

struct TableState
{
    UtCString name;
    const wchar_t* engine;
    eTABLE_CHECK check;
    long rows;       ///< -1 for a damaged table, which nobody can count
    long long bytes; ///< rows and indexes
};

class Session
{
public:
    /// Connects anew. The library asks in a message box where it finds damage, and says why a server cannot be reached.
    /// False also when the person does not want a repair; the connection is open then.
    bool Connect(const CMyServer& server, const UtCString& databaseName);

    bool IsOpen() const { return m_database && m_database->IsOpen(); }
    std::vector<TableState> Tables();
    void Repair();

    /// The rows written, -1 for a failure.
    long Dump(const UtCString& tableName, const UtCString& fileName, CProgressCtrl& progress);

    UtCString ServerName() const; ///< "127.0.0.1:3306"
    UtCString Error();
    unsigned long Milliseconds() const { return m_database->GetQueryTime(); }

private:
    TableState StateOf(const UtCString& name);

    std::optional<CMyDatabase> m_database;
};
