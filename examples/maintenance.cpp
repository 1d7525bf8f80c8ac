// What an administrator does with a database: dump a table, copy everything to another name and another server, compare
// the copies, find a damaged table and repair it.
//
//     maintenance Server.ini [Server.ini of a second server]
//
// It creates "vela_maintenance" and two more on the first server, "vela_maintenance_copy" on the second, and removes
// them at the end. One of its own tables is damaged, if the folder DBS in the data directory of the first settings file
// is where that server keeps its tables. scripts/run-maintenance.sh writes the settings files and runs this program.

#include "MyDB.h"

#include "ExampleServer.h"
#include "ExampleTable.h"
#include "TimeZoneTables.h"
#include "files/UtFile.h"
#include "framework/CWnd.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include <unistd.h>

namespace {

std::string Printable(const UtCString& text)
{
    return UtCString(text, UT_ENCODING_UTF8).string();
}

// The library writes paths with "\"; every system's own functions take "/".
std::filesystem::path Native(const UtCString& path)
{
    return Printable(path.replace("\\", "/"));
}

// ---- What a person sees ---------------------------------------------------------------------------------------------

void PrintIndented(const UtCString& lines, const char* indent)
{
    for (const std::string& line : tzdatabase::Split(Printable(lines), '\n'))
        std::printf("%s%s\n", indent, line.c_str());
}

// Takes the place of message boxes. A program that copies databases has one, to end the cleanup of a failed copy.
class TerminalInterface : public MyDbUserInterface
{
public:
    TerminalInterface() : m_previous(MyDbSetUserInterface(this)) {}
    ~TerminalInterface() override { MyDbSetUserInterface(m_previous); }
    TerminalInterface(const TerminalInterface&) = delete;
    TerminalInterface& operator=(const TerminalInterface&) = delete;

    int ShowMessage(const UtCString& text, unsigned int type) override
    {
        const bool isQuestion = type == MYDB_MESSAGE_QUESTION_YESNO;
        UtCString lines = Utf8(Printable(text));
        std::puts("");
        PrintIndented(lines.trimRight("\n").replace("\n\n\n", "\n\n"), "    \xE2\x94\x82 "); // a vertical line
        std::printf("    \xE2\x94\x82 %s\n\n", isQuestion ? "[Ja]  [Nein] <" : "[OK] <");
        return isQuestion ? MYDB_ANSWER_NO : MYDB_ANSWER_OK;
    }

    void BeginWait() override {}
    void EndWait() override {}

    bool ContinueCleanup(unsigned long filesLeft) override
    {
        const bool goesOn = filesLeft > 0;
        std::printf("  A temporary file is deleted, %lu left. Go on deleting? %s.\n", filesLeft, goesOn ? "Yes" : "No");
        return goesOn;
    }

private:
    MyDbUserInterface* m_previous;
};

// Drawn anew with each step, on a terminal; elsewhere nothing.
class ProgressBar : public CProgressCtrl
{
public:
    explicit ProgressBar(long rows) { SetRange32(0, static_cast<int>(rows)); }

    intptr_t WindowProc(unsigned int message, uintptr_t wParam, intptr_t lParam) override
    {
        const intptr_t result = CProgressCtrl::WindowProc(message, wParam, lParam);
        if (m_isTerminal)
            Draw();
        return result;
    }

    void End() const
    {
        if (m_isTerminal)
            std::puts("");
    }

private:
    void Draw() const
    {
        constexpr int width = 40;
        int lower = 0;
        int upper = 0;
        GetRange(lower, upper);
        const double part = upper > 0 ? static_cast<double>(GetPos()) / upper : 1;
        std::string bar;
        for (int place = 0; place < width; ++place)
            bar += place < part * width ? "\xE2\x96\x88" : "\xE2\x96\x91"; // a full block, a light one
        std::printf("\r  %s %3.0f %%", bar.c_str(), part * 100);
        std::fflush(stdout);
    }

    const bool m_isTerminal = ::isatty(STDOUT_FILENO) == 1;
};

const char* NameOf(eTABLE_CHECK result)
{
    switch (result) {
    case TABLE_CHECK_OK:
        return "OK";
    case TABLE_CHECK_REPAIRABLE:
        return "repairable";
    case TABLE_CHECK_DEFECT:
        return "defect";
    default:
        return "invalid";
    }
}

const char* NameOf(eDB_CHECK result)
{
    switch (result) {
    case DB_CHECK_OK:
        return "OK";
    case DB_CHECK_REPAIRABLE:
        return "repairable";
    default:
        return "defect";
    }
}

const char* YesOrNo(bool answer)
{
    return answer ? "yes" : "no";
}

// ---- Databases that come and go -------------------------------------------------------------------------------------

// A database of this program, with its folder. What has been created is removed with this object.
class OwnDatabase
{
public:
    OwnDatabase(const CMyServer& server, const char* name)
        : m_administration(server, ""), m_database(server, name), m_name(name)
    {
        if (!m_administration.Open(false, ""))
            Fail("no connection", m_administration);
    }
    // As RemoveDatabase does it. That one asks the settings file in the root of the drive whether there is anything to
    // drop, and without such a file it deletes the files of tables that the server goes on to know.
    ~OwnDatabase()
    {
        m_database.Close();
        if (m_folder.IsEmpty())
            return;
        Drop(); // which leaves a folder that holds more than tables
        const bool isFolderGone = UtDeleteDirectory(m_folder) == 0;
        std::printf("  %-23s  on %-15s  database gone: %-3s  folder gone: %s\n", m_name.string(), Alias().c_str(),
                    YesOrNo(!IsThere()), YesOrNo(isFolderGone));
    }
    OwnDatabase(const OwnDatabase&) = delete;
    OwnDatabase& operator=(const OwnDatabase&) = delete;

    void Create()
    {
        Run(m_administration, UtCString("CREATE DATABASE ") + m_name + " CHARACTER SET utf8mb4");
        const bool isOpen = m_database.Open(false, "");
        m_folder = m_database.GetDBPath();
        if (!isOpen)
            Fail("the new database", m_database);
    }

    // A copy creates its database, and wants a connection that is open in it before: one of the kept behaviours.
    CMyDatabase& AsTargetOfACopy()
    {
        Create();
        Drop();
        return m_database;
    }

    CMyDatabase& Database() { return m_database; }
    const UtCString& Folder() const { return m_folder; } // with "\" at its end
    const UtCString& Name() const { return m_name; }
    std::string Alias() const { return Printable(m_database.GetServer().GetAlias()); }
    bool IsThere() const // a name without a settings file in front asks another server
    {
        const CMyServer& server = m_administration.GetServer();
        return server.ExistDatabase(server.GetServerINIFileName() + "::" + m_name);
    }

private:
    void Drop()
    {
        m_administration.ExecuteQuery(UtCString("DROP DATABASE IF EXISTS ") + m_name, false, nullptr, false);
    }

    CMyDatabase m_administration;
    CMyDatabase m_database;
    UtCString m_name;
    UtCString m_folder;
};

CMyServer SettingsOf(const char* file)
{
    CMyServer server;
    if (!server.LoadServerINI(file))
        throw std::runtime_error(std::string("no settings of a server in ") + file);
    return server;
}

// ---- The tables -----------------------------------------------------------------------------------------------------

void CreateDistances(CMyDatabase& database)
{
    Run(database, "CREATE TABLE distance (FROM_ZONE VARCHAR(40), TO_ZONE VARCHAR(40), KM INT NOT NULL, "
                  "PRIMARY KEY (FROM_ZONE, TO_ZONE)) ENGINE=MyISAM");
    const long count = Run(database, "INSERT INTO distance SELECT a.NAME, b.NAME, ROUND(6371 * ACOS(LEAST(1, "
                                     "SIN(RADIANS(a.LATITUDE)) * SIN(RADIANS(b.LATITUDE)) + COS(RADIANS(a.LATITUDE)) * "
                                     "COS(RADIANS(b.LATITUDE)) * COS(RADIANS(a.LONGITUDE - b.LONGITUDE))))) "
                                     "FROM zone a JOIN zone b ON a.NAME <> b.NAME");
    std::printf("Calculated the %ld distances between them, into a MyISAM table.\n", count);
}

void ShowTables(OwnDatabase& own)
{
    CMyDatabase& database = own.Database();
    UtCStringList names;
    database.GetTables(names, "");
    std::printf("\n%s on %s: %d tables, %.1f MB with their indexes\n\n", own.Name().string(), own.Alias().c_str(),
                names.GetCount(), static_cast<double>(database.GetDBSize()) / 1e6);
    const Table table{{"table", 12}, {"engine", 6}, {"rows", 6, true}, {"CheckTable", 10}};
    for (int i = 0; i < names.GetCount(); ++i) {
        CMyTable checked = database.GetTable(names.item(i));
        CMyRecordSet status(database, "");
        status.Select(UtCString("SHOW TABLE STATUS WHERE NAME = '") + names.item(i) + "'");
        table.Row({names.item(i), TextOf(status, "Engine"), UtCString(checked.GetRecordCount()),
                   NameOf(checked.CheckTable(nullptr))});
    }
}

// By table; a dash for one that cannot be read.
std::map<std::string, UtCString> ChecksumsOf(CMyDatabase& database)
{
    std::map<std::string, UtCString> sums;
    CMyRecordSet rows(database, "");
    const long count = rows.Select(UtCString("CHECKSUM TABLE ") + database.GetTables(""), false, true);
    for (bool isRow = count > 0; isRow; isRow = rows.MoveNext()) {
        const std::string name = TextOf(rows, "Table").string(); // "database.table"
        sums[name.substr(name.find('.') + 1)] = TextOf(rows, "Checksum");
    }
    return sums;
}

void Compare(CMyDatabase& original, OwnDatabase& copy, OwnDatabase* second)
{
    const auto expected = ChecksumsOf(original);
    auto here = ChecksumsOf(copy.Database());
    auto there = second ? ChecksumsOf(second->Database()) : here;
    std::puts("");
    const Table table{
        {"CHECKSUM TABLE", 14}, {"original", 10, true}, {"copy", 10, true}, {"second server", 13, true}, {"equal", 5}};
    for (const auto& [name, sum] : expected) {
        const bool isEqual = sum != "-" && sum == here[name] && sum == there[name];
        table.Row({name.c_str(), sum, here[name], second ? there[name] : "-", YesOrNo(isEqual)});
    }
}

// ---- Dump and copy --------------------------------------------------------------------------------------------------

void Dump(CMyDatabase& database)
{
    std::puts("\nDumpTable writes the largest one into a text file, for LOAD DATA or a spreadsheet\n");
    const UtCString file = UtGetTempDir() + "vela_maintenance_distance.txt";
    ProgressBar bar(database.GetTable("distance").GetRecordCount());
    const long count = database.DumpTable(file, "distance", true, "", ";", "\"", "", &bar);
    bar.End();
    if (count == -1)
        Fail("the dump", database);
    std::printf("  %ld rows in %lu ms, %.1f MB. The first lines:\n\n", count, database.GetQueryTime(),
                static_cast<double>(std::filesystem::file_size(Native(file))) / 1e6);
    std::ifstream lines(Native(file));
    std::string line;
    for (int i = 0; i < 3 && std::getline(lines, line); ++i)
        std::printf("  %s\n", line.substr(0, line.find('\r')).c_str());
    lines.close();
    std::filesystem::remove(Native(file));
}

// Files that an application keeps beside the tables travel with a copy. Not every server keeps its tables in DBS.
void WriteNotes(const OwnDatabase& own)
{
    std::filesystem::create_directories(Native(own.Folder()));
    std::ofstream(Native(own.Folder() + "notes.txt")) << "kept beside the tables\n";
}

void Copy(OwnDatabase& original, OwnDatabase& copy)
{
    CMyDatabase& target = copy.AsTargetOfACopy();
    if (!original.Database().CopyDatabase(target, nullptr))
        Fail("the copy", target);
    std::printf("  %s on %s, with the file beside the tables: %s\n", copy.Name().string(), copy.Alias().c_str(),
                YesOrNo(UtIsFile(copy.Folder() + "notes.txt") != 0));
}

// A table whose name needs backticks cannot be copied: one of the kept behaviours.
void FailToCopy(OwnDatabase& original, const CMyServer& server)
{
    CMyDatabase& database = original.Database();
    Run(database, "CREATE TABLE `group` (ID INT)");
    std::puts(
        "\nA copy that fails is undone. A table with the reserved word \"group\" for a name makes it fail (K-150)\n");
    OwnDatabase copy(server, "vela_maintenance_undone");
    const bool isCopied = database.CopyDatabase(copy.AsTargetOfACopy(), nullptr);
    std::printf("  CopyDatabase: %s\n", YesOrNo(isCopied));
    std::printf("  RemoveTable, which says whether it is still there: %s\n", YesOrNo(database.RemoveTable("`group`")));
}

// ---- Damage and repair ----------------------------------------------------------------------------------------------

void ShowCheck(CMyDatabase& database)
{
    UtCString description;
    const eDB_CHECK result = database.CheckDatabaseIntegrity("", &description);
    std::printf("  CheckDatabaseIntegrity: %s\n%s\n", NameOf(result), Printable(description).c_str());
}

// What tells more: each table for itself.
void ShowEachCheck(CMyDatabase& database)
{
    UtCStringList names;
    database.GetTables(names, "");
    for (int i = 0; i < names.GetCount(); ++i) {
        UtCString description;
        const eTABLE_CHECK result = database.GetTable(names.item(i)).CheckTable(&description);
        std::printf("  CheckTable %-12s  %s\n", names.item(i).string(), NameOf(result));
        if (!description.IsEmpty())
            PrintIndented(description, "      ");
    }
}

void Damage(CMyDatabase& database, const UtCString& index)
{
    std::printf("\nNow a table is damaged on disk: its index file is emptied.\n\n  %s\n\n", Printable(index).c_str());
    Run(database, "FLUSH TABLES distance"); // the server closes its files
    std::filesystem::resize_file(Native(index), 0);
    CMyRecordSet rows(database, "");
    if (rows.Select("SELECT COUNT(*) FROM distance") == -1)
        std::printf("  Reading it fails: %s\n", Printable(database.GetErrorMessage()).c_str());
    ShowEachCheck(database);
}

void Repair(CMyDatabase& database)
{
    std::puts("\nCheckAndRepairDatabaseIntegrity asks a person. Behind a yes would be a repair that repairs nothing "
              "(K-149),\n"
              "so this program answers no.");
    const bool isSound = database.CheckAndRepairDatabaseIntegrity(true);
    std::printf("  Result: %s, with the error %lu\n", YesOrNo(isSound), database.GetErrorCode());

    std::puts("\nRepairDatabase repairs: extended, and where that fails from the definitions of the tables.\n");
    std::printf("  Result: %s\n", YesOrNo(database.RepairDatabase(false, false)));
    std::puts(
        "  That is the answer of the check behind it, which misses the table FAST again. Each table for itself:\n");
    ShowEachCheck(database);
}

bool HasTableFiles(const OwnDatabase& own)
{
    return UtIsFile(own.Folder() + "distance.MYI") != 0;
}

void DamageAndRepair(OwnDatabase& own)
{
    std::puts("\nAll tables are sound, and the check of the whole database says this all the same:\n");
    ShowCheck(own.Database());
    std::puts(
        "\n  There is no table FAST: the library leaves a comma behind the last table in its statement, and promises\n"
        "  to go on doing so (docs/kept-behaviours.md, K-140). What counts are lines about other tables.");
    Damage(own.Database(), own.Folder() + "distance.MYI");
    Repair(own.Database());
}

// ---- All of it ------------------------------------------------------------------------------------------------------

void Fill(OwnDatabase& own)
{
    own.Create();
    CreateTables(own.Database());
    LoadTables(own.Database());
    CreateDistances(own.Database());
    WriteNotes(own);
}

void Tour(const CMyServer& server, const CMyServer* secondServer)
{
    OwnDatabase original(server, "vela_maintenance");
    Fill(original);
    ShowTables(original);
    Dump(original.Database());

    std::puts("\nCopyDatabase copies the tables, their rows, and the files beside them\n");
    OwnDatabase copy(server, "vela_maintenance_copy");
    Copy(original, copy);
    std::unique_ptr<OwnDatabase> second;
    if (secondServer) {
        second = std::make_unique<OwnDatabase>(*secondServer, "vela_maintenance_copy");
        Copy(original, *second);
    }
    Compare(original.Database(), copy, second.get());
    FailToCopy(original, server);

    if (HasTableFiles(original)) {
        DamageAndRepair(original);
        std::puts("\nNo row is lost:");
        Compare(original.Database(), copy, second.get());
    } else {
        std::printf("\nDamage and repair are left out: the tables of %s do not lie in\n%s.\n", original.Alias().c_str(),
                    Printable(original.Folder()).c_str());
    }
    std::puts("\nEverything is removed\n");
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2 && count != 3) {
        std::fprintf(stderr, "usage: maintenance Server.ini [Server.ini of a second server]\n");
        return 2;
    }
    const TerminalInterface terminal;
    try {
        const CMyServer server = SettingsOf(arguments[1]);
        const CMyServer secondServer = count == 3 ? SettingsOf(arguments[2]) : CMyServer();
        Tour(server, count == 3 ? &secondServer : nullptr);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "maintenance: %s\n", error.what());
        return 1;
    }
    return 0;
}
