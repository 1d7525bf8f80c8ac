#include "CMyDatabase.h"
#include "CMyServer.h"
#include "MyDbFunctions.h"
#include "connection/Guarded.h"
#include "connection/ProcessState.h"

#include <utility>

namespace {

/// Gives the connects within its life a count of their own.
class OwnConnectCount
{
public:
    OwnConnectCount() noexcept : m_saved(std::exchange(connection::ProcessConnectLimit().failedConnects, 0)) {}
    OwnConnectCount(const OwnConnectCount&) = delete;
    OwnConnectCount& operator=(const OwnConnectCount&) = delete;
    ~OwnConnectCount() { connection::ProcessConnectLimit().failedConnects = m_saved; }

private:
    uint32_t m_saved;
};

} // namespace

bool CMyServer::TestConnect(bool interactive, unsigned long* errorCode, UtCString* errorMessage)
{
    return connection::Guarded(false, [&] {
        if (!IsValid())
            return false;
        CMyDatabase database(*this, UtCString());
        const bool isOpened = database.Open(interactive, UtCString());
        if (errorCode)
            *errorCode = database.GetErrorCode();
        if (errorMessage)
            *errorMessage = database.GetErrorMessage();
        return isOpened || database.IsConnected();
    });
}

bool TestConnection(const UtCString& iniFile, int mode)
{
    return connection::Guarded(false, [&] {
        CMyServer server(iniFile);
        const OwnConnectCount ownCount;
        unsigned long errorCode = 0;
        UtCString errorMessage;
        return server.TestConnect(mode == 1, &errorCode, &errorMessage);
    });
}
