#include "framework/Variant.h"
#include "framework/VariantDate.h"

#include <gtest/gtest.h>

TEST(VariantToOleDate, OnWindowsTakesADecimalWhichThePlatformConverts)
{
    VARIANT variant{};
    variant.decVal.Lo64 = 453565;
    variant.decVal.scale = 1;
    variant.vt = VT_DECIMAL; // shares its place with the decimal's reserved word
    double date = 0;
    EXPECT_TRUE(framework::VariantToOleDate(variant, date));
    EXPECT_EQ(date, 45356.5);
}
