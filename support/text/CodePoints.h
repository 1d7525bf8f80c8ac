#pragma once

#include "text/UtEncoding.h"
#include "text/Windows1252.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Reading and writing characters in the encodings that a text can carry.
///
/// A character is a code point. What is not well-formed becomes one character per byte (UTF-16: per lone surrogate
/// unit, and one for an odd last byte) with the number malformedBase + byte or unit, so that different malformed texts
/// stay different and every text is the sequence of its characters again. A text whose encoding is none of 256, 1200,
/// 1201 and 65001 is opaque: its bytes below 0x80 are ASCII, every other byte is a malformed one.
namespace text {

inline constexpr uint32_t malformedBase = 0x110000;
inline constexpr uint32_t replacementCharacter = 0xFFFD;

using Byte = unsigned char;

constexpr bool IsSurrogate(uint32_t codePoint) noexcept
{
    return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}

/// What a character becomes where Unicode is written: itself, or U+FFFD when it is malformed.
constexpr uint32_t WellFormed(uint32_t character) noexcept
{
    return character < malformedBase && !IsSurrogate(character) ? character : replacementCharacter;
}

struct Opaque
{
    static uint32_t Next(const Byte*& at, const Byte*) noexcept
    {
        const Byte byte = *at++;
        return byte < 0x80 ? byte : malformedBase + byte;
    }
    static bool CanHold(uint32_t character) noexcept { return character < 0x80; }
    static size_t Size(uint32_t) noexcept { return 1; }
    static char* Put(char* out, uint32_t character) noexcept
    {
        *out = character < 0x80 ? static_cast<char>(character) : '?';
        return out + 1;
    }
};

struct Windows1252
{
    static uint32_t Next(const Byte*& at, const Byte*) noexcept { return FromWindows1252(*at++); }
    static bool CanHold(uint32_t character) noexcept { return ToWindows1252(character) >= 0; }
    static size_t Size(uint32_t) noexcept { return 1; }
    static char* Put(char* out, uint32_t character) noexcept
    {
        const int byte = ToWindows1252(character);
        *out = byte < 0 ? '?' : static_cast<char>(byte);
        return out + 1;
    }
};

struct Utf8
{
    static uint32_t Next(const Byte*& at, const Byte* end) noexcept
    {
        const Byte lead = *at++;
        if (lead < 0x80)
            return lead;
        return NextMultiByte(lead, at, end);
    }
    static bool CanHold(uint32_t character) noexcept { return character < malformedBase && !IsSurrogate(character); }
    static size_t Size(uint32_t character) noexcept
    {
        const uint32_t c = WellFormed(character);
        return c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4;
    }
    static char* Put(char* out, uint32_t character) noexcept;

private:
    static uint32_t NextMultiByte(Byte lead, const Byte*& at, const Byte* end) noexcept;
};

template <bool bigEndian> struct Utf16
{
    static uint32_t Next(const Byte*& at, const Byte* end) noexcept
    {
        if (end - at < 2)
            return malformedBase + *at++;
        const uint32_t unit = UnitAt(at);
        at += 2;
        if (!IsSurrogate(unit))
            return unit;
        if (unit >= 0xDC00 || end - at < 2)
            return malformedBase + unit;
        const uint32_t low = UnitAt(at);
        if (low < 0xDC00 || low > 0xDFFF)
            return malformedBase + unit;
        at += 2;
        return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
    }
    static bool CanHold(uint32_t character) noexcept { return Utf8::CanHold(character); }
    static size_t Size(uint32_t character) noexcept { return WellFormed(character) < 0x10000 ? 2 : 4; }
    static char* Put(char* out, uint32_t character) noexcept
    {
        const uint32_t c = WellFormed(character);
        if (c < 0x10000)
            return PutUnit(out, c);
        out = PutUnit(out, 0xD800 + ((c - 0x10000) >> 10));
        return PutUnit(out, 0xDC00 + ((c - 0x10000) & 0x3FF));
    }

private:
    static uint32_t UnitAt(const Byte* at) noexcept
    {
        return bigEndian ? static_cast<uint32_t>(at[0] << 8 | at[1]) : static_cast<uint32_t>(at[1] << 8 | at[0]);
    }
    static char* PutUnit(char* out, uint32_t unit) noexcept
    {
        out[bigEndian ? 0 : 1] = static_cast<char>(unit >> 8);
        out[bigEndian ? 1 : 0] = static_cast<char>(unit & 0xFF);
        return out + 2;
    }
};

/// Calls `function` with the codec of `encoding`.
template <typename F> decltype(auto) WithCodec(eUtEncodingType encoding, F&& function)
{
    switch (encoding) {
    case UT_ENCODING_DEFAULT:
        return function(Windows1252{});
    case UT_ENCODING_UTF8:
        return function(Utf8{});
    case UT_ENCODING_UTF16_LE:
        return function(Utf16<false>{});
    case UT_ENCODING_UTF16_BE:
        return function(Utf16<true>{});
    default:
        return function(Opaque{});
    }
}

/// Whether texts are converted from and to `encoding`; the bytes of every other encoding are kept as they are.
constexpr bool IsConvertible(eUtEncodingType encoding) noexcept
{
    return encoding == UT_ENCODING_DEFAULT || encoding == UT_ENCODING_UTF8 || IsUtf16(encoding);
}

/// Whether every byte is a character of its own.
constexpr bool IsSingleByte(eUtEncodingType encoding) noexcept
{
    return encoding != UT_ENCODING_UTF8 && !IsUtf16(encoding);
}

/// The next character of a zero-terminated wide text, not at its end: UTF-16 or UTF-32, as wide as wchar_t is. A lone
/// surrogate and a number beyond U+10FFFF are malformed.
inline uint32_t NextWide(const wchar_t*& at) noexcept
{
    const uint32_t unit = static_cast<uint32_t>(*at++) & (sizeof(wchar_t) == 2 ? 0xFFFFu : 0xFFFFFFFFu);
    if (!IsSurrogate(unit))
        return unit < malformedBase ? unit : malformedBase;
    const uint32_t low = static_cast<uint32_t>(*at) & 0xFFFF;
    if (sizeof(wchar_t) != 2 || unit >= 0xDC00 || low < 0xDC00 || low > 0xDFFF)
        return malformedBase + unit;
    ++at;
    return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
}

inline const Byte* Begin(std::string_view bytes) noexcept
{
    return reinterpret_cast<const Byte*>(bytes.data());
}
inline const Byte* End(std::string_view bytes) noexcept
{
    return Begin(bytes) + bytes.size();
}

inline std::string_view Between(const Byte* begin, const Byte* end) noexcept
{
    return {reinterpret_cast<const char*>(begin), static_cast<size_t>(end - begin)};
}

/// Whether every byte is below 0x80.
bool IsAscii(std::string_view bytes) noexcept;

/// Whether a text keeps its bytes when it is converted: same encoding, one that is never converted, or ASCII between
/// encodings that contain it.
bool KeepsBytes(std::string_view bytes, eUtEncodingType from, eUtEncodingType to) noexcept;

/// The number of characters.
size_t CountCharacters(std::string_view bytes, eUtEncodingType encoding) noexcept;

/// The byte offset that lies `count` characters behind the byte offset `from` (a character's start); at most the size.
size_t SkipCharacters(std::string_view bytes, eUtEncodingType encoding, size_t from, size_t count) noexcept;

/// Whether the text has no malformed character.
bool IsWellFormed(std::string_view bytes, eUtEncodingType encoding) noexcept;

/// The size in bytes of the converted text, and the conversion itself, which writes exactly that many bytes to `out`.
/// What `to` cannot hold becomes "?" (single byte) or U+FFFD. Not for texts that keep their bytes.
size_t ConvertedSize(std::string_view bytes, eUtEncodingType from, eUtEncodingType to) noexcept;
void ConvertTo(std::string_view bytes, eUtEncodingType from, eUtEncodingType to, char* out) noexcept;

/// Negative, 0 or positive: the order of the character numbers; the NoCase form of their upper cases.
int Compare(std::string_view left, eUtEncodingType leftEncoding, std::string_view right,
            eUtEncodingType rightEncoding) noexcept;
int CompareNoCase(std::string_view left, eUtEncodingType leftEncoding, std::string_view right,
                  eUtEncodingType rightEncoding) noexcept;

/// A hash that agrees with Compare: texts that compare equal have the same hash, whatever their encodings.
uint64_t HashCharacters(std::string_view bytes, eUtEncodingType encoding) noexcept;

} // namespace text
