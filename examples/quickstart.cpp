// A tour of the library on real data: the countries and time zones of the tz database, which every Debian carries.
//
//     MYDB_SERVER=host:port MYDB_USER=user MYDB_PASSWORD=password quickstart
//
// It creates the database "vela_quickstart", fills it, reads it in the ways in which an application does, and drops it.
// scripts/demo.sh builds this program, starts a private server and runs it.

#include "MyDB.h"

#include "ExampleServer.h"
#include "ExampleTable.h"
#include "TimeZoneTables.h"

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
