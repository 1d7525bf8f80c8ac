#include "WindowsHeader.h"

#include <gtest/gtest.h>

TEST(WindowsHeader, MayStandBeforeTheLibrarysHeaders)
{
    EXPECT_TRUE(MembersAnswerWithHeaderBefore());
}

TEST(WindowsHeader, MayStandBehindTheLibrarysHeaders)
{
    EXPECT_TRUE(MembersAnswerWithHeaderBehind());
}
