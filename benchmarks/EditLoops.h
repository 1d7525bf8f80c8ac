#pragma once

#include "CMyDatabase.h"
#include "CMyKey.h"
#include "CMyRecordSet.h"
#include "Connection.h"
#include "EditTables.h"

#include <cstdio>
#include <ctime>
#include <stdexcept>
#include <string>

// The loops that are compared. Each writes its records with one statement per record and asks whether one row was
// written.
namespace bench {

/// What one loop writes to.
struct Target
{
    std::string table;
    bool isAudited;
};

inline const Target personTable{"person", false};
inline const Target auditedTable{"audited", true};

// ---- The plain client -----------------------------------------------------------------------------------------------

/// A text escaped for a statement; long enough for the texts of the records.
struct Escaped
{
    char text[128];

    Escaped(MYSQL* handle, const std::string& value)
    {
        mysql_real_escape_string(handle, text, value.data(), static_cast<unsigned long>(value.size()));
    }
};

struct Statement
{
    char text[1024];
    int length = 0;

    template <class... Values> void Append(const char* format, Values... values)
    {
        length += std::snprintf(text + length, sizeof text - static_cast<size_t>(length), format, values...);
    }
    void AppendNow()
    {
        const time_t now = std::time(nullptr);
        tm local{};
        localtime_r(&now, &local);
        length += static_cast<int>(
            std::strftime(text + length, sizeof text - static_cast<size_t>(length), "'%Y-%m-%d %H:%M:%S'", &local));
    }
};

inline void RunForOneRow(PlainConnection& connection, const Statement& statement)
{
    connection.Run(statement.text, static_cast<unsigned long>(statement.length));
    if (mysql_affected_rows(connection.Handle()) != 1)
        connection.Fail("no row written");
}

inline void PlainInserts(const Access& access, const Target& target, unsigned long count)
{
    PlainConnection connection(access);
    const std::vector<Person>& persons = Persons();
    for (unsigned long id = 1; id <= count; ++id) {
        const Person& person = persons[id % persons.size()];
        const Moment& created = person.plainCreated;
        const Escaped name(connection.Handle(), person.plainName);
        const Escaped city(connection.Handle(), person.plainCity);
        Statement statement;
        statement.Append(
            "INSERT INTO %s SET ID = %lu, NAME = '%s', CITY = '%s', AGE = %d, TOTAL = %lld, WEIGHT = %.15g,"
            " CREATED = '%04d-%02d-%02d %02d:%02d:%02d'",
            target.table.c_str(), id, name.text, city.text, person.age, person.total, person.weight, created.year,
            created.month, created.day, created.hour, created.minute, created.second);
        if (target.isAudited) {
            statement.Append(", ERFASST = 'vela', ERF_TIME = ");
            statement.AppendNow();
        }
        RunForOneRow(connection, statement);
    }
}

inline void PlainUpdates(const Access& access, const Target& target, unsigned long count)
{
    PlainConnection connection(access);
    const std::vector<Person>& persons = Persons();
    for (unsigned long id = 1; id <= count; ++id) {
        const Person& person = persons[id % persons.size()];
        const Escaped name(connection.Handle(), person.plainName);
        Statement statement;
        statement.Append("UPDATE %s SET NAME = '%s', AGE = %d, TOTAL = %lld", target.table.c_str(), name.text,
                         person.age, person.total);
        if (target.isAudited) {
            statement.Append(", MUTATOR = 'vela', MUT_TIME = ");
            statement.AppendNow();
        }
        statement.Append(" WHERE ID = %lu", id);
        RunForOneRow(connection, statement);
    }
}

// ---- The library ----------------------------------------------------------------------------------------------------

struct Names
{
    UtCString id{"ID"}, name{"NAME"}, city{"CITY"}, age{"AGE"}, total{"TOTAL"}, weight{"WEIGHT"}, created{"CREATED"};
    UtCString active{"ACTIVE"}, ratio{"RATIO"}, shortName{"SHORTNAME"};
    UtCString equal{"="}, above{">"}, like{"LIKE"};
};

/// The names are constants of the program.
inline const Names names;

inline void Expect(bool isWritten, const CMyRecordSet& records)
{
    if (!isWritten)
        throw std::runtime_error(std::string("no row written: ") + records.GetModifyErrorMessage().string());
}

inline void SetPerson(CMyRecordSet& records, long id, const Person& person)
{
    records.SetFieldLong(names.id, id);
    records.SetFieldText(names.name, person.name);
    records.SetFieldText(names.city, person.city);
    records.SetFieldShort(names.age, person.age);
    records.SetFieldInt64(names.total, person.total);
    records.SetFieldDouble(names.weight, person.weight);
    records.SetFieldDate(names.created, person.created);
}

inline void LibraryInserts(const Access& access, const Target& target, unsigned long count)
{
    CMyDatabase database(Server(access), access.database.c_str());
    CMyRecordSet records(database, target.table.c_str());
    const std::vector<Person>& persons = Persons();
    for (unsigned long id = 1; id <= count; ++id) {
        records.AppendStart();
        SetPerson(records, static_cast<long>(id), persons[id % persons.size()]);
        Expect(records.AppendEnd(), records);
    }
}

inline void LibraryUpdates(const Access& access, const Target& target, unsigned long count)
{
    CMyDatabase database(Server(access), access.database.c_str());
    CMyRecordSet records(database, target.table.c_str());
    const std::vector<Person>& persons = Persons();
    for (unsigned long id = 1; id <= count; ++id) {
        const Person& person = persons[id % persons.size()];
        records.ModifyStart(CMyKey(names.id, static_cast<long>(id), names.equal));
        records.SetFieldText(names.name, person.name);
        records.SetFieldShort(names.age, person.age);
        records.SetFieldInt64(names.total, person.total);
        Expect(records.ModifyEnd(), records);
    }
}

// ---- Texts alone ----------------------------------------------------------------------------------------------------

/// Shows the list of assignments without sending it.
class SetListRecords : public CMyRecordSet
{
public:
    using CMyRecordSet::CMyRecordSet;
    using CMyRecordSet::CreateSetClause;

    void SetTenColumns(const Person& person)
    {
        AppendStart();
        SetPerson(*this, 1, person);
        SetFieldBool(names.active, true);
        SetFieldFloat(names.ratio, 0.5F);
        SetFieldText(names.shortName, names.city);
    }
};

inline CMyKey KeyOfThree(const Person& person)
{
    CMyKey key;
    key.Add(names.name, person.name, names.equal)
        .Add(names.age, static_cast<long>(person.age), names.above)
        .Add(names.created, person.created, names.above);
    return key;
}

/// A connection and a record set whose table is loaded, for texts that need to know the columns.
struct TextSetting
{
    CMyDatabase database;
    SetListRecords records;

    explicit TextSetting(const Access& access)
        : database(Server(access), access.database.c_str()), records(database, "ten")
    {
        if (KeyOfThree(Persons()[0]).CreateClause(&records).IsEmpty())
            throw std::runtime_error("no table");
    }
};

inline void BuildKeys(const Access& access, unsigned long count)
{
    const TextSetting setting(access);
    for (unsigned long i = 0; i < count; ++i)
        KeyOfThree(Persons()[i % Persons().size()]);
}

inline void BuildClauses(const Access& access, unsigned long count)
{
    const TextSetting setting(access);
    const CMyKey key = KeyOfThree(Persons()[1]);
    for (unsigned long i = 0; i < count; ++i)
        key.CreateClause(&setting.records);
}

inline void BuildChanges(const Access& access, unsigned long count)
{
    TextSetting setting(access);
    for (unsigned long i = 0; i < count; ++i)
        setting.records.SetTenColumns(Persons()[i % Persons().size()]);
}

inline void BuildSetLists(const Access& access, unsigned long count)
{
    TextSetting setting(access);
    setting.records.SetTenColumns(Persons()[1]);
    for (unsigned long i = 0; i < count; ++i) {
        UtCString list;
        setting.records.CreateSetClause(list);
    }
}

inline void FormatDates(const Access& access, unsigned long count)
{
    const TextSetting setting(access);
    for (unsigned long i = 0; i < count; ++i)
        Persons()[i % Persons().size()].created.GetDate(9);
}

} // namespace bench
