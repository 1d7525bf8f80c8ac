#include "ConnectionFixture.h"

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

using connection_test::Bytes;
using connection_test::ConnectionFixture;
using connection_test::OpenConnectionFixture;
using connection_test::ValidServer;

class MakeEscapeString : public OpenConnectionFixture
{
protected:
    UtCString Escaped(const UtCString& in)
    {
        UtCString out("old");
        m_database.MakeEscapeString(in, out);
        return out;
    }
    UtCString EscapedBytes(std::string_view in)
    {
        UtCString out("old");
        m_database.MakeEscapeString(in.data(), in.size(), out);
        return out;
    }
};

using MakeEscapeStringClosed = ConnectionFixture;

TEST_F(MakeEscapeString, EscapesAText)
{
    EXPECT_EQ(Bytes(Escaped("O'Neil \"x\" \\ \n")), "O\\'Neil \\\"x\\\" \\\\ \\n");
}

TEST_F(MakeEscapeString, EscapesZeroBytesAsData)
{
    EXPECT_EQ(Bytes(Escaped(UtCString("a\0b"sv, UT_ENCODING_UTF8))), "a\\0b");
}

TEST_F(MakeEscapeString, KeepsZeroBytesThatTheModeOfTheServerKeeps)
{
    m_client.SetNoBackslashEscapes(true);
    EXPECT_EQ(Bytes(Escaped(UtCString("a\0'\\"sv, UT_ENCODING_UTF8))), "a\0''\\"s);
}

TEST_F(MakeEscapeString, GivesNoTerminatingZero)
{
    EXPECT_EQ(Escaped("abc").GetByteLength(), 3U);
}

TEST_F(MakeEscapeString, ConvertsATextToTheEncodingOfTheSettings)
{
    const UtCString out = Escaped(UtCString("\xFC'", UT_ENCODING_DEFAULT));
    EXPECT_EQ(Bytes(out), "\xC3\xBC\\'");
    EXPECT_EQ(out.GetEncodingType(), UT_ENCODING_UTF8);
}

TEST_F(MakeEscapeString, TagsTheTextWithTheEncodingOfTheSettings)
{
    EXPECT_EQ(Escaped("abc").GetEncodingType(), UT_ENCODING_UTF8);
    m_database.GetServer().SetCharset("latin1");
    EXPECT_EQ(Escaped(UtCString("\xC3\xBC", UT_ENCODING_UTF8)).GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_EQ(Bytes(Escaped(UtCString("\xC3\xBC", UT_ENCODING_UTF8))), "\xFC");
}

TEST_F(MakeEscapeString, EscapesUtf16ByBytesWithSuchSettings)
{
    m_database.GetServer().SetCharset("utf16le");
    EXPECT_EQ(Bytes(Escaped("a'")), "a\\0\\'\\0");
}

TEST_F(MakeEscapeString, GivesNothingForATextThatIsNeverConverted)
{
    EXPECT_EQ(Bytes(Escaped(UtCString("abcd", UT_ENCODING_UTF32))), "");
}

TEST_F(MakeEscapeString, EmptiesTheOutputForAnEmptyText)
{
    EXPECT_EQ(Bytes(Escaped("")), "");
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(MakeEscapeString, EscapesATextInPlace)
{
    UtCString text("O'Neil");
    m_database.MakeEscapeString(text, text);
    EXPECT_EQ(Bytes(text), "O\\'Neil");
    UtCString sameEncoding("O'Neil", UT_ENCODING_UTF8);
    m_database.MakeEscapeString(sameEncoding, sameEncoding);
    EXPECT_EQ(Bytes(sameEncoding), "O\\'Neil");
}

TEST_F(MakeEscapeString, EscapesALongText)
{
    EXPECT_TRUE(Bytes(Escaped(UtCString(std::string(100'000, '\''), UT_ENCODING_UTF8))) == [] {
        std::string expected;
        for (int count = 0; count < 100'000; ++count)
            expected += "\\'";
        return expected;
    }());
}

TEST_F(MakeEscapeString, LeavesMalformedTextOfTheSameEncodingAlone)
{
    EXPECT_EQ(Bytes(Escaped(UtCString("\xE2\x82'\xFF", UT_ENCODING_UTF8))), "\xE2\x82\\'\xFF");
}

TEST_F(MakeEscapeString, EscapesRawBytes)
{
    const UtCString out = EscapedBytes("\x00'\xFF\xFC\x1A"sv);
    EXPECT_EQ(Bytes(out), "\\0\\'\xFF\xFC\\Z");
    EXPECT_EQ(out.GetEncodingType(), UT_ENCODING_UTF8);
}

TEST_F(MakeEscapeString, EscapesRawBytesInPlace)
{
    UtCString text("O'Neil", UT_ENCODING_UTF8);
    m_database.MakeEscapeString(text.string(), 6, text);
    EXPECT_EQ(Bytes(text), "O\\'Neil");
}

TEST_F(MakeEscapeString, Kept_K12_LeavesTheOutputAloneForNoBytes)
{
    EXPECT_EQ(Bytes(EscapedBytes("")), "old");
    UtCString out("old");
    m_database.MakeEscapeString(nullptr, 0, out);
    EXPECT_EQ(Bytes(out), "old");
    m_database.MakeEscapeString(nullptr, 5, out);
    EXPECT_EQ(Bytes(out), "old");
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(MakeEscapeString, EmptiesTheOutputForMoreBytesThanTheClientCounts)
{
    const char byte = 'x';
    for (const unsigned long long size : {2147483648ULL, 4294967296ULL, 9223372036854775807ULL}) {
        UtCString out("old");
        m_database.MakeEscapeString(&byte, static_cast<unsigned __int64>(size), out);
        EXPECT_EQ(Bytes(out), "");
    }
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(MakeEscapeStringClosed, EmptiesTheOutputForAText)
{
    CMyDatabase database(ValidServer(), "shop");
    UtCString out("old");
    database.MakeEscapeString("abc", out);
    EXPECT_EQ(Bytes(out), "");
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(MakeEscapeStringClosed, LeavesTheOutputAloneForBytes)
{
    CMyDatabase database(ValidServer(), "shop");
    UtCString out("old");
    database.MakeEscapeString("abc", 3, out);
    EXPECT_EQ(Bytes(out), "old");
    EXPECT_TRUE(m_client.Calls().empty());
}

} // namespace
