#include "framework/Variant.h"
#include "framework/VariantDate.h"

#include "unit/Environment.h"
#include "unit/VariantText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

namespace {

constexpr double untouched = 4711.5;

struct Result
{
    bool isConverted;
    double date;
};

Result Convert(const VARIANT& variant)
{
    double date = untouched;
    const bool isConverted = framework::VariantToOleDate(variant, date);
    return {isConverted, date};
}

Result Convert(
    VARTYPE type, const std::function<void(VARIANT&)>& fill = [](VARIANT&) {})
{
    VARIANT variant{};
    variant.vt = type;
    fill(variant);
    return Convert(variant);
}

TEST(VariantToOleDate, TakesNumbersAsTheDateValue)
{
    const struct
    {
        const char* name;
        Result result;
        double date;
    } rows[] = {
        {"VT_I1", Convert(VT_I1, [](VARIANT& v) { v.cVal = -5; }), -5},
        {"VT_UI1", Convert(VT_UI1, [](VARIANT& v) { v.bVal = 250; }), 250},
        {"VT_I2", Convert(VT_I2, [](VARIANT& v) { v.iVal = -1234; }), -1234},
        {"VT_UI2", Convert(VT_UI2, [](VARIANT& v) { v.uiVal = 45356; }), 45356},
        {"VT_I4", Convert(VT_I4, [](VARIANT& v) { v.lVal = -657434; }), -657434},
        {"VT_UI4", Convert(VT_UI4, [](VARIANT& v) { v.ulVal = 2958465; }), 2958465},
        {"VT_INT", Convert(VT_INT, [](VARIANT& v) { v.intVal = -45356; }), -45356},
        {"VT_UINT", Convert(VT_UINT, [](VARIANT& v) { v.uintVal = 45356; }), 45356},
        {"VT_I8", Convert(VT_I8, [](VARIANT& v) { v.llVal = -45356; }), -45356},
        {"VT_UI8", Convert(VT_UI8, [](VARIANT& v) { v.ullVal = 45356; }), 45356},
        {"VT_R4", Convert(VT_R4, [](VARIANT& v) { v.fltVal = 1234.5f; }), 1234.5},
        {"VT_R8", Convert(VT_R8, [](VARIANT& v) { v.dblVal = -1.25; }), -1.25},
        {"VT_CY", Convert(VT_CY, [](VARIANT& v) { v.cyVal.int64 = 453565000; }), 45356.5},
        {"true", Convert(VT_BOOL, [](VARIANT& v) { v.boolVal = -1; }), -1},
        {"false", Convert(VT_BOOL, [](VARIANT& v) { v.boolVal = 0; }), 0},
        {"VT_EMPTY", Convert(VT_EMPTY), 0},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(row.result.isConverted) << row.name;
        EXPECT_EQ(row.result.date, row.date) << row.name;
    }
}

TEST(VariantToOleDate, TakesADateAsItIs)
{
    for (const double value : {45356.5, 0.0, 1e300, -1e300}) {
        const Result result = Convert(VT_DATE, [value](VARIANT& v) { v.date = value; });
        EXPECT_TRUE(result.isConverted) << value;
        EXPECT_EQ(result.date, value) << value;
    }
    EXPECT_TRUE(std::isnan(Convert(VT_DATE, [](VARIANT& v) { v.date = NAN; }).date));
}

TEST(VariantToOleDate, RefusesNumbersOutsideTheYears100To9999)
{
    const struct
    {
        const char* name;
        Result result;
    } rows[] = {
        {"too small", Convert(VT_I4, [](VARIANT& v) { v.lVal = -657435; })},
        {"too large", Convert(VT_I4, [](VARIANT& v) { v.lVal = 2958466; })},
        {"too large an amount", Convert(VT_CY, [](VARIANT& v) { v.cyVal.int64 = 29584660000; })},
        {"smallest", Convert(VT_I8, [](VARIANT& v) { v.llVal = std::numeric_limits<int64_t>::min(); })},
        {"largest", Convert(VT_UI8, [](VARIANT& v) { v.ullVal = std::numeric_limits<uint64_t>::max(); })},
        {"largest 32 bits", Convert(VT_UI4, [](VARIANT& v) { v.ulVal = 0xFFFFFFFF; })},
        {"NaN", Convert(VT_R8, [](VARIANT& v) { v.dblVal = NAN; })},
        {"infinite", Convert(VT_R4, [](VARIANT& v) { v.fltVal = std::numeric_limits<float>::infinity(); })},
    };
    for (const auto& row : rows) {
        EXPECT_FALSE(row.result.isConverted) << row.name;
        EXPECT_EQ(row.result.date, untouched) << row.name;
    }
}

TEST(VariantToOleDate, RefusesOtherTypes)
{
    constexpr int byReference = 0x4000;
    constexpr int array = 0x2000;
    for (const int type : {int{VT_NULL}, int{VT_ERROR}, 9, 12, 13, 15, 36, 9999, 0xFFFF, byReference | VT_DATE,
                           byReference | VT_I4, array | VT_DATE}) {
        const Result result = Convert(static_cast<VARTYPE>(type));
        EXPECT_FALSE(result.isConverted) << type;
        EXPECT_EQ(result.date, untouched) << type;
    }
}

TEST(VariantToOleDate, ReadsTexts)
{
    const Environment locale("LC_ALL", "C");
    const auto convert = [](std::u16string_view text) { return Convert(VariantText(text)); };
    EXPECT_EQ(convert(u"2024-03-05 12:00").date, 45356.5);
    EXPECT_EQ(convert(u"  March 5, 2024  ").date, 45356);
    EXPECT_EQ(convert(u"06:00").date, 0.25);
    for (const char16_t* const text : {u"", u" ", u"45356", u"no date", u"2024-02-30", u"\u00FC", u"\xD800",
                                       u"2024-03-0\u0135", u"2024-03-05\x1200"})
        EXPECT_FALSE(convert(text).isConverted);
    EXPECT_FALSE(Convert(VT_BSTR).isConverted) << "a null text is the empty one";
}

} // namespace
