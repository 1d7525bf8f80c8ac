#pragma once

#include <mysql.h>

#include <cstdlib>
#include <stdexcept>
#include <string>

#include <sys/resource.h>
#include <unistd.h>

namespace bench {

/// Where the table of the benchmark is.
struct Access
{
    std::string host = "127.0.0.1";
    unsigned int port = 3306;
    std::string user;
    std::string password;
    std::string database;
};

inline long PeakMemoryInKiB()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
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

    void Run(const std::string& statement)
    {
        if (mysql_real_query(m_handle, statement.data(), static_cast<unsigned long>(statement.size())) != 0)
            Fail(statement);
    }
    [[noreturn]] void Fail(const std::string& what) { throw std::runtime_error(what + ": " + mysql_error(m_handle)); }
    MYSQL* Handle() const { return m_handle; }

private:
    MYSQL* m_handle;
};

/// A database of its own with the table "scan"; dropped with the object.
class ScanTable
{
public:
    explicit ScanTable(unsigned long rows) : m_access(AccessFromEnvironment())
    {
        PlainConnection connection(m_access);
        m_access.database = "mydb_bench_" + std::to_string(::getpid());
        connection.Run("CREATE DATABASE " + m_access.database + " CHARACTER SET utf8mb4");
        connection.Run("USE " + m_access.database);
        connection.Run("SET SESSION max_recursive_iterations = 4294967295");
        connection.Run("CREATE TABLE scan (ID INT PRIMARY KEY, NAME VARCHAR(40), CITY VARCHAR(40), AGE SMALLINT,"
                       " TOTAL BIGINT, WEIGHT DOUBLE, CREATED DATETIME, NOTE TEXT)");
        Fill(connection, rows);
    }
    ScanTable(const ScanTable&) = delete;
    ScanTable& operator=(const ScanTable&) = delete;
    ~ScanTable()
    {
        PlainConnection connection(m_access);
        connection.Run("DROP DATABASE " + m_access.database);
    }

    const Access& GetAccess() const { return m_access; }

private:
    static Access AccessFromEnvironment()
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

    /// The rows follow from their number alone, so every server makes the same ones.
    static void Fill(PlainConnection& connection, unsigned long rows)
    {
        constexpr unsigned long block = 100000;
        for (unsigned long first = 1; first <= rows; first += block) {
            const unsigned long last = first + block - 1 < rows ? first + block - 1 : rows;
            connection.Run(
                "INSERT INTO scan SELECT n, CONCAT('Person ', n, ' \xC3\xA4\xC3\xB6\xC3\xBC'),"
                " CONCAT('Stadt ', MOD(n * 7919, 5003)), MOD(n * 31, 99) - 10, (n * 2654435761) - 1000000000000,"
                " ROUND(n / 7, 3), '2001-01-01' + INTERVAL MOD(n * 7919, 630720000) SECOND,"
                " IF(MOD(n, 10) = 0, NULL, CONCAT('Bemerkung ', n, ': ', REPEAT('abcdefg ', 8 + MOD(n, 3))))"
                " FROM (WITH RECURSIVE t (n) AS (SELECT " +
                std::to_string(first) + " UNION ALL SELECT n + 1 FROM t WHERE n < " + std::to_string(last) +
                ") SELECT n FROM t) numbers");
        }
    }

    Access m_access;
};

} // namespace bench
