// The countries and time zones of the tz database as tables on a server: created, and filled with few statements.
#pragma once

#include "MyDB.h"

#include "ExampleServer.h"
#include "TimeZoneData.h"

#include <cstdio>
#include <string>

// A text as a literal for a statement. What it contains is data, whatever characters it has.
inline UtCString Literal(CMyDatabase& database, const std::string& text)
{
    UtCString literal;
    database.MakeEscapeString(Utf8(text), literal);
    literal.Enclose("'");
    return literal;
}

// Collects rows and sends them with few statements.
class Insert
{
public:
    Insert(CMyDatabase& database, const char* tableAndColumns) : m_database(database), m_target(tableAndColumns) {}

    void Add(const char* format, const UtCStringList& values)
    {
        UtCString row(UT_ENCODING_UTF8);
        row.FormatStringList(format, values, UT_ENCODING_UTF8);
        m_rows.Add(row);
        if (m_rows.GetCount() == 200)
            Send();
    }

    long Finish()
    {
        Send();
        return m_count;
    }

private:
    void Send()
    {
        if (m_rows.GetCount() == 0)
            return;
        UtCString rows(UT_ENCODING_UTF8);
        m_rows.Concatenate(", ", rows);
        UtCString statement(UT_ENCODING_UTF8);
        statement.FormatStringList("INSERT INTO %s VALUES %s", {m_target, rows}, UT_ENCODING_UTF8);
        m_count += Run(m_database, statement);
        m_rows.Clear();
    }

    CMyDatabase& m_database;
    UtCString m_target;
    UtCStringList m_rows;
    long m_count = 0;
};

inline void CreateTables(CMyDatabase& database)
{
    Run(database, "CREATE TABLE country (CODE CHAR(2) PRIMARY KEY, NAME VARCHAR(80) NOT NULL)");
    Run(database, "CREATE TABLE zone (NAME VARCHAR(40) PRIMARY KEY, LATITUDE DOUBLE NOT NULL, "
                  "LONGITUDE DOUBLE NOT NULL, REMARK VARCHAR(120), LOADED DATETIME NOT NULL)");
    Run(database, "CREATE TABLE zone_country (ZONE VARCHAR(40), CODE CHAR(2), PRIMARY KEY (ZONE, CODE))");
}

inline void LoadTables(CMyDatabase& database)
{
    Insert countries(database, "country (CODE, NAME)");
    for (const tzdatabase::Fields& row : tzdatabase::ReadTable("/usr/share/zoneinfo/iso3166.tab"))
        countries.Add("(%s, %s)", {Literal(database, row[0]), Literal(database, row[1])});

    Insert zones(database, "zone (NAME, LATITUDE, LONGITUDE, REMARK, LOADED)");
    Insert links(database, "zone_country (ZONE, CODE)");
    for (const tzdatabase::Fields& row : tzdatabase::ReadTable("/usr/share/zoneinfo/zone1970.tab")) {
        const tzdatabase::Position position = tzdatabase::ReadPosition(row[1]);
        const UtCString name = Literal(database, row[2]);
        const UtCString remark = row.size() > 3 ? Literal(database, row[3]) : UtCString("NULL");
        zones.Add("(%s, %s, %s, %s, NOW())",
                  {name, UtCString(position.latitude), UtCString(position.longitude), remark});
        for (const std::string& code : tzdatabase::Split(row[0], ','))
            links.Add("(%s, %s)", {name, Literal(database, code)});
    }
    const long countryCount = countries.Finish();
    const long zoneCount = zones.Finish();
    std::printf("Loaded %ld countries, %ld time zones and %ld links between them.\n", countryCount, zoneCount,
                links.Finish());
}
