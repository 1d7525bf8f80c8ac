#pragma once

#include "Connection.h"

#include "CMyDatabase.h"
#include "framework/CWnd.h"

#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

// A table into a file, through the plain client and through the library.
namespace bench {

struct FreeRows
{
    void operator()(MYSQL_RES* rows) const { mysql_free_result(rows); }
};
using Rows = std::unique_ptr<MYSQL_RES, FreeRows>;

inline Rows Stream(PlainConnection& connection, const char* statement)
{
    connection.Run(statement);
    Rows rows(mysql_use_result(connection.Handle()));
    if (!rows)
        connection.Fail(statement);
    return rows;
}

/// Appends a value as it stands between quotes.
inline void AppendEscaped(std::string& text, MYSQL* handle, const char* value, unsigned long length)
{
    const size_t before = text.size();
    text.resize(before + 2 * length + 1);
    text.resize(before + mysql_real_escape_string(handle, text.data() + before, value, length));
}

/// The loop of a program without a library: every value through the client's escape, a line per row.
inline void PlainDump(const Access& access, const std::string& fileName)
{
    PlainConnection connection(access);
    const Rows rows = Stream(connection, "SELECT * FROM scan");
    FILE* const file = std::fopen(fileName.c_str(), "wb");
    if (!file)
        throw std::runtime_error(fileName);
    const unsigned int count = mysql_num_fields(rows.get());
    std::vector<char> line(64000);
    while (const MYSQL_ROW row = mysql_fetch_row(rows.get())) {
        const unsigned long* const lengths = mysql_fetch_lengths(rows.get());
        size_t needed = 2;
        for (unsigned int i = 0; i < count; ++i)
            needed += 2 * lengths[i] + 4;
        if (line.size() < needed)
            line.resize(needed);
        char* to = line.data();
        for (unsigned int i = 0; i < count; ++i) {
            if (i != 0)
                *to++ = ',';
            if (row[i]) {
                *to++ = '"';
                to += mysql_real_escape_string(connection.Handle(), to, row[i], lengths[i]);
                *to++ = '"';
            } else {
                *to++ = '\\';
                *to++ = 'N';
            }
        }
        *to++ = '\r';
        *to++ = '\n';
        std::fwrite(line.data(), 1, static_cast<size_t>(to - line.data()), file);
    }
    if (std::fclose(file) != 0 || mysql_errno(connection.Handle()) != 0)
        throw std::runtime_error("the plain dump failed");
}

inline void LibraryDump(const Access& access, const std::string& fileName)
{
    CMyDatabase database(Server(access), access.database.c_str());
    if (database.DumpTable(fileName.c_str(), "scan", false, "", ",", "\"", "\r\n", nullptr) < 0)
        throw std::runtime_error("DumpTable failed");
}

/// Whether two files hold the same bytes.
inline bool AreEqualFiles(const std::string& first, const std::string& second)
{
    std::ifstream one(first, std::ios::binary);
    std::ifstream other(second, std::ios::binary);
    if (!one || !other)
        return false;
    std::vector<char> a(1 << 20);
    std::vector<char> b(1 << 20);
    do {
        one.read(a.data(), static_cast<std::streamsize>(a.size()));
        other.read(b.data(), static_cast<std::streamsize>(b.size()));
        if (one.gcount() != other.gcount() || std::memcmp(a.data(), b.data(), static_cast<size_t>(one.gcount())) != 0)
            return false;
    } while (one && other);
    return true;
}

} // namespace bench
