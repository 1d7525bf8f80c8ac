#include "platform/LocaleDate.h"

#include "platform/win32/Recode.h"
#include "platform/win32/WinApi.h"

#include <cwchar>
#include <oleauto.h>

namespace platform {
namespace {

// The encoding in which the system writes dates of the user's locale; a locale without one uses the system's own.
unsigned int CodePageOfUser()
{
    wchar_t number[8] = L"";
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE, number, 8);
    return static_cast<unsigned int>(std::wcstoul(number, nullptr, 10));
}

} // namespace

std::string ShortDate(const CalendarFields& date)
{
    constexpr int longest = 78;
    SYSTEMTIME day{};
    day.wYear = static_cast<WORD>(date.year);
    day.wMonth = static_cast<WORD>(date.month);
    day.wDay = static_cast<WORD>(date.day);
    char text[longest + 2] = "";
    GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &day, nullptr, text, sizeof text);
    const std::string_view shown = text;
    return shown.size() <= longest ? ToUtf8(ToWide(shown, CodePageOfUser())) : std::string();
}

bool ParseLocaleDate(std::string_view utf8, uint32_t flags, CalendarFields& result)
{
    std::wstring text = ToWide(utf8);
    if (text.find(L'\0') != std::wstring::npos)
        return false;
    DATE date = 0;
    UDATE fields{};
    if (FAILED(VarDateFromStr(text.data(), LOCALE_USER_DEFAULT, flags, &date)) ||
        FAILED(VarUdateFromDate(date, 0, &fields)))
        return false;
    const SYSTEMTIME& time = fields.st;
    result = {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
    return true;
}

} // namespace platform
