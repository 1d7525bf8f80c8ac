#include "TextSupport.h"

#include "text/UtMemory.h"

#include <climits>
#include <cstring>

TEST(UtCString, CountsCharactersAndBytes)
{
    EXPECT_EQ(Text("\xC3\xBC\xE2\x82\xAC", utf8).GetLength(), 2);
    EXPECT_EQ(Text("\xC3\xBC\xE2\x82\xAC", utf8).GetByteLength(), 5U);
    EXPECT_EQ(Text("\xC3\xBC").GetLength(), 2);
    EXPECT_EQ(Text("\x3D\xD8\x00\xDE"sv, utf16le).GetLength(), 1);
    EXPECT_EQ(Text("").GetLength(), 0);
    EXPECT_FALSE(Text("\0"sv).IsEmpty());
}

TEST(GetBuffer, HoldsTheTextAndZeros)
{
    UtCString text("abc");
    const char* const buffer = text.GetBuffer(40);
    ASSERT_NE(buffer, nullptr);
    EXPECT_EQ(std::string_view(buffer, 42), "abc"s + std::string(39, '\0'));
}

TEST(GetBuffer, CutsTheTextAtTheSize)
{
    UtCString text("abcdef");
    EXPECT_STREQ(text.GetBuffer(2), "ab");
    EXPECT_STREQ(text.GetBuffer(-1), "");
    EXPECT_STREQ(text.GetBuffer(0), "");
}

TEST(ReleaseBuffer, TakesTheTextUpToTheFirstZero)
{
    UtCString text("before");
    std::strcpy(text.GetBuffer(100), "written by a C function");
    text.ReleaseBuffer(utf8);
    ExpectText(text, "written by a C function", utf8);
}

TEST(ReleaseBuffer, TakesTheWholeBufferWithoutAZero)
{
    UtCString text;
    std::memset(text.GetBuffer(30), 'x', 30);
    text.ReleaseBuffer();
    ExpectText(text, std::string(30, 'x'), ansi);
}

TEST(ReleaseBuffer, EndsUtf16AtAZeroUnit)
{
    UtCString text;
    std::memcpy(text.GetBuffer(20), "a\0\0\1b\0\0\0", 8);
    text.ReleaseBuffer(utf16le);
    ExpectText(text, "a\0\0\1b\0"sv, utf16le);
}

TEST(ReleaseBuffer, TakesAnOddUtf16BufferWithoutAZeroUnitWhole)
{
    UtCString text;
    std::memcpy(text.GetBuffer(3), "a\0b", 3);
    text.ReleaseBuffer(utf16le);
    ExpectText(text, "a\0b"sv, utf16le);
}

TEST(ReleaseBuffer, CutsAtAZeroWithoutGetBuffer)
{
    UtCString text("a\0b"sv, ansi);
    text.ReleaseBuffer();
    ExpectText(text, "a", ansi);
}

namespace {

std::string AnsiString(const UtCString& text, eUtEncodingType encoding = UT_ENCODING_DEFAULT)
{
    char* bytes = nullptr;
    EXPECT_TRUE(text.GetAnsiString(&bytes, encoding));
    const std::string copy = bytes;
    UtFreeMemory(bytes);
    return copy;
}

} // namespace

TEST(GetAnsiString, GivesAZeroTerminatedCopyInTheEncoding)
{
    EXPECT_EQ(AnsiString(Text("a\xC3\xBC\xE4\xB8\xAD", utf8)), "a\xFC?");
    EXPECT_EQ(AnsiString(Text("\0a\0\xFC"sv, utf16be)), "a\xFC");
    EXPECT_EQ(AnsiString(Text("a\xFC"), utf8), "a\xC3\xBC");
    EXPECT_EQ(AnsiString(Text("")), "");
}

TEST(GetAnsiString, RefusesUtf16)
{
    char some = 'x';
    char* bytes = &some;
    EXPECT_FALSE(Text("a").GetAnsiString(&bytes, utf16le));
    EXPECT_EQ(bytes, nullptr);
    EXPECT_FALSE(Text("a").GetAnsiString(&bytes, utf16be));
}

TEST(GetAnsiString, RefusesANullTarget)
{
    EXPECT_FALSE(Text("a").GetAnsiString(nullptr));
}

TEST(GetMemCopy, GivesBytesAndLengthWithoutTheZeros)
{
    const struct
    {
        int terminatorBytes;
        std::string_view expected;
    } rows[] = {{0, "a\0\xFC"sv}, {1, "a\0\xFC\0"sv}, {2, "a\0\xFC\0\0"sv}, {-3, "a\0\xFC"sv}};
    for (const auto& row : rows) {
        unsigned char* bytes = nullptr;
        size_t size = 99;
        ASSERT_TRUE(Text("a\0\xFC"sv).GetMemCopy(&bytes, size, row.terminatorBytes));
        EXPECT_EQ(size, 3U);
        EXPECT_EQ(std::string_view(reinterpret_cast<char*>(bytes), row.expected.size()), row.expected);
        UtFreeMemory(bytes);
    }
}

TEST(GetMemCopy, GivesABlockForTheEmptyText)
{
    unsigned char* bytes = nullptr;
    size_t size = 99;
    EXPECT_TRUE(Text("").GetMemCopy(&bytes, size));
    EXPECT_EQ(size, 0U);
    EXPECT_NE(bytes, nullptr);
    UtFreeMemory(bytes);
}

TEST(GetMemCopy, RefusesANullTarget)
{
    size_t size = 99;
    EXPECT_FALSE(Text("a").GetMemCopy(nullptr, size));
    EXPECT_EQ(size, 0U);
}

TEST(SetMemCopy, TakesRawBytes)
{
    const unsigned char bytes[] = {0, 0xFF, 'a'};
    UtCString text("before");
    text.SetMemCopy(bytes, 3, utf8);
    ExpectText(text,
               "\0\xFF"
               "a"sv,
               utf8);
    text.SetMemCopy(nullptr, 5, ansi);
    ExpectText(text, "", ansi);
    text.SetMemCopy(nullptr, SIZE_MAX, utf8);
    ExpectText(text, "", utf8);
}

TEST(SetMemCopy, TakesBytesOfTheTextItself)
{
    UtCString text("0123456789012345678901234567890123456789");
    text.SetMemCopy(reinterpret_cast<const unsigned char*>(text.string()) + 35, 5, utf8);
    ExpectText(text, "56789", utf8);
}

TEST(UtCString, ReusesItsMemoryWhenAssignedTo)
{
    const UtCString shortText("short");
    const UtCString longText("another that does not fit into the inline one");
    UtCString text("a text that does not fit into the inline storage");
    const char* const before = text.string();
    text = shortText;
    text = longText;
    text.SetMemCopy(reinterpret_cast<const unsigned char*>("third"), 5, utf8);
    text.SetEmpty();
    text += "again one that does not fit into the inline one";
    EXPECT_EQ(text.string(), before);
}

TEST(UtMemory, GivesBlocksThatCanBeWritten)
{
    void* const block = UtAllocMemoryBlock(100);
    ASSERT_NE(block, nullptr);
    std::memset(block, 0xFF, 100);
    UtFreeMemory(block);
    void* const none = UtAllocMemoryBlock(0);
    EXPECT_NE(none, nullptr);
    UtFreeMemory(none);
    UtFreeMemory(nullptr);
}
