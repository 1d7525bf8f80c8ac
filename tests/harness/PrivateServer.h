#pragma once

#include "harness/RawConnection.h"

#include <filesystem>

namespace harness {

/// The server that all tests of one program share. It is started with the first use and stopped with the program.
///
/// With the environment variable MYDB_TEST_SERVER=host:port that server is used instead, as MYDB_TEST_USER with
/// MYDB_TEST_PASSWORD (both accounts below are then this one, which needs every privilege). Tests that read the sent
/// statements need its general log switched on, in a file that they can read.
class PrivateServer
{
public:
    /// Throws std::runtime_error when the server's programs are missing or it does not start: tests fail then, they
    /// are never skipped.
    static PrivateServer& Get();

    const ServerAccess& Administrator() const { return m_administrator; } ///< see ServerProcess
    const ServerAccess& Tester() const { return m_tester; }               ///< see ServerProcess
    /// Where the server says that its general log is; of use when it runs on this machine.
    std::filesystem::path GeneralLogFile() const;
    /// The server's data folder, by the path that this process has for it.
    std::filesystem::path DataFolder() const;

private:
    PrivateServer();

    ServerAccess m_administrator;
    ServerAccess m_tester;
};

/// Ends one connection of the server, as an administrator would; returns when the server has dropped it.
void KillConnection(unsigned long threadId);
void KillConnection(const ServerAccess& administrator, unsigned long threadId);

/// A database of its own, named mydb_<process>_<number>, with the charset utf8mb4; dropped with the object.
class TemporaryDatabase
{
public:
    /// On the shared server.
    TemporaryDatabase();
    explicit TemporaryDatabase(const ServerAccess& administrator, const ServerAccess& tester);
    TemporaryDatabase(const TemporaryDatabase&) = delete;
    TemporaryDatabase& operator=(const TemporaryDatabase&) = delete;
    ~TemporaryDatabase();

    const std::string& Name() const { return m_name; }
    /// A connection of the tester account with this database as its default.
    RawConnection& Sql() { return m_connection; }

private:
    ServerAccess m_administrator;
    std::string m_name;
    RawConnection m_connection;
};

} // namespace harness
