#pragma once

#include "Connection.h"

#include <string>

namespace bench {

/// What the table "scan" holds: the definition of its columns, and its values, which follow from the row number n
/// alone, so that every server makes the same ones.
struct TableContent
{
    std::string columns;
    std::string values;
};

/// Half of the columns are numbers and dates, which the server has to turn into text.
inline const TableContent numbersAndTexts{
    "ID INT PRIMARY KEY, NAME VARCHAR(40), CITY VARCHAR(40), AGE SMALLINT, TOTAL BIGINT, WEIGHT DOUBLE,"
    " CREATED DATETIME, NOTE TEXT",
    "n, CONCAT('Person ', n, ' \xC3\xA4\xC3\xB6\xC3\xBC'), CONCAT('Stadt ', MOD(n * 7919, 5003)), MOD(n * 31, 99) - 10,"
    " (n * 2654435761) - 1000000000000, ROUND(n / 7, 3), '2001-01-01' + INTERVAL MOD(n * 7919, 630720000) SECOND,"
    " IF(MOD(n, 10) = 0, NULL, CONCAT('Bemerkung ', n, ': ', REPEAT('abcdefg ', 8 + MOD(n, 3))))"};

/// Everything but the key is text: names, an address, and a note that has quotes and line ends in every fifth row.
inline const TableContent texts{
    "ID INT PRIMARY KEY, NAME VARCHAR(60), STREET VARCHAR(60), CITY VARCHAR(40), NOTE TEXT",
    "n, CONCAT('Person ', n, ' \xC3\xA4\xC3\xB6\xC3\xBC'), CONCAT('Stra\xC3\x9F\x65 Nummer ', MOD(n * 31, 4999)),"
    " CONCAT('Stadt ', MOD(n * 7919, 5003)), IF(MOD(n, 10) = 0, NULL,"
    " CONCAT('Bemerkung ', n, IF(MOD(n, 5) = 1, ': \\'so\\'\\n', ': '), REPEAT('abcdefg ', 8 + MOD(n, 3))))"};

/// A database of its own with the table "scan"; dropped with the object.
class ScanTable
{
public:
    ScanTable(unsigned long rows, const TableContent& content)
    {
        PlainConnection connection(m_database.GetAccess());
        connection.Run("SET SESSION max_recursive_iterations = 4294967295");
        connection.Run("CREATE TABLE scan (" + content.columns + ")");
        Fill(connection, rows, content.values);
    }

    const Access& GetAccess() const { return m_database.GetAccess(); }

private:
    static void Fill(PlainConnection& connection, unsigned long rows, const std::string& values)
    {
        constexpr unsigned long block = 100000;
        for (unsigned long first = 1; first <= rows; first += block) {
            const unsigned long last = first + block - 1 < rows ? first + block - 1 : rows;
            connection.Run("INSERT INTO scan SELECT " + values + " FROM (WITH RECURSIVE t (n) AS (SELECT " +
                           std::to_string(first) + " UNION ALL SELECT n + 1 FROM t WHERE n < " + std::to_string(last) +
                           ") SELECT n FROM t) numbers");
        }
    }

    TemporaryDatabase m_database;
};

} // namespace bench
