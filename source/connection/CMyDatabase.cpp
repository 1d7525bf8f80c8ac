#include "CMyDatabase.h"

#include "client/ErrorText.h"
#include "connection/Guarded.h"
#include "connection/ProcessState.h"

#include <utility>

IMPLEMENT_DYNAMIC(CMyDatabase, CObject)

CMyDatabase::CMyDatabase(const CMyServer& server, const UtCString& databaseName)
    : m_handle(nullptr), m_threadId(0), m_server(server), m_databaseName(databaseName), m_errorCode(0),
      m_lastSQLCommand(server.GetEncodingType()), m_queryTime(0), m_affectedRows(0), m_isReopening(false)
{
    // KEPT K-03: only this spelling and only here; "Root" and a user set later are sent as "root".
    if (m_server.GetUser() == "root")
        m_server.SetUser(connection::DefaultServer().GetUser());
}

CMyDatabase::~CMyDatabase()
{
    DropHandle();
}

bool CMyDatabase::Close()
{
    DropHandle();
    return true;
}

void CMyDatabase::DropHandle() noexcept
{
    m_threadId = 0;
    if (MYSQL* handle = std::exchange(m_handle, nullptr))
        mysql_close(handle);
}

bool CMyDatabase::Ping()
{
    // KEPT K-04: the client may have replaced a dropped connection by a new session to answer this.
    return m_handle && mysql_ping(m_handle) == 0;
}

bool CMyDatabase::IsConnected() const
{
    return m_handle != nullptr;
}

bool CMyDatabase::IsOpen() const
{
    return m_handle && !m_databaseName.IsEmpty();
}

unsigned long CMyDatabase::GetThreadID() const
{
    return m_threadId;
}

CMyServer& CMyDatabase::GetServer()
{
    return m_server;
}

const CMyServer& CMyDatabase::GetServer() const
{
    return m_server;
}

const UtCString& CMyDatabase::GetDatabaseName() const
{
    return m_databaseName;
}

bool CMyDatabase::IsDatabaseInUse()
{
    return CountUsersOnThisDatabase(true) > 0;
}

unsigned long CMyDatabase::GetErrorCode() const
{
    return m_errorCode;
}

UtCString CMyDatabase::GetErrorMessage()
{
    return connection::Guarded(UtCString(),
                               [&] { return m_errorMessage.IsEmpty() ? client::ErrorText(m_handle) : m_errorMessage; });
}

const UtCString& CMyDatabase::GetLastSQLCommand() const
{
    return m_lastSQLCommand;
}

unsigned long CMyDatabase::GetQueryTime() const
{
    return m_queryTime;
}

long CMyDatabase::GetAffectedRows() const
{
    return m_affectedRows;
}
