#include "framework/VariantDate.h"

#include "framework/OleDate.h"
#include "framework/Variant.h"
#include "platform/LocaleDate.h"
#include "text/UtCString.h"

#include <string_view>

namespace framework {
namespace {

bool NumberToOleDate(double number, double& date)
{
    DayAndSecond ignored;
    if (!SplitOleDate(number, ignored))
        return false;
    date = number;
    return true;
}

std::string Utf8(const char16_t* text)
{
    std::string bytes;
    for (const char16_t unit : text ? std::u16string_view(text) : std::u16string_view()) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    const UtCString utf8(UtCString(bytes, UT_ENCODING_UTF16_LE), UT_ENCODING_UTF8);
    return std::string(utf8.View());
}

bool TextToOleDate(const char16_t* text, double& date)
{
    platform::CalendarFields fields{};
    return platform::ParseLocaleDate(Utf8(text), 0, fields) && OleDateFromFields(fields, date);
}

bool Convert(const VARIANT& value, double& date)
{
    switch (value.vt) {
    case VT_EMPTY:
        date = 0;
        return true;
    case VT_DATE:
        date = value.date;
        return true;
    case VT_BSTR:
        return TextToOleDate(value.bstrVal, date);
    case VT_I1:
        return NumberToOleDate(value.cVal, date);
    case VT_I2:
        return NumberToOleDate(value.iVal, date);
    case VT_BOOL:
        return NumberToOleDate(value.boolVal, date);
    case VT_I4:
    case VT_INT:
        return NumberToOleDate(value.lVal, date);
    case VT_I8:
        return NumberToOleDate(static_cast<double>(value.llVal), date);
    case VT_UI1:
        return NumberToOleDate(value.bVal, date);
    case VT_UI2:
        return NumberToOleDate(value.uiVal, date);
    case VT_UI4:
    case VT_UINT:
        return NumberToOleDate(value.ulVal, date);
    case VT_UI8:
        return NumberToOleDate(static_cast<double>(value.ullVal), date);
    case VT_R4:
        return NumberToOleDate(static_cast<double>(value.fltVal), date);
    case VT_R8:
        return NumberToOleDate(value.dblVal, date);
    case VT_CY:
        return NumberToOleDate(static_cast<double>(value.cyVal.int64) / 10000, date);
    default:
        return false;
    }
}

} // namespace

bool VariantToOleDate(const VARIANT& value, DATE& date) noexcept
try {
    return Convert(value, date);
} catch (...) {
    return false;
}

} // namespace framework
