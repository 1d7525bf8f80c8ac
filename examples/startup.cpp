// What an application does when it starts: find out from its settings file whether it can work, take the lock of its
// database, see who else is in it, and show a report about the server.
//
//     startup Server.ini
//
// It creates the database "vela_startup" and drops it at the end. scripts/run-startup.sh writes a settings file and
// runs this program; docs/server-ini.md describes the file.

#include "MyDB.h"

#include <cstdio>

namespace {

// The words of the message boxes are the application's. Each %s is replaced by what the library found out.
const UtCString connectError("Die Verbindung zum Datenbankserver ist nicht m\xF6glich!\n\n"
                             "Fehler %s: %s\nServer: %s");
const UtCString directoryError("Das Verzeichnis \"%s\" ist nicht verf\xFCgbar!\n\n"
                               "Datenverzeichnis: %s");

const UtCString databaseName("vela_startup");

const char* YesOrNo(bool answer)
{
    return answer ? "yes" : "no";
}

void Print(const UtCString& text)
{
    std::puts(UtCString(text, UT_ENCODING_UTF8).string());
}

bool Run(CMyDatabase& database, const UtCString& statement)
{
    const bool isDone = database.ExecuteQuery(statement, false, nullptr, false) != -1;
    if (!isDone)
        std::fprintf(stderr, "%s\n", UtCString(database.GetErrorMessage(), UT_ENCODING_UTF8).string());
    return isDone;
}

// Only one program at a time may do what follows; another connection stands for the other program here. The lock ends
// with its connection, so a program that crashes locks nobody out.
bool WorkAlone(CMyDatabase& database)
{
    if (!database.LockDatabase(10))
        return false;
    CMyDatabase other(database.GetServer(), databaseName);
    std::printf("\nThe lock of the database is ours.\n");
    std::printf("  Another program gets it:           %s\n", YesOrNo(other.LockDatabase(0)));
    std::printf("  It sees that somebody has it:      %s\n", YesOrNo(other.IsDatabaseLocked()));
    std::printf("  Connections to the database:       %ld\n", database.CountUsersOnThisDatabase(false));
    std::printf("  Somebody else's among them:        %s\n", YesOrNo(database.IsDatabaseInUse()));
    std::printf("We give the lock back:               %s\n", YesOrNo(database.UnLockDatabase()));
    std::printf("  Now the other program gets it:     %s\n", YesOrNo(other.LockDatabase(10)));
    return true;
}

bool Work(const CMyServer& server)
{
    CMyDatabase database(server, databaseName);
    if (!WorkAlone(database))
        return false;
    std::puts("");
    Print(database.GetInfo(DB_INFO_REPORT));
    return true;
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fprintf(stderr, "usage: startup Server.ini\n");
        return 2;
    }
    CMyServer server;
    if (!server.ConnectApplicationToServer(arguments[1], "", connectError, directoryError))
        return 1; // a message box has said why
    Print(UtCString("The server \"") + server.GetAlias() +
          "\" answers, and the folders in its data directory are there.");

    CMyDatabase creator(server, "");
    if (!Run(creator, UtCString("CREATE DATABASE ") + databaseName))
        return 1;
    const bool isDone = Work(server);
    if (!Run(creator, UtCString("DROP DATABASE ") + databaseName) || !isDone)
        return 1;
    std::printf("\nThe database %s is dropped again.\n", databaseName.string());
    return 0;
}
