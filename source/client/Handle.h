#pragma once

#include <mysql.h>

#include <memory>

namespace client {

struct CloseHandle
{
    void operator()(MYSQL* handle) const noexcept { mysql_close(handle); }
};

/// The owner of a client handle: closes it, and with it the connection, when it goes.
using Handle = std::unique_ptr<MYSQL, CloseHandle>;

/// A fresh handle with automatic reconnect switched on, which reads local files as client/LocalFiles.h says, and
/// nothing else changed: no character set, no time-out, no option file. Null when the client has no memory for it.
Handle NewHandle() noexcept;

} // namespace client
