#include "MyDbFunctions.h"
#include "MyDbUserInterface.h"
#include "connection/ProcessState.h"
#include "connection/UserInterface.h"
#include "platform/MessageBox.h"
#include "platform/WaitCursor.h"

#include <algorithm>
#include <utility>

// What the process has one of: the limit on failed connects, the default settings, the user interface.

namespace connection {

namespace {

class PlatformUserInterface final : public MyDbUserInterface
{
public:
    int ShowMessage(const UtCString& text, unsigned int type) override
    {
        return platform::ShowMessageBox(UtCString(text, UT_ENCODING_UTF8).View(), type);
    }
    void BeginWait() override { platform::BeginWaitCursor(); }
    void EndWait() override { platform::EndWaitCursor(); }
};

MyDbUserInterface* hostUserInterface = nullptr;

} // namespace

ConnectLimit& ProcessConnectLimit() noexcept
{
    static ConnectLimit limit;
    return limit;
}

const CMyServer& DefaultServer()
{
    static const CMyServer server;
    return server;
}

MyDbUserInterface& UserInterface() noexcept
{
    static PlatformUserInterface platformUserInterface;
    return hostUserInterface ? *hostUserInterface : platformUserInterface;
}

} // namespace connection

bool MyDbUserInterface::ContinueCleanup(unsigned long)
{
    return true;
}

MyDbUserInterface* MyDbSetUserInterface(MyDbUserInterface* userInterface) noexcept
{
    return std::exchange(connection::hostUserInterface, userInterface);
}

int MyDbMaxTryConnectReached()
{
    return connection::ProcessConnectLimit().IsReached() ? 1 : 0;
}

void MyDbSetMaxTryConnect(unsigned long limit)
{
    constexpr unsigned long noLimit = 4294967295ul;
    connection::ProcessConnectLimit().maximum = static_cast<uint32_t>(std::min(limit, noLimit));
}
