#include "EditFixture.h"

#include <cmath>
#include <limits>
#include <random>

// What is written comes back byte for byte.

namespace {

using server_test::EditedRecordSet;

class EditValues : public server_test::EditFixture
{
protected:
    /// A table with one text column in each of several character sets, and a blob.
    void MakeTable()
    {
        Run("CREATE TABLE t (ID INT PRIMARY KEY, MB4 VARCHAR(400) CHARACTER SET utf8mb4, L1 VARCHAR(400) CHARACTER SET"
            " latin1, U2 VARCHAR(400) CHARACTER SET ucs2, U16 VARCHAR(400) CHARACTER SET utf16, TX TEXT CHARACTER SET"
            " utf8mb4, B LONGBLOB, VB VARBINARY(1000))");
    }

    bool Append(const char* column, const UtCString& value)
    {
        ++m_id;
        records.AppendStart();
        EXPECT_TRUE(records.SetFieldLong("ID", m_id));
        EXPECT_TRUE(records.SetFieldText(column, value));
        return records.AppendEnd();
    }
    bool AppendBytes(const char* column, const std::string& value)
    {
        ++m_id;
        records.AppendStart();
        EXPECT_TRUE(records.SetFieldLong("ID", m_id));
        EXPECT_TRUE(records.SetFieldBuffer(column, value.data(), static_cast<unsigned long>(value.size())));
        return records.AppendEnd();
    }
    /// The value of the row written last, through the library and in the encoding asked for.
    std::string Read(const char* column, eUtEncodingType encoding)
    {
        EditedRecordSet reader(m_edited, "t");
        EXPECT_EQ(reader.Select(("ID = " + std::to_string(m_id)).c_str()), 1);
        UtCString text(encoding);
        EXPECT_TRUE(reader.GetFieldText(column, text));
        return Bytes(text);
    }
    std::string ReadBytes(const char* column)
    {
        EditedRecordSet reader(m_edited, "t");
        EXPECT_EQ(reader.Select(("ID = " + std::to_string(m_id)).c_str()), 1);
        return std::string(static_cast<const char*>(reader.GetFieldDataPtr(column)), reader.GetFieldDataLen(column));
    }

    /// For new connections; the edited one becomes such. Undone at the end.
    void SetPacketLimit(int bytes)
    {
        harness::RawConnection administrator(harness::PrivateServer::Get().Administrator());
        m_packetLimit = *administrator.Text("SELECT @@GLOBAL.max_allowed_packet");
        administrator.Run("SET GLOBAL max_allowed_packet = " + std::to_string(bytes));
        m_edited.Close();
    }
    ~EditValues() override
    {
        if (!m_packetLimit.empty())
            harness::RawConnection(harness::PrivateServer::Get().Administrator())
                .Run("SET GLOBAL max_allowed_packet = " + m_packetLimit);
    }

    int m_id = 0;
    std::string m_packetLimit;
};

const char* const textColumns[] = {"MB4", "L1", "U2", "U16", "TX"};

std::string EveryByte()
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    return bytes;
}

TEST_F(EditValues, EveryByteAsATextOfItsOwn)
{
    MakeTable();
    for (const char* column : textColumns) {
        for (int byte = 0; byte < 256; ++byte) {
            const std::string text = std::string("a") + static_cast<char>(byte) + "b";
            ASSERT_TRUE(Append(column, UtCString(text, UT_ENCODING_DEFAULT))) << column << " " << byte << Message();
            ASSERT_EQ(Read(column, UT_ENCODING_DEFAULT), text) << column << " " << byte;
        }
    }
}

TEST_F(EditValues, AllBytesInOneText)
{
    MakeTable();
    for (const char* column : textColumns) {
        ASSERT_TRUE(Append(column, UtCString(EveryByte(), UT_ENCODING_DEFAULT))) << column << Message();
        EXPECT_EQ(Read(column, UT_ENCODING_DEFAULT), EveryByte()) << column;
    }
    EXPECT_EQ(Text("SELECT CONVERT(L1 USING binary) FROM t WHERE L1 IS NOT NULL"), EveryByte());
}

TEST_F(EditValues, EveryByteAsABlob)
{
    MakeTable();
    for (const char* column : {"B", "VB"}) {
        ASSERT_TRUE(AppendBytes(column, EveryByte())) << Message();
        EXPECT_EQ(ReadBytes(column), EveryByte());
        for (int byte = 0; byte < 256; ++byte) {
            const std::string value(3, static_cast<char>(byte));
            ASSERT_TRUE(AppendBytes(column, value)) << Message();
            ASSERT_EQ(ReadBytes(column), value) << byte;
        }
        for (int first = 0x80; first < 256; ++first) { // what begins like a character and ends like a quote
            const std::string value{static_cast<char>(first), '\'', static_cast<char>(first), '\\',
                                    static_cast<char>(first)};
            ASSERT_TRUE(AppendBytes(column, value)) << Message();
            ASSERT_EQ(ReadBytes(column), value) << first;
        }
    }
}

TEST_F(EditValues, BytesThatReplaceOthersInTheCurrentRow)
{
    MakeTable();
    Run("INSERT INTO t (ID) VALUES (1)");
    m_id = 1;
    ASSERT_EQ(records.Select("ID = 1"), 1);
    for (const char* column : {"B", "VB"}) {
        records.ModifyStart("ID = 1");
        EXPECT_TRUE(records.SetFieldText(column, "before"));
        EXPECT_TRUE(records.SetFieldBuffer(column, EveryByte().data(), 256));
        ASSERT_TRUE(records.ModifyEnd()) << Message();
        EXPECT_EQ(ReadBytes(column), EveryByte()) << column;
    }
}

TEST_F(EditValues, TextsWithEverythingThatStatementsTreatSpecially)
{
    MakeTable();
    const std::string texts[] = {
        "",
        "'",
        "''",
        "\\",
        "\\'",
        "\"",
        "`",
        "%s %n %d",
        "a\r\nb",
        "\x1A",
        "-- no comment",
        "/* no comment */",
        "# no comment",
        "'; DROP TABLE t; -- ",
        "  blanks ",
        "tab\tend",
        "ends in a backslash\\",
        "\xF0\x9F\x98\x80 emoji \xF0\x9F\x98\x80'",
        "\xE2\x82\xAC uro",
        std::string("zero\0byte", 9),
        std::string("\0", 1),
        std::string("\0\\", 2),
    };
    for (const char* column : {"MB4", "U16", "TX"}) {
        for (const std::string& text : texts) {
            ASSERT_TRUE(Append(column, UtCString(text, UT_ENCODING_UTF8))) << text << Message();
            EXPECT_EQ(Read(column, UT_ENCODING_UTF8), text) << column;
        }
    }
    EXPECT_EQ(Text("SELECT COUNT(*) FROM t"), std::to_string(m_id));
}

TEST_F(EditValues, TextsInUtf16AreConverted)
{
    MakeTable();
    for (const eUtEncodingType encoding : {UT_ENCODING_UTF16_LE, UT_ENCODING_UTF16_BE}) {
        const UtCString text(UtCString("O'Neil \xF0\x9F\x98\x80\\", UT_ENCODING_UTF8), encoding);
        ASSERT_TRUE(Append("MB4", text)) << Message();
        EXPECT_EQ(Read("MB4", UT_ENCODING_UTF8), "O'Neil \xF0\x9F\x98\x80\\");
        EXPECT_EQ(Read("MB4", encoding), Bytes(text));
    }
}

TEST_F(EditValues, MalformedUtf8IsRefusedByAStrictServerAndNeverAnotherStatement)
{
    MakeTable();
    SetMode("STRICT_TRANS_TABLES");
    for (const char* bytes : {"\xFF", "a\xC3", "\xC3'", "\xF0\x9F\x98", "\xC3\\"}) {
        EXPECT_FALSE(Append("MB4", UtCString(bytes, UT_ENCODING_UTF8))) << bytes;
        EXPECT_EQ(Message().substr(0, 6), "1366: ") << Message();
    }
    EXPECT_EQ(Text("SELECT COUNT(*) FROM t"), "0");
    for (const char* bytes : {"\xFF", "a\xC3", "\xC3'", "\xF0\x9F\x98", "\xED\xA0\x80", "\xC3\\"}) {
        ASSERT_TRUE(AppendBytes("B", bytes)) << Message(); // as bytes they are kept
        EXPECT_EQ(ReadBytes("B"), bytes);
    }
}

TEST_F(EditValues, ABlobOf16MiB)
{
    Run("CREATE TABLE t (ID INT PRIMARY KEY, B LONGBLOB)");
    std::string blob(16 * 1024 * 1024, '\0');
    std::minstd_rand random(7);
    for (char& byte : blob)
        byte = static_cast<char>(random() >> 8);
    SetPacketLimit(64 * 1024 * 1024);
    EXPECT_TRUE(AppendBytes("B", blob)) << Message();
    EXPECT_TRUE(ReadBytes("B") == blob);
}

TEST_F(EditValues, DoublesComeBackAsTheSameNumber)
{
    Run("CREATE TABLE t (ID INT PRIMARY KEY, D DOUBLE)");
    std::vector<double> values = {0,
                                  1,
                                  -1,
                                  0.1,
                                  1.0 / 3,
                                  1e15,
                                  123456789012345.6,
                                  0.00001,
                                  0.000012345678901234567,
                                  9007199254740993.0,
                                  std::numeric_limits<double>::max(),
                                  std::numeric_limits<double>::lowest(),
                                  std::numeric_limits<double>::min(),
                                  std::numeric_limits<double>::epsilon()};
    std::minstd_rand random(3);
    for (int n = 0; n < 200; ++n)
        values.push_back(std::ldexp(static_cast<double>(random()) * 4294967296.0 + static_cast<double>(random()),
                                    static_cast<int>(random() % 1800) - 900));
    for (const double value : values) {
        records.AppendStart();
        records.SetFieldLong("ID", ++m_id);
        records.SetFieldDouble("D", value);
        ASSERT_TRUE(records.AppendEnd()) << Message();
        EditedRecordSet reader(m_edited, "t");
        ASSERT_EQ(reader.Select(("ID = " + std::to_string(m_id)).c_str()), 1);
        EXPECT_EQ(reader.GetFieldDouble("D"), value);
    }
}

TEST_F(EditValues, EveryTypeComesBack)
{
    Run("CREATE TABLE t (A TINYINT UNSIGNED, B SMALLINT, C INT, D BIGINT, E FLOAT, F DATETIME, G CHAR(38), H BOOL)");
    const _GUID guid{0x6B29FC40, 0xCA47, 0x1067, {0xB3, 0x1D, 0x00, 0xDD, 0x01, 0x06, 0x62, 0xDA}};
    records.AppendStart();
    records.SetFieldByte("A", 255);
    records.SetFieldShort("B", -32768);
    records.SetFieldLong("C", -2147483647 - 1);
    records.SetFieldInt64("D", std::numeric_limits<long long>::min());
    records.SetFieldFloat("E", -1.25F);
    records.SetFieldDate("F", CDateTime(2024, 3, 5, 14, 7, 9));
    records.SetFieldGUID("G", guid);
    records.SetFieldBool("H", true);
    ASSERT_TRUE(records.AppendEnd()) << Message();
    ASSERT_EQ(records.Select(""), 1);
    EXPECT_EQ(records.GetFieldByte("A"), 255);
    EXPECT_EQ(records.GetFieldShort("B"), -32768);
    EXPECT_EQ(records.GetFieldLong("C"), -2147483647 - 1);
    EXPECT_EQ(records.GetFieldInt64("D"), std::numeric_limits<long long>::min());
    EXPECT_EQ(records.GetFieldFloat("E"), -1.25F);
    EXPECT_EQ(records.GetFieldDate("F").GetValue(), CDateTime(2024, 3, 5, 14, 7, 9).GetValue());
    EXPECT_TRUE(records.GetFieldGUID("G") == guid);
    EXPECT_TRUE(records.GetFieldBool("H"));
}

// ---- NO_BACKSLASH_ESCAPES -------------------------------------------------------------------------------------------

TEST_F(EditValues, WithoutBackslashEscapesEveryByteButZeroComesBack)
{
    MakeTable();
    SetMode("NO_BACKSLASH_ESCAPES");
    for (int byte = 1; byte < 256; ++byte) {
        const std::string text = std::string("a'") + static_cast<char>(byte) + "\\";
        for (const char* column : textColumns) {
            ASSERT_TRUE(Append(column, UtCString(text, UT_ENCODING_DEFAULT))) << column << " " << byte << Message();
            ASSERT_EQ(Read(column, UT_ENCODING_DEFAULT), text) << column << " " << byte;
        }
        ASSERT_TRUE(AppendBytes("B", text)) << Message();
        ASSERT_EQ(ReadBytes("B"), text) << byte;
    }
}

TEST_F(EditValues, WithoutBackslashEscapesAZeroByteIsRefused)
{
    MakeTable();
    SetMode("NO_BACKSLASH_ESCAPES");
    EXPECT_FALSE(Append("MB4", UtCString(std::string_view("a\0b", 3), UT_ENCODING_UTF8)));
    EXPECT_EQ(Message(), "1064: The statement holds a zero byte and was not sent");
    EXPECT_FALSE(AppendBytes("B", std::string("\0", 1)));
    EXPECT_EQ(Message(), "1064: The statement holds a zero byte and was not sent");
    EXPECT_EQ(Text("SELECT COUNT(*) FROM t"), "0");
    for (const std::string& statement : Sent())
        EXPECT_FALSE(statement.starts_with("INSERT")) << statement;
}

// ---- What is not kept -----------------------------------------------------------------------------------------------

TEST_F(EditValues, ATextForABinaryColumnGoesThroughWindows1252)
{
    MakeTable();
    ASSERT_TRUE(Append("VB", UtCString("\xC3\xBC \xF0\x9F\x98\x80", UT_ENCODING_UTF8))) << Message();
    EXPECT_EQ(ReadBytes("VB"), "\xC3\xBC ?"); // SetFieldBlob keeps the bytes
}

TEST_F(EditValues, SettingsWithoutACharacterSetLoseWhatWindows1252DoesNotHave)
{
    MakeTable();
    m_edited.Close();
    m_edited.GetServer().SetCharset("");
    ASSERT_TRUE(Append("TX", UtCString("\xF0\x9F\x98\x80", UT_ENCODING_UTF8))) << Message();
    EXPECT_EQ(ReadBytes("TX"), "?");
}

} // namespace
