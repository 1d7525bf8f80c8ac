#include "client/ErrorText.h"

#include <string>

namespace client {

namespace {

constexpr unsigned long socketCreateError = 2001;
constexpr unsigned long serverGone = 2006;
constexpr unsigned long serverLost = 2013;

} // namespace

unsigned long ErrorNumber(MYSQL* handle) noexcept
{
    return handle ? mysql_errno(handle) : 0;
}

UtCString ErrorText(MYSQL* handle)
{
    if (!handle)
        return UtCString("Keine Verbindung zum Server!");
    const unsigned int number = mysql_errno(handle);
    if (number == 0)
        return UtCString("Kein Fehler!");
    const char* text = mysql_error(handle);
    return UtCString(std::to_string(number) + ": " + (text ? text : ""), UT_ENCODING_UTF8);
}

bool IsConnectionLost(unsigned long errorNumber) noexcept
{
    return errorNumber == socketCreateError || errorNumber == serverGone || errorNumber == serverLost;
}

} // namespace client
