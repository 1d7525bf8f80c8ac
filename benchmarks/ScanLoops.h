#pragma once

#include "CMyDatabase.h"
#include "CMyRecordSet.h"
#include "Connection.h"

#include <charconv>
#include <cstdint>
#include <cstring>
#include <string_view>

// The loops that are compared. Each reads every column of every row into a variable of its type, the texts into a text
// object of the caller that is used again for each row, and adds the values up.
namespace bench {

/// One row as a program holds it.
template <class Text> struct Record
{
    long id;
    Text name;
    Text city;
    short age;
    long long total;
    double weight;
    double created; ///< days since 1899-12-30
    Text note;
    bool isNoteNull;
};

/// What the loops must agree on.
struct Sum
{
    uint64_t rows = 0;
    uint64_t nulls = 0;
    int64_t integers = 0;
    double doubles = 0;
    int64_t seconds = 0;
    uint64_t texts = 0;

    bool operator==(const Sum&) const = default;

    void AddText(std::string_view text)
    {
        texts += text.size();
        if (!text.empty())
            texts += static_cast<unsigned char>(text.front()) + static_cast<unsigned char>(text.back()) * 256U;
    }
};

inline std::string_view View(const std::string& text)
{
    return text;
}
inline std::string_view View(const UtCString& text)
{
    return text.View();
}

template <class Text> void Add(Sum& sum, const Record<Text>& record)
{
    ++sum.rows;
    sum.integers += record.id + record.age + record.total;
    sum.doubles += record.weight;
    sum.seconds += static_cast<int64_t>(record.created * 86400.0 + 0.5);
    sum.AddText(View(record.name));
    sum.AddText(View(record.city));
    if (record.isNoteNull)
        ++sum.nulls;
    else
        sum.AddText(View(record.note));
}

// ---- The plain client -----------------------------------------------------------------------------------------------

inline double DayNumber(int year, int month, int day, int secondOfDay)
{
    const int shifted = month <= 2 ? year - 1 : year;
    const int era = shifted / 400;
    const int yearOfEra = shifted - era * 400;
    const int dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 693899 + secondOfDay / 86400.0;
}

/// As most programs convert: the functions of the C library.
struct StrtolConverter
{
    template <class Number> static Number Integer(const char* text, unsigned long)
    {
        return static_cast<Number>(std::strtoll(text, nullptr, 10));
    }
    static long Long(const char* text, unsigned long) { return std::strtol(text, nullptr, 10); }
    static double Double(const char* text, unsigned long) { return std::strtod(text, nullptr); }
    static double Date(const char* text, unsigned long)
    {
        const auto part = [text](int at) { return static_cast<int>(std::strtol(text + at, nullptr, 10)); };
        const int seconds = part(11) * 3600 + part(14) * 60 + part(17);
        return DayNumber(part(0), static_cast<int>(std::strtol(text + 5, nullptr, 10)), part(8), seconds);
    }
};

/// As a program converts whose author has measured.
struct FromCharsConverter
{
    template <class Number> static Number Integer(const char* text, unsigned long length)
    {
        Number number = 0;
        std::from_chars(text, text + length, number);
        return number;
    }
    static long Long(const char* text, unsigned long length) { return Integer<int>(text, length); }
    static double Double(const char* text, unsigned long length) { return Integer<double>(text, length); }
    static double Date(const char* text, unsigned long)
    {
        const auto part = [text](int at, unsigned long length) { return Integer<int>(text + at, length); };
        const int seconds = part(11, 2) * 3600 + part(14, 2) * 60 + part(17, 2);
        return DayNumber(part(0, 4), part(5, 2), part(8, 2), seconds);
    }
};

template <class Converter> void ReadPlain(MYSQL_ROW row, const unsigned long* lengths, Record<std::string>& record)
{
    record.id = Converter::Long(row[0], lengths[0]);
    record.name.assign(row[1], lengths[1]);
    record.city.assign(row[2], lengths[2]);
    record.age = Converter::template Integer<short>(row[3], lengths[3]);
    record.total = Converter::template Integer<long long>(row[4], lengths[4]);
    record.weight = Converter::Double(row[5], lengths[5]);
    record.created = Converter::Date(row[6], lengths[6]);
    record.isNoteNull = !row[7];
    if (row[7])
        record.note.assign(row[7], lengths[7]);
}

template <class Converter> Sum ReadAllPlain(MYSQL_RES* result)
{
    Sum sum;
    Record<std::string> record{};
    while (MYSQL_ROW row = mysql_fetch_row(result)) {
        ReadPlain<Converter>(row, mysql_fetch_lengths(result), record);
        Add(sum, record);
    }
    mysql_free_result(result);
    return sum;
}

template <class Converter> Sum PlainStored(const Access& access)
{
    PlainConnection connection(access);
    connection.Run("SELECT * FROM scan");
    return ReadAllPlain<Converter>(mysql_store_result(connection.Handle()));
}

template <class Converter> Sum PlainStreamed(const Access& access)
{
    PlainConnection connection(access);
    connection.Run("SELECT * FROM scan");
    return ReadAllPlain<Converter>(mysql_use_result(connection.Handle()));
}

/// The round trips that the library's select makes: a ping, then the statement.
inline Sum PlainOneRow(const Access& access, unsigned long selects)
{
    PlainConnection connection(access);
    Sum sum;
    Record<std::string> record{};
    for (unsigned long i = 0; i < selects; ++i) {
        if (mysql_ping(connection.Handle()) != 0)
            connection.Fail("ping");
        connection.Run("SELECT scan.* FROM scan WHERE ID = 1");
        MYSQL_RES* result = mysql_store_result(connection.Handle());
        MYSQL_ROW row = mysql_fetch_row(result);
        ReadPlain<StrtolConverter>(row, mysql_fetch_lengths(result), record);
        Add(sum, record);
        mysql_free_result(result);
    }
    return sum;
}

// ---- The library ----------------------------------------------------------------------------------------------------

/// Reads a record with the columns given by position or by name.
template <class Columns> void ReadLibrary(const CMyRecordSet& records, Record<UtCString>& record)
{
    record.id = records.GetFieldLong(Columns::Id());
    records.GetFieldText(Columns::Name(), record.name);
    records.GetFieldText(Columns::City(), record.city);
    record.age = records.GetFieldShort(Columns::Age());
    record.total = records.GetFieldInt64(Columns::Total());
    record.weight = records.GetFieldDouble(Columns::Weight());
    record.created = records.GetFieldDate(Columns::Created()).GetValue();
    record.isNoteNull = records.IsFieldNull(Columns::Note());
    if (!record.isNoteNull)
        records.GetFieldText(Columns::Note(), record.note);
}

struct ByPosition
{
    static unsigned long Id() { return 0; }
    static unsigned long Name() { return 1; }
    static unsigned long City() { return 2; }
    static unsigned long Age() { return 3; }
    static unsigned long Total() { return 4; }
    static unsigned long Weight() { return 5; }
    static unsigned long Created() { return 6; }
    static unsigned long Note() { return 7; }
};

/// By name on every access; the names are constants of the program.
struct ByName
{
    inline static const UtCString id{"ID"}, name{"NAME"}, city{"CITY"}, age{"AGE"}, total{"TOTAL"}, weight{"WEIGHT"},
        created{"CREATED"}, note{"NOTE"};
    static const UtCString& Id() { return id; }
    static const UtCString& Name() { return name; }
    static const UtCString& City() { return city; }
    static const UtCString& Age() { return age; }
    static const UtCString& Total() { return total; }
    static const UtCString& Weight() { return weight; }
    static const UtCString& Created() { return created; }
    static const UtCString& Note() { return note; }
};

/// By name on every access; each access makes its name from a literal.
struct ByLiteral
{
    static const char* Id() { return "ID"; }
    static const char* Name() { return "NAME"; }
    static const char* City() { return "CITY"; }
    static const char* Age() { return "AGE"; }
    static const char* Total() { return "TOTAL"; }
    static const char* Weight() { return "WEIGHT"; }
    static const char* Created() { return "CREATED"; }
    static const char* Note() { return "NOTE"; }
};

inline Record<UtCString> EmptyRecord()
{
    const UtCString empty(UT_ENCODING_UTF8);
    return {0, empty, empty, 0, 0, 0, 0, empty, false};
}

template <class Columns> Sum ReadAll(CMyRecordSet& records)
{
    Sum sum;
    Record<UtCString> record = EmptyRecord();
    while (!records.IsEOF()) {
        ReadLibrary<Columns>(records, record);
        Add(sum, record);
        records.MoveNext();
    }
    return sum;
}

template <class Columns> Sum LibraryStored(const Access& access)
{
    CMyDatabase database(Server(access), access.database.c_str());
    CMyRecordSet records(database, "scan");
    if (records.Select("") < 0)
        throw std::runtime_error(records.GetErrorMessage().string());
    return ReadAll<Columns>(records);
}

template <class Columns> Sum LibraryStreamed(const Access& access)
{
    CMyDatabase database(Server(access), access.database.c_str());
    CMyRecordSet records(database, "scan");
    if (!records.SelectLargeResult("SELECT * FROM scan"))
        throw std::runtime_error(records.GetErrorMessage().string());
    return ReadAll<Columns>(records);
}

inline Sum LibraryOneRow(const Access& access, unsigned long selects)
{
    CMyDatabase database(Server(access), access.database.c_str());
    CMyRecordSet records(database, "scan");
    Sum sum;
    Record<UtCString> record = EmptyRecord();
    for (unsigned long i = 0; i < selects; ++i) {
        if (records.Select("ID = 1") != 1)
            throw std::runtime_error(records.GetErrorMessage().string());
        ReadLibrary<ByPosition>(records, record);
        Add(sum, record);
    }
    return sum;
}

} // namespace bench
