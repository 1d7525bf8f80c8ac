// What the examples have in common: where the server is, a database that comes and goes with the example, and giving
// up at a failure that is not expected. The library itself reports failure by values.
#pragma once

#include "MyDB.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>

/// A text that stands in this program in UTF-8.
inline UtCString Utf8(std::string_view bytes)
{
    return UtCString(bytes, UT_ENCODING_UTF8);
}

/// The server that MYDB_SERVER=host:port, MYDB_USER and MYDB_PASSWORD name.
inline CMyServer ServerFromEnvironment()
{
    const char* address = std::getenv("MYDB_SERVER");
    const char* user = std::getenv("MYDB_USER");
    const char* password = std::getenv("MYDB_PASSWORD");
    const std::string hostAndPort = address ? address : "";
    const size_t colon = hostAndPort.rfind(':');
    if (colon == std::string::npos)
        throw std::runtime_error("set MYDB_SERVER=host:port, or run scripts/demo.sh");

    CMyServer server;
    server.SetHost(hostAndPort.substr(0, colon).c_str());
    server.SetPort(std::strtoul(hostAndPort.c_str() + colon + 1, nullptr, 10));
    server.SetCharset("utf8mb4"); // statements are composed and sent in UTF-8
    if (user)
        server.SetUser(user);
    if (password)
        server.SetPassword(password);
    return server;
}

/// Gives up, with the reason that the connection keeps.
[[noreturn]] inline void Fail(const std::string& what, CMyDatabase& database)
{
    throw std::runtime_error(what + ": " + UtCString(database.GetErrorMessage(), UT_ENCODING_UTF8).string());
}

/// Runs a statement and returns the number of rows it has changed.
inline long Run(CMyDatabase& database, const UtCString& statement)
{
    const long affectedRows = database.ExecuteQuery(statement, false, nullptr, false);
    if (affectedRows == -1)
        Fail(statement.substr(0, 40).string(), database);
    return affectedRows;
}

/// The database of an example: created with this object and dropped with it, whatever happens in between.
class ExampleDatabase
{
public:
    ExampleDatabase(const CMyServer& server, const UtCString& name) : m_connection(server, ""), m_name(name)
    {
        if (!m_connection.Open(false, ""))
            Fail("no connection", m_connection);
        Run(m_connection, UtCString("CREATE DATABASE ") + m_name + " CHARACTER SET utf8mb4");
    }
    ~ExampleDatabase()
    {
        const bool isDropped =
            m_connection.ExecuteQuery(UtCString("DROP DATABASE ") + m_name, false, nullptr, false) != -1;
        std::printf("\nThe database %s %s.\n", m_name.string(),
                    isDropped ? "is dropped again" : "could not be dropped");
    }
    ExampleDatabase(const ExampleDatabase&) = delete;
    ExampleDatabase& operator=(const ExampleDatabase&) = delete;

private:
    CMyDatabase m_connection;
    UtCString m_name;
};
