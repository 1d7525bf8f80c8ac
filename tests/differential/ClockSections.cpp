#include "differential/Sections.h"

#include "framework/Variant.h"
#include "platform/LocalTime.h"

#include <cmath>
#include <cstring>

// The local time is that of the process's time zone, which has to be UTC: other zones follow rules of the system.

namespace differential {
namespace {

void WriteSeconds(Report& report, int64_t seconds)
{
    const CTime time(seconds);
    const CDateTime date(time);
    const CDateTime fromSeconds(static_cast<__int64>(seconds));
    const COleDateTime framework(time);
    report.Line(seconds, time.GetYear(), time.GetMonth(), time.GetDay(), time.GetHour(), time.GetMinute(),
                time.GetSecond(), date, fromSeconds, CDateTime(framework), date.GetCTime().GetTime(),
                static_cast<CTime>(date).GetTime());
}

int64_t RandomSeconds(Random& random)
{
    switch (Below(random, 8)) {
    case 0: // the years 1601 to 30827, all that Windows knows
        return static_cast<int64_t>(random() % 922'315'000'000) - 11'644'473'600;
    case 1: // the years 1601 to 9999
        return static_cast<int64_t>(random() % 265'046'774'400) - 11'644'473'600;
    default: // 1901 to 2038 and somewhat beyond
        return static_cast<int64_t>(random() % 5'000'000'000) - 2'500'000'000;
    }
}

void WriteFields(Report& report, Random& random)
{
    constexpr platform::DaylightSaving kinds[] = {platform::DaylightSaving::off, platform::DaylightSaving::on,
                                                  platform::DaylightSaving::decidedBySystem};
    const bool carries = Below(random, 8) == 0;
    const int surplus = carries ? 70 : 0;
    const platform::CalendarFields fields = {Between(random, 1900, 2100),
                                             Between(random, 1 - surplus, 12 + surplus),
                                             Between(random, 1 - surplus, 28 + surplus),
                                             Between(random, 0 - surplus, 23 + surplus),
                                             Between(random, 0 - surplus, 59 + surplus),
                                             Between(random, 0 - surplus, 59 + surplus)};
    const platform::DaylightSaving kind = OneOf(random, kinds);
    report.Line(fields.year, fields.month, fields.day, fields.hour, fields.minute, fields.second,
                static_cast<int>(kind), platform::SecondsFromLocalTime(fields, kind));
}

VARIANT Variant(VARTYPE type)
{
    VARIANT variant;
    std::memset(&variant, 0, sizeof variant);
    variant.vt = type;
    return variant;
}

void WriteVariant(Report& report, const VARIANT& variant)
{
    const COleDateTime framework(variant);
    report.Line(variant.vt, variant.llVal, CDateTime(variant), framework.m_dt, static_cast<int>(framework.m_status));
}

} // namespace

void WriteLocalTimes(Report& report, const std::filesystem::path&)
{
    Random random(1970);
    for (int block = 0; block < 10; ++block) { // few: a system asks its registry for each
        for (int index = 0; index < 100; ++index) {
            WriteSeconds(report, RandomSeconds(random));
            WriteFields(report, random);
        }
        report.EndBlock(std::to_string(block));
    }
}

void WriteVariants(Report& report, const std::filesystem::path&)
{
    constexpr VARTYPE integers[] = {VT_EMPTY, VT_NULL, VT_I2,  VT_I4, VT_CY,  VT_ERROR, VT_BOOL, VT_I1,
                                    VT_UI1,   VT_UI2,  VT_UI4, VT_I8, VT_UI8, VT_INT,   VT_UINT};
    Random random(7);
    for (const VARTYPE type : integers) {
        for (int index = 0; index < 2000; ++index) {
            VARIANT variant = Variant(type);
            variant.llVal = static_cast<int64_t>(random()) >> Below(random, 64);
            WriteVariant(report, variant);
        }
        report.EndBlock(std::to_string(type));
    }
    for (int index = 0; index < 5000; ++index) {
        VARIANT real = Variant(VT_R8);
        real.dblVal = std::ldexp(static_cast<double>(static_cast<int64_t>(random())), Between(random, -80, 0));
        WriteVariant(report, real);
        VARIANT date = real;
        date.vt = VT_DATE;
        WriteVariant(report, date);
        VARIANT small = Variant(VT_R4);
        small.fltVal = static_cast<float>(real.dblVal);
        WriteVariant(report, small);
    }
    report.EndBlock("real");
}

} // namespace differential
