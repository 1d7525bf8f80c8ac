#include "CMyDatabase.h"
#include "CMyRecordSet.h"
#include "connection/Guarded.h"
#include "connection/Reachable.h"

namespace {

struct WantedUsers
{
    const UtCString& databaseName;
    const UtCString* ignoredUser; ///< null: nobody is left out
};

/// The column's text; empty when the result has no such column.
UtCString TextOf(CMyRecordSet& threads, const char* column)
{
    UtCString text;
    threads.GetFieldText(column, text);
    return text;
}

bool IsWanted(CMyRecordSet& threads, const WantedUsers& wanted)
{
    if (!TextOf(threads, "db").EqualNoCase(wanted.databaseName))
        return false;
    return wanted.ignoredUser == nullptr || !TextOf(threads, "User").EqualNoCase(*wanted.ignoredUser);
}

long CountThreads(CMyDatabase& administration, const WantedUsers& wanted)
{
    CMyRecordSet threads(administration, UtCString());
    if (threads.Select("SHOW PROCESSLIST", true, true) < 1)
        return 0;
    long count = 0;
    do {
        if (IsWanted(threads, wanted))
            ++count;
    } while (threads.MoveNext());
    return count;
}

} // namespace

long CMyDatabase::CountUsersOnThisDatabase(bool ignoreOwnUser)
{
    return connection::Guarded(0L, [&] {
        if (!connection::IsReachable(*this))
            return 0L;
        CMyDatabase administration(m_server, UtCString());
        administration.GetServer().SetUser("vela_root");
        // KEPT K-76: without the administrative login nobody is counted, so that a database in use looks unused.
        if (!connection::IsReachable(administration))
            return 0L;
        const UtCString* const ignoredUser = ignoreOwnUser ? &m_server.GetUser() : nullptr;
        // KEPT K-77: with an empty database name the threads without a database are counted, this one included.
        return CountThreads(administration, {m_databaseName, ignoredUser});
    });
}
