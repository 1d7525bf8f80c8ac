#include "framework/Variant.h"
#include "framework/VariantDate.h"

#include <gtest/gtest.h>

namespace {

TEST(VariantToOleDateOnPosix, RefusesADecimalWhichItsVariantsLack)
{
    VARIANT decimal{};
    decimal.vt = 14;
    double date = 4711.5;
    EXPECT_FALSE(framework::VariantToOleDate(decimal, date));
    EXPECT_EQ(date, 4711.5);
}

} // namespace
