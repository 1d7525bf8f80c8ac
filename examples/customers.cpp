// Changing rows: a customer table is filled, modified, thinned out and copied into, as a host application does it.
//
//     MYDB_SERVER=host:port MYDB_USER=user MYDB_PASSWORD=password customers
//
// It creates the database "vela_customers" and drops it at the end. All rows that it shows are read from the server.
// scripts/demo.sh builds this program, starts a private server and runs it.

#include "MyDB.h"

#include "ExampleServer.h"
#include "ExampleTable.h"

#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>

namespace {

// ---- Tables ---------------------------------------------------------------------------------------------------------

// The names are in capitals, as the library asks for tables by their upper-case names; that matters on a server that
// tells upper from lower case. The last four columns of CUSTOMER are audit columns, which the library fills by itself.
void CreateTables(CMyDatabase& database)
{
    Run(database, "CREATE TABLE CUSTOMER (ID INT AUTO_INCREMENT PRIMARY KEY, NAME VARCHAR(20) NOT NULL, "
                  "CITY VARCHAR(20), BORN DATE, CREDIT DOUBLE NOT NULL DEFAULT 0, "
                  "ERFASST VARCHAR(20), ERF_TIME DATETIME, MUTATOR VARCHAR(20), MUT_TIME DATETIME, INDEX (NAME))");
    Run(database, "CREATE TABLE PROSPECT (ID INT AUTO_INCREMENT PRIMARY KEY, NAME VARCHAR(20) NOT NULL, "
                  "CITY VARCHAR(20), BORN DATE, MET_AT VARCHAR(20))");
    Run(database, Utf8("INSERT INTO PROSPECT (NAME, CITY, BORN, MET_AT) VALUES "
                       "('Chlo\xC3\xA9 Lef\xC3\xA8vre', 'Besan\xC3\xA7on', '1993-11-30', 'Messe K\xC3\xB6ln')"));
}

// The time of day of a column; a dash for NULL.
UtCString TimeOf(const CMyRecordSet& rows, const char* column)
{
    const CDateTime moment = rows.GetFieldDate(column);
    return moment.IsNull() ? Utf8("-") : moment.GetDate(10);
}

void ShowCustomers(CMyDatabase& database, const char* condition)
{
    CMyRecordSet customers(&database, "CUSTOMER");
    const Table table{{"ID", 2, true}, {"NAME", 15},    {"CITY", 13},   {"BORN", 10},   {"CREDIT", 6, true},
                      {"ERFASST", 7},  {"ERF_TIME", 8}, {"MUTATOR", 7}, {"MUT_TIME", 8}};
    for (bool isRow = customers.Select(condition) > 0; isRow; isRow = customers.MoveNext())
        table.Row({TextOf(customers, "ID"), TextOf(customers, "NAME"), TextOf(customers, "CITY"),
                   TextOf(customers, "BORN"), TextOf(customers, "CREDIT"), TextOf(customers, "ERFASST"),
                   TimeOf(customers, "ERF_TIME"), TextOf(customers, "MUTATOR"), TimeOf(customers, "MUT_TIME")});
}

// ---- Changes --------------------------------------------------------------------------------------------------------

// What a record set keeps about the last AppendEnd or ModifyEnd: the server's message.
UtCString MessageOf(const CMyRecordSet& rows)
{
    return UtCString(rows.GetModifyErrorMessage(), UT_ENCODING_UTF8);
}

void Expect(bool isDone, const char* what, const CMyRecordSet& rows)
{
    if (!isDone)
        throw std::runtime_error(std::string(what) + ": " + MessageOf(rows).string());
}

struct Customer
{
    const char* name;
    const char* city;
    CDateTime born;
    double credit;
};

// One row: the bracket is opened, columns are set with the types they have, and AppendEnd sends one INSERT. A column
// that is not set keeps its default.
void Append(CMyRecordSet& customers, const Customer& customer)
{
    customers.AppendStart();
    customers.SetFieldText("NAME", Utf8(customer.name));
    if (customer.city)
        customers.SetFieldText("CITY", Utf8(customer.city));
    customers.SetFieldDate("BORN", customer.born);
    customers.SetFieldDouble("CREDIT", customer.credit);
    Expect(customers.AppendEnd(), customer.name, customers);
}

void ShowAppend(CMyDatabase& database)
{
    CMyRecordSet customers(&database, "CUSTOMER");
    Append(customers, {"J\xC3\xBCrgen M\xC3\xBCller", "Z\xC3\xBCrich", CDateTime(1961, 5, 17, 0, 0, 0), 2500});
    Append(customers, {"\xC3\x85sa Lindstr\xC3\xB6m", "G\xC3\xB6teborg", CDateTime(1978, 2, 28, 0, 0, 0), 1200.5});
    Append(customers, {"Niamh O'Neil", nullptr, CDateTime(1985, 9, 3, 0, 0, 0), 0});
    Append(customers, {"Zo\xC3\xAB \"Zo\" Stra\xC3\x9F", "M\xC3\xBCnchen", CDateTime(2000, 12, 31, 0, 0, 0), 40});
    std::printf("\nFour customers are appended. The library sets ERFASST and ERF_TIME: who, and when\n\n");
    ShowCustomers(database, "ORDER BY ID");
}

// A key says which rows are meant. A text for a text column is data, whatever characters it has.
void ShowModify(CMyDatabase& database)
{
    CMyRecordSet customers(&database, "CUSTOMER");
    CMyKey key("NAME", "Niamh O'Neil", "=");
    key.Add("CREDIT", 100, "<");

    customers.ModifyStart(key);
    customers.SetFieldText("CITY", Utf8("D\xC3\xBAn Laoghaire"));
    customers.SetFieldOperation("CREDIT", "CREDIT + 300"); // an expression, which the server works out
    Expect(customers.ModifyEnd(), "the change", customers);

    std::printf(
        "\nOne is modified. This is the condition that the key makes, and what the server says:\n\n  %s\n  %s\n\n",
        UtCString(key.CreateClause(&customers), UT_ENCODING_UTF8).string(), MessageOf(customers).string());
    ShowCustomers(database, "MUTATOR IS NOT NULL");
}

void ShowDelete(CMyDatabase& database)
{
    CMyRecordSet customers(&database, "CUSTOMER");
    const CMyKey zurich("CITY", Utf8("Z\xC3\xBCrich"), "=");
    const long before = customers.CountSQL(zurich);

    customers.ModifyStart(zurich);
    customers.DeleteRec(); // only marks; ModifyEnd deletes
    Expect(customers.ModifyEnd(), "the deletion", customers);
    std::printf("\nCustomers in Z\xC3\xBCrich: %ld, and after the deletion: %ld.\n", before,
                customers.CountSQL(zurich));
}

// Columns of one name are copied, keys are not: the new row gets its own. The row that AppendEnd has made is then read
// again, with all that the server has filled in.
void ShowCopy(CMyDatabase& database)
{
    CMyRecordSet prospects(&database, "PROSPECT");
    CMyRecordSet customers(&database, "CUSTOMER");
    if (prospects.Select(CMyKey("MET_AT", Utf8("Messe K\xC3\xB6ln"), "="), "", "") != 1)
        Fail("the prospect", database);

    customers.AppendStart();
    customers.CopyRecord(prospects);
    customers.SetFieldDouble("CREDIT", 500); // the prospect has none
    Expect(customers.AppendEnd(), "the copy", customers);
    if (!customers.SelectLastInsertedRecord())
        Fail("the new customer", database);

    std::printf("\nProspect %ld becomes customer %ld, who reads back as %s from %s. All customers now\n\n",
                prospects.GetFieldLong("ID"), customers.GetFieldLong("ID"), TextOf(customers, "NAME").string(),
                TextOf(customers, "CITY").string());
    ShowCustomers(database, "ORDER BY ID");
}

// A failure is a value; nothing has changed then, and the record set keeps the server's reason.
void ShowRefusal(CMyDatabase& database)
{
    CMyRecordSet customers(&database, "CUSTOMER");
    customers.AppendStart();
    customers.SetFieldLong("ID", 2);
    customers.SetFieldText("NAME", Utf8("Ren\xC3\xA9 Wei\xC3\x9F"));
    if (customers.AppendEnd())
        throw std::runtime_error("two customers with one number");
    std::printf("\nThe server refuses a second customer with the number 2:\n\n  %s\n", MessageOf(customers).string());
}

// ---- The table handle -----------------------------------------------------------------------------------------------

const char* NameOf(eTableTypes type)
{
    return type == TABLE_TYPE_INNODB ? "InnoDB" : "another engine";
}

void ShowTable(CMyDatabase& database)
{
    const CMyTable customer(&database, "CUSTOMER");
    std::printf("\nWhat the table handle says about the table\n\n");
    const Table table{{"column", 8}, {"type", 11}, {"bytes", 5, true}, {"NULL", 4}};
    for (unsigned long no = 0; no < static_cast<unsigned long>(customer.GetFieldCount()); ++no) {
        const UtCString name = customer.GetFieldName(no);
        const bool canBeNull = (customer.GetField(no)->GetFlags() & NOT_NULL_FLAG) == 0;
        table.Row({name, customer.GetFieldTypeString(name), UtCString(customer.GetFieldSize(name)),
                   canBeNull ? "yes" : "no"});
    }
    std::printf("\n  Primary key %s; %s, %s transactions; %ld records, %lld bytes of data and %lld of indexes.\n",
                customer.GetPrimaryKeyFieldName().string(), NameOf(customer.GetTableType()),
                customer.SupportTransaction() ? "with" : "without", customer.GetRecordCount(),
                customer.GetTableDataSize(), customer.GetTableIndexSize());
}

void Tour()
{
    const CMyServer server = ServerFromEnvironment();
    const UtCString name("vela_customers");
    const ExampleDatabase tour(server, name);

    CMyDatabase database(server, name);
    if (!database.Open(false, ""))
        Fail("no connection", database);

    CreateTables(database);
    std::printf("The tables CUSTOMER and PROSPECT are created in the database %s.\n", name.string());
    ShowAppend(database);
    ShowModify(database);
    ShowDelete(database);
    ShowCopy(database);
    ShowRefusal(database);
    ShowTable(database);
}

} // namespace

int main()
{
    try {
        Tour();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "customers: %s\n", error.what());
        return 1;
    }
    return 0;
}
