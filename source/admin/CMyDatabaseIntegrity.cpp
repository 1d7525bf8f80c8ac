#include "CMyDatabase.h"
#include "MyDbUserInterface.h"
#include "connection/Guarded.h"
#include "connection/UserInterface.h"
#include "sql/TableCheck.h"

// What a person is asked about a damaged database.

namespace {

constexpr unsigned long damagedRepairable = 1016;
constexpr unsigned long damagedForGood = 1017;

} // namespace

bool CMyDatabase::CheckAndRepairDatabaseIntegrity(bool askUser)
{
    return connection::Guarded(false, [&] {
        UtCString description;
        const eDB_CHECK found = CheckDatabaseIntegrity(UtCString(), &description);
        if (found == DB_CHECK_OK)
            return true;
        if (found == DB_CHECK_DEFECT)
            return ReportDefect(description, askUser);
        if (!AgreesToRepair(description, askUser))
            return false;
        if (RepairDatabase(false, true)) // KEPT K-149: although nothing is repaired.
            return true;
        CheckDatabaseIntegrity(UtCString(), &description);
        return ReportDefect(description, askUser);
    });
}

bool CMyDatabase::AgreesToRepair(const UtCString& description, bool isAsked)
{
    const UtCString message = sql::Whole(sql::RepairableMessage(m_databaseName, description));
    m_errorCode = damagedRepairable;
    m_errorMessage = message;
    return !isAsked || connection::UserInterface().ShowMessage(message, MYDB_MESSAGE_QUESTION_YESNO) == MYDB_ANSWER_YES;
}

bool CMyDatabase::ReportDefect(const UtCString& description, bool isShown)
{
    const UtCString message = sql::Whole(sql::NotRepairableMessage(m_databaseName, description));
    m_errorCode = damagedForGood;
    m_errorMessage = message;
    if (isShown)
        connection::UserInterface().ShowMessage(message, MYDB_MESSAGE_ERROR);
    return false;
}
