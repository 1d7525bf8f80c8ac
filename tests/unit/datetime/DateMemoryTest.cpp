#include "harness/FailingAllocations.h"
#include "unit/datetime/DateTestSupport.h"

#include <gtest/gtest.h>

namespace {

/// Memory that runs out at each allocation in turn: once, or from there for good.
class DateMemory : public testing::TestWithParam<bool>
{
protected:
    template <class Work> long ForEachAllocation(Work work) { return harness::ForEachAllocation(GetParam(), work); }

    const Environment m_locale{"LC_ALL", "C"};
};

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, DateMemory, testing::Bool());

TEST_P(DateMemory, EveryReaderAnswersOrRefuses)
{
    const UtCString text("                       2024-03-05 14:07:09");
    bool isConsistent = true;
    const long failures = ForEachAllocation([&] {
        CDateTime german(2000, 1, 1, 0, 0, 0);
        const bool isGerman = german.SetDate(text);
        CDateTime compact(2000, 1, 1, 0, 0, 0);
        const bool isCompact = compact.ConvertDate(text);
        const CDateTime parsed = CDateTime::ParseDate(text);
        isConsistent = isConsistent && !isGerman && german.GetStatus() == CDateTime::null && german.GetValue() == 0;
        isConsistent = isConsistent && (isCompact ? compact.GetDateValue() == 20240305
                                                  : compact.GetStatus() == CDateTime::null && compact.GetValue() == 0);
        isConsistent = isConsistent && (parsed.GetDateValue() == 20240305 ||
                                        (parsed.GetStatus() == CDateTime::null && parsed.IsNull()));
    });
    EXPECT_GT(failures, 3);
    EXPECT_TRUE(isConsistent);
}

TEST_P(DateMemory, ATextIsWholeOrEmpty)
{
    const CDateTime date(2024, 3, 5, 14, 7, 9);
    const UtCString locale = date.GetDate(0);
    bool isConsistent = true;
    for (const unsigned int selector : {0u, 5u, 9u})
        ForEachAllocation([&] {
            const UtCString text = date.GetDate(selector);
            isConsistent = isConsistent && (text.IsEmpty() || text == locale || text == "05.03.2024  14:07:09" ||
                                            text == "2024-03-05 14:07:09");
        });
    EXPECT_TRUE(isConsistent);
}

} // namespace
