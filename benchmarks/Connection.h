#pragma once

#include "CMyServer.h"

#include <mysql.h>

#include <cstdlib>
#include <stdexcept>
#include <string>

#include <unistd.h>

namespace bench {

/// Where the tables of the benchmark are.
struct Access
{
    std::string host = "127.0.0.1";
    unsigned int port = 3306;
    std::string user;
    std::string password;
    std::string database;
};

/// The server that MYDB_SERVER=host:port, MYDB_USER and MYDB_PASSWORD name; no database.
inline Access AccessFromEnvironment()
{
    const auto variable = [](const char* name, const char* otherwise) {
        const char* value = std::getenv(name);
        return std::string(value ? value : otherwise);
    };
    Access access;
    const std::string server = variable("MYDB_SERVER", "127.0.0.1:3306");
    access.host = server.substr(0, server.find(':'));
    access.port = static_cast<unsigned int>(std::stoul(server.substr(server.find(':') + 1)));
    access.user = variable("MYDB_USER", "vela_root");
    access.password = variable("MYDB_PASSWORD", "");
    return access;
}

/// The same as the settings of a connection of the library.
inline CMyServer Server(const Access& access)
{
    CMyServer server;
    server.SetHost(access.host.c_str());
    server.SetPort(access.port);
    server.SetUser(access.user.c_str());
    server.SetPassword(access.password.c_str());
    server.SetCharset("utf8mb4");
    return server;
}

/// A connection of the plain client; a failure ends the benchmark.
class PlainConnection
{
public:
    explicit PlainConnection(const Access& access) : m_handle(mysql_init(nullptr))
    {
        if (!mysql_real_connect(m_handle, access.host.c_str(), access.user.c_str(), access.password.c_str(),
                                access.database.c_str(), access.port, nullptr, 0))
            Fail("connect");
    }
    PlainConnection(const PlainConnection&) = delete;
    PlainConnection& operator=(const PlainConnection&) = delete;
    ~PlainConnection() { mysql_close(m_handle); }

    void Run(const char* statement, unsigned long length)
    {
        if (mysql_real_query(m_handle, statement, length) != 0)
            Fail(std::string(statement, length));
    }
    void Run(const std::string& statement) { Run(statement.data(), static_cast<unsigned long>(statement.size())); }
    [[noreturn]] void Fail(const std::string& what) { throw std::runtime_error(what + ": " + mysql_error(m_handle)); }
    MYSQL* Handle() const { return m_handle; }

private:
    MYSQL* m_handle;
};

/// A database of its own; dropped with the object.
class TemporaryDatabase
{
public:
    TemporaryDatabase() : m_access(AccessFromEnvironment())
    {
        PlainConnection connection(m_access);
        m_access.database = "mydb_bench_" + std::to_string(::getpid());
        connection.Run("CREATE DATABASE " + m_access.database + " CHARACTER SET utf8mb4");
    }
    TemporaryDatabase(const TemporaryDatabase&) = delete;
    TemporaryDatabase& operator=(const TemporaryDatabase&) = delete;
    ~TemporaryDatabase()
    {
        PlainConnection connection(m_access);
        connection.Run("DROP DATABASE " + m_access.database);
    }

    const Access& GetAccess() const { return m_access; }

private:
    Access m_access;
};

} // namespace bench
