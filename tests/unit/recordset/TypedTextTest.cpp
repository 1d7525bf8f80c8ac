#include "RecordSetFixture.h"

namespace {

using fake::Field;
using fake::Reply;
using recordset_test::Bytes;
using recordset_test::NumberField;
using recordset_test::OpenRecordSet;
using recordset_test::Server;
using recordset_test::TextField;

/// The value of one column, read into a text of an encoding. The table is not bound, so the result's charset counts.
struct TextRow
{
    const char* name;
    Field field;
    fake::Value value;
    eUtEncodingType target;
    std::string text;
};

const std::string umlautUtf8 = "\xC3\xBC";
const std::string umlautLatin1 = "\xFC";
const std::string umlautBigEndian("\0\xFC", 2);
const std::string umlautLittleEndian("\xFC\0", 2);

Field Memo(const std::string& name)
{
    return {.name = name, .type = MYSQL_TYPE_BLOB, .flags = BLOB_FLAG, .length = 65535, .charsetnr = 45};
}

Field Blob(const std::string& name)
{
    return {.name = name, .type = MYSQL_TYPE_BLOB, .flags = BLOB_FLAG | BINARY_FLAG, .length = 65535, .charsetnr = 63};
}

const TextRow textRows[] = {
    {"Utf8IntoSingleByte", TextField("V", 45), umlautUtf8, UT_ENCODING_DEFAULT, umlautLatin1},
    {"Utf8IntoUtf8", TextField("V", 45), umlautUtf8, UT_ENCODING_UTF8, umlautUtf8},
    {"Utf8IntoUtf16", TextField("V", 45), umlautUtf8, UT_ENCODING_UTF16_LE, umlautLittleEndian},
    {"ThreeByteUtf8", TextField("V", 33), umlautUtf8, UT_ENCODING_DEFAULT, umlautLatin1},
    {"Utf8MemoIntoSingleByte", Memo("V"), umlautUtf8, UT_ENCODING_DEFAULT, umlautLatin1},
    {"UnmappableIntoSingleByte", TextField("V", 45), "\xE2\x82\xAC \xE4\xBD\xA0", UT_ENCODING_DEFAULT, "\x80 ?"},
    {"Latin1IntoSingleByte", TextField("V", 8), umlautLatin1, UT_ENCODING_DEFAULT, umlautLatin1},
    {"Latin1IntoUtf8", TextField("V", 8), umlautLatin1, UT_ENCODING_UTF8, umlautUtf8},
    {"BinaryStringIntoUtf8", TextField("V", 63), umlautLatin1, UT_ENCODING_UTF8, umlautUtf8},
    {"Ucs2IntoSingleByte", TextField("V", 35), umlautBigEndian, UT_ENCODING_DEFAULT, umlautLatin1},
    {"Utf16IntoUtf8", TextField("V", 54), umlautBigEndian, UT_ENCODING_UTF8, umlautUtf8},
    {"Utf16LittleEndianIntoUtf8", TextField("V", 56), umlautLittleEndian, UT_ENCODING_UTF8, umlautUtf8},
    {"Utf32IsNotConverted", TextField("V", 60), umlautUtf8, UT_ENCODING_DEFAULT, umlautUtf8},
    {"Utf32IsNotConvertedIntoUtf8", TextField("V", 60), umlautLatin1, UT_ENCODING_UTF8, umlautLatin1},
    {"EnumIsNotConverted",
     {.name = "V", .type = MYSQL_TYPE_ENUM, .charsetnr = 45},
     umlautUtf8,
     UT_ENCODING_DEFAULT,
     umlautUtf8},
    {"BlobIsNotConverted", Blob("V"), umlautLatin1, UT_ENCODING_UTF8, umlautLatin1},
    {"NumberIntoSingleByte", NumberField("V"), "-12", UT_ENCODING_DEFAULT, "-12"},
    {"NumberIntoUtf8", NumberField("V"), "-12", UT_ENCODING_UTF8, "-12"},
    {"NumberIntoUtf16", NumberField("V"), "-1", UT_ENCODING_UTF16_LE,
     std::string("-\0"
                 "1\0",
                 4)},
    {"NumberIntoUtf16BigEndian", NumberField("V"), "-1", UT_ENCODING_UTF16_BE,
     std::string("\0-\0"
                 "1",
                 4)},
    {"DateTime", NumberField("V", MYSQL_TYPE_DATETIME), "2023-05-07 08:09:10", UT_ENCODING_UTF8, "2023-05-07 08:09:10"},
    {"Null", TextField("V"), std::nullopt, UT_ENCODING_UTF8, ""},
    {"Empty", TextField("V"), "", UT_ENCODING_UTF8, ""},
    {"ZeroByteInText", TextField("V"), std::string("a\0b", 3), UT_ENCODING_UTF8, std::string("a\0b", 3)},
    {"ZeroByteInConvertedText", TextField("V"), std::string("\xC3\xBC\0b", 4), UT_ENCODING_DEFAULT,
     std::string("\xFC\0b", 3)},
    {"ZeroByteInBlob", Blob("V"), std::string("\0\0", 2), UT_ENCODING_DEFAULT, std::string("\0\0", 2)},
    {"MalformedUtf8IntoUtf8", TextField("V"), "\xC3", UT_ENCODING_UTF8, "\xC3"},
    {"MalformedUtf8IntoSingleByte", TextField("V"), "a\xC3", UT_ENCODING_DEFAULT, "a?"},
};

class TypedText : public recordset_test::RecordSetFixture, public testing::WithParamInterface<TextRow>
{
};

TEST_P(TypedText, IsRead)
{
    const TextRow& row = GetParam();
    m_client.OnPrefix("SELECT", Reply::Rows(std::vector<Field>{TextField("X"), row.field}, {{"77", row.value}}));
    CMyRecordSet records(m_database, "");
    ASSERT_EQ(records.Select("SELECT x, v FROM t"), 1);
    UtCString text("before", row.target);
    EXPECT_TRUE(records.GetFieldText(1, text));
    EXPECT_EQ(text.View(), row.text);
    EXPECT_EQ(text.GetEncodingType(), row.target);
    UtCString byName("a text before that is longer than any inline buffer", row.target);
    EXPECT_TRUE(records.GetFieldText("V", byName));
    EXPECT_EQ(byName.View(), row.text);
    EXPECT_EQ(byName.GetEncodingType(), row.target);
}

INSTANTIATE_TEST_SUITE_P(RecordSet, TypedText, testing::ValuesIn(textRows),
                         [](const testing::TestParamInfo<TextRow>& named) { return named.param.name; });

class TypedTexts : public recordset_test::RecordSetFixture
{
protected:
    void Store(const std::vector<Field>& fields, const std::vector<fake::Row>& rows)
    {
        m_client.OnPrefix("SELECT", Reply::Rows(fields, rows));
        ASSERT_EQ(records.Select(""), static_cast<long>(rows.size()));
        m_client.ForgetCalls();
    }
    std::string Text(unsigned long no, eUtEncodingType encoding = UT_ENCODING_DEFAULT)
    {
        UtCString text(encoding);
        EXPECT_TRUE(records.GetFieldText(no, text));
        return Bytes(text);
    }
    void TearDown() override
    {
        records.Close();
        RecordSetFixture::TearDown();
    }
    OpenRecordSet records{m_database, "orders"};
};

TEST_F(TypedTexts, AnUnknownNameIsFalseAndLeavesTheTextAlone)
{
    Store({TextField("A")}, {{"1"}});
    UtCString text("before");
    EXPECT_FALSE(records.GetFieldText("X", text));
    EXPECT_FALSE(records.GetFieldText("", text));
    EXPECT_EQ(text, "before");
    EXPECT_FALSE(CMyRecordSet().GetFieldText("A", text));
}

TEST_F(TypedTexts, ByPositionItIsTrueAndEmptyWithoutAValue)
{
    Store({TextField("A")}, {{std::nullopt}});
    UtCString text("before", UT_ENCODING_UTF16_LE);
    EXPECT_TRUE(records.GetFieldText(0, text));
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text.GetEncodingType(), UT_ENCODING_UTF16_LE);
    text = "before";
    EXPECT_TRUE(records.GetFieldText(1, text));
    EXPECT_TRUE(text.IsEmpty());
    ASSERT_FALSE(records.MoveNext());
    text = "before";
    EXPECT_TRUE(records.GetFieldText(0, text));
    EXPECT_TRUE(text.IsEmpty());
    text = "before";
    EXPECT_TRUE(CMyRecordSet().GetFieldText(0, text));
    EXPECT_TRUE(text.IsEmpty());
}

TEST_F(TypedTexts, TheTableSaysHowItsColumnsAreConverted)
{
    m_client.OnListFields("ORDERS", {TextField("A", 8), TextField("B", 45)});
    Store({TextField("A", 45), TextField("B", 45)}, {{umlautLatin1, umlautUtf8}});
    EXPECT_EQ(Text(0, UT_ENCODING_UTF8), umlautUtf8);
    EXPECT_EQ(Text(1, UT_ENCODING_DEFAULT), umlautLatin1);
}

TEST_F(TypedTexts, AColumnThatTheTableDoesNotHaveIsNotConverted)
{
    m_client.OnListFields("ORDERS", {TextField("A", 45)});
    Store({TextField("A"), TextField("Alias")}, {{umlautUtf8, umlautUtf8}});
    EXPECT_EQ(Text(0), umlautLatin1);
    EXPECT_EQ(Text(1), umlautUtf8);
}

TEST_F(TypedTexts, NothingIsConvertedWhenTheTableIsUnknown)
{
    Store({TextField("A")}, {{umlautUtf8}, {umlautUtf8}});
    EXPECT_EQ(Text(0), umlautUtf8);
    ASSERT_TRUE(records.MoveNext());
    EXPECT_EQ(Text(0), umlautUtf8);
    EXPECT_EQ(m_client.CountOf("mysql_list_fields"), 1U); // not once per value
}

TEST_F(TypedTexts, TheTableIsAskedForOncePerResult)
{
    m_client.OnListFields("ORDERS", {TextField("A"), TextField("B")});
    Store({TextField("A"), TextField("B")}, {{"1", "2"}, {"3", "4"}});
    do {
        Text(0);
        Text(1);
        records.GetFieldLong(0);
    } while (records.MoveNext());
    EXPECT_EQ(m_client.CountOf("mysql_list_fields"), 1U);
}

TEST_F(TypedTexts, ATableThatTheCacheNeverFindsIsNotLoadedForEachValue)
{
    records.SetTableName(" orders ");
    m_client.OnListFields("ORDERS", {TextField("A"), TextField("B")});
    Store({TextField("A"), TextField("B")}, {{umlautUtf8, umlautUtf8}});
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Text(0), umlautLatin1);
        EXPECT_EQ(Text(1), umlautLatin1);
    }
    EXPECT_EQ(m_client.CountOf("mysql_list_fields"), 1U);
}

TEST_F(TypedTexts, AChangeOfTheCacheIsSeenAtOnce)
{
    m_client.OnListFields("ORDERS", {TextField("A", 8)});
    Store({TextField("A")}, {{umlautUtf8}});
    EXPECT_EQ(Text(0, UT_ENCODING_UTF8), "\xC3\x83\xC2\xBC");
    m_client.OnListFields("ORDERS", {TextField("A", 45)});
    EXPECT_EQ(Text(0, UT_ENCODING_UTF8), "\xC3\x83\xC2\xBC");
    CFieldCache::Instance().RemoveAll();
    EXPECT_EQ(Text(0, UT_ENCODING_UTF8), umlautUtf8);
}

TEST_F(TypedTexts, AnotherTableNameIsSeenAtOnce)
{
    m_client.OnListFields("ORDERS", {TextField("A", 8)});
    m_client.OnListFields("OTHERS", {TextField("A", 45)});
    Store({TextField("A")}, {{umlautUtf8}});
    EXPECT_EQ(Text(0, UT_ENCODING_UTF8), "\xC3\x83\xC2\xBC");
    records.SetTableName("others");
    EXPECT_EQ(Text(0, UT_ENCODING_UTF8), umlautUtf8);
    records.SetTableName("");
    EXPECT_EQ(Text(0, UT_ENCODING_UTF8), umlautUtf8);
}

TEST_F(TypedTexts, NumbersAndNullsDoNotAskForTheTable)
{
    Store({NumberField("A"), TextField("B")}, {{"1", std::nullopt}});
    EXPECT_EQ(Text(0), "1");
    EXPECT_EQ(Text(1), "");
    EXPECT_EQ(records.GetFieldLong(0), 1);
    EXPECT_EQ(records.GetFieldLong(1), 0);
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(TypedTexts, Kept_K43_TextsOfAStreamAreConvertedOnlyWhenTheTableIsCachedAfterItsStart)
{
    m_client.OnListFields("ORDERS", {TextField("A", 45)});
    m_client.On("SHOW TABLES", Reply::Rows({"T"}, {{"orders"}}));
    unsigned int nr = 0;
    ASSERT_TRUE(records.GetFieldCharsetNr("A", nr)); // cached, and dropped again when the stream's connection opens
    m_client.On("SELECT s", Reply::Rows(std::vector<Field>{TextField("A")}, {{umlautUtf8}, {umlautUtf8}}));
    ASSERT_TRUE(records.SelectLargeResult("SELECT s"));
    EXPECT_EQ(Text(0), umlautUtf8);
    EXPECT_EQ(records.GetErrorMessage(), "Kein Fehler!");
    ASSERT_NE(OpenRecordSet(m_database, "orders").GetTableFieldPtr("A"), nullptr);
    EXPECT_EQ(Text(0), umlautLatin1);
    ASSERT_TRUE(records.MoveNext());
    EXPECT_EQ(Text(0), umlautLatin1);
}

TEST_F(TypedTexts, TheInternalTextIsInTheEncodingOfTheRecordSet)
{
    m_client.OnPrefix("SELECT", Reply::Rows(std::vector<Field>{TextField("A", 8)}, {{umlautLatin1}}));
    OpenRecordSet onLatin1(m_database, "");
    ASSERT_EQ(onLatin1.Select("SELECT a FROM t"), 1);
    EXPECT_EQ(Bytes(onLatin1.GetFieldTextInternal(0)), umlautLatin1);
    EXPECT_EQ(onLatin1.GetFieldTextInternal(0).GetEncodingType(), UT_ENCODING_DEFAULT);

    CMyDatabase database(Server("utf8mb4"), "shop");
    OpenRecordSet onUtf8(database, "");
    ASSERT_EQ(onUtf8.Select("SELECT a FROM t"), 1);
    EXPECT_EQ(Bytes(onUtf8.GetFieldTextInternal(0)), umlautUtf8);
    EXPECT_EQ(onUtf8.GetFieldTextInternal(0).GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(Bytes(onUtf8.GetFieldTextInternal(7)), "");
}

TEST_F(TypedTexts, ALongTextIsReadInFull)
{
    const std::string text(1 << 20, 'x');
    Store({TextField("A"), Memo("B")}, {{text, text}});
    EXPECT_EQ(Text(0), text);
    EXPECT_EQ(Text(1, UT_ENCODING_UTF8), text);
}

TEST_F(TypedTexts, TheTextAndTheNameMayBeOneObject)
{
    Store({TextField("A")}, {{"1"}});
    UtCString both("A");
    EXPECT_TRUE(records.GetFieldText(both, both));
    EXPECT_EQ(both, "1");
}

} // namespace
