#include "framework/CByteArray.h"

#include <gtest/gtest.h>

namespace {

CByteArray Bytes(std::initializer_list<unsigned char> values)
{
    CByteArray array;
    for (const unsigned char value : values)
        array.Add(value);
    return array;
}

TEST(CByteArray, StartsEmpty)
{
    EXPECT_EQ(CByteArray().GetSize(), 0);
}

TEST(CByteArray, AddAppendsAndGivesThePosition)
{
    CByteArray array;
    EXPECT_EQ(array.Add(7), 0);
    EXPECT_EQ(array.Add(0), 1);
    EXPECT_EQ(array.Add(255), 2);
    EXPECT_EQ(array.GetSize(), 3);
    EXPECT_EQ(array.GetData()[2], 255);
}

TEST(CByteArray, GivesItsBytesInARow)
{
    const CByteArray array = Bytes({1, 0, 255});
    EXPECT_EQ(array.GetData()[0], 1);
    EXPECT_EQ(array.GetData()[2], 255);
}

TEST(CByteArray, SetSizeKeepsTheOldBytesAndZeroesTheNew)
{
    CByteArray array = Bytes({1, 2});
    array.SetSize(4);
    EXPECT_EQ(array.GetSize(), 4);
    EXPECT_EQ(array.GetAt(1), 2);
    EXPECT_EQ(array.GetAt(3), 0);
}

TEST(CByteArray, SetSizeDropsWhatIsBehindTheEnd)
{
    CByteArray array = Bytes({1, 2, 3});
    array.SetSize(1, 16);
    EXPECT_EQ(array.GetSize(), 1);
    EXPECT_EQ(array.GetAt(0), 1);
}

TEST(CByteArray, TakesANegativeSizeAsZero)
{
    CByteArray array = Bytes({1, 2, 3});
    array.SetSize(-5);
    EXPECT_EQ(array.GetSize(), 0);
}

TEST(CByteArray, GivesZeroOutsideTheArray)
{
    const CByteArray array = Bytes({9});
    EXPECT_EQ(array.GetAt(0), 9);
    EXPECT_EQ(array.GetAt(-1), 0);
    EXPECT_EQ(array.GetAt(1), 0);
}

TEST(CByteArray, SetAtWritesOnlyInsideTheArray)
{
    CByteArray array = Bytes({9, 9});
    array.SetAt(1, 5);
    array.SetAt(2, 6);
    array.SetAt(-1, 6);
    EXPECT_EQ(array.GetAt(0), 9);
    EXPECT_EQ(array.GetAt(1), 5);
    EXPECT_EQ(array.GetSize(), 2);
}

TEST(CByteArray, CopiesAreDeep)
{
    CByteArray array = Bytes({1});
    const CByteArray copy = array;
    array.SetAt(0, 2);
    EXPECT_EQ(copy.GetAt(0), 1);
}

TEST(CByteArray, RemoveAllEmptiesIt)
{
    CByteArray array = Bytes({1, 2});
    array.RemoveAll();
    EXPECT_EQ(array.GetSize(), 0);
}

TEST(CByteArray, HasARuntimeClass)
{
    EXPECT_STREQ(CByteArray().GetRuntimeClass()->m_lpszClassName, "CByteArray");
    EXPECT_TRUE(CByteArray().IsKindOf(RUNTIME_CLASS(CObject)));
}

} // namespace
