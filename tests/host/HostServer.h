#pragma once

#include "CMyServer.h"

#include <cstdlib>
#include <string>

/// The settings of MYDB_SERVER=host:port, MYDB_USER and MYDB_PASSWORD, for programs that see the library as a host
/// does.
inline CMyServer HostServer()
{
    const auto setting = [](const char* name) {
        const char* const value = std::getenv(name);
        return std::string(value ? value : "");
    };
    const std::string place = setting("MYDB_SERVER");
    const size_t colon = place.find(':');
    CMyServer server;
    server.SetHost(UtCString(place.substr(0, colon).c_str()));
    server.SetPort(std::strtoul(place.c_str() + colon + 1, nullptr, 10));
    server.SetUser(UtCString(setting("MYDB_USER").c_str()));
    server.SetPassword(UtCString(setting("MYDB_PASSWORD").c_str()));
    return server;
}
