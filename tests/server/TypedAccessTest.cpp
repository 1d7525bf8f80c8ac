#include "RecordSetFixture.h"

#include <cmath>

// Every column type through the real server.

namespace {

using server_test::OpenRecordSet;

class TypedAccess : public server_test::RecordSetFixture
{
protected:
    /// One row of a table "t"; the record set stands on it.
    void Store(const std::string& columns, const std::string& values)
    {
        Run("SET SESSION sql_mode = ''");
        Run("CREATE TABLE t (" + columns + ") CHARACTER SET utf8mb4");
        Run("INSERT INTO t VALUES (" + values + ")");
        ASSERT_EQ(records.Select(""), 1) << records.GetErrorMessage().string();
    }
    std::string Text(const char* column, eUtEncodingType encoding = UT_ENCODING_UTF8) const
    {
        UtCString text(encoding);
        EXPECT_TRUE(records.GetFieldText(column, text)) << column;
        return Bytes(text);
    }

    CMyRecordSet records{m_database, "t"};
};

TEST_F(TypedAccess, ReadsEveryColumnType)
{
    Store("TI TINYINT, TB TINYINT(1), SI SMALLINT, MI MEDIUMINT, I INT, BI BIGINT, F FLOAT, D DOUBLE, DE DECIMAL(10,2),"
          " DA DATE, TM TIME, DT DATETIME, TS TIMESTAMP NULL, Y YEAR, C CHAR(5), VC VARCHAR(20), BN BINARY(3),"
          " VB VARBINARY(5), TT TINYTEXT, TX TEXT, MT MEDIUMTEXT, LT LONGTEXT, TO1 TINYBLOB, BO BLOB, LB LONGBLOB,"
          " E ENUM('eins', 'zwei'), S SET('a', 'b'), BT BIT(8)",
          "-5, 1, -300, 70000, -100000, 9000000000, 1.5, -2.25e100, 1234.5, '2023-05-07', '08:09:10',"
          " '2023-05-07 08:09:10', '2023-05-07 08:09:10', 2023, 'abc', 'def', 'x', x'0102', 'tiny', 'text', 'medium',"
          " 'long', x'00', x'010002', 'blob', 'zwei', 'a,b', b'1000001'");
    EXPECT_EQ(records.GetFieldLong("TI"), -5);
    EXPECT_TRUE(records.GetFieldBool("TB"));
    EXPECT_EQ(records.GetFieldShort("SI"), -300);
    EXPECT_EQ(records.GetFieldLong("MI"), 70000);
    EXPECT_EQ(records.GetFieldLong("I"), -100000);
    EXPECT_EQ(records.GetFieldInt64("BI"), 9000000000LL);
    EXPECT_EQ(records.GetFieldLong("BI"), 0);
    EXPECT_EQ(records.GetFieldFloat("F"), 1.5F);
    EXPECT_EQ(records.GetFieldDouble("D"), -2.25e100);
    EXPECT_EQ(records.GetFieldDouble("DE"), 1234.5);
    EXPECT_EQ(Text("DE"), "1234.50");
    EXPECT_EQ(records.GetFieldDate("DA").GetDay(), 7);
    EXPECT_TRUE(records.GetFieldDate("DA").IsTimeNull());
    EXPECT_EQ(records.GetFieldDate("TM").GetStatus(), CDateTime::null);
    EXPECT_EQ(records.GetFieldDate("DT").GetSecond(), 10);
    EXPECT_EQ(records.GetFieldDate("TS").GetHour(), 8);
    EXPECT_EQ(records.GetFieldLong("Y"), 2023);
    EXPECT_EQ(Text("C"), "abc");
    EXPECT_EQ(Text("VC"), "def");
    EXPECT_EQ(Text("BN"), std::string("x\0\0", 3));
    EXPECT_EQ(Text("VB"), "\x01\x02");
    EXPECT_EQ(Text("TT"), "tiny");
    EXPECT_EQ(Text("TX"), "text");
    EXPECT_EQ(Text("MT"), "medium");
    EXPECT_EQ(Text("LT"), "long");
    EXPECT_EQ(Text("TO1"), std::string("\0", 1));
    EXPECT_FALSE(records.IsFieldEmpty("TO1"));
    CByteArray bytes;
    EXPECT_TRUE(records.GetFieldBlob("BO", bytes));
    ASSERT_EQ(bytes.GetSize(), 3);
    EXPECT_EQ(bytes.GetAt(1), 0);
    EXPECT_EQ(records.GetFieldDataLen("BO"), 3U);
    EXPECT_EQ(Text("LB"), "blob");
    EXPECT_EQ(Text("E"), "zwei");
    EXPECT_EQ(Text("S"), "a,b");
    EXPECT_EQ(Text("BT"), "A");
}

TEST_F(TypedAccess, ClassifiesEveryColumnType)
{
    Store("TI TINYINT, I INT, BI BIGINT, F FLOAT, D DOUBLE, DE DECIMAL(10,2), DT DATETIME, VC VARCHAR(20), TX TEXT,"
          " BO BLOB, LT LONGTEXT",
          "1, 1, 1, 1, 1, 1, '2023-05-07', '', '', '', ''");
    const std::pair<const char*, MYTYPES> types[] = {
        {"TI", MYTYPE_SHORT}, {"I", MYTYPE_LONG},     {"BI", MYTYPE_INT64},    {"F", MYTYPE_FLOAT},
        {"D", MYTYPE_DOUBLE}, {"DE", MYTYPE_UNKNOWN}, {"DT", MYTYPE_DATETIME}, {"VC", MYTYPE_TEXT},
        {"TX", MYTYPE_MEMO},  {"BO", MYTYPE_BLOB}};
    for (const auto& [name, type] : types)
        EXPECT_EQ(records.GetFieldType(name), type) << name;
    EXPECT_EQ(records.GetFieldTypeString("VC"), "varchar[80]");
    EXPECT_EQ(records.GetFieldSize("VC"), 80);
    EXPECT_EQ(records.GetFieldSize("LT"), -1);
    EXPECT_EQ(records.GetField("VC").GetName(), "VC");
    EXPECT_EQ(records.GetField("VC").GetFieldType(), MYTYPE_TEXT);
}

TEST_F(TypedAccess, ReadsTheLimitsOfNumbers)
{
    Store(
        "A INT, B INT UNSIGNED, C BIGINT, D BIGINT UNSIGNED, E INT(8) UNSIGNED ZEROFILL, F DOUBLE, G TINYINT UNSIGNED",
        "-2147483648, 4294967295, -9223372036854775808, 18446744073709551615, 42, 1.7976931348623157e308, 255");
    EXPECT_EQ(records.GetFieldLong("A"), -2147483648L);
    EXPECT_EQ(records.GetFieldDWord("B"), 0U);
    EXPECT_EQ(records.GetFieldInt64("B"), 4294967295LL);
    EXPECT_EQ(records.GetFieldInt64("C"), INT64_MIN);
    EXPECT_EQ(records.GetFieldInt64("D"), 0);
    EXPECT_EQ(Text("D"), "18446744073709551615");
    EXPECT_EQ(records.GetFieldLong("E"), 42);
    EXPECT_EQ(Text("E"), "00000042");
    EXPECT_EQ(records.GetFieldDouble("F"), 1.7976931348623157e308);
    EXPECT_EQ(records.GetFieldByte("G"), 255);
}

TEST_F(TypedAccess, ReadsNullsOfEveryKind)
{
    Store("I INT, D DOUBLE, DT DATETIME, VC VARCHAR(20), TX TEXT, BO BLOB", "NULL, NULL, NULL, NULL, NULL, NULL");
    for (unsigned long no = 0; no < records.GetFieldCount(); ++no) {
        EXPECT_TRUE(records.IsFieldNull(no));
        EXPECT_TRUE(records.IsFieldEmpty(no));
        EXPECT_EQ(records.GetFieldLong(no), 0);
        EXPECT_EQ(records.GetFieldDouble(no), 0.0);
        EXPECT_EQ(records.GetFieldDate(no).GetStatus(), CDateTime::null);
        UtCString text("x");
        EXPECT_TRUE(records.GetFieldText(no, text));
        EXPECT_TRUE(text.IsEmpty());
        CByteArray bytes;
        EXPECT_TRUE(records.GetFieldBlob(no, bytes));
        EXPECT_EQ(bytes.GetSize(), 0);
        EXPECT_EQ(records.GetFieldDataPtr(no), nullptr);
    }
}

TEST_F(TypedAccess, ReadsZeroDatesAsNull)
{
    Store("D DATE, DT DATETIME, E VARCHAR(5)", "'0000-00-00', '0000-00-00 00:00:00', ''");
    EXPECT_EQ(records.GetFieldDate("D").GetStatus(), CDateTime::null);
    EXPECT_EQ(records.GetFieldDate("DT").GetStatus(), CDateTime::null);
    EXPECT_EQ(records.GetFieldDate("E").GetStatus(), CDateTime::null);
    EXPECT_FALSE(records.IsFieldNull("D"));
    EXPECT_FALSE(records.IsFieldNull("E"));
    EXPECT_TRUE(records.IsFieldEmpty("E"));
}

TEST_F(TypedAccess, KeepsZeroBytesInTexts)
{
    Store("VC VARCHAR(20), TX TEXT, BO BLOB", "x'610062', x'00', x'0000'");
    EXPECT_EQ(Text("VC"), std::string("a\0b", 3));
    EXPECT_EQ(Text("TX"), std::string("\0", 1));
    EXPECT_EQ(Text("BO"), std::string("\0\0", 2));
    EXPECT_FALSE(records.IsFieldEmpty("TX"));
}

TEST_F(TypedAccess, ConvertsTextsOfUtf8Columns)
{
    Store("A VARCHAR(20), B VARCHAR(20) CHARACTER SET utf8, E ENUM('Gr\xC3\xBC\xC3\x9F')",
          "'Gr\xC3\xBC\xC3\x9F\xE2\x82\xAC', 'Gr\xC3\xBC\xC3\x9F', 'Gr\xC3\xBC\xC3\x9F'");
    EXPECT_EQ(Text("A", UT_ENCODING_UTF8), "Gr\xC3\xBC\xC3\x9F\xE2\x82\xAC");
    EXPECT_EQ(Text("A", UT_ENCODING_DEFAULT), "Gr\xFC\xDF\x80");
    EXPECT_EQ(Text("B", UT_ENCODING_DEFAULT), "Gr\xFC\xDF");
    EXPECT_EQ(Text("A", UT_ENCODING_UTF16_LE).size(), 10U);
    EXPECT_EQ(Text("E", UT_ENCODING_DEFAULT), "Gr\xFC\xDF"); // sent as a character string
}

TEST_F(TypedAccess, TheServerTellsTheCharsetInWhichItSendsAColumn)
{
    Store("L VARCHAR(20) CHARACTER SET latin1, U VARCHAR(20) CHARACTER SET ucs2, B VARBINARY(5)",
          "'\xC3\xBC', 'ab', 'x'");
    unsigned int nr = 0;
    EXPECT_TRUE(records.GetFieldCharsetNr("L", nr));
    EXPECT_EQ(nr, 45U);
    EXPECT_TRUE(records.GetFieldCharsetNr("U", nr));
    EXPECT_EQ(nr, 45U);
    EXPECT_TRUE(records.GetFieldCharsetNr("B", nr));
    EXPECT_EQ(nr, 63U);
    EXPECT_EQ(Text("L", UT_ENCODING_DEFAULT), "\xFC");
    EXPECT_EQ(Text("U", UT_ENCODING_UTF8), "ab");
}

TEST_F(TypedAccess, Kept_K33_ReadsATextInTheCharsetOfTheCachedTableAlthoughTheConnectionHasAnotherNow)
{
    Store("L VARCHAR(20)", "'\xC3\xBC'");
    EXPECT_EQ(Text("L", UT_ENCODING_DEFAULT), "\xFC"); // the table is cached with utf8mb4
    ASSERT_EQ(m_database.ExecuteQuery("SET NAMES latin1", false, nullptr, false), 0);
    ASSERT_EQ(records.Select(""), 1);
    EXPECT_EQ(Text("L", UT_ENCODING_DEFAULT), "?"); // a latin1 byte, taken for UTF-8
    CMyRecordSet untied(m_database, "");
    ASSERT_EQ(untied.Select("SELECT L FROM t"), 1); // without a table the result's charset counts
    UtCString text;
    untied.GetFieldText("L", text);
    EXPECT_EQ(text.View(), "\xFC");
}

TEST_F(TypedAccess, ReadsDeclaredCharsetsWhenTheConnectionDeliversThem)
{
    Run("CREATE TABLE t (L VARCHAR(20) CHARACTER SET latin1)");
    Run("INSERT INTO t VALUES ('\xC3\xBC')");
    ASSERT_EQ(m_database.ExecuteQuery("SET NAMES latin1", false, nullptr, false), 0);
    ASSERT_EQ(records.Select(""), 1);
    EXPECT_EQ(Text("L", UT_ENCODING_DEFAULT), "\xFC");
    EXPECT_EQ(Text("L", UT_ENCODING_UTF8), "\xC3\xBC");
}

TEST_F(TypedAccess, ReadsUtf16ColumnsWhenTheConnectionDeliversTheirBytes)
{
    Run("CREATE TABLE t (U VARCHAR(20) CHARACTER SET ucs2, V VARCHAR(20) CHARACTER SET utf16, N VARCHAR(5) CHARACTER "
        "SET"
        " utf16)");
    Run("INSERT INTO t VALUES ('\xC3\xBC', '\xE2\x82\xAC', '42')");
    ASSERT_EQ(m_database.ExecuteQuery("SET character_set_results = NULL", false, nullptr, false), 0);
    ASSERT_EQ(records.Select(""), 1);
    EXPECT_EQ(Text("U", UT_ENCODING_UTF8), "\xC3\xBC");
    EXPECT_EQ(Text("V", UT_ENCODING_UTF8), "\xE2\x82\xAC");
    EXPECT_EQ(records.GetFieldLong("N"), 42);
}

TEST_F(TypedAccess, ReadsGuids)
{
    Store("A VARCHAR(50), B CHAR(36)",
          "'{6B29FC40-CA47-1067-B31D-00DD010662DA}', '6b29fc40-ca47-1067-b31d-00dd010662da'");
    EXPECT_EQ(records.GetFieldGUID("A").Data1, 0x6B29FC40U);
    EXPECT_EQ(records.GetFieldGUID("A"), records.GetFieldGUID("B"));
}

TEST_F(TypedAccess, ReadsTheSameValuesFromAStream)
{
    MakeOrders(100);
    CMyRecordSet stored(m_database, "orders");
    CMyRecordSet streamed(m_database, "orders");
    ASSERT_EQ(stored.Select("ORDER BY ID"), 100);
    ASSERT_TRUE(streamed.SelectLargeResult("SELECT * FROM orders ORDER BY ID"));
    UtCString one;
    UtCString two;
    do {
        EXPECT_EQ(stored.GetFieldLong("ID"), streamed.GetFieldLong("ID"));
        stored.GetFieldText("NAME", one);
        streamed.GetFieldText("NAME", two);
        EXPECT_EQ(one, two);
        EXPECT_EQ(stored.MoveNext(), streamed.MoveNext());
    } while (!stored.IsEOF());
    EXPECT_TRUE(streamed.IsEOF());
}

TEST_F(TypedAccess, ReadsALongBlob)
{
    Run("CREATE TABLE t (B LONGBLOB)");
    Run("INSERT INTO t VALUES (REPEAT(x'00ff', 2000000))");
    ASSERT_EQ(records.Select(""), 1);
    CByteArray bytes;
    EXPECT_TRUE(records.GetFieldBlob(0, bytes));
    ASSERT_EQ(bytes.GetSize(), 4000000);
    EXPECT_EQ(bytes.GetAt(3999999), 0xFF);
}

} // namespace
