#include "KeyFixture.h"

#include <climits>
#include <cmath>
#include <limits>

namespace {

using namespace recordset_test;
using namespace std::literals;

const _GUID guid = {0x6B29FC40, 0xCA47, 0x1067, {0xB3, 0x1D, 0x00, 0xDD, 0x01, 0x06, 0x62, 0xDA}};

TEST(CMyKey, IsEmptyAtFirst)
{
    const CMyKey key;
    EXPECT_TRUE(key.IsEmpty());
    EXPECT_EQ(key.GetFieldCount(), 0);
    EXPECT_EQ(Bytes(key.GetFirstFieldName()), "");
}

TEST(CMyKey, StoresTheUpperCaseNameTheOperatorAndTheValue)
{
    CMyKey key;
    key.Add("name", "x", "");
    EXPECT_FALSE(key.IsEmpty());
    EXPECT_EQ(Items(key), (Texts{"NAME", "=", "x"}));
    EXPECT_EQ(Bytes(key.GetFirstFieldName()), "NAME");
}

TEST(CMyKey, KeepsTheOrderAndRepeatedColumns)
{
    CMyKey key("age", 30, ">");
    key.Add("age", 40, "< ").Add("name", "M%", "like");
    EXPECT_EQ(Items(key), (Texts{"AGE", ">", "30", "AGE", "< ", "40", "NAME", "like", "M%"}));
}

TEST(CMyKey, Kept_K80_CountsListItems)
{
    CMyKey key("a", 1, "=");
    key.Add("b", 2, "=");
    EXPECT_EQ(key.GetFieldCount(), 6);
}

TEST(CMyKey, IsEmptyAfterClear)
{
    CMyKey key("a", 1, "=");
    key.Clear();
    EXPECT_TRUE(key.IsEmpty());
    EXPECT_EQ(key.GetFieldCount(), 0);
    key.Add("b", 2, "=");
    EXPECT_EQ(Items(key), (Texts{"B", "=", "2"}));
}

TEST(CMyKey, ReadsNothingOutOfRange)
{
    const CMyKey key("a", 1, "=");
    for (int n : {-1, 1, 2, INT_MIN, INT_MAX, 1431655766, 715827883, -1431655765}) {
        EXPECT_EQ(Bytes(key.GetFieldName(n)), "") << n;
        EXPECT_EQ(Bytes(key.GetOperator(n)), "") << n;
        EXPECT_EQ(Bytes(key.GetFieldValue(n)), "") << n;
    }
}

TEST(CMyKey, ReadsTheItemsOfHalfACondition)
{
    CMyKey key("a", 1, "<");
    key.Add("b", 2, ">");
    key.Remove(5);
    EXPECT_EQ(key.GetFieldCount(), 5);
    EXPECT_EQ(Items(key), (Texts{"A", "<", "1", "B", ">", ""}));
    key.Remove(4);
    EXPECT_EQ(Items(key), (Texts{"A", "<", "1", "B", "", ""}));
}

// --- Values, by overload

struct ValueCase
{
    const char* name;
    CMyKey key;
    const char* text;
};

class CMyKeyValue : public testing::TestWithParam<ValueCase>
{
};

TEST_P(CMyKeyValue, IsStoredAsText)
{
    EXPECT_EQ(Items(GetParam().key), (Texts{"F", "=", GetParam().text}));
}

template <class Value> CMyKey With(Value value)
{
    return CMyKey().Add("f", value, "=");
}

INSTANTIATE_TEST_SUITE_P(
    Values, CMyKeyValue,
    testing::Values(
        ValueCase{"Text", With(UtCString("O'Neil")), "O\\'Neil"}, ValueCase{"CharText", With("O'Neil"), "O\\'Neil"},
        ValueCase{"NullCharText", With(static_cast<const char*>(nullptr)), ""}, ValueCase{"EmptyText", With(""), ""},
        ValueCase{"TextInApostrophes", With("'abc'"), "\\'abc\\'"},
        ValueCase{"TextInQuotes", With("\"a\""), "\\\"a\\\""}, ValueCase{"Short", With(short{-32768}), "-32768"},
        ValueCase{"Int", With(INT_MIN), "-2147483648"}, ValueCase{"Long", With(2147483647L), "2147483647"},
        ValueCase{"NegativeLong", With(-1L), "-1"}, ValueCase{"UnsignedLong", With(4294967295UL), "4294967295"},
        ValueCase{"UnsignedLongOfMinusOne", With(static_cast<unsigned long>(-1L)), "4294967295"},
        ValueCase{"Double", With(1.23456), "1.2346"}, ValueCase{"Float", With(0.5f), "0.5"},
        ValueCase{"True", With(true), "TRUE"}, ValueCase{"False", With(false), "FALSE"},
        ValueCase{"DateTime", With(CDateTime(2023, 5, 7, 8, 9, 10)), "2023-05-07 08:09:10"},
        ValueCase{"Date", With(CDateTime(2023, 5, 7, 0, 0, 0)), "2023-05-07"},
        ValueCase{"Time", With(CDateTime(2023, 5, 7, 8, 9, 10).GetTimeOnly()), "08:09:10"},
        ValueCase{"NullDate", With(CDateTime()), "null"},
        ValueCase{"NoDate", With(CDateTime(2023, 2, 29, 0, 0, 0)), "null"},
        ValueCase{"Guid", With(guid), "{6b29fc40-ca47-1067-b31d-00dd010662da}"},
        ValueCase{"NullGuid", With(_GUID{}), "null"}, ValueCase{"TextKey", CMyKey("f", UtCString("a'"), ""), "a\\'"},
        ValueCase{"CharTextKey", CMyKey("f", "a'", ""), "a\\'"}, ValueCase{"IntKey", CMyKey("f", 5, ""), "5"},
        ValueCase{"LongKey", CMyKey("f", -5L, ""), "-5"}, ValueCase{"UnsignedLongKey", CMyKey("f", 5UL, ""), "5"},
        ValueCase{"LargestUnsignedLongKey", CMyKey("f", 4294967295UL, ""), "4294967295"},
        ValueCase{"GuidKey", CMyKey("f", guid, ""), "{6b29fc40-ca47-1067-b31d-00dd010662da}"}),
    [](const auto& test) { return test.param.name; });

TEST(CMyKey, WritesALongBeyond32BitsWhole)
{
    if constexpr (sizeof(long) > 4) {
        EXPECT_EQ(Items(With(3000000000L)), (Texts{"F", "=", "3000000000"}));
        EXPECT_EQ(Items(With(5000000000UL)), (Texts{"F", "=", "5000000000"}));
    }
}

TEST(CMyKey, KeepsEncodingsAndZeroBytes)
{
    const UtCString value("a\0'b"sv, UT_ENCODING_UTF8);
    CMyKey key(UtCString("gr\xC3\xB6\xC3\x9F", UT_ENCODING_UTF8), value, UtCString("=", UT_ENCODING_UTF8));
    EXPECT_EQ(key.GetFieldValue(0).GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(Items(key), (Texts{"GR\xC3\x96\xC3\x9F", "=", "a\0\\'b"s}));
}

TEST(CMyKey, GivesAnEmptyTextAndACharTextAnEncoding)
{
    OpenKey key;
    key.Add("a", UtCString(UT_ENCODING_UTF16_LE), "=").Add("b", "x", "=");
    key.Append("c", UtCString("''", UT_ENCODING_UTF8), "=");
    EXPECT_EQ(key.GetFieldValue(0).GetEncodingType(), UT_ENCODING_UTF16_LE);
    EXPECT_EQ(key.GetFieldValue(1).GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_EQ(key.GetFieldValue(2).GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(Items(key), (Texts{"A", "=", "", "B", "=", "x", "C", "=", ""}));
}

TEST(CMyKey, TakesItsOwnItemsAsArguments)
{
    CMyKey key("a_column_with_a_name_that_needs_memory", "a value that is long enough to need memory", "<=>");
    for (int n = 0; n < 20; ++n)
        key.Add(key.item(0), key.item(2), key.item(1));
    EXPECT_EQ(key.GetFieldCount(), 63);
    EXPECT_EQ(Bytes(key.GetFieldName(20)), "A_COLUMN_WITH_A_NAME_THAT_NEEDS_MEMORY");
    EXPECT_EQ(Bytes(key.GetOperator(20)), "<=>");
    EXPECT_EQ(Bytes(key.GetFieldValue(20)), "a value that is long enough to need memory");
}

// --- Copies

TEST(CMyKey, CopiesAllConditions)
{
    CMyKey key("a", 1, "=");
    key.Add("b", 2, "<");
    const CMyKey copy(key);
    CMyKey assigned("c", 3, "=");
    assigned = key;
    key.Clear();
    EXPECT_EQ(Items(copy), (Texts{"A", "=", "1", "B", "<", "2"}));
    EXPECT_EQ(Items(assigned), Items(copy));
    assigned = key;
    EXPECT_TRUE(assigned.IsEmpty());
}

TEST(CMyKey, ChangesNothingWhenAssignedToItself)
{
    CMyKey key("a", 1, "=");
    CMyKey& same = key;
    key = same;
    EXPECT_EQ(Items(key), (Texts{"A", "=", "1"}));
}

// --- Values in their final form

TEST(CMyKeyAppend, TakesOnePairOfQuotesOff)
{
    OpenKey key;
    key.Append("a", "'2023-05-07'", "=");
    key.Append("b", "\"x\"", "");
    key.Append("c", "''", "<>");
    key.Append("d", "'", "=");
    key.Append("e", "a'b", "=");
    key.Append("f", "", "=");
    EXPECT_EQ(Items(key), (Texts{"A", "=", "2023-05-07", "B", "=", "x", "C", "<>", "", "D", "=", "'", "E", "=", "a'b",
                                 "F", "=", ""}));
}

} // namespace
