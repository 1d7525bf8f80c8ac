// The date-time value crosses the interface by value: what a host has compiled in of it.
#include "CDateTime.h"
#include "framework/Variant.h"

#include <type_traits>

static_assert(sizeof(CDateTime) == sizeof(COleDateTime) && alignof(CDateTime) == alignof(COleDateTime));
static_assert(!std::is_polymorphic_v<CDateTime>);
static_assert(std::is_same_v<std::underlying_type_t<CDateTime::DateTimeStatus>, int>);
static_assert(COleDateTime::valid == 0 && COleDateTime::invalid == 1 && COleDateTime::null == 2);
static_assert(VT_DATE == 7);

static_assert(std::is_nothrow_default_constructible_v<CDateTime> && std::is_nothrow_copy_constructible_v<CDateTime>);
static_assert(std::is_nothrow_copy_assignable_v<CDateTime>);
static_assert(std::is_nothrow_constructible_v<CDateTime, const COleDateTime&>);
static_assert(std::is_nothrow_constructible_v<CDateTime, const VARIANT&>);
static_assert(std::is_nothrow_constructible_v<CDateTime, const CTime&>);
static_assert(std::is_nothrow_constructible_v<CDateTime, __int64>);
static_assert(std::is_nothrow_constructible_v<CDateTime, int, int, int, int, int, int>);
static_assert(std::is_convertible_v<CDateTime, CTime>);

namespace {

/// Compiles only for a member of exactly this type (`noexcept` may come on top).
template <typename Member, Member> constexpr bool has = true;

template <typename Result> using Query = Result (CDateTime::*)() const;

static_assert(has<Query<bool>, &CDateTime::IsValid>);
static_assert(has<Query<bool>, &CDateTime::IsNull>);
static_assert(has<Query<bool>, &CDateTime::IsEmpty>);
static_assert(has<Query<bool>, &CDateTime::IsDateNull>);
static_assert(has<Query<bool>, &CDateTime::IsTimeNull>);
static_assert(has<Query<bool>, &CDateTime::IsLeapYear>);
static_assert(has<Query<WEEKDAY>, &CDateTime::GetDayOfWeek>);
static_assert(has<Query<unsigned int>, &CDateTime::GetDateValue>);
static_assert(has<Query<int>, &CDateTime::GetWeekNo>);
static_assert(has<Query<CDateTime>, &CDateTime::GetDateOnly>);
static_assert(has<Query<CDateTime>, &CDateTime::GetTimeOnly>);
static_assert(has<Query<CTime>, &CDateTime::GetCTime>);
static_assert(has<Query<double>, &CDateTime::GetValue>);
static_assert(has<Query<CDateTime::DateTimeStatus>, &CDateTime::GetStatus>);
static_assert(has<Query<int>, &CDateTime::GetYear> && has<Query<int>, &CDateTime::GetMonth>);
static_assert(has<Query<int>, &CDateTime::GetDay> && has<Query<int>, &CDateTime::GetHour>);
static_assert(has<Query<int>, &CDateTime::GetMinute> && has<Query<int>, &CDateTime::GetSecond>);
static_assert(has<UtCString (CDateTime::*)(unsigned int) const, &CDateTime::GetDate>);

static_assert(has<void (CDateTime::*)(), &CDateTime::SetNull>);
static_assert(has<bool (CDateTime::*)(int, int, int), &CDateTime::SetDate>);
static_assert(has<bool (CDateTime::*)(const UtCString&), &CDateTime::SetDate>);
static_assert(has<bool (CDateTime::*)(const UtCString&), &CDateTime::ConvertDate>);
static_assert(has<CDateTime (*)(const UtCString&, unsigned long), &CDateTime::ParseDate>);
static_assert(has<void (CDateTime::*)(), &CDateTime::SetCurrentDate>);
static_assert(has<void (CDateTime::*)(), &CDateTime::SetCurrentTime>);
static_assert(has<void (CDateTime::*)(), &CDateTime::SetCurrentDateTime>);
static_assert(has<void (CDateTime::*)(), &CDateTime::SetTimeStamp>);
static_assert(has<CDateTime (*)(), &CDateTime::GetCurrentDate>);
static_assert(has<CDateTime (*)(), &CDateTime::GetCurrentClock>);
static_assert(has<CDateTime (*)(), &CDateTime::GetTickCount>);
static_assert(has<bool (CDateTime::*)(int), &CDateTime::AddDays>);
static_assert(has<bool (CDateTime::*)(int, int), &CDateTime::AddMonths>);
static_assert(has<bool (CDateTime::*)(int, int), &CDateTime::AddYears>);

class Host : CDateTime
{
    static_assert(std::is_same_v<decltype(&Host::DateToStr), UtCString (CDateTime::*)() const>);
};

} // namespace
