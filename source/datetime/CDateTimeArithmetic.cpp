#include "CDateTime.h"

#include "datetime/DateArithmetic.h"

bool CDateTime::AddDays(int days) noexcept
{
    if (IsNull())
        return false;
    // KEPT K-54: the result is not checked, a date outside the years 1600 to 2999 is reported as success.
    if (days != 0)
        m_value = datetime::AddDays(m_value, days);
    return true;
}

// KEPT K-55: with 0 months or years the wanted day of the month is not set either.
bool CDateTime::AddMonths(int months, int dayOfMonth) noexcept
{
    return !IsNull() && (months == 0 || datetime::AddMonths(m_value, months, dayOfMonth));
}

bool CDateTime::AddYears(int years, int dayOfMonth) noexcept
{
    return !IsNull() && (years == 0 || datetime::AddMonths(m_value, years * 12LL, dayOfMonth));
}
