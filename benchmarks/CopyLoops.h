#pragma once

#include "BulkLoops.h"

#include <filesystem>

// A database into another one on the same server, through the plain client and through the library.
namespace bench {

/// The database that a copy makes; dropped with the object.
class CopyTarget
{
public:
    explicit CopyTarget(const Access& source) : m_source(source), m_name(source.database + "_copy")
    {
        PlainConnection connection(m_source);
        // The library creates the target with the server's default.
        connection.Run("SET GLOBAL character_set_server = utf8mb4");
    }
    CopyTarget(const CopyTarget&) = delete;
    CopyTarget& operator=(const CopyTarget&) = delete;
    ~CopyTarget() { Drop(); }

    void Drop() const { PlainConnection(m_source).Run("DROP DATABASE IF EXISTS " + m_name); }
    void Create() const { PlainConnection(m_source).Run("CREATE DATABASE " + m_name + " CHARACTER SET utf8mb4"); }
    const std::string& Name() const { return m_name; }

    /// The checksum of the copied table.
    std::string Checksum() const
    {
        PlainConnection connection(m_source);
        connection.Run("CHECKSUM TABLE " + m_name + ".scan");
        const Rows rows(mysql_store_result(connection.Handle()));
        const MYSQL_ROW row = mysql_fetch_row(rows.get());
        return row && row[1] ? row[1] : "none";
    }

private:
    Access m_source;
    std::string m_name;
};

/// The loop of a program without a library: the rows stream into INSERT statements of a megabyte.
inline void PlainCopy(const Access& access, const CopyTarget& target)
{
    constexpr size_t statementSize = 1000000;
    target.Create();
    PlainConnection reader(access);
    PlainConnection writer(access);
    writer.Run("CREATE TABLE " + target.Name() + ".scan LIKE scan");
    const Rows rows = Stream(reader, "SELECT * FROM scan");
    const unsigned int count = mysql_num_fields(rows.get());
    const std::string beginning = "INSERT INTO " + target.Name() + ".scan VALUES ";
    std::string statement = beginning;
    while (const MYSQL_ROW row = mysql_fetch_row(rows.get())) {
        const unsigned long* const lengths = mysql_fetch_lengths(rows.get());
        statement += statement.size() == beginning.size() ? "(" : ",(";
        for (unsigned int i = 0; i < count; ++i) {
            statement += i == 0 ? "" : ",";
            if (row[i]) {
                statement += '\'';
                AppendEscaped(statement, writer.Handle(), row[i], lengths[i]);
                statement += '\'';
            } else {
                statement += "NULL";
            }
        }
        statement += ')';
        if (statement.size() >= statementSize) {
            writer.Run(statement);
            statement = beginning;
        }
    }
    if (statement.size() > beginning.size())
        writer.Run(statement);
}

inline void LibraryCopy(CMyDatabase& source, CMyDatabase& target)
{
    if (!source.CopyDatabase(target, nullptr))
        throw std::runtime_error("CopyDatabase failed");
}

} // namespace bench
