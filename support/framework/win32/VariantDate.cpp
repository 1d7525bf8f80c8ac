#include "framework/VariantDate.h"

#include "framework/OleDate.h"
#include "framework/Variant.h"

#include <oleauto.h>

bool framework::VariantToOleDate(const VARIANT& value, DATE& date) noexcept
{
    if (value.vt == VT_DATE) {
        date = value.date;
        return true;
    }
    VARIANT converted;
    VariantInit(&converted);
    if (FAILED(VariantChangeType(&converted, const_cast<VARIANT*>(&value), 0, VT_DATE)))
        return false;
    framework::DayAndSecond ignored; // the system takes a currency amount of any size
    if (!framework::SplitOleDate(converted.date, ignored))
        return false;
    date = converted.date;
    return true;
}
