#include "EditFixture.h"
#include "recordset/PendingChanges.h"

#include <cmath>
#include <limits>

namespace {

using fake::Reply;
using recordset_test::Bytes;
using recordset_test::EditedRecordSet;
using recordset_test::NumberField;
using recordset_test::Server;
using recordset_test::TextField;

class Setters : public recordset_test::EditFixture
{
protected:
    using recordset_test::EditFixture::EditFixture;

    /// The value text of the column that was set last, which is the only one.
    std::string SqlValue()
    {
        const std::string clause = SetClause();
        const std::string start = "`t`.`A` = ";
        records.RemoveFieldInSetList("A");
        return clause.starts_with(start) ? clause.substr(start.size()) : "not set: " + clause;
    }
};

// ---- The common setter ----------------------------------------------------------------------------------------------

struct ValueRow
{
    const char* name;
    UtCString value;
    MYTYPES type;
    const char* sqlValue;
    bool isEscaped;
};

TEST_F(Setters, ChooseTheSqlValueByTypeAndContent)
{
    const ValueRow rows[] = {
        {"a plain text", "ABC", MYTYPE_TEXT, "'ABC'", false},
        {"an apostrophe", "O'Neil", MYTYPE_TEXT, "'O\\'Neil'", true},
        {"a backslash", "C:\\x", MYTYPE_TEXT, "'C:\\\\x'", true},
        {"a carriage return", "a\rb", MYTYPE_TEXT, "'a\\rb'", true},
        {"a line feed", "a\nb", MYTYPE_TEXT, "'a\\nb'", true},
        {"a tab", "a\tb", MYTYPE_TEXT, "'a\tb'", true},
        {"a double quote", "a\"b", MYTYPE_TEXT, "'a\"b'", false},
        {"a double quote and a tab", "a\"b\t", MYTYPE_TEXT, "'a\\\"b\t'", true},
        {"a Ctrl-Z", "a\x1A", MYTYPE_TEXT, "'a\x1A'", false},
        {"a zero byte", UtCString(std::string_view("a\0b", 3), UT_ENCODING_UTF8), MYTYPE_TEXT, "'a\\0b'", true},
        {"a percent sign", "100%s", MYTYPE_TEXT, "'100%s'", false},
        {"blanks", "  ", MYTYPE_TEXT, "'  '", false},
        {"nothing as text", "", MYTYPE_TEXT, "''", false},
        {"nothing as blob", "", MYTYPE_BLOB, "''", false},
        {"nothing as memo", "", MYTYPE_MEMO, "''", false},
        {"nothing as date", "", MYTYPE_DATETIME, "''", false},
        {"a memo", "O'Neil", MYTYPE_MEMO, "'O\\'Neil'", true},
        {"a blob", "O'Neil", MYTYPE_BLOB, "'O\\'Neil'", true},
        {"a date", "2024-03-05", MYTYPE_DATETIME, "'2024-03-05'", false},
        {"a short", "5", MYTYPE_SHORT, "5", false},
        {"a long", "5", MYTYPE_LONG, "5", false},
        {"a double", "5.5", MYTYPE_DOUBLE, "5.5", false},
        {"a 64-bit number", "5", MYTYPE_INT64, "5", false},
        {"a float", "5.5", MYTYPE_FLOAT, "5.5", false},
        {"of unknown type", "NOW() + 'x'", MYTYPE_UNKNOWN, "NOW() + 'x'", false},
        {"nothing bare", "", MYTYPE_LONG, "", false},
        {"of another type", "O'Neil", static_cast<MYTYPES>(99), "O'Neil", false},
        {"in UTF-16", UtCString(UtCString("O'Neil\xFC"), UT_ENCODING_UTF16_LE), MYTYPE_BLOB, "'O\\'Neil\xC3\xBC'",
         true},
        {"plain in UTF-16", UtCString(UtCString("\xFC"), UT_ENCODING_UTF16_BE), MYTYPE_BLOB, "'\xC3\xBC'", false},
        // U+275C has the byte of an apostrophe in UTF-16, U+605C that of a backtick and a backslash.
        {"quotes as bytes of UTF-16",
         UtCString(UtCString("\xE2\x9C\xA7\xE6\x81\x9C", UT_ENCODING_UTF8), UT_ENCODING_UTF16_BE), MYTYPE_BLOB,
         "'\xE2\x9C\xA7\xE6\x81\x9C'", false},
        {"bytes that are never converted", UtCString("\xFF'", UT_ENCODING_UTF32), MYTYPE_BLOB, "'\xFF\\''", true},
    };
    for (const ValueRow& row : rows) {
        SCOPED_TRACE(row.name);
        m_client.ForgetCalls();
        EXPECT_TRUE(records.SetFieldValue("a", row.value, row.type));
        EXPECT_EQ(m_client.CountOf("mysql_real_escape_string") != 0, row.isEscaped);
        EXPECT_EQ(SqlValue(), row.sqlValue);
    }
}

TEST_F(Setters, Kept_K88_TheWordNullIsSqlNull)
{
    for (const MYTYPES type : {MYTYPE_UNKNOWN, MYTYPE_SHORT, MYTYPE_LONG, MYTYPE_DOUBLE, MYTYPE_TEXT, MYTYPE_BLOB,
                               MYTYPE_MEMO, MYTYPE_INT64, MYTYPE_FLOAT, MYTYPE_DATETIME}) {
        for (const char* word : {"null", "NULL", "Null", "nUlL"}) {
            EXPECT_TRUE(records.SetFieldValue("A", word, type));
            EXPECT_EQ(SqlValue(), "null");
        }
        EXPECT_TRUE(records.SetFieldValue("A", UtCString(UtCString("Null"), UT_ENCODING_UTF16_LE), type));
        EXPECT_EQ(SqlValue(), "null");
    }
    for (const char* word : {"nul", "null ", " null", "nulls", "n\xFCll"}) {
        EXPECT_TRUE(records.SetFieldText("A", word));
        EXPECT_NE(SqlValue(), "null");
    }
}

TEST_F(Setters, Kept_K89_BareValuesAreNotChecked)
{
    EXPECT_TRUE(records.SetFieldValue("A", "1, `t`.`ID` = 2", MYTYPE_LONG));
    EXPECT_EQ(SqlValue(), "1, `t`.`ID` = 2");
}

TEST_F(Setters, RefuseAnEmptyColumnName)
{
    const UtCString none;
    EXPECT_FALSE(records.SetFieldValue(none, "x"));
    EXPECT_FALSE(records.SetFieldValue(none, "x", MYTYPE_LONG));
    EXPECT_FALSE(records.SetFieldBool(none, true));
    EXPECT_FALSE(records.SetFieldByte(none, 1));
    EXPECT_FALSE(records.SetFieldShort(none, 1));
    EXPECT_FALSE(records.SetFieldWord(none, 1));
    EXPECT_FALSE(records.SetFieldLong(none, 1));
    EXPECT_FALSE(records.SetFieldDWord(none, 1));
    EXPECT_FALSE(records.SetFieldInt64(none, 1));
    EXPECT_FALSE(records.SetFieldFloat(none, 1));
    EXPECT_FALSE(records.SetFieldDouble(none, 1));
    EXPECT_FALSE(records.SetFieldText(none, "x"));
    EXPECT_FALSE(records.SetFieldBlob(none, CByteArray()));
    EXPECT_FALSE(records.SetFieldDate(none, CDateTime(2024, 3, 5, 0, 0, 0)));
    EXPECT_FALSE(records.SetFieldGUID(none, _GUID{1, 2, 3, {}}));
    EXPECT_FALSE(records.SetFieldNull(none));
    EXPECT_FALSE(records.SetFieldOperation(none, "1"));
    EXPECT_FALSE(records.SetFieldBuffer(none, "x", 1));
    EXPECT_FALSE(records.IsRecordModified());
    records.SetFieldLong("ID", 1);
    EXPECT_TRUE(records.AppendEnd()); // nothing is missing
}

TEST_F(Setters, ThePublicOneTakesATextForAText)
{
    EXPECT_TRUE(records.SetFieldValue("a", "O'Neil"));
    EXPECT_EQ(SqlValue(), "'O\\'Neil'");
}

// ---- The typed ones -------------------------------------------------------------------------------------------------

TEST_F(Setters, RenderNumbers)
{
    struct
    {
        bool (*set)(EditedRecordSet&);
        const char* sqlValue;
    } const rows[] = {
        {[](EditedRecordSet& r) { return r.SetFieldBool("A", true); }, "1"},
        {[](EditedRecordSet& r) { return r.SetFieldBool("A", false); }, "0"},
        {[](EditedRecordSet& r) { return r.SetFieldByte("A", 0); }, "0"},
        {[](EditedRecordSet& r) { return r.SetFieldByte("A", 255); }, "255"},
        {[](EditedRecordSet& r) { return r.SetFieldShort("A", -32768); }, "-32768"},
        {[](EditedRecordSet& r) { return r.SetFieldShort("A", 32767); }, "32767"},
        {[](EditedRecordSet& r) { return r.SetFieldWord("A", 32767); }, "32767"},
        {[](EditedRecordSet& r) { return r.SetFieldLong("A", -2147483647 - 1); }, "-2147483648"},
        {[](EditedRecordSet& r) { return r.SetFieldLong("A", 2147483647); }, "2147483647"},
        {[](EditedRecordSet& r) { return r.SetFieldDWord("A", 2147483647); }, "2147483647"},
        {[](EditedRecordSet& r) { return r.SetFieldInt64("A", std::numeric_limits<long long>::min()); },
         "-9223372036854775808"},
        {[](EditedRecordSet& r) { return r.SetFieldInt64("A", std::numeric_limits<long long>::max()); },
         "9223372036854775807"},
        {[](EditedRecordSet& r) { return r.SetFieldFloat("A", 1.5F); }, "1.50000000"},
        {[](EditedRecordSet& r) { return r.SetFieldFloat("A", 0.1F); }, "0.10000000"},
        {[](EditedRecordSet& r) { return r.SetFieldFloat("A", -1e-20F); }, "-0.00000000"},
        {[](EditedRecordSet& r) { return r.SetFieldFloat("A", std::numeric_limits<float>::max()); },
         "340282346638528859811704183484516925440.00000000"},
        {[](EditedRecordSet& r) { return r.SetFieldDouble("A", 0.1); }, "0.1"},
        {[](EditedRecordSet& r) { return r.SetFieldDouble("A", 0); }, "0"},
        {[](EditedRecordSet& r) { return r.SetFieldDouble("A", 1.0 / 3); }, "0.3333333333333333"},
        {[](EditedRecordSet& r) { return r.SetFieldDouble("A", 1e15); }, "1e+15"},
        {[](EditedRecordSet& r) { return r.SetFieldDouble("A", std::numeric_limits<double>::max()); },
         "1.7976931348623157e+308"},
        {[](EditedRecordSet& r) { return r.SetFieldDouble("A", std::numeric_limits<double>::denorm_min()); }, "5e-324"},
        {[](EditedRecordSet& r) { return r.SetFieldDouble("A", std::nan("")); }, "nan out of range"},
        {[](EditedRecordSet& r) { return r.SetFieldDouble("A", std::numeric_limits<double>::infinity()); },
         "inf out of range"},
        {[](EditedRecordSet& r) { return r.SetFieldDouble("A", -std::numeric_limits<double>::infinity()); },
         "-inf out of range"},
        {[](EditedRecordSet& r) { return r.SetFieldFloat("A", std::numeric_limits<float>::infinity()); },
         "inf out of range"},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(row.set(records));
        EXPECT_EQ(SqlValue(), row.sqlValue);
    }
}

TEST_F(Setters, Kept_K90_WordsAbove32767AreNegative)
{
    EXPECT_TRUE(records.SetFieldWord("A", 40000));
    EXPECT_EQ(SqlValue(), "-25536");
    EXPECT_TRUE(records.SetFieldWord("A", 65535));
    EXPECT_EQ(SqlValue(), "-1");
}

TEST_F(Setters, Kept_K91_DoubleWordsAbove2147483647AreNegative)
{
    EXPECT_TRUE(records.SetFieldDWord("A", 3000000000UL));
    EXPECT_EQ(SqlValue(), "-1294967296");
    EXPECT_TRUE(records.SetFieldDWord("A", 4294967295UL));
    EXPECT_EQ(SqlValue(), "-1");
}

TEST_F(Setters, TakeTheLow32BitsOfALong)
{
    if constexpr (sizeof(long) > 4) {
        EXPECT_TRUE(records.SetFieldLong("A", 0x123456789L));
        EXPECT_EQ(SqlValue(), "591751049");
        EXPECT_TRUE(records.SetFieldDWord("A", ~0UL));
        EXPECT_EQ(SqlValue(), "-1");
    }
}

TEST_F(Setters, RenderTheFloatInTheEncodingOfTheColumnsName)
{
    EXPECT_TRUE(records.SetFieldFloat(UtCString(UtCString("a"), UT_ENCODING_UTF16_LE), 2.5F));
    EXPECT_EQ(SqlValue(), "2.50000000");
}

TEST_F(Setters, RenderDates)
{
    EXPECT_TRUE(records.SetFieldDate("A", CDateTime(2024, 3, 5, 14, 7, 9)));
    EXPECT_EQ(SqlValue(), "'2024-03-05 14:07:09'");
    EXPECT_TRUE(records.SetFieldDate("A", CDateTime(2024, 3, 5, 0, 0, 0)));
    EXPECT_EQ(SqlValue(), "'2024-03-05'");
    EXPECT_TRUE(records.SetFieldDate("A", CDateTime(1899, 12, 30, 14, 7, 9)));
    EXPECT_EQ(SqlValue(), "'1899-12-30 14:07:09'");
}

TEST_F(Setters, Kept_K92_ANullDateIsAnEmptyText)
{
    CDateTime null;
    null.SetNull();
    CDateTime invalid;
    invalid.SetDate(2024, 2, 31);
    for (const CDateTime& date : {CDateTime(), null, invalid, CDateTime(1500, 1, 1, 0, 0, 0)}) {
        EXPECT_TRUE(records.SetFieldDate("A", date));
        EXPECT_EQ(SqlValue(), "''");
    }
}

TEST_F(Setters, RenderGuids)
{
    EXPECT_TRUE(
        records.SetFieldGUID("A", _GUID{0x6B29FC40, 0xCA47, 0x1067, {0xB3, 0x1D, 0x00, 0xDD, 0x01, 0x06, 0x62, 0xDA}}));
    EXPECT_EQ(SqlValue(), "'{6b29fc40-ca47-1067-b31d-00dd010662da}'");
    EXPECT_TRUE(records.SetFieldGUID("A", _GUID{}));
    EXPECT_EQ(SqlValue(), "''");
}

TEST_F(Setters, WriteOperationsBare)
{
    EXPECT_TRUE(records.SetFieldOperation("A", "`t`.`ID` + 1"));
    EXPECT_EQ(SqlValue(), "`t`.`ID` + 1");
    EXPECT_TRUE(records.SetFieldOperation("A", "Null"));
    EXPECT_EQ(SqlValue(), "null");
}

TEST_F(Setters, WriteBytesEscaped)
{
    EXPECT_TRUE(records.SetFieldBuffer("a", "\0'\"\\\r\n\x1A\xFF", 8));
    EXPECT_EQ(SqlValue(), "'\\0\\'\\\"\\\\\\r\\n\\Z\xFF'");
    EXPECT_TRUE(records.SetFieldBuffer("a", "null", 4));
    EXPECT_EQ(SqlValue(), "'null'");
    EXPECT_TRUE(records.SetFieldBuffer("a", nullptr, 0));
    EXPECT_EQ(SqlValue(), "null");
    EXPECT_TRUE(records.SetFieldBuffer("a", nullptr, 5));
    EXPECT_EQ(SqlValue(), "null");
    EXPECT_TRUE(records.SetFieldBuffer("a", "x", 0));
    EXPECT_EQ(SqlValue(), "''");
}

TEST_F(Setters, WriteTheBytesOfAnArray)
{
    CByteArray bytes;
    EXPECT_TRUE(records.SetFieldBlob("A", bytes)); // never had memory
    EXPECT_EQ(SqlValue(), "''");
    bytes.Add('\'');
    bytes.Add(0);
    EXPECT_TRUE(records.SetFieldBlob("A", bytes));
    EXPECT_EQ(SqlValue(), "'\\'\\0'");
    bytes.RemoveAll();
    EXPECT_TRUE(records.SetFieldBlob("A", bytes));
    EXPECT_EQ(SqlValue(), "''");
}

TEST_F(Setters, WriteNull)
{
    EXPECT_TRUE(records.SetFieldNull("a"));
    EXPECT_EQ(SqlValue(), "null");
    records.SetFieldNull("name");
    EXPECT_EQ(SetClause(), "`t`.`NAME` = null");
}

TEST_F(Setters, Kept_K93_NullIsTheEmptyTextForAColumnThatCannotBeNull)
{
    records.SetFieldNull("must");
    EXPECT_EQ(SetClause(), "`t`.`MUST` = ''");
}

// ---- What the getters see -------------------------------------------------------------------------------------------

class SettersSeen : public Setters
{
protected:
    SettersSeen()
    {
        m_client.OnPrefix("SELECT",
                          Reply::Rows(std::vector<fake::Field>{NumberField("id"), TextField("name"), TextField("Must")},
                                      {{"1", "x", "y"}}));
        EXPECT_EQ(records.Select(""), 1);
    }
    std::string Text(const char* column)
    {
        UtCString text(UT_ENCODING_UTF8);
        EXPECT_TRUE(records.GetFieldText(column, text));
        return Bytes(text);
    }
};

TEST_F(SettersSeen, IsTheRawValue)
{
    records.SetFieldText("NAME", "O'Neil \xFC");
    EXPECT_EQ(Text("name"), "O'Neil \xC3\xBC");
    records.SetFieldLong("ID", -5);
    EXPECT_EQ(records.GetFieldLong("id"), -5);
    records.SetFieldText("MUST", "");
    EXPECT_EQ(Text("Must"), "");
    EXPECT_FALSE(records.IsFieldNull("Must"));
    records.SetFieldText("MUST", "null");
    EXPECT_EQ(Text("Must"), "null"); // although NULL is written
    records.SetFieldOperation("ID", "ID + 1");
    EXPECT_EQ(Text("id"), "ID + 1");
    records.SetFieldBuffer("name", "a\0b", 3);
    EXPECT_EQ(Text("name"), std::string("a\0b", 3));
    records.SetFieldNull("name");
    EXPECT_TRUE(records.IsFieldNull("name"));
    records.SetFieldNull("must");
    EXPECT_FALSE(records.IsFieldNull("Must"));
    EXPECT_TRUE(records.IsFieldEmpty("Must"));
}

TEST_F(SettersSeen, GoesWithAMove)
{
    records.SetFieldText("NAME", "new");
    records.MoveFirst();
    EXPECT_EQ(Text("name"), "x");
    EXPECT_FALSE(records.IsRecordModified());
}

TEST_F(SettersSeen, IsStillThereAfterTheEnd)
{
    records.AppendStart();
    records.SetFieldText("NAME", "new");
    EXPECT_TRUE(records.AppendEnd());
    EXPECT_EQ(Text("name"), "new");
}

TEST_F(SettersSeen, CanBeSetFromItsOwnValue)
{
    const std::string value = "a value that is too long to be kept in place";
    records.SetFieldBuffer("NAME", value.data(), static_cast<unsigned long>(value.size()));
    records.SetFieldBuffer("NAME", records.GetFieldValue("name"), static_cast<unsigned long>(value.size()));
    EXPECT_EQ(Text("name"), value);
}

} // namespace
