#include "RecordSetFixture.h"

#include <cmath>
#include <limits>

namespace {

using fake::Field;
using fake::Reply;
using recordset_test::NumberField;
using recordset_test::OpenRecordSet;
using recordset_test::Server;
using recordset_test::TextField;

/// What each numeric accessor gives for one text.
struct NumberRow
{
    const char* name;
    fake::Value text;
    long asLong;
    unsigned long asDWord;
    short asShort;
    unsigned short asWord;
    unsigned char asByte;
    bool asBool;
    __int64 asInt64;
    double asDouble;
    float asFloat;
};

constexpr double wide = 9223372036854775807.0;

const NumberRow numberRows[] = {
    {"Null", std::nullopt, 0, 0, 0, 0, 0, false, 0, 0.0, 0.0F},
    {"Empty", "", 0, 0, 0, 0, 0, false, 0, 0.0, 0.0F},
    {"Zero", "0", 0, 0, 0, 0, 0, false, 0, 0.0, 0.0F},
    {"One", "1", 1, 1, 1, 1, 1, true, 1, 1.0, 1.0F},
    {"Two", "2", 2, 2, 2, 2, 2, true, 2, 2.0, 2.0F},
    {"MinusOne", "-1", -1, 4294967295U, -1, 65535, 255, true, -1, -1.0, -1.0F},
    {"TwoHundredFiftySix", "256", 256, 256, 256, 256, 0, true, 256, 256.0, 256.0F},
    {"ThreeHundred", "300", 300, 300, 300, 300, 44, true, 300, 300.0, 300.0F},
    {"ShortLimit", "32768", 32768, 32768, -32768, 32768, 0, true, 32768, 32768.0, 32768.0F},
    {"WordLimit", "65536", 65536, 65536, 0, 0, 0, true, 65536, 65536.0, 65536.0F},
    {"LongMaximum", "2147483647", 2147483647, 2147483647, -1, 65535, 255, true, 2147483647, 2147483647.0,
     2147483648.0F},
    {"LongMinimum", "-2147483648", -2147483648L, 2147483648U, 0, 0, 0, true, -2147483648LL, -2147483648.0,
     -2147483648.0F},
    {"AboveLong", "2147483648", 0, 0, 0, 0, 0, false, 2147483648LL, 2147483648.0, 2147483648.0F},
    {"BelowLong", "-2147483649", 0, 0, 0, 0, 0, false, -2147483649LL, -2147483649.0, -2147483648.0F},
    {"ThreeBillion", "3000000000", 0, 0, 0, 0, 0, false, 3000000000LL, 3000000000.0, 3000000000.0F},
    {"Int64Maximum", "9223372036854775807", 0, 0, 0, 0, 0, false, 9223372036854775807LL, wide, 9223372036854775807.0F},
    {"Int64Minimum", "-9223372036854775808", 0, 0, 0, 0, 0, false, std::numeric_limits<__int64>::min(), -wide,
     -9223372036854775808.0F},
    {"UnsignedBigint", "18446744073709551615", 0, 0, 0, 0, 0, false, 0, 18446744073709551615.0,
     18446744073709551615.0F},
    {"Fraction", "1.5", 0, 0, 0, 0, 0, false, 0, 1.5, 1.5F},
    {"Comma", "1,5", 0, 0, 0, 0, 0, false, 0, 0.0, 0.0F},
    {"Exponent", "1.25e2", 0, 0, 0, 0, 0, false, 0, 125.0, 125.0F},
    {"SmallDouble", "2.2250738585072014e-308", 0, 0, 0, 0, 0, false, 0, 2.2250738585072014e-308, 0.0F},
    {"Word", "yes", 0, 0, 0, 0, 0, false, 0, 0.0, 0.0F},
    {"True", "true", 0, 0, 0, 0, 0, false, 0, 0.0, 0.0F},
    {"DigitsAndMore", "12a", 0, 0, 0, 0, 0, false, 0, 0.0, 0.0F},
    {"DigitsAndZeroByte", std::string("12\0", 3), 0, 0, 0, 0, 0, false, 0, 0.0, 0.0F},
    {"ZeroByte", std::string("\0", 1), 0, 0, 0, 0, 0, false, 0, 0.0, 0.0F},
    {"Minus", "-", 0, 0, 0, 0, 0, false, 0, 0.0, 0.0F},
    {"Zerofill", "0000000042", 42, 42, 42, 42, 42, true, 42, 42.0, 42.0F},
};

struct ColumnKind
{
    const char* name;
    Field field;
    const char* connectionCharset;
};

const ColumnKind columnKinds[] = {
    {"Number", NumberField("V"), ""},
    {"NumberOnUtf8", NumberField("V"), "utf8mb4"},
    {"Latin1Text", TextField("V", 8), ""},
    {"Utf8Text", TextField("V", 45), "utf8mb4"},
    {"Utf8TextOnLatin1", TextField("V", 45), ""},
    {"Utf32Text", TextField("V", 60), ""},
    {"Decimal", NumberField("V", MYSQL_TYPE_NEWDECIMAL), ""},
};

class TypedNumbers : public recordset_test::RecordSetFixture,
                     public testing::WithParamInterface<std::tuple<ColumnKind, NumberRow>>
{
};

TEST_P(TypedNumbers, AreReadFromTheText)
{
    const auto& [kind, row] = GetParam();
    CMyDatabase database(Server(kind.connectionCharset), "shop");
    m_client.OnPrefix("SELECT", Reply::Rows(std::vector<Field>{TextField("X"), kind.field}, {{"77", row.text}}));
    CMyRecordSet records(database, "");
    ASSERT_EQ(records.Select("SELECT x, v FROM t"), 1);
    EXPECT_EQ(records.GetFieldLong(1), row.asLong);
    EXPECT_EQ(records.GetFieldDWord(1), row.asDWord);
    EXPECT_EQ(records.GetFieldShort(1), row.asShort);
    EXPECT_EQ(records.GetFieldWord(1), row.asWord);
    EXPECT_EQ(records.GetFieldByte(1), row.asByte);
    EXPECT_EQ(records.GetFieldBool(1), row.asBool);
    EXPECT_EQ(records.GetFieldInt64(1), row.asInt64);
    EXPECT_EQ(records.GetFieldDouble(1), row.asDouble);
    EXPECT_EQ(records.GetFieldFloat(1), row.asFloat);
    EXPECT_EQ(records.GetFieldLong("V"), row.asLong);
    EXPECT_EQ(records.GetFieldDWord("V"), row.asDWord);
    EXPECT_EQ(records.GetFieldShort("V"), row.asShort);
    EXPECT_EQ(records.GetFieldWord("V"), row.asWord);
    EXPECT_EQ(records.GetFieldByte("V"), row.asByte);
    EXPECT_EQ(records.GetFieldBool("V"), row.asBool);
    EXPECT_EQ(records.GetFieldInt64("V"), row.asInt64);
    EXPECT_EQ(records.GetFieldDouble("V"), row.asDouble);
    EXPECT_EQ(records.GetFieldFloat("V"), row.asFloat);
}

INSTANTIATE_TEST_SUITE_P(RecordSet, TypedNumbers,
                         testing::Combine(testing::ValuesIn(columnKinds), testing::ValuesIn(numberRows)),
                         [](const testing::TestParamInfo<std::tuple<ColumnKind, NumberRow>>& named) {
                             return std::string(std::get<0>(named.param).name) + "_" + std::get<1>(named.param).name;
                         });

class TypedNumber : public recordset_test::RecordSetFixture
{
protected:
    void Store(const fake::Value& text)
    {
        m_client.OnPrefix("SELECT", Reply::Rows(std::vector<Field>{NumberField("V")}, {{text}}));
        ASSERT_EQ(records.Select(""), 1);
    }
    void TearDown() override
    {
        records.Close();
        RecordSetFixture::TearDown();
    }
    OpenRecordSet records{m_database, ""};
};

TEST_F(TypedNumber, Kept_K36_ADoubleWordIsASignedNumberTakenAsUnsigned)
{
    Store("-1");
    EXPECT_EQ(records.GetFieldDWord(0), 4294967295U);
    Store("3000000000");
    EXPECT_EQ(records.GetFieldDWord(0), 0U);
    EXPECT_EQ(records.GetFieldInt64(0), 3000000000LL);
}

TEST_F(TypedNumber, Kept_K37_NarrowNumbersAreCutToTheirWidth)
{
    Store("300");
    EXPECT_EQ(records.GetFieldByte(0), 44);
    EXPECT_TRUE(records.GetFieldBool(0));
    Store("65536");
    EXPECT_EQ(records.GetFieldShort(0), 0);
    EXPECT_EQ(records.GetFieldWord(0), 0);
}

TEST_F(TypedNumber, Kept_K48_ABoolIsANumberThatIsNotZero)
{
    Store("256");
    EXPECT_TRUE(records.GetFieldBool(0));
    Store("true");
    EXPECT_FALSE(records.GetFieldBool(0));
    Store("0.5");
    EXPECT_FALSE(records.GetFieldBool(0));
}

TEST_F(TypedNumber, OfAUtf16ColumnIsReadThroughItsText)
{
    OpenRecordSet untied(m_database, "");
    const std::string bigEndian("\0"
                                "4\0"
                                "2",
                                4);
    m_client.OnPrefix("SELECT",
                      Reply::Rows(std::vector<Field>{TextField("V", 54), TextField("W", 56)}, {{bigEndian, "42"}}));
    ASSERT_EQ(untied.Select("SELECT v, w FROM t"), 1);
    EXPECT_EQ(untied.GetFieldLong(0), 42);
    EXPECT_EQ(untied.GetFieldDouble(0), 42.0);
    EXPECT_EQ(untied.GetFieldLong(1), 0); // one UTF-16 unit, U+3234
}

TEST_F(TypedNumber, WithoutARowOrAColumnIsZero)
{
    Store("5");
    const auto expectZero = [](const CMyRecordSet& of, unsigned long no, const char* name) {
        EXPECT_EQ(of.GetFieldLong(no), 0);
        EXPECT_EQ(of.GetFieldDWord(no), 0U);
        EXPECT_EQ(of.GetFieldShort(no), 0);
        EXPECT_EQ(of.GetFieldWord(no), 0);
        EXPECT_EQ(of.GetFieldByte(no), 0);
        EXPECT_FALSE(of.GetFieldBool(no));
        EXPECT_EQ(of.GetFieldInt64(no), 0);
        EXPECT_EQ(of.GetFieldDouble(no), 0.0);
        EXPECT_EQ(of.GetFieldFloat(no), 0.0F);
        EXPECT_EQ(of.GetFieldLong(name), 0);
        EXPECT_EQ(of.GetFieldDWord(name), 0U);
        EXPECT_EQ(of.GetFieldShort(name), 0);
        EXPECT_EQ(of.GetFieldWord(name), 0);
        EXPECT_EQ(of.GetFieldByte(name), 0);
        EXPECT_FALSE(of.GetFieldBool(name));
        EXPECT_EQ(of.GetFieldInt64(name), 0);
        EXPECT_EQ(of.GetFieldDouble(name), 0.0);
        EXPECT_EQ(of.GetFieldFloat(name), 0.0F);
    };
    expectZero(records, 1, "X");
    expectZero(records, 4294967295U, "");
    ASSERT_FALSE(records.MoveNext());
    expectZero(records, 0, "V");
    records.Close();
    expectZero(records, 0, "V");
    expectZero(CMyRecordSet(), 0, "V");
}

} // namespace
