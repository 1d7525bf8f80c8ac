#include "platform/WaitCursor.h"

#include "platform/win32/WinApi.h"

#include <gtest/gtest.h>

namespace {

bool IsHourglass()
{
    return GetCursor() == LoadCursor(nullptr, IDC_WAIT);
}

TEST(WaitCursorOfWindows, LastsFromTheFirstBeginningToTheLastEnd)
{
    const HCURSOR arrow = LoadCursor(nullptr, IDC_ARROW);
    SetCursor(arrow);
    platform::BeginWaitCursor();
    EXPECT_TRUE(IsHourglass());
    platform::BeginWaitCursor();
    EXPECT_TRUE(IsHourglass());
    platform::EndWaitCursor();
    EXPECT_TRUE(IsHourglass());
    platform::EndWaitCursor();
    EXPECT_EQ(GetCursor(), arrow);
}

TEST(WaitCursorOfWindows, AnEndWithoutABeginningChangesNothing)
{
    SetCursor(LoadCursor(nullptr, IDC_CROSS));
    platform::EndWaitCursor();
    EXPECT_EQ(GetCursor(), LoadCursor(nullptr, IDC_CROSS));
    platform::BeginWaitCursor();
    EXPECT_TRUE(IsHourglass());
    platform::EndWaitCursor();
    EXPECT_EQ(GetCursor(), LoadCursor(nullptr, IDC_CROSS));
}

} // namespace
