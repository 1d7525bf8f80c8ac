#include "CMyDatabase.h"

#include "MyDbUserInterface.h"
#include "client/ErrorText.h"
#include "client/Handle.h"
#include "connection/Guarded.h"
#include "connection/ProcessState.h"
#include "connection/TableCacheHook.h"
#include "connection/UserInterface.h"
#include "text/UtCStringList.h"

#include <cstdint>
#include <cstdio>

namespace {

/// Whether the client would read a text as empty that is not. It takes the login name of the process for an empty user
/// and this machine for an empty host.
bool BeginsWithZero(const UtCString& text) noexcept
{
    return !text.IsEmpty() && text.string()[0] == '\0';
}

} // namespace

bool CMyDatabase::Open(bool interactive, const UtCString& databaseName)
{
    try {
        return EnsureOpen(interactive, databaseName);
    } catch (...) {
        DropHandle();
        return false;
    }
}

bool CMyDatabase::EnsureOpen(bool interactive, const UtCString& databaseName)
{
    if (!m_server.IsValid())
        return false;
    if (!databaseName.IsEmpty() && databaseName != m_databaseName) {
        Close();
        m_databaseName = databaseName;
        if (m_databaseName.IsEmpty()) // no memory; a connection without database is not what was asked for
            return false;
    }
    // KEPT K-05: a live connection without database does not count as open, although the first Open of it did.
    if (Ping())
        return !m_databaseName.IsEmpty();
    return OpenAnew(interactive);
}

bool CMyDatabase::OpenAnew(bool interactive)
{
    Close();
    DropHandle(); // a derived class may have replaced Close
    if (BeginsWithZero(m_server.GetHost()) || BeginsWithZero(m_server.GetUser()) || BeginsWithZero(m_databaseName))
        return false;
    // KEPT K-06: no character set is requested, whatever the settings say.
    m_handle = client::NewHandle().release();
    if (!m_handle)
        return false;
    if (!Connect()) {
        FailOpen(interactive);
        return false;
    }
    return FinishOpen(interactive);
}

bool CMyDatabase::Connect()
{
    connection::ConnectLimit& limit = connection::ProcessConnectLimit();
    if (limit.IsReached())
        return false;
    const UtCString user = m_server.GetUser().toLower();
    if (user.IsEmpty()) // no memory; it would be somebody else
        return false;
    if (mysql_real_connect(m_handle, m_server.GetHost().string(), user.string(), m_server.GetPassword().string(),
                           m_databaseName.string(), static_cast<unsigned int>(m_server.GetPort()), nullptr, 0))
        return true;
    ++limit.failedConnects;
    char trace[64]; // for whoever stops here with a debugger
    std::snprintf(trace, sizeof trace, "CMyDatabase::Open failed: # %d\n", static_cast<int>(limit.failedConnects));
    return false;
}

bool CMyDatabase::FinishOpen(bool interactive)
{
    m_threadId = static_cast<uint32_t>(mysql_thread_id(m_handle));
    if (m_databaseName.IsEmpty())
        return true;
    if (interactive && !CheckAndRepairDatabaseIntegrity(true))
        return false;
    connection::AlignTableCache(*this);
    // The statement that lists the tables may have lost the connection for good.
    return m_handle != nullptr;
}

void CMyDatabase::FailOpen(bool interactive)
{
    // KEPT K-16: no attempt means no error of the client: code 0 and "Kein Fehler!" when the limit has been reached.
    m_errorCode = client::ErrorNumber(m_handle);
    m_errorMessage = client::ErrorText(m_handle);
    if (interactive) {
        UtCString text;
        text.FormatStringList("Database Connect Error\n\n%s", {m_errorMessage}, UT_ENCODING_UTF8);
        connection::UserInterface().ShowMessage(text, MYDB_MESSAGE_ERROR);
    }
    Close();
    DropHandle();
}
