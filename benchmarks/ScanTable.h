#pragma once

#include "Connection.h"

#include <string>

namespace bench {

/// A database of its own with the table "scan"; dropped with the object.
class ScanTable
{
public:
    explicit ScanTable(unsigned long rows)
    {
        PlainConnection connection(m_database.GetAccess());
        connection.Run("SET SESSION max_recursive_iterations = 4294967295");
        connection.Run("CREATE TABLE scan (ID INT PRIMARY KEY, NAME VARCHAR(40), CITY VARCHAR(40), AGE SMALLINT,"
                       " TOTAL BIGINT, WEIGHT DOUBLE, CREATED DATETIME, NOTE TEXT)");
        Fill(connection, rows);
    }

    const Access& GetAccess() const { return m_database.GetAccess(); }

private:
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

    TemporaryDatabase m_database;
};

} // namespace bench
