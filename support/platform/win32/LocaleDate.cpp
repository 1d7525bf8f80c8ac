#include "platform/LocaleDate.h"

#include "platform/win32/Recode.h"
#include "platform/win32/WinApi.h"

#include <oleauto.h>

namespace platform {
namespace {

SYSTEMTIME SystemTimeOf(const CalendarFields& date)
{
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(date.year);
    time.wMonth = static_cast<WORD>(date.month);
    time.wDay = static_cast<WORD>(date.day);
    return time;
}

} // namespace

std::string ShortDate(const CalendarFields& date)
{
    const SYSTEMTIME time = SystemTimeOf(date);
    char text[80];
    const int size = GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, text, sizeof text);
    if (size < 2)
        return {};
    return ToUtf8(ToWide({text, static_cast<size_t>(size) - 1}, CP_ACP));
}

bool ParseLocaleDate(std::string_view utf8, uint32_t flags, CalendarFields& result)
{
    std::wstring text = ToWide(utf8, CP_UTF8);
    DATE date = 0;
    SYSTEMTIME time;
    if (FAILED(VarDateFromStr(text.data(), LOCALE_USER_DEFAULT, flags, &date)) || !VariantTimeToSystemTime(date, &time))
        return false;
    result = {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
    return true;
}

} // namespace platform
