#include "CMyDatabase.h"
#include "CMyRecordSet.h"
#include "connection/Guarded.h"
#include "connection/Reachable.h"
#include "sql/DatabaseLock.h"
#include "sql/StatementBuilder.h"

namespace {

// KEPT K-113: making sure of the connection can replace a dropped one by a new session, without the lock.
// KEPT K-114: the server that is asked answers for itself, in a cluster too.

/// Whether the statement gives exactly this text; NULL gives the empty one.
bool Answers(CMyDatabase& database, const UtCString& statement, const char* expected)
{
    sql::Whole(statement); // before the record set asks for the connection
    CMyRecordSet answer(database, UtCString());
    if (answer.Select(statement, true, true) < 1)
        return false;
    UtCString value;
    answer.GetFieldText(0UL, value);
    return value == expected;
}

} // namespace

bool CMyDatabase::LockDatabase(int seconds)
{
    return connection::Guarded(false, [&] {
        return connection::IsReachable(*this) &&
               Answers(*this, sql::GetLock(m_databaseName, seconds, m_server.GetEncodingType()), "1");
    });
}

bool CMyDatabase::UnLockDatabase()
{
    return connection::Guarded(false, [&] {
        return connection::IsReachable(*this) &&
               Answers(*this, sql::ReleaseLock(m_databaseName, m_server.GetEncodingType()), "1");
    });
}

bool CMyDatabase::IsDatabaseLocked()
{
    return connection::Guarded(false, [&] {
        // KEPT K-112: "in use" whoever holds it, and false as well when nobody could be asked.
        return connection::IsReachable(*this) &&
               Answers(*this, sql::IsFreeLock(m_databaseName, m_server.GetEncodingType()), "0");
    });
}
