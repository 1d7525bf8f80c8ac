#include "differential/Sections.h"

#include "text/CodePoints.h"

namespace differential {
namespace {

constexpr uint32_t lastCodePoint = 0x10FFFF;

// Written by hand: what is tested must not make its own questions.
std::string Utf8Of(uint32_t codePoint)
{
    const auto tail = [codePoint](int shift) { return static_cast<char>(0x80 | (codePoint >> shift & 0x3F)); };
    if (codePoint < 0x80)
        return {static_cast<char>(codePoint)};
    if (codePoint < 0x800)
        return {static_cast<char>(0xC0 | codePoint >> 6), tail(0)};
    if (codePoint < 0x10000)
        return {static_cast<char>(0xE0 | codePoint >> 12), tail(6), tail(0)};
    return {static_cast<char>(0xF0 | codePoint >> 18), tail(12), tail(6), tail(0)};
}

/// As wide as the system's wide characters are: one or two.
std::wstring WideOf(uint32_t codePoint)
{
    if (sizeof(wchar_t) > 2 || codePoint < 0x10000)
        return std::wstring(1, static_cast<wchar_t>(codePoint));
    return {static_cast<wchar_t>(0xD800 + ((codePoint - 0x10000) >> 10)),
            static_cast<wchar_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FF))};
}

void WriteConversions(Report& report, const UtCString& text)
{
    const UtCString ansi(text, UT_ENCODING_DEFAULT);
    const UtCString utf8(text, UT_ENCODING_UTF8);
    const UtCString low(text, UT_ENCODING_UTF16_LE);
    const UtCString high(text, UT_ENCODING_UTF16_BE);
    report.Line(text, text.GetLength(), ansi, utf8, low, high, UtCString(ansi, UT_ENCODING_UTF16_LE),
                UtCString(utf8, UT_ENCODING_DEFAULT), UtCString(low, UT_ENCODING_UTF8),
                UtCString(high, UT_ENCODING_UTF8), text == utf8, text == low, ansi == high, utf8 < high);
}

void WriteLetterCase(Report& report, const UtCString& text, const UtCString& wide)
{
    const UtCString upper = text.toUpper();
    const UtCString lower = text.toLower();
    report.Line(wide, upper, lower, text.EqualNoCase(upper), lower.CompareToNoCase(text), wide == text);
}

std::string HexOf(uint32_t number)
{
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    for (int shift = 20; shift >= 0; shift -= 4)
        text += digits[number >> shift & 15];
    return text;
}

} // namespace

void WriteCodePoints(Report& report, const std::filesystem::path&)
{
    for (uint32_t codePoint = 0; codePoint <= lastCodePoint; ++codePoint) {
        const UtCString text(Utf8Of(codePoint), UT_ENCODING_UTF8);
        WriteConversions(report, text);
        WriteLetterCase(report, text, UtCString(WideOf(codePoint).c_str(), UT_ENCODING_UTF8));
        if (codePoint % 0x100 == 0xFF)
            report.EndBlock(HexOf(codePoint));
    }
}

// Two bytes in front of a letter: in UTF-8 all that is malformed at its start, in UTF-16 all lone surrogates.
void WriteMalformedTexts(Report& report, const std::filesystem::path&)
{
    for (unsigned bytes = 0; bytes < 0x10000; ++bytes) {
        const char first = static_cast<char>(bytes >> 8);
        const char second = static_cast<char>(bytes & 0xFF);
        for (const eUtEncodingType encoding : encodings) {
            WriteConversions(report, UtCString(std::string{first, second}, encoding));
            WriteConversions(report, UtCString(std::string{first, second, 'a'}, encoding));
            WriteConversions(report, UtCString(std::string{first, second, '\x20', '\x80', '\xDC', '\x01'}, encoding));
        }
        if (bytes % 0x100 == 0xFF)
            report.EndBlock(HexOf(bytes));
    }
}

} // namespace differential
