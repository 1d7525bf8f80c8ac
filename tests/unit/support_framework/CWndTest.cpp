#include "framework/CWnd.h"

#include <gtest/gtest.h>

namespace {

TEST(CWnd, KnowsNoMessage)
{
    CWnd window;
    EXPECT_EQ(window.SendMessage(PBM_DELTAPOS, 5, 6), 0);
    EXPECT_STREQ(window.GetRuntimeClass()->m_lpszClassName, "CWnd");
}

TEST(CProgressCtrl, RangesFromZeroToAHundredAtFirst)
{
    const CProgressCtrl bar;
    int lower = -1;
    int upper = -1;
    bar.GetRange(lower, upper);
    EXPECT_EQ(lower, 0);
    EXPECT_EQ(upper, 100);
    EXPECT_EQ(bar.GetPos(), 0);
    EXPECT_TRUE(bar.IsKindOf(RUNTIME_CLASS(CWnd)));
}

TEST(CProgressCtrl, MovesByTheStepAndGivesThePositionBefore)
{
    static_assert(PBM_DELTAPOS == 1027);
    CProgressCtrl bar;
    bar.SetRange32(0, 1000);
    EXPECT_EQ(bar.SendMessage(1027, 300), 0);
    EXPECT_EQ(bar.SendMessage(1027, 50), 300);
    EXPECT_EQ(bar.GetPos(), 350);
    EXPECT_EQ(bar.SendMessage(1027, static_cast<uintptr_t>(-100)), 350);
    EXPECT_EQ(bar.GetPos(), 250);
}

TEST(CProgressCtrl, StaysInItsRange)
{
    CProgressCtrl bar;
    bar.SetRange32(10, 20);
    EXPECT_EQ(bar.GetPos(), 10);
    bar.SendMessage(PBM_DELTAPOS, 2147483647);
    EXPECT_EQ(bar.GetPos(), 20);
    bar.SendMessage(PBM_DELTAPOS, static_cast<uintptr_t>(-2147483647 - 1));
    EXPECT_EQ(bar.GetPos(), 10);
    bar.SetRange32(30, 5);
    EXPECT_EQ(bar.GetPos(), 30);
}

TEST(CProgressCtrl, KnowsNoOtherMessage)
{
    CProgressCtrl bar;
    EXPECT_EQ(bar.SendMessage(1026, 5), 0);
    EXPECT_EQ(bar.GetPos(), 0);
}

} // namespace
