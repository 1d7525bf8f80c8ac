#pragma once

#include "CDateTime.h"
#include "Connection.h"
#include "text/UtCString.h"

#include <string>
#include <vector>

namespace bench {

/// The tables that are written: "person", "audited" (the same with audit columns) and "ten" (of ten columns). In the
/// engine MEMORY no disk hides what the client costs.
class EditTables
{
public:
    explicit EditTables(const std::string& engine)
    {
        const std::string person = "ID INT PRIMARY KEY, NAME VARCHAR(40), CITY VARCHAR(40), AGE SMALLINT, TOTAL BIGINT,"
                                   " WEIGHT DOUBLE, CREATED DATETIME";
        PlainConnection connection(GetAccess());
        connection.Run("SET GLOBAL max_heap_table_size = 1073741824"); // read once for each new connection
        PlainConnection roomy(GetAccess());
        roomy.Run("CREATE TABLE person (" + person + ") ENGINE = " + engine);
        roomy.Run(
            "CREATE TABLE audited (" + person +
            ", ERFASST VARCHAR(20), ERF_TIME DATETIME, MUTATOR VARCHAR(20), MUT_TIME DATETIME) ENGINE = " + engine);
        roomy.Run("CREATE TABLE ten (" + person + ", ACTIVE BOOL, RATIO FLOAT, SHORTNAME CHAR(8)) ENGINE = " + engine);
    }

    const Access& GetAccess() const { return m_database.GetAccess(); }

    /// Leaves no rows.
    void Empty(const std::string& table) const { PlainConnection(GetAccess()).Run("TRUNCATE TABLE " + table); }

    /// Leaves the rows with the keys 1 to `rows`, with nothing but their keys.
    void FillWithKeys(const std::string& table, unsigned long rows) const
    {
        Empty(table);
        PlainConnection connection(GetAccess());
        connection.Run("SET SESSION max_recursive_iterations = 4294967295");
        connection.Run("INSERT INTO " + table +
                       " (ID) WITH RECURSIVE t (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM t" + " WHERE n < " +
                       std::to_string(rows) + ") SELECT n FROM t");
    }

    /// What the table holds, as a text that differs when a value does. Of the times in audit columns only whether they
    /// are set.
    std::string Contents(const std::string& table) const
    {
        const std::string audit = table == "audited" ? ", ERFASST, MUTATOR, ISNULL(ERF_TIME), ISNULL(MUT_TIME)" : "";
        PlainConnection connection(GetAccess());
        connection.Run("SELECT CONCAT_WS(' ', COUNT(*), SUM(CRC32(CONCAT_WS('|', ID, NAME, CITY, AGE, TOTAL, WEIGHT,"
                       " CREATED" +
                       audit + ")))) FROM " + table);
        MYSQL_RES* result = mysql_store_result(connection.Handle());
        const std::string contents = mysql_fetch_row(result)[0];
        mysql_free_result(result);
        return contents;
    }

private:
    TemporaryDatabase m_database;
};

/// The moment of a record as a plain program keeps it.
struct Moment
{
    int year, month, day, hour, minute, second;
};

/// A record that is to be written, with its values as a plain program and as a program with the library holds them.
struct Person
{
    std::string plainName;
    std::string plainCity;
    Moment plainCreated;
    UtCString name;
    UtCString city;
    CDateTime created;
    short age;
    long long total;
    double weight;
};

inline Person MakePerson(int number)
{
    const std::string name = (number % 10 == 0 ? "O'Neil " : "Person ") + std::to_string(number) + " \xC3\xA4\xC3\xB6";
    const std::string city = "Stadt " + std::to_string(number * 7919 % 5003);
    const Moment moment{2001 + number % 20, 1 + number % 12, 1 + number % 28, number % 24, number % 60, 59};
    return {name,
            city,
            moment,
            UtCString(name, UT_ENCODING_UTF8),
            UtCString(city, UT_ENCODING_UTF8),
            CDateTime(moment.year, moment.month, moment.day, moment.hour, moment.minute, moment.second),
            static_cast<short>(number * 31 % 99 - 10),
            number * 2654435761LL - 1000000000LL,
            number * 0.125};
}

/// A few hundred records that are written again and again, made before anything is measured.
inline const std::vector<Person>& Persons()
{
    static const std::vector<Person> persons = [] {
        std::vector<Person> made;
        for (int number = 1; number <= 500; ++number)
            made.push_back(MakePerson(number));
        return made;
    }();
    return persons;
}

} // namespace bench
