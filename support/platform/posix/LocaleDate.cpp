#include "platform/LocaleDate.h"

#include "platform/LocalTime.h"
#include "platform/posix/DateTextParser.h"
#include "platform/posix/Recode.h"
#include "platform/posix/UserLocale.h"

#include <cstring>
#include <ctime>
#include <cwctype>
#include <langinfo.h>

namespace platform {
namespace {

constexpr int timeMask = LC_TIME_MASK | LC_CTYPE_MASK;

std::wstring Wide(std::string_view text, const char* encoding)
{
    std::string bytes;
    Recode(text, encoding, "WCHAR_T", bytes);
    std::wstring wide(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(wide.data(), bytes.data(), wide.size() * sizeof(wchar_t));
    return wide;
}

std::wstring Lower(std::wstring text, locale_t locale)
{
    for (wchar_t& character : text)
        character = static_cast<wchar_t>(towlower_l(static_cast<wint_t>(character), locale));
    return text;
}

std::wstring Name(nl_item item, locale_t locale)
{
    std::wstring name = Lower(Wide(nl_langinfo_l(item, locale), nl_langinfo_l(CODESET, locale)), locale);
    std::erase(name, L' ');
    return name;
}

DateVocabulary VocabularyOf(locale_t locale)
{
    constexpr nl_item months[] = {MON_1, MON_2, MON_3, MON_4,  MON_5,  MON_6,
                                  MON_7, MON_8, MON_9, MON_10, MON_11, MON_12};
    constexpr nl_item shortMonths[] = {ABMON_1, ABMON_2, ABMON_3, ABMON_4,  ABMON_5,  ABMON_6,
                                       ABMON_7, ABMON_8, ABMON_9, ABMON_10, ABMON_11, ABMON_12};
    DateVocabulary vocabulary;
    vocabulary.order = OrderOfPattern(nl_langinfo_l(D_FMT, locale));
    for (size_t index = 0; index < 12; ++index) {
        vocabulary.months[index] = Name(months[index], locale);
        vocabulary.shortMonths[index] = Name(shortMonths[index], locale);
    }
    vocabulary.am = Name(AM_STR, locale);
    vocabulary.pm = Name(PM_STR, locale);
    for (const nl_item item : {DAY_1, DAY_2, DAY_3, DAY_4, DAY_5, DAY_6, DAY_7, ABDAY_1, ABDAY_2, ABDAY_3, ABDAY_4,
                               ABDAY_5, ABDAY_6, ABDAY_7})
        vocabulary.ignoredWords.push_back(Name(item, locale));
    for (const std::wstring& word : WordsOfPattern(Wide(nl_langinfo_l(D_FMT, locale), nl_langinfo_l(CODESET, locale))))
        vocabulary.ignoredWords.push_back(Lower(word, locale));
    return vocabulary;
}

int CurrentYear()
{
    CalendarFields now{};
    LocalTimeFromSeconds(CurrentTime(), now);
    return now.year;
}

} // namespace

std::string ShortDate(const CalendarFields& date)
{
    const UserLocale locale(timeMask);
    tm fields{};
    fields.tm_year = date.year - 1900;
    fields.tm_mon = date.month - 1;
    fields.tm_mday = date.day;
    timegm(&fields); // sets the day of the week and of the year
    char buffer[80];
    const size_t length = strftime_l(buffer, sizeof buffer, "%x", &fields, locale.Handle());
    std::string text;
    if (length <= longestShortDate)
        Recode({buffer, length}, nl_langinfo_l(CODESET, locale.Handle()), "UTF-8", text);
    return text;
}

bool ParseLocaleDate(std::string_view utf8, uint32_t flags, CalendarFields& result)
{
    const UserLocale locale(timeMask);
    const std::wstring text = Lower(Wide(utf8, "UTF-8"), locale.Handle());
    return ParseDateText(text, VocabularyOf(locale.Handle()), CurrentYear(), flags, result);
}

} // namespace platform
