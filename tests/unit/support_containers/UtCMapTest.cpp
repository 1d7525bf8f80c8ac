#include "containers/UtCMap.h"

#include <gtest/gtest.h>

TEST(UtCMap, FindsWhatWasInserted)
{
    UtCMap<UtCString, unsigned long> map;
    EXPECT_TRUE(map.Insert("NAME", 7));
    ASSERT_NE(map.Find("NAME"), nullptr);
    EXPECT_EQ(*map.Find("NAME"), 7u);
    EXPECT_EQ(map.Find("name"), nullptr);
}
