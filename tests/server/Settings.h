#pragma once

#include "CMyServer.h"

#include "harness/RawConnection.h"

namespace server_test {

/// The settings with which an account logs in. The library's texts are of the encoding that `charset` stands for.
inline CMyServer SettingsOf(const harness::ServerAccess& access, const char* charset)
{
    CMyServer server;
    server.SetHost(access.host.c_str());
    server.SetPort(access.port);
    server.SetUser(access.user.c_str());
    server.SetPassword(access.password.c_str());
    server.SetCharset(charset);
    return server;
}

} // namespace server_test
