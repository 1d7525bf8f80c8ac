#pragma once

#include "CMyServer.h"

namespace fuzz {

/// Settings with which the scripted client connects.
inline CMyServer Server(const char* charset)
{
    CMyServer server;
    server.SetHost("127.0.0.1");
    server.SetPort(3306);
    server.SetUser("tester");
    server.SetCharset(charset);
    return server;
}

} // namespace fuzz
