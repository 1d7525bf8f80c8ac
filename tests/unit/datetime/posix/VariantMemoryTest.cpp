#include "harness/AllocationFailure.h"
#include "unit/VariantText.h"
#include "unit/datetime/DateTestSupport.h"

#include <gtest/gtest.h>

namespace {

/// Memory that runs out at each allocation in turn: once, or from there for good. Elsewhere the system converts, with
/// its own memory.
class VariantMemoryOnPosix : public testing::TestWithParam<bool>
{
protected:
    const Environment m_locale{"LC_ALL", "C"};
};

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, VariantMemoryOnPosix, testing::Bool());

TEST_P(VariantMemoryOnPosix, AVariantTextIsADateOrInvalid)
{
    const VariantText variant(u"                       2024-03-05 14:07:09");
    bool isConsistent = true;
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        const CDateTime date(variant);
        isConsistent = isConsistent && (date.GetDateValue() == 20240305 ||
                                        (date.GetStatus() == CDateTime::invalid && date.GetValue() == 0));
    });
    EXPECT_GT(failures, 3);
    EXPECT_TRUE(isConsistent);
}

} // namespace
