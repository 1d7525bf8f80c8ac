#include "connection/ErrorBox.h"

#include "connection/UserInterface.h"
#include "platform/ModuleFileName.h"
#include "text/UtCStringList.h"

namespace connection {

namespace {

constexpr int longestStatement = 32000;

const char* const unexpectedError = "Unerwarteter Fehler in Programm %s!\n\nModul: \t%s\nZeile: \t%s\n\n\n"
                                    "Melden Sie bitte diesen Fehler der Hotline:\n\n"
                                    "MyDB\n";

} // namespace

void ShowStatementError(const UtCString& error, const UtCString& summary, const UtCString& statement)
{
    const UtCString query =
        statement.GetLength() > longestStatement ? statement.substr(0, longestStatement) : statement;
    UtCString text;
    if (summary.IsEmpty()) {
        text.FormatStringList("Error in ExecuteQuery\n\n    Error: %s\n\n    Query:\n\n%s\n\n", {error, query},
                              UT_ENCODING_UTF8);
    } else {
        text.FormatStringList("Error in ExecuteQuery\n\n    Error: %s\n\n    Info: %s\n    Query:\n\n%s\n\n",
                              {error, summary, query}, UT_ENCODING_UTF8);
    }
    UserInterface().ShowMessage(text, MYDB_MESSAGE_ERROR);
}

void ShowUnexpectedError()
{
    const UtCString program(platform::ModuleFileName(), UT_ENCODING_UTF8);
    UtCString text;
    text.FormatStringList(unexpectedError, {program, "MyDB", "2524"}, UT_ENCODING_UTF8);
    UserInterface().ShowMessage(text, MYDB_MESSAGE_INFORMATION);
}

} // namespace connection
