#include "TextSupport.h"

#include <climits>
#include <clocale>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace {

template <typename... T> std::string Formatted(const char* format, T... arguments)
{
    const char* const volatile unseen = format; // some formats are wrong on purpose; the compiler shall not judge them
    UtCString text;
    text.Format(unseen, arguments..., 0); // one to spare, as a format without arguments draws a warning
    return Bytes(text);
}

} // namespace

TEST(Format, WritesIntegers)
{
    EXPECT_EQ(Formatted("%d", 42), "42");
    EXPECT_EQ(Formatted("%i", -42), "-42");
    EXPECT_EQ(Formatted("%d", INT_MIN), "-2147483648");
    EXPECT_EQ(Formatted("%u", UINT_MAX), "4294967295");
    EXPECT_EQ(Formatted("%ld", -5L), "-5");
    EXPECT_EQ(Formatted("%lu", 5UL), "5");
    EXPECT_EQ(Formatted("%lld", LLONG_MIN), "-9223372036854775808");
    EXPECT_EQ(Formatted("%llu", ULLONG_MAX), "18446744073709551615");
    EXPECT_EQ(Formatted("%x %X %o", 255U, 255U, 8U), "ff FF 10");
    EXPECT_EQ(Formatted("%hd %hu", 65537, 65537), "1 1");
    EXPECT_EQ(Formatted("%hhd %hhu", 257, 257), "1 1");
    EXPECT_EQ(Formatted("%zu %zd", sizeof(int), static_cast<ptrdiff_t>(-1)), "4 -1");
    EXPECT_EQ(Formatted("%jd %ju", static_cast<intmax_t>(-1), static_cast<uintmax_t>(1)), "-1 1");
    EXPECT_EQ(Formatted("%td", static_cast<ptrdiff_t>(-7)), "-7");
    EXPECT_EQ(Formatted("%jd %ju", INTMAX_MIN, UINTMAX_MAX), "-9223372036854775808 18446744073709551615");
    EXPECT_EQ(Formatted("%zu", SIZE_MAX), std::to_string(SIZE_MAX));
    EXPECT_EQ(Formatted("%zd %td", PTRDIFF_MIN, PTRDIFF_MAX),
              std::to_string(PTRDIFF_MIN) + ' ' + std::to_string(PTRDIFF_MAX));
    EXPECT_EQ(Formatted("%ld %lu", LONG_MIN, ULONG_MAX), std::to_string(LONG_MIN) + ' ' + std::to_string(ULONG_MAX));
}

TEST(Format, AppliesFlagsWidthAndPrecisionToIntegers)
{
    EXPECT_EQ(Formatted("%5d|%-5d|%05d", 42, 42, 42), "   42|42   |00042");
    EXPECT_EQ(Formatted("%05d|%-05d", -42, -42), "-0042|-42  ");
    EXPECT_EQ(Formatted("%+d|% d|%+d", 1, 1, -1), "+1| 1|-1");
    EXPECT_EQ(Formatted("% +d|%+ d", 1, 1), "+1|+1");
    EXPECT_EQ(Formatted("%.3d|%6.3d|%-6.3d|%06.3d", 7, 7, 7, 7), "007|   007|007   |   007");
    EXPECT_EQ(Formatted("%.0d|%.0d|%.d", 0, 1, 0), "|1|");
    EXPECT_EQ(Formatted("%#x|%#X|%#o|%#x", 255U, 255U, 8U, 0U), "0xff|0XFF|010|0");
    EXPECT_EQ(Formatted("%#06x|%#.0o|%#.3o", 255U, 0U, 8U), "0x00ff|0|010");
    EXPECT_EQ(Formatted("%*d|%-*d|%*d", 4, 1, 4, 1, -4, 1), "   1|1   |1   ");
    EXPECT_EQ(Formatted("%.*d|%.*d", 3, 1, -3, 1), "001|1");
}

TEST(Format, WritesFloatingPointNumbers)
{
    EXPECT_EQ(Formatted("%f", 3.5), "3.500000");
    EXPECT_EQ(Formatted("%.2f|%.0f|%.0f|%.0f", 2.675, 0.5, 1.5, 2.5), "2.67|0|2|2");
    EXPECT_EQ(Formatted("%8.2f|%-8.2f|%08.2f", -1.5, -1.5, -1.5), "   -1.50|-1.50   |-0001.50");
    EXPECT_EQ(Formatted("%e|%.0e|%E", 12345.678, 5e-100, 1e10), "1.234568e+04|5e-100|1.000000E+10");
    EXPECT_EQ(Formatted("%g|%g|%g|%G", 0.0001, 100000.0, 1000000.0, 1e-10), "0.0001|100000|1e+06|1E-10");
    EXPECT_EQ(Formatted("%.3g|%.0g|%g", 1234.0, 1234.0, 0.0), "1.23e+03|1e+03|0");
    EXPECT_EQ(Formatted("%#.0f|%#g|%#.3g|%#.0e", 1.0, 1.0, 1e10, 1.0), "1.|1.00000|1.00e+10|1.e+00");
    EXPECT_EQ(Formatted("%+f|% f|%+.1f", 1.0, 1.0, -1.0), "+1.000000| 1.000000|-1.0");
    EXPECT_EQ(Formatted("%a|%A|%.1a|%a", 1.0, 0.5, 1.0, -2.0), "0x1p+0|0X1P-1|0x1.0p+0|-0x1p+1");
    EXPECT_EQ(Formatted("%f|%F|%5f|%05f", std::numeric_limits<double>::infinity(),
                        -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity(),
                        std::numeric_limits<double>::quiet_NaN()),
              "inf|-INF|  inf|  nan");
    EXPECT_EQ(Formatted("%Lf", 2.5L), "2.500000");
    EXPECT_EQ(Formatted("%.1f", -0.0), "-0.0");
}

TEST(Format, WritesTheLongestNumbers)
{
    EXPECT_EQ(Formatted("%f", 1.7976931348623157e308).size(), 316U);
    EXPECT_EQ(Formatted("%.2000f", 0.5), "0.5" + std::string(1999, '0'));
    EXPECT_EQ(Formatted("%.1500e", 5e-324).size(), 1507U);
    EXPECT_EQ(Formatted("%.400g", 0.1).size(), 57U);
    EXPECT_EQ(Formatted("%#.400g", 0.5), "0.5" + std::string(399, '0'));
    EXPECT_EQ(Formatted("%2000d", 1), std::string(1999, ' ') + "1");
    EXPECT_EQ(Formatted("%.2000d", 1), std::string(1999, '0') + "1");
    EXPECT_EQ(Formatted("%*d", INT_MAX, 1).size(), 100000U);
    EXPECT_EQ(Formatted("%*d|", INT_MIN, 1).size(), 100001U);
    EXPECT_EQ(Formatted("%.*d", INT_MAX, 1).size(), 100000U);
    EXPECT_EQ(Formatted("%.*f", INT_MAX, 1.0).size(), 100002U);
    EXPECT_EQ(Formatted("%99999999999999999999d", 1).size(), 100000U);
}

TEST(Format, WritesTexts)
{
    EXPECT_EQ(Formatted("%s: %s", "a", "b"), "a: b");
    EXPECT_EQ(Formatted("%5s|%-5s|%.2s|%5.1s", "abc", "abc", "abc", "abc"), "  abc|abc  |ab|    a");
    EXPECT_EQ(Formatted("%s|%.3s", static_cast<const char*>(nullptr), static_cast<const char*>(nullptr)), "(null)|(nu");
    EXPECT_EQ(Formatted("%c%c|%3c|%-3c", 'a', '\xFC', 'b', 'c'), "a\xFC|  b|c  ");
    EXPECT_EQ(Formatted("%c", '\0'), "\0"s);
    EXPECT_EQ(Formatted("%ls|%lc|%4ls", L"\u20AC", L'\u00FC', L"x"), "\x80|\xFC|   x");
    EXPECT_EQ(Formatted("%ls", static_cast<const wchar_t*>(nullptr)), "(null)");
    const char unterminated[2] = {'a', 'b'};
    EXPECT_EQ(Formatted("%.2s", unterminated), "ab");
}

TEST(Format, CutsAWideTextBehindAWholeCharacter)
{
    const struct
    {
        int precision;
        const char* expected;
    } rows[] = {{0, ""},
                {1, "a"},
                {2, "a"},
                {3, "a\xC3\xBC"},
                {5, "a\xC3\xBC"},
                {6, "a\xC3\xBC\xE2\x82\xAC"},
                {99, "a\xC3\xBC\xE2\x82\xAC"}};
    for (const auto& row : rows) {
        UtCString text(utf8);
        text.Format("%.*ls", row.precision, L"a\u00FC\u20AC");
        EXPECT_EQ(Bytes(text), row.expected) << row.precision;
    }
    const wchar_t unterminated[2] = {L'a', L'b'};
    EXPECT_EQ(Formatted("%.2ls|%3.1ls", unterminated, unterminated), "ab|  a");
}

TEST(Format, WritesPointersInHexadecimal)
{
    EXPECT_EQ(Formatted("%p", reinterpret_cast<void*>(0xABC)), "0xabc");
    EXPECT_EQ(Formatted("%p", static_cast<void*>(nullptr)), "0");
}

TEST(Format, WritesPercentSignsAndWhatIsNoConversion)
{
    EXPECT_EQ(Formatted("100%%"), "100%");
    EXPECT_EQ(Formatted("%y|%5q|%", 1), "%y|%5q|%");
    EXPECT_EQ(Formatted("%5"), "%5");
    EXPECT_EQ(Formatted(""), "");
    EXPECT_EQ(Formatted(nullptr), "");
    EXPECT_EQ(Formatted("no conversion"), "no conversion");
}

TEST(Format, WritesNothingIntoMemory)
{
    int count = 77;
    EXPECT_EQ(Formatted("a%nb", &count), "ab");
    EXPECT_EQ(count, 77);
}

TEST(Format, DoesNotFollowTheLocale)
{
    const char* const german = std::setlocale(LC_ALL, "de_DE.UTF-8");
    EXPECT_EQ(Formatted("%.1f %e %d", 1.5, 1.5, 1000000), "1.5 1.500000e+00 1000000");
    EXPECT_EQ(Bytes(UtCString(1.5)), "1.5");
    if (german != nullptr)
        std::setlocale(LC_ALL, "C");
}

TEST(Format, KeepsTheEncodingOfTheText)
{
    UtCString text("before", utf8);
    text.Format("%s", "\xC3\xBC");
    ExpectText(text, "\xC3\xBC", utf8);
    text.Format("%ls", L"\u00FC");
    ExpectText(text, "\xC3\xBC", utf8);
    UtCString wide("before", utf16be);
    wide.Format("%s%d", "\xFC", 1);
    ExpectText(wide,
               "\0\xFC\0"
               "1"sv,
               utf16be);
    UtCString opaqueText(opaque);
    opaqueText.Format("%s", "\xFC");
    ExpectText(opaqueText, "\xFC", opaque);
}

TEST(Format, TakesArgumentsThatPointIntoTheText)
{
    UtCString text("a text that does not fit into the inline storage");
    text.Format("%s %s", text.string() + 40, text.string());
    ExpectText(text, " storage a text that does not fit into the inline storage", ansi);
}

TEST(AppendFormat, AppendsToTheText)
{
    UtCString text("\xC3\xBC", utf8);
    text.AppendFormat("%d", 1);
    text.AppendFormat("%s", text.string());
    ExpectText(text,
               "\xC3\xBC"
               "1\xC3\xBC"
               "1",
               utf8);
    UtCString wide("a", utf16le);
    wide.AppendFormat("%s", "\xFC");
    ExpectText(wide, "a\0\xFC\0"sv, utf16le);
    wide.AppendFormat(nullptr);
    ExpectText(wide, "a\0\xFC\0"sv, utf16le);
}

namespace {

struct Filling
{
    const char* name;
    const char* format;
    std::vector<const char*> items;
    const char* expected;
};

const Filling fillings[] = {
    {"InOrder", "SELECT %s.* FROM %s %s", {"t", "t", "WHERE a = 1"}, "SELECT t.* FROM t WHERE a = 1"},
    {"Alone", "%s", {"x"}, "x"},
    {"Adjacent", "%s%s", {"a", "b"}, "ab"},
    {"NoFormat", "", {"a"}, ""},
    {"NoPlaceholder", "SHOW TABLES", {"a"}, "SHOW TABLES"},
    {"NoItem", "a %s b", {}, "a  b"},
    {"MissingItem", "%s %s %s", {"a", "b"}, "a b "},
    {"SurplusItem", "%s", {"a", "b"}, "a"},
    {"EmptyItem", "[%s]", {""}, "[]"},
    {"DoubledPercent", "100%%s %s", {"a"}, "100%s a"},
    {"OnlyPercents", "%%%%", {}, "%%"},
    {"PercentAtTheEnd", "a %", {"x"}, "a %"},
    {"OtherConversionsStay", "%lu %d %5s %S", {"x"}, "%lu %d %5s %S"},
    {"PlaceholderInAnItemStays", "%s %s", {"%s", "b%s%%"}, "%s b%s%%"},
    {"LikePattern", "LIKE '%s%%'", {"50%"}, "LIKE '50%%'"},
    {"PercentBeforePlaceholder", "%%%s", {"x"}, "%x"},
    {"Quotes", "'%s' = `%s`", {"it's", "a`b"}, "'it's' = `a`b`"},
};

class FillingAFormat : public testing::TestWithParam<Filling>
{
};

UtCStringList ListOf(const std::vector<const char*>& items)
{
    UtCStringList list;
    for (const char* item : items)
        list.Add(item);
    return list;
}

} // namespace

TEST_P(FillingAFormat, GivesTheExpectedTextInEveryEncoding)
{
    const Filling& row = GetParam();
    for (const eUtEncodingType encoding : {ansi, utf8, utf16le, utf16be, opaque}) {
        UtCString text("before", utf8);
        text.FormatStringList(row.format, ListOf(row.items), encoding);
        ExpectText(text, Bytes(Ascii(row.expected, encoding)), encoding);
    }
}

TEST_P(FillingAFormat, AppendsTheSame)
{
    const Filling& row = GetParam();
    UtCString text("\xE4", utf8, ansi);
    text.AppendFormatStringList(row.format, ListOf(row.items));
    ExpectText(text, "\xC3\xA4"s + row.expected, utf8);
}

INSTANTIATE_TEST_SUITE_P(Rows, FillingAFormat, testing::ValuesIn(fillings),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(FormatStringList, ConvertsTheItems)
{
    const UtCStringList items{Text("\xFC"), Text("\xC3\xA4", utf8), Text("\0\xDF"sv, utf16be), Text("\xFF", opaque)};
    UtCString text;
    text.FormatStringList("%s-%s-%s-%s", items, utf8);
    ExpectText(text, "\xC3\xBC-\xC3\xA4-\xC3\x9F-\xFF", utf8);
    text.FormatStringList("%s-%s-%s", items);
    ExpectText(text, "\xFC-\xE4-\xDF", ansi);
}

TEST(FormatStringList, ReadsTheFormatInTheEncodingGiven)
{
    UtCString text;
    text.FormatStringList("\xC3\xBC%s", UtCStringList(Text("\xE4")), utf8);
    ExpectText(text, "\xC3\xBC\xC3\xA4", utf8);
    text.FormatStringList("\xFC%s", UtCStringList(Text("\xE4")), utf16le);
    ExpectText(text, "\xFC\0\xE4\0"sv, utf16le);
}

TEST(FormatStringList, KeepsZerosOfItems)
{
    UtCString text;
    text.FormatStringList("[%s]", UtCStringList(Text("a\0b"sv)));
    ExpectText(text, "[a\0b]"sv, ansi);
}

TEST(FormatStringList, TakesNullAsTheEmptyFormat)
{
    UtCString text("before");
    text.FormatStringList(nullptr, UtCStringList(Text("a")), utf8);
    ExpectText(text, "", utf8);
}

TEST(FormatStringList, TakesAFormatThatIsTheText)
{
    UtCString text("SELECT * FROM %s WHERE NAME = '%s'");
    text.FormatStringList(text.string(), {Text("t"), text});
    ExpectText(text, "SELECT * FROM t WHERE NAME = 'SELECT * FROM %s WHERE NAME = '%s''", ansi);
}
