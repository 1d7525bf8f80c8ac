#include "framework/Variant.h"
#include "framework/VariantDate.h"

#include <gtest/gtest.h>

namespace {

TEST(VariantToOleDateOfWindows, ConvertsADecimalWhichOnlyItsVariantsHave)
{
    VARIANT decimal{};
    decimal.decVal.Lo64 = 453565;
    decimal.decVal.scale = 1;
    decimal.vt = VT_DECIMAL;
    double date = 0;
    EXPECT_TRUE(framework::VariantToOleDate(decimal, date));
    EXPECT_EQ(date, 45356.5);
}

} // namespace
