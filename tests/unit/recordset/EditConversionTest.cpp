#include "EditFixture.h"

// In which character set a value is kept, and that bytes are in none.

namespace {

using fake::Reply;
using recordset_test::Bytes;
using recordset_test::EditedRecordSet;
using recordset_test::NumberField;
using recordset_test::TextField;

constexpr unsigned int latin1 = 8;
constexpr unsigned int utf8mb4 = 45;
constexpr unsigned int utf32 = 60;
constexpr unsigned int binary = 63;

fake::Field BinaryField(const std::string& name)
{
    return {.name = name, .type = MYSQL_TYPE_VAR_STRING, .flags = BINARY_FLAG, .length = 80, .charsetnr = binary};
}

/// A record set on the table "t" that stands on its only row.
class Conversion : public recordset_test::EditFixture
{
protected:
    Conversion()
    {
        const std::vector<fake::Field> fields = {TextField("L", latin1), TextField("U", utf8mb4), TextField("W", utf32),
                                                 BinaryField("B"), NumberField("N")};
        m_client.OnListFields("T", fields);
        CFieldCache::Instance().RemoveAll();
        m_client.OnPrefix("SELECT", Reply::Rows(fields, {{"l", "u", "w", "b", "1"}}));
        EXPECT_EQ(records.Select(""), 1);
    }

    /// The bytes of the pending value, which the getters show.
    std::string Kept(const char* column) { return records.GetFieldValue(column); }

    const UtCString m_text{"\xC3\xBC\xD0\x96", UT_ENCODING_UTF8}; ///< of its letters latin1 has the first
};

struct KeptRow
{
    const char* name;
    const char* column;
    MYTYPES type;
    const char* kept;
};

TEST_F(Conversion, OfTextsAndMemosIsToTheCharacterSetOfTheColumn)
{
    const KeptRow rows[] = {
        {"a text for latin1", "L", MYTYPE_TEXT, "\xFC?"},
        {"a memo for latin1", "L", MYTYPE_MEMO, "\xFC?"},
        {"a text for utf8mb4", "U", MYTYPE_TEXT, "\xC3\xBC\xD0\x96"},
        {"a text for utf32, which is never converted", "W", MYTYPE_TEXT, "\xC3\xBC\xD0\x96"},
        {"a text for a binary column", "B", MYTYPE_TEXT, "\xFC?"},
        {"a text for a number", "N", MYTYPE_TEXT, "\xFC?"},
        {"a blob", "L", MYTYPE_BLOB, "\xC3\xBC\xD0\x96"},
        {"a date", "L", MYTYPE_DATETIME, "\xC3\xBC\xD0\x96"},
        {"a number", "L", MYTYPE_LONG, "\xC3\xBC\xD0\x96"},
        {"an expression", "L", MYTYPE_UNKNOWN, "\xC3\xBC\xD0\x96"},
    };
    for (const KeptRow& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(records.SetFieldValue(row.column, m_text, row.type));
        EXPECT_EQ(Kept(row.column), row.kept);
        records.RemoveFieldInSetList(row.column);
    }
}

TEST_F(Conversion, GoesByTheTableNotByTheResult)
{
    m_client.OnPrefix("SELECT", Reply::Rows(std::vector<fake::Field>{TextField("L", utf8mb4)}, {{"l"}}));
    ASSERT_EQ(records.Select(""), 1);
    records.SetFieldText("L", m_text);
    EXPECT_EQ(Kept("L"), "\xFC?");
}

TEST_F(Conversion, OfAColumnThatTheTableLacksIsNotMade)
{
    m_client.OnPrefix("SELECT", Reply::Rows(std::vector<fake::Field>{TextField("ALIAS", latin1)}, {{"l"}}));
    ASSERT_EQ(records.Select(""), 1);
    records.SetFieldText("ALIAS", m_text);
    EXPECT_EQ(Kept("ALIAS"), "\xC3\xBC\xD0\x96");
}

TEST_F(Conversion, WithoutATableGoesByTheResult)
{
    records.SetTableName("");
    records.SetFieldText("L", m_text);
    EXPECT_EQ(Kept("L"), "\xFC?");
    records.SetFieldText("U", m_text);
    EXPECT_EQ(Kept("U"), "\xC3\xBC\xD0\x96");
    records.SetFieldText("n", m_text); // names of a result have a letter case
    EXPECT_EQ(Kept("N"), "\xC3\xBC\xD0\x96");
}

TEST_F(Conversion, OfAFloatIsToTheEncodingOfTheColumnsName)
{
    records.SetFieldFloat(UtCString(UtCString("U"), UT_ENCODING_UTF16_BE), 2.5F);
    EXPECT_EQ(std::string(records.GetFieldValue("U"), 20),
              std::string("\0002\0.\0005\0000\0000\0000\0000\0000\0000\0000", 20));
}

TEST_F(Conversion, LeavesBytesAsTheyAreHoweverOftenTheyAreSet)
{
    const std::string bytes = "\xFF\xC3\xBC\x80\xF0\x9F\x98\x80";
    for (const char* column : {"B", "L", "U"}) {
        SCOPED_TRACE(column);
        records.ModifyStart("N = 1");
        EXPECT_TRUE(records.SetFieldBuffer(column, "before", 6));
        EXPECT_TRUE(records.SetFieldBuffer(column, bytes.data(), static_cast<unsigned long>(bytes.size())));
        EXPECT_TRUE(records.ModifyEnd());
        EXPECT_EQ(Changes().back(), std::string("UPDATE t SET `t`.`") + column + "` = '" + bytes + "' WHERE (N = 1)");
    }
}

} // namespace
