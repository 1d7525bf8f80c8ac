#pragma once

#include "CMyServer.h"
#include "MyDbExport.h"
#include "framework/CObject.h"
#include "text/UtCString.h"

#include <mysql.h>

class MYDB_EXPORT CMyDatabase : public CObject
{
    DECLARE_DYNAMIC(CMyDatabase)
public:
    CMyDatabase(const CMyServer& server, const UtCString& databaseName);
    CMyDatabase(const CMyDatabase&) = delete;
    CMyDatabase& operator=(const CMyDatabase&) = delete;
    ~CMyDatabase() override;

    virtual bool Close();
    virtual bool Open(bool interactive, const UtCString& databaseName);
    virtual bool CheckAndRepairDatabaseIntegrity(bool askUser);

    bool Ping();
    bool IsConnected() const;
    bool IsOpen() const;
    unsigned long GetThreadID() const;
    CMyServer& GetServer();
    const CMyServer& GetServer() const;
    const UtCString& GetDatabaseName() const;
    bool ExistDatabase() const;
    bool IsDatabaseInUse();
    long CountUsersOnThisDatabase(bool ignoreOwnUser);
    bool ExistTable(const UtCString& tableName);

    long ExecuteQuery(const UtCString& sql, bool showError, MYSQL_RES** result, bool useResult);
    bool IsSelectQuery(const UtCString& sql) const;
    void MakeEscapeString(const UtCString& in, UtCString& out);
    void MakeEscapeString(const void* data, unsigned __int64 size, UtCString& out);
    unsigned long GetErrorCode() const;
    UtCString GetErrorMessage();
    const UtCString& GetLastSQLCommand() const;
    unsigned long GetQueryTime() const;
    long GetAffectedRows() const;
    UtCString GetQueryInfo();

private:
    friend class CFieldCache;
    friend class CMyRecordSet;

    MYSQL* m_handle;
    unsigned long m_threadId;
    CMyServer m_server;
    UtCString m_databaseName;
    UtCString m_errorMessage;
    unsigned long m_errorCode;
    UtCString m_lastSQLCommand;
    unsigned long m_queryTime;
    long m_affectedRows;
};
