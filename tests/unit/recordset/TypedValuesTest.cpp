#include "RecordSetFixture.h"

#include <cstring>

namespace {

using fake::Field;
using fake::Reply;
using recordset_test::NumberField;
using recordset_test::OpenRecordSet;
using recordset_test::TextField;

class TypedValues : public recordset_test::RecordSetFixture
{
protected:
    void Store(const fake::Row& row)
    {
        std::vector<Field> fields;
        for (size_t i = 0; i < row.size(); ++i)
            fields.push_back(TextField(std::string(1, static_cast<char>('A' + i))));
        m_client.OnPrefix("SELECT", Reply::Rows(fields, {row}));
        ASSERT_EQ(records.Select("SELECT * FROM t"), 1);
    }
    void TearDown() override
    {
        records.Close();
        RecordSetFixture::TearDown();
    }
    OpenRecordSet records{m_database, ""};
};

const std::string withZero("\0b", 2);

// ---- Value, null, empty, raw ----------------------------------------------------------------------------------------

TEST_F(TypedValues, GetFieldValueIsTheZeroTerminatedValue)
{
    Store({"abc", std::nullopt, ""});
    EXPECT_STREQ(records.GetFieldValue(0), "abc");
    EXPECT_STREQ(records.GetFieldValue("A"), "abc");
    EXPECT_EQ(records.GetFieldValue(1), nullptr);
    EXPECT_EQ(records.GetFieldValue("B"), nullptr);
    EXPECT_STREQ(records.GetFieldValue(2), "");
    EXPECT_EQ(records.GetFieldValue(3), nullptr);
    EXPECT_EQ(records.GetFieldValue("X"), nullptr);
    ASSERT_FALSE(records.MoveNext());
    EXPECT_EQ(records.GetFieldValue(0), nullptr);
    EXPECT_EQ(records.GetFieldValue("A"), nullptr);
}

struct NullRow
{
    const char* name;
    fake::Value value;
    bool isNull;
    bool isEmpty;
};

TEST_F(TypedValues, NullAndEmptyAreToldApart)
{
    const NullRow rows[] = {{"NULL", std::nullopt, true, true},
                            {"empty", "", false, true},
                            {"blank", " ", false, false},
                            {"zero", "0", false, false},
                            {"a zero byte", std::string("\0", 1), false, false},
                            {"a zero byte first", withZero, false, false}};
    for (const NullRow& row : rows) {
        Store({row.value});
        EXPECT_EQ(records.IsFieldNull(0), row.isNull) << row.name;
        EXPECT_EQ(records.IsFieldNull("A"), row.isNull) << row.name;
        EXPECT_EQ(records.IsFieldEmpty(0), row.isEmpty) << row.name;
        EXPECT_EQ(records.IsFieldEmpty("A"), row.isEmpty) << row.name;
    }
}

TEST_F(TypedValues, AMissingFieldIsNullAndEmpty)
{
    Store({"abc"});
    const auto expectMissing = [](const CMyRecordSet& of, unsigned long no, const char* name) {
        EXPECT_TRUE(of.IsFieldNull(no));
        EXPECT_TRUE(of.IsFieldEmpty(no));
        EXPECT_TRUE(of.IsFieldNull(name));
        EXPECT_TRUE(of.IsFieldEmpty(name));
    };
    expectMissing(records, 1, "X");
    ASSERT_FALSE(records.MoveNext());
    expectMissing(records, 0, "A");
    records.Close();
    expectMissing(records, 0, "A");
    expectMissing(CMyRecordSet(), 0, "A");
}

TEST_F(TypedValues, TheRawBytesAreThoseOfTheRow)
{
    Store({withZero, std::nullopt, ""});
    EXPECT_EQ(records.GetFieldDataLen(0), 2U);
    EXPECT_EQ(records.GetFieldDataLen("A"), 2U);
    ASSERT_NE(records.GetFieldDataPtr(0), nullptr);
    EXPECT_EQ(std::memcmp(records.GetFieldDataPtr(0), withZero.data(), 2), 0);
    EXPECT_EQ(records.GetFieldDataPtr("A"), records.GetFieldDataPtr(0));
    EXPECT_EQ(records.GetFieldDataPtr(1), nullptr);
    EXPECT_EQ(records.GetFieldDataLen(1), 0U);
    EXPECT_NE(records.GetFieldDataPtr(2), nullptr);
    EXPECT_EQ(records.GetFieldDataLen(2), 0U);
}

TEST_F(TypedValues, ThereAreNoRawBytesWithoutARowOrAColumn)
{
    Store({"abc"});
    const auto expectNone = [](const CMyRecordSet& of, unsigned long no, const char* name) {
        EXPECT_EQ(of.GetFieldDataPtr(no), nullptr);
        EXPECT_EQ(of.GetFieldDataPtr(name), nullptr);
        EXPECT_EQ(of.GetFieldDataLen(no), 0U);
        EXPECT_EQ(of.GetFieldDataLen(name), 0U);
        CByteArray bytes;
        bytes.Add(7);
        EXPECT_FALSE(of.GetFieldBlob(no, bytes));
        EXPECT_FALSE(of.GetFieldBlob(name, bytes));
        EXPECT_EQ(bytes.GetSize(), 1);
    };
    expectNone(records, 1, "X");
    expectNone(records, 4294967295U, "");
    ASSERT_FALSE(records.MoveNext());
    expectNone(records, 0, "A");
    records.Close();
    expectNone(records, 0, "A");
    expectNone(CMyRecordSet(), 0, "A");
}

TEST_F(TypedValues, GetFieldBlobCopiesTheBytes)
{
    Store({withZero, std::nullopt, ""});
    CByteArray bytes;
    bytes.SetSize(100);
    EXPECT_TRUE(records.GetFieldBlob(0, bytes));
    ASSERT_EQ(bytes.GetSize(), 2);
    EXPECT_EQ(bytes.GetAt(0), 0);
    EXPECT_EQ(bytes.GetAt(1), 'b');
    EXPECT_TRUE(records.GetFieldBlob("A", bytes));
    EXPECT_EQ(bytes.GetSize(), 2);
    EXPECT_TRUE(records.GetFieldBlob(1, bytes));
    EXPECT_EQ(bytes.GetSize(), 0);
    bytes.SetSize(3);
    EXPECT_TRUE(records.GetFieldBlob(2, bytes));
    EXPECT_EQ(bytes.GetSize(), 0);
}

// ---- Date and time --------------------------------------------------------------------------------------------------

struct DateRow
{
    const char* name;
    fake::Value text;
    int status;
    int year, month, day, hour, minute, second;
};

const DateRow dateRows[] = {
    {"DateTime", "2023-05-07 08:09:10", 0, 2023, 5, 7, 8, 9, 10},
    {"Date", "2023-05-07", 0, 2023, 5, 7, 0, 0, 0},
    {"EighteenCharacters", "2023-05-07 08:09:1", 0, 2023, 5, 7, 8, 9, 1},
    {"SeventeenCharacters", "2023-05-07 08:09:", 0, 2023, 5, 7, 0, 0, 0},
    {"Microseconds", "2023-05-07 08:09:10.123456", 0, 2023, 5, 7, 8, 9, 10},
    {"OtherSeparators", "2023/05/07T08.09.10", 0, 2023, 5, 7, 8, 9, 10},
    {"ZeroByteSeparators",
     std::string("2023\0"
                 "05\0"
                 "07",
                 10),
     0, 2023, 5, 7, 0, 0, 0},
    {"TimeOfDay", "12:34:56", 2, -1, -1, -1, -1, -1, -1},
    {"EightCharacters", "20230507", 2, -1, -1, -1, -1, -1, -1},
    {"ZeroDate", "0000-00-00", 2, -1, -1, -1, -1, -1, -1},
    {"ZeroDateTime", "0000-00-00 00:00:00", 2, -1, -1, -1, -1, -1, -1},
    {"NoSuchDay", "2023-02-30", 1, -1, -1, -1, -1, -1, -1},
    {"ZeroMonth", "2023-00-07", 1, -1, -1, -1, -1, -1, -1},
    {"Word", "tomorrow maybe", 2, -1, -1, -1, -1, -1, -1},
    {"Empty", "", 2, -1, -1, -1, -1, -1, -1},
    {"Null", std::nullopt, 2, -1, -1, -1, -1, -1, -1},
};

void ExpectDate(const CDateTime& date, const DateRow& row)
{
    EXPECT_EQ(static_cast<int>(date.GetStatus()), row.status) << row.name;
    EXPECT_EQ(date.GetYear(), row.year) << row.name;
    EXPECT_EQ(date.GetMonth(), row.month) << row.name;
    EXPECT_EQ(date.GetDay(), row.day) << row.name;
    EXPECT_EQ(date.GetHour(), row.hour) << row.name;
    EXPECT_EQ(date.GetMinute(), row.minute) << row.name;
    EXPECT_EQ(date.GetSecond(), row.second) << row.name;
    if (row.status != 0) {
        EXPECT_EQ(date.GetValue(), 0.0) << row.name;
    }
}

TEST_F(TypedValues, DatesAreReadByPosition)
{
    for (const DateRow& row : dateRows) {
        Store({row.text});
        ExpectDate(records.GetFieldDate(0), row);
        ExpectDate(records.GetFieldDate("A"), row);
    }
}

TEST_F(TypedValues, String2CDateTimeReadsATextInTheSameWay)
{
    for (const DateRow& row : dateRows) {
        for (eUtEncodingType encoding : {UT_ENCODING_DEFAULT, UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE}) {
            const UtCString single(std::string_view(row.text.value_or("")), UT_ENCODING_DEFAULT);
            CDateTime date(2000, 1, 1, 0, 0, 0);
            records.String2CDateTime(UtCString(single, encoding), date);
            ExpectDate(date, row);
        }
    }
}

TEST_F(TypedValues, AMissingDateByPositionIsNull)
{
    Store({"2023-05-07"});
    EXPECT_EQ(records.GetFieldDate(1).GetStatus(), CDateTime::null);
    ASSERT_FALSE(records.MoveNext());
    EXPECT_EQ(records.GetFieldDate(0).GetStatus(), CDateTime::null);
    EXPECT_EQ(CMyRecordSet().GetFieldDate(0).GetStatus(), CDateTime::null);
}

TEST_F(TypedValues, Kept_K38_TheDateOfAnUnknownNameHasTheStatusValid)
{
    Store({"2023-05-07"});
    EXPECT_EQ(records.GetFieldDate("X").GetStatus(), CDateTime::valid);
    EXPECT_EQ(records.GetFieldDate("X").GetValue(), 0.0);
    EXPECT_TRUE(records.GetFieldDate("X").IsNull());
}

// ---- GUID -----------------------------------------------------------------------------------------------------------

constexpr _GUID guid{0x6B29FC40, 0xCA47, 0x1067, {0xB3, 0x1D, 0x00, 0xDD, 0x01, 0x06, 0x62, 0xDA}};

struct GuidRow
{
    const char* name;
    fake::Value text;
    _GUID guid;
};

TEST_F(TypedValues, GuidsAreReadAsPeopleWriteThem)
{
    const GuidRow rows[] = {{"braces", "{6B29FC40-CA47-1067-B31D-00DD010662DA}", guid},
                            {"guid", "guid{6b29fc40-ca47-1067-b31d-00dd010662da}", guid},
                            {"uuid", "UUID 6B29FC40-CA47-1067-B31D-00DD010662DA", guid},
                            {"plain", "6b29fc40-ca47-1067-b31d-00dd010662da", guid},
                            {"blanks", " { 6b29fc40-ca47 -1067-b31d-00dd010662da } ", guid},
                            {"no hyphens", "6B29FC40CA471067B31D00DD010662DA", {}},
                            {"too short", "{6B29FC40-CA47-1067-B31D-00DD010662D}", {}},
                            {"zero byte", std::string("6b29fc40-ca47-1067-b31d-00dd010662da\0", 37), {}},
                            {"word", "guid", {}},
                            {"empty", "", {}},
                            {"NULL", std::nullopt, {}}};
    for (const GuidRow& row : rows) {
        Store({row.text});
        EXPECT_EQ(records.GetFieldGUID(0), row.guid) << row.name;
        EXPECT_EQ(records.GetFieldGUID("A"), row.guid) << row.name;
    }
    EXPECT_EQ(records.GetFieldGUID(1), _GUID{});
    EXPECT_EQ(records.GetFieldGUID("X"), _GUID{});
    EXPECT_EQ(CMyRecordSet().GetFieldGUID(0), _GUID{});
}

} // namespace
