#include "framework/Variant.h"
#include "framework/VariantDate.h"

#include <gtest/gtest.h>

TEST(VariantToOleDate, OnPosixRefusesADecimalWhichHasNoTypeThere)
{
    constexpr VARTYPE decimal = 14;
    VARIANT variant{};
    variant.vt = decimal;
    double date = 4711.5;
    EXPECT_FALSE(framework::VariantToOleDate(variant, date));
    EXPECT_EQ(date, 4711.5);
}
