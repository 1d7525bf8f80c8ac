#include "platform/LocaleDate.h"

#include "platform/win32/DateInForm.h"
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

std::string DateInForm(const CalendarFields& date, const char* form)
{
    constexpr int largestCount = 78; // with the zero
    SYSTEMTIME day{};
    day.wYear = static_cast<WORD>(date.year);
    day.wMonth = static_cast<WORD>(date.month);
    day.wDay = static_cast<WORD>(date.day);
    char text[largestCount + 2];
    const int count = GetDateFormatA(LOCALE_USER_DEFAULT, form ? 0 : DATE_SHORTDATE, &day, form, text, sizeof text);
    if (count < 1 || count > largestCount)
        return std::string();
    return ToUtf8(ToWide({text, static_cast<size_t>(count) - 1}, CodePageOfUser()));
}

std::string ShortDate(const CalendarFields& date)
{
    return DateInForm(date, nullptr);
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
