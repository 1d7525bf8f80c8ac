#include "admin/StatusReport.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

struct Row
{
    const char* name;
    const char* given;
    const char* text;
};

std::string NameOf(const testing::TestParamInfo<Row>& row)
{
    return row.param.name;
}

class FormatNumber : public testing::TestWithParam<Row>
{
};

TEST_P(FormatNumber, GroupsAndDropsClosingZeros)
{
    EXPECT_EQ(admin::FormatNumber(GetParam().given), GetParam().text);
}

constexpr Row numbers[] = {
    {"Zero", "0", "0"},
    {"OneDigit", "7", "7"},
    {"ZerosOfTheWholeStay", "1000", "1'000"},
    {"Seven", "1234567", "1'234'567"},
    {"Half", "0.5", "0.5"},
    {"ClosingZero", "0.50", "0.5"},
    {"ZeroFraction", "12.000", "12"},
    {"TensAndZeroFraction", "10.0000", "10"},
    {"Average", "0.934", "0.934"},
    {"FourDecimals", "12345.6789", "12'345.6789"},
    {"FifthDecimalRounds", "1.23456", "1.2346"},
    {"TooSmall", "0.00001", "0"},
    {"RoundsToOne", "0.99999", "1"},
    {"BeyondSixtyFourBits", "18446744073709551616", "18'446'744'073'709'551'616"},
    {"NoNumber", "abc", "0"},
    {"Empty", "", "0"},
};
INSTANTIATE_TEST_SUITE_P(Table, FormatNumber, testing::ValuesIn(numbers), NameOf);

struct UptimeRow
{
    int64_t seconds;
    const char* text;
};

TEST(FormatUptime, CountsDaysHoursMinutesAndSeconds)
{
    const std::vector<UptimeRow> rows = {
        {0, "00 hrs 00 min 00 sec\n"},
        {59, "00 hrs 00 min 59 sec\n"},
        {60, "00 hrs 01 min 00 sec\n"},
        {3599, "00 hrs 59 min 59 sec\n"},
        {3600, "01 hrs 00 min 00 sec\n"},
        {3661, "01 hrs 01 min 01 sec\n"},
        {86399, "23 hrs 59 min 59 sec\n"},
        {86400, "1 day 00 hrs 00 min 00 sec\n"},
        {90061, "1 day 01 hrs 01 min 01 sec\n"},
        {172799, "1 day 23 hrs 59 min 59 sec\n"},
        {172800, "2 days 00 hrs 00 min 00 sec\n"},
        {8640000, "100 days 00 hrs 00 min 00 sec\n"},
        {2147483647, "24855 days 03 hrs 14 min 07 sec\n"},
        {2147483648, "24855 days 03 hrs 14 min 08 sec\n"},
        {INT64_MAX, "106751991167300 days 15 hrs 30 min 07 sec\n"},
    };
    for (const UptimeRow& row : rows)
        EXPECT_EQ(admin::FormatUptime(row.seconds), row.text) << row.seconds;
}

class FormatStatusLine : public testing::TestWithParam<Row>
{
};

TEST_P(FormatStatusLine, FormatsTheNumbersInPlace)
{
    EXPECT_EQ(admin::FormatStatusLine(GetParam().given), GetParam().text);
}

constexpr Row lines[] = {
    {"EightNumbers",
     "Uptime: 90061  Threads: 1000  Questions: 1234567  Slow queries: 0  Opens: 2027  Flush tables: 1  Open tables: "
     "4000  Queries per second avg: 1234.5670",
     "Uptime: 1 day 01 hrs 01 min 01 sec\nThreads: 1'000  Questions: 1'234'567  Slow queries: 0  Opens: 2'027  Flush "
     "tables: 1  Open tables: 4'000  Queries per second avg: 1'234.567"},
    {"SevenNumbers",
     "Uptime: 169  Threads: 2  Questions: 1580  Slow queries: 0  Opens: 27  Open tables: 17  Queries per second avg: "
     "0.934",
     "Uptime: 00 hrs 02 min 49 sec\nThreads: 2  Questions: 1'580  Slow queries: 0  Opens: 27  Open tables: 17  Queries "
     "per second avg: 0.934"},
    {"UptimeOnly", "Uptime: 3661", "Uptime: 01 hrs 01 min 01 sec\n"},
    {"UptimeAndOne", "Uptime: 3661 a: 1000", "Uptime: 01 hrs 01 min 01 sec\na: 1'000"},
    {"NinthNumberStays", "0 1000 2000 3000 4000 5000 6000 7000 8000",
     "00 hrs 00 min 00 sec\n1'000 2'000 3'000 4'000 5'000 6'000 7'000 8000"},
    {"NoNumber", "Uptime: unknown  ", "Uptime: unknown  "},
    {"Empty", "", ""},
    {"BlanksBehindTheUptime", "Uptime: 1     Threads: 2", "Uptime: 00 hrs 00 min 01 sec\nThreads: 2"},
    {"NoBlankBehindTheUptime", "Uptime: 1,Threads: 2", "Uptime: 00 hrs 00 min 01 sec\n,Threads: 2"},
    {"BlanksAroundLineFeedsOfTheServer", " a  \n \n  b 1 \n ", " a\n\nb 00 hrs 00 min 01 sec\n\n"},
    {"NothingBeforeALineFeedOfTheServer", "  \n1", "\n00 hrs 00 min 01 sec\n"},
    {"TabsStay", "1\tb\n\tc", "00 hrs 00 min 01 sec\n\tb\n\tc"},
    {"PointsThatAreNoDecimalPoints", "1. 2. .3 4.5.6", "00 hrs 00 min 01 sec\n. 2. .3 4.5.6"},
    {"PointBehindANumber", "0 1234. x", "00 hrs 00 min 00 sec\n1'234. x"},
    {"DigitsInWords", "up1 b22222c", "up00 hrs 00 min 01 sec\nb22'222c"},
    {"LeadingZeros", "007 0080", "00 hrs 00 min 07 sec\n80"},
    {"MinusStays", "1 -5000", "00 hrs 00 min 01 sec\n-5'000"},
    {"UptimeWithDecimalsStays", "Uptime: 12.5  Threads: 1000", "Uptime: 12.5  Threads: 1'000"},
    {"LongestUptime", "9223372036854775807", "106751991167300 days 15 hrs 30 min 07 sec\n"},
    {"UptimeBeyondSixtyFourBitsStays", "9223372036854775808 1000", "9223372036854775808 1'000"},
    {"HugeNumber", "0 99999999999999999999", "00 hrs 00 min 00 sec\n99'999'999'999'999'999'999"},
};
INSTANTIATE_TEST_SUITE_P(Table, FormatStatusLine, testing::ValuesIn(lines), NameOf);

TEST(FormatStatusLineOfAnyText, KeepsBytesThatAreNoNumbers)
{
    const std::string_view line("\xFF\0 1 \xC3", 6);
    EXPECT_EQ(admin::FormatStatusLine(line), std::string("\xFF\0 00 hrs 00 min 01 sec\n\xC3", 25));
}

TEST(FormatStatusLineOfAnyText, TakesALineOfAMillionBlanksAndDigits)
{
    const std::string line = "1" + std::string(1000000, ' ') + "2" + std::string(1000000, '0');
    const std::string text = admin::FormatStatusLine(line);
    EXPECT_TRUE(text.starts_with("00 hrs 00 min 01 sec\n20'000'000'"));
    EXPECT_EQ(text.size(), 21 + 1 + 1000000 + 333333U);
}

std::string Names(std::span<const char* const> variables)
{
    std::string names;
    for (const char* const name : variables)
        names += std::string(name) + ' ';
    return names;
}

constexpr char olderBuffers[] = "myisam_sort_buffer_size record_buffer join_buffer_size record_rnd_buffer ";
constexpr char newerBuffers[] =
    "sort_buffer_size myisam_sort_buffer_size join_buffer_size read_buffer_size read_rnd_buffer_size ";

TEST(MemoryVariables, AreTheSameForAllServersBesidesThoseOfAConnection)
{
    for (const char* version : {"3.23.58", "5.7.44"}) {
        const admin::MemoryVariables variables = admin::MemoryVariablesOf(version);
        EXPECT_EQ(Names(variables.global), "key_buffer_size net_buffer_length ");
        EXPECT_STREQ(variables.connections, "max_connections");
    }
}

TEST(MemoryVariables, OfAServerBelowFour)
{
    for (const char* version : {"3.23.58-log", "3.9", "4", "4.", ""})
        EXPECT_EQ(Names(admin::MemoryVariablesOf(version).perConnection), olderBuffers) << version;
}

TEST(MemoryVariables, OfAServerFromFourOn)
{
    for (const char* version : {"4.0", "4.0.1", "4.1.22", "5.7.44", "5.5.5-10.11.6-MariaDB", "8.0.36", "9.0"})
        EXPECT_EQ(Names(admin::MemoryVariablesOf(version).perConnection), newerBuffers) << version;
}

TEST(MemoryVariables, Kept_K122_ComparesVersionsAsTexts)
{
    for (const char* version : {"10.11.19-MariaDB", "10.0", "11.4.2", "39.0"})
        EXPECT_EQ(Names(admin::MemoryVariablesOf(version).perConnection), olderBuffers) << version;
}

TEST(MemoryEstimate, MultipliesTheConnections)
{
    const admin::MemoryEstimate memory{8404992, 3145728, 100};
    EXPECT_EQ(memory.TotalBytes(), 322977792);
}

TEST(MemoryEstimate, CalculatesInSixtyFourBits)
{
    EXPECT_EQ((admin::MemoryEstimate{1, 2147483648, 2147483648}.TotalBytes()), 4611686018427387905);
    EXPECT_EQ((admin::MemoryEstimate{INT64_MAX, 1, 1}.TotalBytes()), INT64_MIN) << "wraps";
    EXPECT_EQ((admin::MemoryEstimate{5, INT64_MAX, 2}.TotalBytes()), 3) << "wraps";
}

UtCString ReportOf(const admin::MemoryEstimate& memory)
{
    return admin::ReportText({"db.example", "5.7.44", "C:\\data\\", memory, "Uptime: x\nThreads: 2"});
}

TEST(ReportText, HasALineForEachFact)
{
    EXPECT_EQ(ReportOf({8404992, 3145728, 100}).View(),
              "Server: db.example\nVersion: 5.7.44\nDataDir: C:\\data\\\n"
              "Max. Memory: 308 MB = 8 MB + (100 * 3 MB)\nUptime: x\nThreads: 2");
}

TEST(ReportText, Kept_K123_CutsEachNumberToMegabytesForItself)
{
    const std::string report(ReportOf({1048575, 1048575, 2}).View());
    EXPECT_NE(report.find("\nMax. Memory: 2 MB = 0 MB + (2 * 0 MB)\n"), std::string::npos) << report;
}

TEST(ReportText, GroupsNoNumberOfTheMemory)
{
    const std::string report(ReportOf({1572864000000, 1048576, 123456}).View());
    EXPECT_NE(report.find("\nMax. Memory: 1623456 MB = 1500000 MB + (123456 * 1 MB)\n"), std::string::npos) << report;
}

TEST(ReportText, TakesNothingForAFormat)
{
    const UtCString report = admin::ReportText({"%s", "%d", "%%n", {0, 0, 0}, "%s"});
    EXPECT_EQ(report.View(), "Server: %s\nVersion: %d\nDataDir: %%n\nMax. Memory: 0 MB = 0 MB + (0 * 0 MB)\n%s");
}

TEST(ReportText, IsInTheSingleByteEncoding)
{
    const UtCString directory("D:\\B\xC3\xBCro\\", UT_ENCODING_UTF8);
    const UtCString report = admin::ReportText({"b\xFCro", "5.7", directory, {0, 0, 0}, "\xC3\xA4"});
    EXPECT_EQ(report.GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_EQ(report.View(), "Server: b\xFCro\nVersion: 5.7\nDataDir: D:\\B\xFCro\\\n"
                             "Max. Memory: 0 MB = 0 MB + (0 * 0 MB)\n\xE4");
}

} // namespace
