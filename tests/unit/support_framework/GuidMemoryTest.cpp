#include "framework/GuidText.h"
#include "harness/FailingAllocations.h"

#include <gtest/gtest.h>

namespace {

TEST(GuidFromLooseText, IsRightOrAllZeroWhenMemoryRunsOut)
{
    constexpr _GUID right = {0x6b29fc40, 0xca47, 0x1067, {0xb3, 0x1d, 0x00, 0xdd, 0x01, 0x06, 0x62, 0xda}};
    const UtCString text("guid{6B29FC40-CA47-1067-B31D-00DD010662DA}");
    const UtCString wide(text, UT_ENCODING_UTF16_LE);
    for (const bool failsForGood : {false, true}) {
        bool isRightOrZero = true;
        const long failures = harness::ForEachAllocation(failsForGood, [&] {
            for (const UtCString* const each : {&text, &wide}) {
                const _GUID guid = framework::GuidFromLooseText(*each);
                isRightOrZero = isRightOrZero && (guid == right || guid == _GUID{});
            }
        });
        EXPECT_GT(failures, 1);
        EXPECT_TRUE(isRightOrZero);
    }
}

} // namespace
