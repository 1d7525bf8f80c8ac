#include "sql/DumpText.h"

#include <gtest/gtest.h>

#include <array>

namespace {

struct FormatCase
{
    const char* name;
    UtCString separator;
    UtCString enclosure;
    UtCString lineEnd;
    eUtEncodingType encoding;
    const char* expected; ///< the three, with a bar between them
};

void PrintTo(const FormatCase& row, std::ostream* stream)
{
    *stream << row.name;
}

class DumpFormatOf : public testing::TestWithParam<FormatCase>
{
};

TEST_P(DumpFormatOf, GivesTheBytesOfTheFile)
{
    const FormatCase& row = GetParam();
    const sql::DumpFormat format = sql::ReadDumpFormat(row.separator, row.enclosure, row.lineEnd, row.encoding);
    EXPECT_EQ(format.separator + "|" + format.enclosure + "|" + format.lineEnd, row.expected);
}

const FormatCase formats[] = {
    {"Defaults", "", "", "", UT_ENCODING_DEFAULT, ",||\r\n"},
    {"Given", ";", "\"", "\n", UT_ENCODING_DEFAULT, ";|\"|\n"},
    {"SeveralCharacters", "<->", "''", "\r\n\r\n", UT_ENCODING_DEFAULT, "<->|''|\r\n\r\n"},
    {"SingleByteIntoUtf8", "\xA7", "\xB4", "\xA6", UT_ENCODING_UTF8, "\xC2\xA7|\xC2\xB4|\xC2\xA6"},
    {"Utf8IntoSingleByte", UtCString("\xC2\xA7", UT_ENCODING_UTF8), "", "", UT_ENCODING_DEFAULT, "\xA7||\r\n"},
    {"WideTextsIntoSingleByte", UtCString(";", UT_ENCODING_UTF16_LE), UtCString("\"", UT_ENCODING_UTF16_BE), "",
     UT_ENCODING_DEFAULT, ";|\"|\r\n"},
    {"WideSettingsTakeUtf8", "\xA7", "\"", "", UT_ENCODING_UTF16_BE, "\xC2\xA7|\"|\r\n"},
    {"OtherWideSettingsTakeUtf8", "\xA7", "\"", "", UT_ENCODING_UTF16_LE, "\xC2\xA7|\"|\r\n"},
};

INSTANTIATE_TEST_SUITE_P(Texts, DumpFormatOf, testing::ValuesIn(formats),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(DumpFormatOf, KeepsAZeroByte)
{
    const UtCString separator(std::string_view("\0;", 2), UT_ENCODING_DEFAULT);
    EXPECT_EQ(sql::ReadDumpFormat(separator, "", "", UT_ENCODING_DEFAULT).separator, std::string("\0;", 2));
}

TEST(DumpHeader, EnclosesAndSeparatesTheNames)
{
    EXPECT_EQ(sql::DumpHeader({"ID", "NAME"}, {",", "\"", "\r\n"}), "\"ID\",\"NAME\"\r\n");
    EXPECT_EQ(sql::DumpHeader({"ID"}, {",", "", "\n"}), "ID\n");
}

TEST(DumpHeader, DoesNotEscapeTheNames)
{
    EXPECT_EQ(sql::DumpHeader({"a\"b\\", ""}, {",", "\"", "\n"}), "\"a\"b\\\",\"\"\n");
}

TEST(DumpHeader, IsALineEndWithoutNames)
{
    EXPECT_EQ(sql::DumpHeader({}, {",", "\"", "\n"}), "\n");
}

TEST(DumpNull, IsBackslashN)
{
    EXPECT_EQ(sql::dumpNull, "\\N");
}

/// Whether a value of this byte alone may be copied; written out, not derived.
bool IsPlain(int byte)
{
    return byte >= 0x20 && byte <= 0x7F && byte != 0x22 && byte != 0x27 && byte != 0x5C;
}

std::string Copied(std::string_view value)
{
    std::string to(value.size() + 8, '#');
    return sql::CopyUnescapedValue(value, to.data()) ? to : "refused";
}

TEST(CopyUnescapedValue, CopiesPlainTextOfEveryLength)
{
    const std::string text = "abcdefghijklmnopqrstuvwxyz0123456789 ,;.:-_+*~#<>|!$%&/()=?`^";
    for (size_t size = 0; size <= text.size(); ++size)
        EXPECT_EQ(Copied(std::string_view(text).substr(0, size)), text.substr(0, size) + "########") << size;
}

TEST(CopyUnescapedValue, DecidesForEveryByteAtEveryPlaceOfEveryLength)
{
    for (size_t size = 1; size <= 26; ++size) {
        for (size_t at = 0; at < size; ++at) {
            for (int byte = 0; byte < 256; ++byte) {
                std::string value(size, 'x');
                value[at] = static_cast<char>(byte);
                ASSERT_EQ(Copied(value) != "refused", IsPlain(byte)) << size << " " << at << " " << byte;
            }
        }
    }
}

TEST(CopyUnescapedValue, DecidesForEveryPairOfNeighbours)
{
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            std::string value = "xxxxxxxx";
            value[3] = static_cast<char>(first);
            value[4] = static_cast<char>(second);
            ASSERT_EQ(Copied(value) != "refused", IsPlain(first) && IsPlain(second)) << first << " " << second;
        }
    }
}

TEST(CopyUnescapedValue, ReadsNothingBehindTheValue)
{
    for (size_t size = 0; size <= 40; ++size) {
        const std::vector<char> value(size, 'x'); // exactly as large as the value: a sanitizer sees one byte more
        std::vector<char> to(size);
        EXPECT_TRUE(sql::CopyUnescapedValue({value.data(), size}, to.data()));
        EXPECT_EQ(to, value);
    }
}

} // namespace
