#include "sql/DatabaseLock.h"

#include "sql/StatementBuilder.h"

#include <charconv>

namespace {

/// `arguments` is what follows the name of the lock.
UtCString Call(const char* function, const UtCString& database, const char* arguments,
               eUtEncodingType encoding) noexcept
{
    sql::StatementBuilder statement(encoding);
    statement << "SELECT " << function << "('" << database; // KEPT K-111: not escaped.
    // KEPT K-116: "_lock" for an empty name.
    // KEPT K-118: in the letter case in which it was given, which matters for locks where it does not for databases.
    statement << "_lock'" << arguments << ");";
    return statement.Take();
}

} // namespace

namespace sql {

UtCString GetLock(const UtCString& database, int seconds, eUtEncodingType encoding) noexcept
{
    char timeout[16] = ", ";
    // KEPT K-110: also a negative number, which some servers take for no limit and others refuse.
    *std::to_chars(timeout + 2, timeout + sizeof timeout - 1, seconds).ptr = '\0';
    return Call("GET_LOCK", database, timeout, encoding);
}

// KEPT K-117: once; the server counts how often the lock was taken.
UtCString ReleaseLock(const UtCString& database, eUtEncodingType encoding) noexcept
{
    return Call("RELEASE_LOCK", database, "", encoding);
}

UtCString IsFreeLock(const UtCString& database, eUtEncodingType encoding) noexcept
{
    return Call("IS_FREE_LOCK", database, "", encoding);
}

} // namespace sql
