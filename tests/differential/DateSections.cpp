#include "differential/Sections.h"

#include "datetime/ServerDate.h"
#include "platform/CalendarFields.h"
#include "sql/KeyValue.h"

#include <cmath>
#include <limits>

namespace differential {
namespace {

COleDateTime OleDate(double value, COleDateTime::DateTimeStatus status)
{
    COleDateTime date;
    date.m_dt = value;
    date.m_status = status;
    return date;
}

void WriteAnswers(Report& report, const CDateTime& date)
{
    const COleDateTime framework = OleDate(date.GetValue(), COleDateTime::valid);
    report.Line(date, date.GetYear(), date.GetMonth(), date.GetDay(), date.GetHour(), date.GetMinute(),
                date.GetSecond(), date.IsValid(), date.IsNull(), date.IsEmpty(), date.IsDateNull(), date.IsTimeNull(),
                date.IsLeapYear(), static_cast<int>(date.GetDayOfWeek()), date.GetDateValue(), date.GetWeekNo(),
                date.GetDateOnly(), date.GetTimeOnly(), framework.GetYear(), framework.GetMonth(), framework.GetDay(),
                framework.GetHour(), framework.GetMinute(), framework.GetSecond(), CDateTime(framework));
}

// The form of the user's locale, number 0 and every one above 12, is left out.
void WriteTexts(Report& report, const CDateTime& date)
{
    report.Line(date.GetDate(1), date.GetDate(2), date.GetDate(3), date.GetDate(4), date.GetDate(5), date.GetDate(6),
                date.GetDate(7), date.GetDate(8), date.GetDate(9), date.GetDate(10), date.GetDate(11), date.GetDate(12),
                sql::KeyValue(date));
}

void WriteReadBack(Report& report, const CDateTime& date)
{
    CDateTime german;
    const bool isGerman = german.SetDate(date.GetDate(1));
    CDateTime compact;
    const bool isCompact = compact.ConvertDate(date.GetDate(6));
    CDateTime full;
    const bool isFull = full.ConvertDate(date.GetDate(9));
    report.Line(isGerman, german, isCompact, compact, isFull, full, datetime::FromServerText(date.GetDate(9).View()),
                datetime::FromServerText(date.GetDate(11).View()));
}

void WriteArithmetic(Report& report, const CDateTime& date, int number, int dayOfMonth)
{
    CDateTime days = date;
    const bool isDays = days.AddDays(number);
    CDateTime months = date;
    const bool isMonths = months.AddMonths(number, dayOfMonth);
    CDateTime years = date;
    const bool isYears = years.AddYears(number / 16, dayOfMonth);
    report.Line(number, dayOfMonth, isDays, days, isMonths, months, isYears, years);
}

void WriteAll(Report& report, const CDateTime& date, Random& random)
{
    WriteAnswers(report, date);
    WriteTexts(report, date);
    WriteReadBack(report, date);
    const int number = Between(random, -5000, 5000);
    WriteArithmetic(report, date, number, Between(random, -1, 33));
}

// Each operation once for the day, at midnight or at a time of it.
void WriteDay(Report& report, int year, int month, int day, Random& random)
{
    CDateTime midnight;
    report.Line(year, month, day, midnight.SetDate(year, month, day));
    WriteAnswers(report, midnight);
    WriteReadBack(report, midnight);
    const int second = Between(random, 0, 86399);
    const CDateTime time(year, month, day, second / 3600, second / 60 % 60, second % 60);
    WriteTexts(report, time);
    WriteArithmetic(report, time, Between(random, -5000, 5000), Between(random, -1, 33));
}

void WriteFields(Report& report, Random& random)
{
    const int year = Between(random, 0, 10100);
    const int month = Between(random, -1, 14);
    const int day = Between(random, -1, 33);
    const int hour = Between(random, -1, 24);
    const int minute = Between(random, -1, 60);
    const int second = Between(random, -1, 60);
    const COleDateTime framework(year, month, day, hour, minute, second);
    report.Line(year, month, day, hour, minute, second, framework.m_dt, static_cast<int>(framework.m_status));
    WriteAll(report, CDateTime(year, month, day, hour, minute, second), random);
}

double RandomValue(Random& random)
{
    constexpr double edges[] = {0.0,
                                -0.0,
                                0.5,
                                -0.5,
                                -1.0,
                                -657434.0,
                                -657434.5,
                                -657435.0,
                                2958465.0,
                                2958466.0,
                                -109571.0,
                                401768.0,
                                1e10,
                                -1e10,
                                1e300,
                                -1e300,
                                5e-324,
                                -5e-324,
                                2958465.999999999,
                                -657434.999999999,
                                0.999999999,
                                -0.999999999};
    switch (Below(random, 8)) {
    case 0: {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        const double special[] = {infinity, -infinity, std::nan("")};
        return OneOf(random, special);
    }
    case 1:
        return OneOf(random, edges);
    case 2: { // half a second beside a whole one
        const int day = Between(random, -657434, 2958465);
        return day + (Between(random, 0, 86400) + 0.5) / 86400;
    }
    case 3: {
        const int day = Between(random, -657434, 2958465);
        return std::nextafter(day, Below(random, 2) == 0 ? -1e9 : 1e9);
    }
    default:
        return static_cast<double>(static_cast<int64_t>(random())) / 9223372036854775808.0 * 3000000;
    }
}

void WriteValue(Report& report, Random& random)
{
    const auto status = static_cast<COleDateTime::DateTimeStatus>(Below(random, 16) < 14 ? 0 : Between(random, 1, 2));
    WriteAll(report, CDateTime(OleDate(RandomValue(random), status)), random);
}

std::string YearName(int year, int month)
{
    return std::to_string(year) + '-' + std::to_string(month);
}

} // namespace

void WriteDays(Report& report, const std::filesystem::path&)
{
    Random random(1600);
    for (int year = 1600; year <= 2999; ++year)
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= platform::DaysInMonth(year, month); ++day)
                WriteDay(report, year, month, day, random);
            report.EndBlock(YearName(year, month));
        }
}

void WriteTimes(Report& report, const std::filesystem::path&)
{
    constexpr int blocks = 100;
    constexpr int timesOfBlock = 1000;
    Random random(24);
    for (int block = 0; block < blocks; ++block) {
        for (int index = 0; index < timesOfBlock; ++index) {
            WriteFields(report, random);
            WriteValue(report, random);
        }
        report.EndBlock(std::to_string(block));
    }
}

void WriteDateTexts(Report& report, const std::filesystem::path&)
{
    Random random(12);
    for (int block = 0; block < 100; ++block) {
        for (int index = 0; index < 1000; ++index) {
            const UtCString text{RandomText(random, 20, "0123456789.-/: 0012x\xFC"), OneOf(random, encodings)};
            CDateTime german;
            const bool isGerman = german.SetDate(text);
            CDateTime compact;
            const bool isCompact = compact.ConvertDate(text);
            report.Line(text, isGerman, german, isCompact, compact, datetime::FromServerText(text.View()));
        }
        report.EndBlock(std::to_string(block));
    }
}

} // namespace differential
