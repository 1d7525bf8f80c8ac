// A tour of the library on real data: the countries and time zones of the tz database, which every Debian carries.
//
//     MYDB_SERVER=host:port MYDB_USER=user MYDB_PASSWORD=password quickstart
//
// It creates the database "vela_quickstart", fills it, reads it in the ways in which an application does, and drops it.
// scripts/demo.sh builds this program, starts a private server and runs it.

#include "MyDB.h"

#include "ExampleServer.h"
#include "ExampleTable.h"
#include "TimeZoneData.h"

#include <cstdio>
#include <exception>
#include <string>

namespace {

UtCString DegreesOf(const CMyRecordSet& rows, const char* column)
{
    UtCString text(UT_ENCODING_UTF8);
    text.Format("%.2f", rows.GetFieldDouble(column));
    return text;
}

// ---- Write ----------------------------------------------------------------------------------------------------------

// A text as a literal for a statement. What it contains is data, whatever characters it has.
UtCString Literal(CMyDatabase& database, const std::string& text)
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

void CreateTables(CMyDatabase& database)
{
    Run(database, "CREATE TABLE country (CODE CHAR(2) PRIMARY KEY, NAME VARCHAR(80) NOT NULL)");
    Run(database, "CREATE TABLE zone (NAME VARCHAR(40) PRIMARY KEY, LATITUDE DOUBLE NOT NULL, "
                  "LONGITUDE DOUBLE NOT NULL, REMARK VARCHAR(120), LOADED DATETIME NOT NULL)");
    Run(database, "CREATE TABLE zone_country (ZONE VARCHAR(40), CODE CHAR(2), PRIMARY KEY (ZONE, CODE))");
}

void LoadTables(CMyDatabase& database)
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

// ---- Read -----------------------------------------------------------------------------------------------------------

// Select takes a condition and completes it to a statement.
void ShowCondition(CMyDatabase& database)
{
    CMyRecordSet countries(database, "country");
    const long count = countries.Select("LENGTH(NAME) > CHAR_LENGTH(NAME) ORDER BY NAME");
    std::printf("\n%ld countries need more than ASCII for their names\n\n", count);
    const Table table{{"code", 4}, {"name", 20}};
    for (bool isRow = count > 0; isRow; isRow = countries.MoveNext())
        table.Row({TextOf(countries, "CODE"), TextOf(countries, "NAME")});
}

// Values are read with the type that the caller wants; NULL can be told from an empty text.
void ShowTypedReads(CMyDatabase& database)
{
    CMyRecordSet zones(database, "zone");
    long withoutRemark = 0;
    const long count = zones.Select("LATITUDE BETWEEN -1.5 AND 1.5 ORDER BY LATITUDE DESC");
    std::printf("\n%ld time zones have their principal city close to the equator\n\n", count);
    const Table table{{"zone", 22}, {"latitude", 8, true}, {"longitude", 9, true}, {"remark", 30}};
    for (bool isRow = count > 0; isRow; isRow = zones.MoveNext()) {
        withoutRemark += zones.IsFieldNull("REMARK");
        table.Row({TextOf(zones, "NAME"), DegreesOf(zones, "LATITUDE"), DegreesOf(zones, "LONGITUDE"),
                   TextOf(zones, "REMARK")});
    }
    std::printf("\n  %ld of them have no remark (NULL).\n", withoutRemark);
}

// A stored result can be read in any order.
void ShowMoves(CMyDatabase& database)
{
    CMyRecordSet zones(database, "zone");
    const long count = zones.Select("ORDER BY LONGITUDE");
    std::printf("\nFirst, middle and last of %ld time zones from west to east\n\n", count);
    const Table table{{"row", 3, true}, {"zone", 22}, {"longitude", 9, true}};
    for (const long row : {0L, count / 2, count - 1}) {
        if (zones.MoveTo(row))
            table.Row({UtCString(row), TextOf(zones, "NAME"), DegreesOf(zones, "LONGITUDE")});
    }
}

// A streamed result needs memory for one row only, however many there are, and leaves the connection free meanwhile.
void ShowStream(CMyDatabase& database)
{
    CMyRecordSet links(database, "");
    if (!links.SelectLargeResult("SELECT l.ZONE, c.NAME FROM zone_country l JOIN country c ON c.CODE = l.CODE "
                                 "ORDER BY l.ZONE, c.NAME"))
        Fail("the join", database);

    std::printf("\nTime zones that ten or more countries share\n\n");
    const Table table{{"zone", 22}, {"countries", 9, true}, {"among them", 40}};
    while (!links.IsEOF()) {
        const UtCString zone = TextOf(links, "ZONE");
        UtCStringList names;
        do {
            names.Add(TextOf(links, "NAME"));
        } while (links.MoveNext() && TextOf(links, "ZONE") == zone);

        UtCString all(UT_ENCODING_UTF8);
        names.Concatenate(", ", all);
        if (names.GetCount() >= 10)
            table.Row({zone, UtCString(names.GetCount()), all});
    }
}

const char* NameOf(WEEKDAY day)
{
    switch (day) {
    case SUNDAY:
        return "Sunday";
    case MONDAY:
        return "Monday";
    case TUESDAY:
        return "Tuesday";
    case WEDNESDAY:
        return "Wednesday";
    case THURSDAY:
        return "Thursday";
    case FRIDAY:
        return "Friday";
    case SATURDAY:
        return "Saturday";
    default:
        return "no day";
    }
}

// Dates come back as values that one can calculate with.
void ShowDates(CMyDatabase& database)
{
    CMyRecordSet zones(database, "zone");
    if (zones.Select("LIMIT 1") != 1)
        Fail("a zone", database);
    const CDateTime loaded = zones.GetFieldDate("LOADED");
    CDateTime monthEnd = loaded;
    monthEnd.AddMonths(1, 31);
    std::printf("\nLoaded on %s, %s, in week %d of the year.\n", NameOf(loaded.GetDayOfWeek()),
                loaded.GetDate(11).string(), loaded.GetWeekNo());
    std::printf("The next month ends on %s, %s.\n", NameOf(monthEnd.GetDayOfWeek()), monthEnd.GetDate(11).string());
}

// A failure is a value; its reason stays with the connection.
void ShowError(CMyDatabase& database)
{
    CMyRecordSet nowhere(database, "atlantis");
    const long result = nowhere.Select("");
    std::printf("\nReading a table that does not exist gives %ld and the error %lu:\n\n  %s\n", result,
                database.GetErrorCode(), UtCString(nowhere.GetErrorMessage(), UT_ENCODING_UTF8).string());
}

void Tour()
{
    const CMyServer server = ServerFromEnvironment();
    const UtCString name("vela_quickstart");
    const ExampleDatabase tour(server, name);

    CMyDatabase database(server, name);
    if (!database.Open(false, ""))
        Fail("no connection", database);
    CMyRecordSet version(database, "");
    version.Select("SELECT VERSION() AS VERSION");
    std::printf("Connected to %s:%lu as %s, server version %s.\n", server.GetHost().string(), server.GetPort(),
                server.GetUser().string(), TextOf(version, "VERSION").string());

    CreateTables(database);
    LoadTables(database);
    ShowCondition(database);
    ShowTypedReads(database);
    ShowMoves(database);
    ShowStream(database);
    ShowDates(database);
    ShowError(database);
}

} // namespace

int main()
{
    try {
        Tour();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quickstart: %s\n", error.what());
        return 1;
    }
    return 0;
}
