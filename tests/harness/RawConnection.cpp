#include "harness/RawConnection.h"

#include <memory>

namespace harness {
namespace {

using ResultOwner = std::unique_ptr<MYSQL_RES, decltype(&mysql_free_result)>;

RawConnection::Row ReadRow(MYSQL_RES* result, MYSQL_ROW row)
{
    const unsigned long* const lengths = mysql_fetch_lengths(result);
    RawConnection::Row values;
    for (unsigned int column = 0; column < mysql_num_fields(result); ++column) {
        values.push_back(row[column] == nullptr ? RawConnection::Value()
                                                : RawConnection::Value(std::string(row[column], lengths[column])));
    }
    return values;
}

} // namespace

RawConnection::RawConnection(const ServerAccess& access, const std::string& database) : m_handle(mysql_init(nullptr))
{
    mysql_options(m_handle, MYSQL_SET_CHARSET_NAME, "utf8mb4");
    if (mysql_real_connect(m_handle, access.host.c_str(), access.user.c_str(), access.password.c_str(),
                           database.empty() ? nullptr : database.c_str(), access.port, nullptr, 0) == nullptr) {
        const SqlError error(mysql_errno(m_handle), std::string("connecting: ") + mysql_error(m_handle));
        mysql_close(m_handle);
        throw error;
    }
}

RawConnection::~RawConnection()
{
    mysql_close(m_handle);
}

void RawConnection::Run(const std::string& sql)
{
    Rows(sql);
}

std::vector<RawConnection::Row> RawConnection::Rows(const std::string& sql)
{
    if (mysql_real_query(m_handle, sql.data(), static_cast<unsigned long>(sql.size())) != 0) {
        Fail(sql);
    }
    const ResultOwner result(mysql_store_result(m_handle), &mysql_free_result);
    if (result == nullptr && mysql_errno(m_handle) != 0) {
        Fail(sql);
    }
    std::vector<Row> rows;
    while (MYSQL_ROW row = result == nullptr ? nullptr : mysql_fetch_row(result.get())) {
        rows.push_back(ReadRow(result.get(), row));
    }
    return rows;
}

RawConnection::Value RawConnection::Text(const std::string& sql)
{
    const std::vector<Row> rows = Rows(sql);
    if (rows.empty()) {
        throw std::runtime_error("no row: " + sql);
    }
    return rows.front().front();
}

std::vector<std::string> RawConnection::Column(const std::string& sql)
{
    std::vector<std::string> texts;
    for (const Row& row : Rows(sql)) {
        texts.push_back(row.front().value_or("NULL"));
    }
    return texts;
}

unsigned int RawConnection::ErrorOf(const std::string& sql)
{
    try {
        Rows(sql);
        return 0;
    } catch (const SqlError& error) {
        return error.Code();
    }
}

std::string RawConnection::Quoted(const std::string& text)
{
    std::string escaped(2 * text.size() + 1, '\0');
    escaped.resize(
        mysql_real_escape_string(m_handle, escaped.data(), text.data(), static_cast<unsigned long>(text.size())));
    return "'" + escaped + "'";
}

unsigned long RawConnection::ThreadId() const
{
    return mysql_thread_id(m_handle);
}

void RawConnection::Fail(const std::string& what)
{
    throw SqlError(mysql_errno(m_handle), std::to_string(mysql_errno(m_handle)) + ": " + mysql_error(m_handle) +
                                              " in: " + what.substr(0, 1000));
}

} // namespace harness
