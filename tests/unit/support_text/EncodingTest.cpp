#include "TextSupport.h"

#include "text/CodePoints.h"

#include <cstdint>

namespace {

/// The bytes of a code point in UTF-8, by the definition's table of bit patterns.
std::string Utf8Bytes(uint32_t c)
{
    const auto byte = [](uint32_t value) { return static_cast<char>(value); };
    if (c < 0x80)
        return {byte(c)};
    if (c < 0x800)
        return {byte(0xC0 | c >> 6), byte(0x80 | (c & 0x3F))};
    if (c < 0x10000)
        return {byte(0xE0 | c >> 12), byte(0x80 | (c >> 6 & 0x3F)), byte(0x80 | (c & 0x3F))};
    return {byte(0xF0 | c >> 18), byte(0x80 | (c >> 12 & 0x3F)), byte(0x80 | (c >> 6 & 0x3F)), byte(0x80 | (c & 0x3F))};
}

std::string Utf16Bytes(uint32_t c, bool bigEndian)
{
    std::string bytes;
    const auto unit = [&](uint32_t value) {
        const char high = static_cast<char>(value >> 8);
        const char low = static_cast<char>(value & 0xFF);
        bytes += bigEndian ? std::string{high, low} : std::string{low, high};
    };
    if (c < 0x10000) {
        unit(c);
    } else {
        unit(0xD800 + ((c - 0x10000) >> 10));
        unit(0xDC00 + ((c - 0x10000) & 0x3FF));
    }
    return bytes;
}

/// All code points except the surrogates, in an encoding.
struct AllCodePoints
{
    std::string utf8Bytes;
    std::string utf16leBytes;
    std::string utf16beBytes;

    AllCodePoints()
    {
        for (uint32_t c = 0; c <= 0x10FFFF; ++c) {
            if (c >= 0xD800 && c <= 0xDFFF)
                continue;
            utf8Bytes += Utf8Bytes(c);
            utf16leBytes += Utf16Bytes(c, false);
            utf16beBytes += Utf16Bytes(c, true);
        }
    }
};

const AllCodePoints& All()
{
    static const AllCodePoints all;
    return all;
}

// No EXPECT_EQ on megabytes: its message would be unreadable.
void ExpectSame(const UtCString& text, const std::string& bytes)
{
    EXPECT_TRUE(text.View() == bytes);
}

} // namespace

TEST(Encoding, ConvertsEveryCodePointFromUtf8)
{
    const UtCString source(All().utf8Bytes, utf8);
    ExpectSame(UtCString(source, utf16le), All().utf16leBytes);
    ExpectSame(UtCString(source, utf16be), All().utf16beBytes);
}

TEST(Encoding, ConvertsEveryCodePointFromUtf16LittleEndian)
{
    const UtCString source(All().utf16leBytes, utf16le);
    ExpectSame(UtCString(source, utf8), All().utf8Bytes);
    ExpectSame(UtCString(source, utf16be), All().utf16beBytes);
}

TEST(Encoding, ConvertsEveryCodePointFromUtf16BigEndian)
{
    const UtCString source(All().utf16beBytes, utf16be);
    ExpectSame(UtCString(source, utf8), All().utf8Bytes);
    ExpectSame(UtCString(source, utf16le), All().utf16leBytes);
}

TEST(Encoding, CountsEveryCodePointAsOneCharacter)
{
    constexpr int count = 0x110000 - 0x800;
    EXPECT_EQ(UtCString(All().utf8Bytes, utf8).GetLength(), count);
    EXPECT_EQ(UtCString(All().utf16leBytes, utf16le).GetLength(), count);
    EXPECT_EQ(UtCString(All().utf16beBytes, utf16be).GetLength(), count);
}

namespace {

struct Windows1252Row
{
    unsigned char byte;
    std::string_view utf8Bytes;
};

// The bytes 0x80 to 0x9F; 0x00 to 0x7F and 0xA0 to 0xFF have the number of their code point.
const Windows1252Row windows1252Rows[] = {
    {0x80, "\xE2\x82\xAC"}, {0x81, "\xC2\x81"},     {0x82, "\xE2\x80\x9A"}, {0x83, "\xC6\x92"},
    {0x84, "\xE2\x80\x9E"}, {0x85, "\xE2\x80\xA6"}, {0x86, "\xE2\x80\xA0"}, {0x87, "\xE2\x80\xA1"},
    {0x88, "\xCB\x86"},     {0x89, "\xE2\x80\xB0"}, {0x8A, "\xC5\xA0"},     {0x8B, "\xE2\x80\xB9"},
    {0x8C, "\xC5\x92"},     {0x8D, "\xC2\x8D"},     {0x8E, "\xC5\xBD"},     {0x8F, "\xC2\x8F"},
    {0x90, "\xC2\x90"},     {0x91, "\xE2\x80\x98"}, {0x92, "\xE2\x80\x99"}, {0x93, "\xE2\x80\x9C"},
    {0x94, "\xE2\x80\x9D"}, {0x95, "\xE2\x80\xA2"}, {0x96, "\xE2\x80\x93"}, {0x97, "\xE2\x80\x94"},
    {0x98, "\xCB\x9C"},     {0x99, "\xE2\x84\xA2"}, {0x9A, "\xC5\xA1"},     {0x9B, "\xE2\x80\xBA"},
    {0x9C, "\xC5\x93"},     {0x9D, "\xC2\x9D"},     {0x9E, "\xC5\xBE"},     {0x9F, "\xC5\xB8"},
};

std::string AllBytes()
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    return bytes;
}

} // namespace

TEST(Encoding, ReadsTheUpperControlRangeAsWindows1252)
{
    for (const Windows1252Row& row : windows1252Rows)
        EXPECT_EQ(Bytes(UtCString(Text(std::string(1, static_cast<char>(row.byte))), utf8)), row.utf8Bytes)
            << int{row.byte};
}

TEST(Encoding, ReadsTheOtherBytesAsTheirCodePoint)
{
    for (uint32_t byte = 0; byte < 256; ++byte) {
        if (byte < 0x80 || byte >= 0xA0) {
            EXPECT_EQ(Bytes(UtCString(Text(std::string(1, static_cast<char>(byte))), utf8)), Utf8Bytes(byte)) << byte;
        }
    }
}

TEST(Encoding, BringsEveryByteOf1252BackThroughEveryOtherEncoding)
{
    for (const eUtEncodingType other : {utf8, utf16le, utf16be}) {
        UtCString text(AllBytes(), ansi);
        EXPECT_TRUE(text.ChangeEncodingType(other));
        EXPECT_EQ(text.GetLength(), 256);
        EXPECT_TRUE(text.ChangeEncodingType(ansi));
        ExpectText(text, AllBytes(), ansi);
    }
}

namespace {

struct Conversion
{
    const char* name;
    std::string_view source;
    eUtEncodingType from;
    eUtEncodingType to;
    std::string_view expected;
};

constexpr Conversion conversions[] = {
    {"Empty", ""sv, utf8, utf16le, ""sv},
    {"EmbeddedZeros", "a\0b\0"sv, ansi, utf8, "a\0b\0"sv},
    {"EmbeddedZerosToUtf16", "a\0b"sv, utf8, utf16le, "a\0\0\0b\0"sv},
    {"EmbeddedZerosFromUtf16", "\0a\0\0\0b"sv, utf16be, ansi, "a\0b"sv},
    {"UmlautsToUtf8", "\xFC\xDF"sv, ansi, utf8, "\xC3\xBC\xC3\x9F"sv},
    {"UmlautsFromUtf16", "\xFC\0\xDF\0"sv, utf16le, ansi, "\xFC\xDF"sv},
    {"SameEncodingKeepsMalformedBytes", "\xFF\xC3"sv, utf8, utf8, "\xFF\xC3"sv},
    {"EmojiToUtf16", "\xF0\x9F\x98\x80"sv, utf8, utf16be, "\xD8\x3D\xDE\x00"sv},
    {"EmojiToUtf8", "\x3D\xD8\x00\xDE"sv, utf16le, utf8, "\xF0\x9F\x98\x80"sv},
    {"BetweenTheByteOrders", "\x20\xAC\xD8\x3D\xDE\x00"sv, utf16be, utf16le, "\xAC\x20\x3D\xD8\x00\xDE"sv},

    {"UnrepresentableBecomesAQuestionMark", "\xE4\xB8\xAD"sv, utf8, ansi, "?"sv},
    {"UnrepresentableEmojiBecomesOneQuestionMark", "\x3D\xD8\x00\xDE"sv, utf16le, ansi, "?"sv},
    {"C1NotIn1252BecomesAQuestionMark", "\xC2\x80"sv, utf8, ansi, "?"sv},
    {"ReplacementCharacterTo1252", "\xEF\xBF\xBD"sv, utf8, ansi, "?"sv},

    {"LoneContinuation", "a\x80z"sv, utf8, utf16le, "a\0\xFD\xFFz\0"sv},
    {"LoneContinuationTo1252", "a\x80z"sv, utf8, ansi, "a?z"sv},
    {"InvalidLeads", "\xC0\xC1\xF5\xFF"sv, utf8, ansi, "????"sv},
    {"OverlongOfTwo", "\xC0\x80"sv, utf8, ansi, "??"sv},
    {"OverlongSlashOfTwo", "\xC1\xAF"sv, utf8, ansi, "??"sv},
    {"OverlongOfThree", "\xE0\x9F\xBF"sv, utf8, ansi, "???"sv},
    {"SmallestOfThree", "\xE0\xA0\x80"sv, utf8, utf16be, "\x08\x00"sv},
    {"OverlongOfFour", "\xF0\x8F\xBF\xBF"sv, utf8, ansi, "????"sv},
    {"SmallestOfFour", "\xF0\x90\x80\x80"sv, utf8, utf16be, "\xD8\x00\xDC\x00"sv},
    {"BeyondUnicode", "\xF4\x90\x80\x80"sv, utf8, ansi, "????"sv},
    {"LargestCodePoint", "\xF4\x8F\xBF\xBF"sv, utf8, utf16be, "\xDB\xFF\xDF\xFF"sv},
    {"LeadBeyondUnicode", "\xF5\x80\x80\x80"sv, utf8, ansi, "????"sv},
    {"FiveByteForm", "\xF8\x88\x80\x80\x80"sv, utf8, ansi, "?????"sv},
    {"SurrogateInUtf8", "\xED\xA0\x80"sv, utf8, ansi, "???"sv},
    {"SurrogatePairInUtf8", "\xED\xA0\xBD\xED\xB8\x80"sv, utf8, ansi, "??????"sv},
    {"BelowTheSurrogates", "\xED\x9F\xBF"sv, utf8, utf16be, "\xD7\xFF"sv},
    {"AboveTheSurrogates", "\xEE\x80\x80"sv, utf8, utf16be, "\xE0\x00"sv},
    {"TruncatedOfTwo", "a\xC3"sv, utf8, ansi, "a?"sv},
    {"TruncatedOfThree", "\xE2\x82"sv, utf8, ansi, "??"sv},
    {"TruncatedOfFour", "\xF0\x9F\x98"sv, utf8, ansi, "???"sv},
    {"TruncatedBeforeAscii", "\xE2\x82z"sv, utf8, ansi, "??z"sv},
    {"LeadBeforeAnotherSequence", "\xC3\xC3\xBC"sv, utf8, ansi, "?\xFC"sv},
    {"SequenceAfterTruncatedOne", "\xF0\x9F\xC3\xBC"sv, utf8, ansi, "??\xFC"sv},

    {"LoneHighSurrogate", "\x3D\xD8z\0"sv, utf16le, utf8, "\xEF\xBF\xBDz"sv},
    {"LoneLowSurrogate", "\x00\xDEz\0"sv, utf16le, utf8, "\xEF\xBF\xBDz"sv},
    {"HighSurrogateAtTheEnd", "z\0\x3D\xD8"sv, utf16le, utf8, "z\xEF\xBF\xBD"sv},
    {"HighSurrogateAndOddByteAtTheEnd", "\x3D\xD8\x00"sv, utf16le, utf8, "\xEF\xBF\xBD\xEF\xBF\xBD"sv},
    {"TwoHighSurrogates", "\xD8\x3D\xD8\x3D\xDE\x00"sv, utf16be, utf8, "\xEF\xBF\xBD\xF0\x9F\x98\x80"sv},
    {"OddLastByte", "\0z\0"sv, utf16be, utf8, "z\xEF\xBF\xBD"sv},
    {"OddLastByteTo1252", "z\0A"sv, utf16le, ansi, "z?"sv},
    {"SurrogateToTheOtherByteOrder", "\x3D\xD8"sv, utf16le, utf16be, "\xFF\xFD"sv},

    {"OpaqueKeepsItsBytes", "a\xFC\0\xFF"sv, opaque, utf8, "a\xFC\0\xFF"sv},
    {"OpaqueTakesBytesAsTheyAre", "a\xFC\0\xFF"sv, ansi, opaque, "a\xFC\0\xFF"sv},
    {"OpaqueTakesUtf16AsItIs", "a\0"sv, utf16le, opaque, "a\0"sv},
};

} // namespace

class EncodingConversion : public testing::TestWithParam<Conversion>
{
};

TEST_P(EncodingConversion, GivesTheExpectedBytes)
{
    const Conversion& row = GetParam();
    ExpectText(UtCString(Text(row.source, row.from), row.to), row.expected, row.to);
}

TEST_P(EncodingConversion, GivesTheSameInPlace)
{
    const Conversion& row = GetParam();
    UtCString text(row.source, row.from);
    text.ChangeEncodingType(row.to);
    ExpectText(text, row.expected, row.to);
}

TEST_P(EncodingConversion, GivesTheSameWithinALongText)
{
    const Conversion& row = GetParam();
    if (row.source.size() % 2 != 0 && (row.from == utf16le || row.from == utf16be))
        return; // an odd last byte is only one at the end
    const bool isKept = row.from == row.to || row.from == opaque || row.to == opaque;
    const UtCString padding = Ascii("0123456789012345678901234567890123456789", row.from);
    const std::string source = Bytes(padding) + std::string(row.source) + Bytes(padding);
    const std::string around = Bytes(isKept ? padding : Ascii(Bytes(UtCString(padding, ansi)), row.to));
    ExpectText(UtCString(Text(source, row.from), row.to), around + std::string(row.expected) + around, row.to);
}

INSTANTIATE_TEST_SUITE_P(Rows, EncodingConversion, testing::ValuesIn(conversions),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Encoding, CountsAMalformedByteAsOneCharacter)
{
    EXPECT_EQ(Text("a\xE2\x82z", utf8).GetLength(), 4);
    EXPECT_EQ(Text("\x3D\xD8\x00\xDE\x00"sv, utf16le).GetLength(), 2);
    EXPECT_EQ(Text("\x00\xDE\x00"sv, utf16le).GetLength(), 2);
    EXPECT_EQ(Text("a\xFC\0\xFF"sv, opaque).GetLength(), 4);
}

TEST(Encoding, ReadsNothingBehindTheEnd)
{
    EXPECT_EQ(text::CountCharacters("\xE2\x82\xAC"sv.substr(0, 2), utf8), 2U);
    EXPECT_EQ(text::CountCharacters("\xF0\x9F\x98\x80"sv.substr(0, 3), utf8), 3U);
    EXPECT_EQ(text::CountCharacters("\xC3\xBC"sv.substr(0, 1), utf8), 1U);
    EXPECT_EQ(text::CountCharacters("\x3D\xD8\x00\xDE"sv.substr(0, 3), utf16le), 2U);
    EXPECT_TRUE(text::IsAscii("12345678\xFC"sv.substr(0, 8)));
}

TEST(Encoding, TreatsAnUnknownNumberAsOpaque)
{
    UtCString text("\xFC", static_cast<eUtEncodingType>(1252));
    EXPECT_FALSE(text.ChangeEncodingType(utf8));
    ExpectText(text, "\xFC", utf8);
}

TEST(ChangeEncodingType, TellsWhetherTheTextIsInThatEncodingNow)
{
    EXPECT_TRUE(Text("\xFC").ChangeEncodingType(utf8));
    EXPECT_TRUE(Text("\xFC").ChangeEncodingType(ansi));
    EXPECT_TRUE(Text("\xE4\xB8\xAD", utf8).ChangeEncodingType(ansi));
    EXPECT_TRUE(Text("\xFC", opaque).ChangeEncodingType(opaque));
    EXPECT_TRUE(Text("", opaque).ChangeEncodingType(utf8));
    EXPECT_FALSE(Text("\xFC", opaque).ChangeEncodingType(utf8));
    EXPECT_FALSE(Text("\xFC").ChangeEncodingType(opaque));
}

TEST(ChangeEncodingType, Kept_K60_OnlyRetagsATextInAnEncodingThatIsNeverConverted)
{
    UtCString text("\xFC\xE9", ansi);
    text.ChangeEncodingType(opaque);
    ExpectText(text, "\xFC\xE9", opaque);
    text.ChangeEncodingType(utf16le);
    ExpectText(text, "\xFC\xE9", utf16le);
}
