#include "platform/posix/DateTextParser.h"

#include "platform/LocaleDate.h"

#include <gtest/gtest.h>

namespace {

using platform::CalendarFields;
using platform::DateOrder;
using platform::DateVocabulary;

constexpr int thisYear = 2031;

const DateVocabulary german = {
    DateOrder::dayMonthYear,
    {L"januar", L"februar", L"m\u00E4rz", L"april", L"mai", L"juni", L"juli", L"august", L"september", L"oktober",
     L"november", L"dezember"},
    {L"jan.", L"feb.", L"m\u00E4r", L"apr.", L"mai", L"jun", L"jul.", L"aug.", L"sep.", L"okt.", L"nov.", L"dez."},
    L"",
    L"",
    {L"dienstag", L"di"}};

const DateVocabulary american = {
    DateOrder::monthDayYear,
    {L"january", L"february", L"march", L"april", L"may", L"june", L"july", L"august", L"september", L"october",
     L"november", L"december"},
    {L"jan", L"feb", L"mar", L"apr", L"may", L"jun", L"jul", L"aug", L"sep", L"oct", L"nov", L"dec"},
    L"am",
    L"pm",
    {L"tuesday", L"tue"}};

const DateVocabulary japanese = {DateOrder::yearMonthDay,
                                 {L"1\u6708", L"2\u6708", L"3\u6708", L"4\u6708", L"5\u6708", L"6\u6708", L"7\u6708",
                                  L"8\u6708", L"9\u6708", L"10\u6708", L"11\u6708", L"12\u6708"},
                                 {},
                                 L"\u5348\u524D",
                                 L"\u5348\u5F8C",
                                 {L"\u5E74", L"\u6708", L"\u65E5"}};

struct Row
{
    std::wstring_view text;
    CalendarFields fields;
};

std::string Narrow(std::wstring_view text)
{
    std::string narrow;
    for (const wchar_t character : text)
        narrow += character < 128 ? static_cast<char>(character) : '?';
    return narrow;
}

std::string Shown(const CalendarFields& fields)
{
    char text[96];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", fields.year, fields.month, fields.day,
                  fields.hour, fields.minute, fields.second);
    return text;
}

template <size_t N> void ExpectRead(const Row (&rows)[N], const DateVocabulary& vocabulary)
{
    for (const Row& row : rows) {
        CalendarFields fields{};
        EXPECT_TRUE(ParseDateText(row.text, vocabulary, thisYear, 0, fields)) << Narrow(row.text);
        EXPECT_EQ(Shown(fields), Shown(row.fields)) << Narrow(row.text);
    }
}

template <size_t N> void ExpectRefused(const std::wstring_view (&texts)[N], const DateVocabulary& vocabulary)
{
    for (const std::wstring_view text : texts) {
        CalendarFields fields = {1, 2, 3, 4, 5, 6};
        EXPECT_FALSE(ParseDateText(text, vocabulary, thisYear, 0, fields)) << Narrow(text);
        EXPECT_EQ(fields, (CalendarFields{1, 2, 3, 4, 5, 6})) << Narrow(text);
    }
}

TEST(DateTextParserOfPosix, ReadsIsoFormsInEveryLocale)
{
    const Row rows[] = {
        {L"2024-03-05", {2024, 3, 5, 0, 0, 0}},
        {L"2024-3-5", {2024, 3, 5, 0, 0, 0}},
        {L"2024/03/05", {2024, 3, 5, 0, 0, 0}},
        {L"20240305", {2024, 3, 5, 0, 0, 0}},
        {L"20240305 14:07", {2024, 3, 5, 14, 7, 0}},
        {L"2024-03-05 14:07", {2024, 3, 5, 14, 7, 0}},
        {L"2024-03-05 14:07:09", {2024, 3, 5, 14, 7, 9}},
        {L"2024-03-05t14:07:09", {2024, 3, 5, 14, 7, 9}},
        {L"2024-03-05t14:07:09.999", {2024, 3, 5, 14, 7, 9}},
        {L"2024-03-05t14:07:09.999999999", {2024, 3, 5, 14, 7, 9}},
        {L"2024-03-05\u00A014:07", {2024, 3, 5, 14, 7, 0}},
        {L"2024-03-05\u202F14:07", {2024, 3, 5, 14, 7, 0}},
        {L"\t2024-03-05\v14:07\r\n", {2024, 3, 5, 14, 7, 0}},
        {L"  2024-03-05   14:07:09  ", {2024, 3, 5, 14, 7, 9}},
        {L"0100-01-01", {100, 1, 1, 0, 0, 0}},
        {L"9999-12-31 23:59:59", {9999, 12, 31, 23, 59, 59}},
    };
    ExpectRead(rows, german);
    ExpectRead(rows, american);
    ExpectRead(rows, japanese);
}

TEST(DateTextParserOfPosix, ReadsWhatAGermanWrites)
{
    const Row rows[] = {
        {L"05.03.2024", {2024, 3, 5, 0, 0, 0}},
        {L"5.3.2024", {2024, 3, 5, 0, 0, 0}},
        {L"5.3.24", {2024, 3, 5, 0, 0, 0}},
        {L"5. 3. 2024", {2024, 3, 5, 0, 0, 0}},
        {L"5/3/2024", {2024, 3, 5, 0, 0, 0}},
        {L"5-3-2024", {2024, 3, 5, 0, 0, 0}},
        {L"5 3 2024", {2024, 3, 5, 0, 0, 0}},
        {L"5.3.", {thisYear, 3, 5, 0, 0, 0}},
        {L"5.3", {thisYear, 3, 5, 0, 0, 0}},
        {L"3.2024", {2024, 3, 1, 0, 0, 0}},
        {L"2024/3", {2024, 3, 1, 0, 0, 0}},
        {L"5. m\u00E4rz 2024", {2024, 3, 5, 0, 0, 0}},
        {L"5.m\u00E4r.2024", {2024, 3, 5, 0, 0, 0}},
        {L"5. jan. 24", {2024, 1, 5, 0, 0, 0}},
        {L"5 jan 2024", {2024, 1, 5, 0, 0, 0}},
        {L"dienstag, 5. m\u00E4rz 2024", {2024, 3, 5, 0, 0, 0}},
        {L"di., 5. m\u00E4rz 2024", {2024, 3, 5, 0, 0, 0}},
        {L"5. m\u00E4rz", {thisYear, 3, 5, 0, 0, 0}},
        {L"m\u00E4rz 2024", {2024, 3, 1, 0, 0, 0}},
        {L"2024 m\u00E4rz 5", {2024, 3, 5, 0, 0, 0}},
        {L"5.3.2024 14:07", {2024, 3, 5, 14, 7, 0}},
        {L"5.3.2024, 14:07:09", {2024, 3, 5, 14, 7, 9}},
        {L"14:07 5.3.2024", {2024, 3, 5, 14, 7, 0}},
        {L"14:07:09,5", {1899, 12, 30, 14, 7, 9}},
        {L"14:07:09, 5.3.2024", {2024, 3, 5, 14, 7, 9}},
        {L"5. m\u00E4rz 2024,", {2024, 3, 5, 0, 0, 0}},
        {L"45-3-5", {2045, 3, 5, 0, 0, 0}},
        {L"3.45", {2045, 3, 1, 0, 0, 0}},
        {L"3.31", {thisYear, 3, 31, 0, 0, 0}},
        {L"m\u00E4rz 32", {2032, 3, 1, 0, 0, 0}},
        {L"m\u00E4rz 31", {thisYear, 3, 31, 0, 0, 0}},
        {L"0:00", {1899, 12, 30, 0, 0, 0}},
        {L"23:59:59", {1899, 12, 30, 23, 59, 59}},
        {L"12/31/2024", {2024, 12, 31, 0, 0, 0}},
        {L"31.12.68", {2068, 12, 31, 0, 0, 0}},
        {L"1.1.69", {1969, 1, 1, 0, 0, 0}},
        {L"1.1.0", {2000, 1, 1, 0, 0, 0}},
        {L"29.2.2024", {2024, 2, 29, 0, 0, 0}},
    };
    ExpectRead(rows, german);
}

TEST(DateTextParserOfPosix, ReadsWhatAnAmericanWrites)
{
    const Row rows[] = {
        {L"3/5/2024", {2024, 3, 5, 0, 0, 0}},
        {L"03/05/24", {2024, 3, 5, 0, 0, 0}},
        {L"31/12/2024", {2024, 12, 31, 0, 0, 0}},
        {L"3/5", {thisYear, 3, 5, 0, 0, 0}},
        {L"31/12", {thisYear, 12, 31, 0, 0, 0}},
        {L"march 5, 2024", {2024, 3, 5, 0, 0, 0}},
        {L"mar 5 2024", {2024, 3, 5, 0, 0, 0}},
        {L"5 march 2024", {2024, 3, 5, 0, 0, 0}},
        {L"tuesday, march 5, 2024", {2024, 3, 5, 0, 0, 0}},
        {L"march 5", {thisYear, 3, 5, 0, 0, 0}},
        {L"3/5/2024 2:07 pm", {2024, 3, 5, 14, 7, 0}},
        {L"3/5/2024 2:07:09 p.m.", {2024, 3, 5, 14, 7, 9}},
        {L"2 pm", {1899, 12, 30, 14, 0, 0}},
        {L"2pm", {1899, 12, 30, 14, 0, 0}},
        {L"12 am", {1899, 12, 30, 0, 0, 0}},
        {L"12:30 am", {1899, 12, 30, 0, 30, 0}},
        {L"12:30 pm", {1899, 12, 30, 12, 30, 0}},
        {L"11:59 am", {1899, 12, 30, 11, 59, 0}},
    };
    ExpectRead(rows, american);
}

TEST(DateTextParserOfPosix, SkipsTheWordsOfTheLocalesPattern)
{
    const Row rows[] = {{L"2024\u5E7403\u670805\u65E5", {2024, 3, 5, 0, 0, 0}},
                        {L"24/3/5", {2024, 3, 5, 0, 0, 0}},
                        {L"3/5", {thisYear, 3, 5, 0, 0, 0}},
                        {L"5/3/2024", {2024, 3, 5, 0, 0, 0}},
                        {L"2:07 \u5348\u5F8C", {1899, 12, 30, 14, 7, 0}}};
    ExpectRead(rows, japanese);
}

TEST(DateTextParserOfPosix, RefusesWhatIsNoDate)
{
    using namespace std::string_view_literals;
    const std::wstring_view texts[] = {
        L"",
        L"  ",
        L"x",
        L"5",
        L"2024",
        L"dienstag",
        L"m\u00E4rz",
        L"2024-02-30",
        L"2023-02-29",
        L"2024-13-01",
        L"2024-00-10",
        L"2024-01-00",
        L"20241301",
        L"202403051",
        L"5.20240305",
        L"20240305 5",
        L"0099-01-01",
        L"99999-01-01",
        L"99999999999999999999.1.2024",
        L"32.1.2024",
        L"13.13.2024",
        L"1.2.3.4",
        L"1.2.3 4",
        L"5..3.2024",
        L".5.3.2024",
        L"-5.3.2024",
        L"5.3.2024-",
        L"5.3.2024/",
        L"5:3:2024",
        L"24:00",
        L"14:60",
        L"14:07:60",
        L"14:7:9:1",
        L"14:",
        L":07",
        L"14:007",
        L"014:07",
        L"14:07 15:08",
        L"13 pm",
        L"0 am",
        L"0:30 pm",
        L"14:07 pm",
        L"5. m\u00E4rz april 2024",
        L"5. m\u00E4rz 2024 1",
        L"1 2 3 m\u00E4rz",
        L"5. maerz 2024",
        L"t2024-03-05",
        L"2024-03-05t",
        L"2024-03-05z",
        L"2024-03-05t14:07:09z",
        L"2024-03-05t14:07:09+01:00",
        L"5%3%2024",
        L"2024-03-05\0"sv,
        L"\0002024-03-05"sv,
        L"2024\0"
        L"-03-05"sv,
    };
    ExpectRefused(texts, german);
}

TEST(DateTextParserOfPosix, NeverMovesTheYear)
{
    const std::wstring_view texts[] = {L"30.2.24", L"31.2.2024", L"2024-30-02"};
    ExpectRefused(texts, german);
    ExpectRefused(texts, american);
}

TEST(DateTextParserOfPosix, FollowsTheFlags)
{
    const struct
    {
        std::wstring_view text;
        bool withoutFlags, timeOnly, dateOnly, both;
    } rows[] = {{L"5.3.2024", true, false, true, false},
                {L"14:07", true, true, false, false},
                {L"5.3.2024 14:07", true, false, false, false}};
    for (const auto& row : rows) {
        const auto reads = [&row](uint32_t flags) {
            CalendarFields fields{};
            return ParseDateText(row.text, german, thisYear, flags, fields);
        };
        EXPECT_EQ(reads(0), row.withoutFlags) << Narrow(row.text);
        EXPECT_EQ(reads(platform::timeOnly), row.timeOnly) << Narrow(row.text);
        EXPECT_EQ(reads(platform::dateOnly), row.dateOnly) << Narrow(row.text);
        EXPECT_EQ(reads(platform::timeOnly | platform::dateOnly), row.both) << Narrow(row.text);
        EXPECT_EQ(reads(platform::ignoreUserOverride), row.withoutFlags) << Narrow(row.text);
    }
}

TEST(DateTextParserOfPosix, RefusesLongTextsAtOnce)
{
    const std::wstring digits(1'000'000, L'1');
    const std::wstring separators(1'000'000, L'.');
    const std::wstring words(1'000'000, L'x');
    const std::wstring_view texts[] = {digits, separators, words};
    ExpectRefused(texts, german);
}

TEST(OrderInAPatternOfPosix, FindsTheOrderOfDayMonthAndYear)
{
    const struct
    {
        const char* pattern;
        DateOrder order;
    } rows[] = {
        {"%d.%m.%Y", DateOrder::dayMonthYear},
        {"%m/%d/%y", DateOrder::monthDayYear},
        {"%m/%d/%Y", DateOrder::monthDayYear},
        {"%Y-%m-%d", DateOrder::yearMonthDay},
        {"%D", DateOrder::monthDayYear},
        {"%F", DateOrder::yearMonthDay},
        {"%e.%-m.%Y", DateOrder::dayMonthYear},
        {"%Ey\u5E74%m\u6708%d\u65E5", DateOrder::yearMonthDay},
        {"%a %d %b %Y", DateOrder::dayMonthYear},
        {"%B %e, %Y", DateOrder::monthDayYear},
        {"%-d/%-m/%EY", DateOrder::dayMonthYear},
        {"%Y.gada %e.%m", DateOrder::yearMonthDay},
        {"%_d/%0m/%^Y", DateOrder::dayMonthYear},
        {"%Oe.%h.%y", DateOrder::dayMonthYear},
        {"", DateOrder::yearMonthDay},
        {"%", DateOrder::yearMonthDay},
        {"%d.%m", DateOrder::yearMonthDay},
        {"%-", DateOrder::yearMonthDay},
    };
    for (const auto& row : rows)
        EXPECT_EQ(platform::OrderOfPattern(row.pattern), row.order) << row.pattern;
}

TEST(WordsInAPatternOfPosix, FindsWhatStandsBetweenTheConversions)
{
    using Words = std::vector<std::wstring>;
    EXPECT_EQ(platform::WordsOfPattern(L"%d.%m.%Y"), Words());
    EXPECT_EQ(platform::WordsOfPattern(L"%Y\u5E74%m\u6708%d\u65E5"), (Words{L"\u5E74", L"\u6708", L"\u65E5"}));
    EXPECT_EQ(platform::WordsOfPattern(L"%-d. %Om. %EY Uhr"), Words{L"Uhr"});
    EXPECT_EQ(platform::WordsOfPattern(L"%Y.gada %e"), Words{L"gada"});
    EXPECT_EQ(platform::WordsOfPattern(L"%"), Words());
    EXPECT_EQ(platform::WordsOfPattern(L""), Words());
}

} // namespace
