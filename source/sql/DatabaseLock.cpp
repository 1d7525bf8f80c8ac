#include "sql/DatabaseLock.h"

#include "text/TextBuilder.h"

#include <charconv>

namespace {

/// `arguments` is what follows the name of the lock.
UtCString Call(std::string_view function, const UtCString& database, std::string_view arguments,
               eUtEncodingType encoding) noexcept
{
    text::TextBuilder statement(encoding);
    statement.Append("SELECT ", UT_ENCODING_DEFAULT);
    statement.Append(function, UT_ENCODING_DEFAULT);
    statement.Append("('", UT_ENCODING_DEFAULT);
    statement.AppendText(database); // KEPT K-111: not escaped.
    // KEPT K-116: "_lock" for an empty name.
    // KEPT K-118: in the letter case in which it was given, which matters for locks where it does not for databases.
    statement.Append("_lock'", UT_ENCODING_DEFAULT);
    statement.Append(arguments, UT_ENCODING_DEFAULT);
    statement.Append(");", UT_ENCODING_DEFAULT);
    return statement.Take();
}

} // namespace

namespace sql {

UtCString GetLock(const UtCString& database, int seconds, eUtEncodingType encoding) noexcept
{
    char timeout[16] = ", ";
    // KEPT K-110: also a negative number, which some servers take for no limit and others refuse.
    const char* const end = std::to_chars(timeout + 2, timeout + sizeof timeout, seconds).ptr;
    return Call("GET_LOCK", database, {timeout, static_cast<size_t>(end - timeout)}, encoding);
}

// KEPT K-117: once; the server counts how often the lock was taken.
UtCString ReleaseLock(const UtCString& database, eUtEncodingType encoding) noexcept
{
    return Call("RELEASE_LOCK", database, {}, encoding);
}

UtCString IsFreeLock(const UtCString& database, eUtEncodingType encoding) noexcept
{
    return Call("IS_FREE_LOCK", database, {}, encoding);
}

} // namespace sql
