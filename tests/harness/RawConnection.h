#pragma once

#include <mysql.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace harness {

/// Where a server is and as whom to connect.
struct ServerAccess
{
    std::string host;
    unsigned int port = 0;
    std::string user;
    std::string password;
};

/// A failed statement or connection of a RawConnection.
class SqlError : public std::runtime_error
{
public:
    SqlError(unsigned int code, const std::string& message) : std::runtime_error(message), m_code(code) {}
    unsigned int Code() const { return m_code; }

private:
    unsigned int m_code;
};

/// A connection through the plain C client, without the library under test: for set-up and as an oracle. The charset is
/// utf8mb4, the reconnect is off. A failure throws SqlError, which fails the test with the server's text.
class RawConnection
{
public:
    using Value = std::optional<std::string>; ///< the bytes; nullopt is NULL
    using Row = std::vector<Value>;

    explicit RawConnection(const ServerAccess& access, const std::string& database = {});
    RawConnection(const RawConnection&) = delete;
    RawConnection& operator=(const RawConnection&) = delete;
    ~RawConnection();

    void Run(const std::string& sql);
    std::vector<Row> Rows(const std::string& sql);
    /// The first column of the first row; throws std::runtime_error when there is no row.
    Value Text(const std::string& sql);
    /// The first column of every row; NULL becomes "NULL".
    std::vector<std::string> Column(const std::string& sql);
    /// The error number of the statement, 0 when it succeeds. Rows are dropped.
    unsigned int ErrorOf(const std::string& sql);
    /// The text between quotes, for a statement.
    std::string Quoted(const std::string& text);

    unsigned long ThreadId() const;
    MYSQL* Handle() const { return m_handle; }

private:
    [[noreturn]] void Fail(const std::string& what);

    MYSQL* m_handle;
};

} // namespace harness
