#include "text/UtCString.h"

#include <gtest/gtest.h>

TEST(UtCString, IsEmptyWhenDefaultConstructed)
{
    const UtCString text;
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_STREQ(text.string(), "");
    EXPECT_EQ(text.GetEncodingType(), UT_ENCODING_DEFAULT);
}
