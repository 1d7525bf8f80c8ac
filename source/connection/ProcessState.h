#pragma once

#include "CMyServer.h"

#include <cstdint>

namespace connection {

/// The limit on failed connects, shared by all connections of the process and not locked.
struct ConnectLimit
{
    uint32_t failedConnects = 0;    ///< goes up with each failed connect and never down
    uint32_t maximum = 4294967295u; ///< no connect is tried once the count has reached it

    bool IsReached() const noexcept { return failedConnects >= maximum; }
};

ConnectLimit& ProcessConnectLimit() noexcept;

/// The default settings of the process: never changed, so their user is the account that stands in for "root".
const CMyServer& DefaultServer();

} // namespace connection
