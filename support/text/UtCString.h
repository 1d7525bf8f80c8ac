#pragma once

#include "MyDbExport.h"
#include "text/TextHash.h"
#include "text/UtEncoding.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

class UtCStringList;

namespace text {
class TextBuilder;
}
namespace containers {
template <typename K> struct KeyTraits;
}

#ifndef _MSC_VER
#ifndef __int64
#define __int64 long long
#endif
#endif

/// An owned, growable byte string with an encoding tag.
///
/// Characters: positions and counts are in characters, zero-based. A character is a Unicode code point; what is
/// malformed counts one per byte (UTF-16: one per lone surrogate, and one for an odd last byte). A zero byte is a
/// character like any other.
///
/// Encodings: 256 is Windows-1252; its five undefined bytes stand for the control characters U+0081, U+008D, U+008F,
/// U+0090 and U+009D, so that every byte survives a round trip. Conversions between 256, 65001, 1200 and 1201 are
/// complete; what the target cannot hold, and what is malformed, becomes "?" (256) or U+FFFD, one for each character.
/// Bytes are never converted from or to any other encoding: they are kept. In such a text every byte is a character,
/// those below 0x80 are ASCII, and each of the others equals only the same malformed byte.
///
/// Arguments: a text argument in another encoding is converted into the encoding of this text first. Where a text is
/// searched for, one that this text's encoding cannot hold is not found. A `const char*` without an encoding is in
/// encoding 256, and null is the empty text. An argument may be the text itself or point into it.
///
/// Letter case: operations that ignore or change it use the simple case mapping of Unicode. In encoding 256 a character
/// whose other case the encoding lacks stays.
///
/// Memory: texts of up to 24 bytes need none; assigning to a text reuses what it has. No operation throws. When memory
/// runs out, a new text is empty and a text that was to be changed becomes empty (never half changed), with the
/// encoding that it would have had. Nothing depends on the locale.
class MYDB_EXPORT UtCString
{
public:
    UtCString() noexcept : UtCString(UT_ENCODING_DEFAULT) {}
    explicit UtCString(eUtEncodingType encoding) noexcept
        : m_data(m_inline), m_size(0), m_capacity(inlineCapacity), m_encoding(encoding), m_inline{}
    {
    }

    /// Takes a zero-terminated text (null gives the empty text). Its bytes are taken as they are, as a text in
    /// `encoding`; with 1200 or 1201 they are read as Windows-1252 and converted, as a zero-terminated char text cannot
    /// be UTF-16.
    UtCString(const char* text, eUtEncodingType encoding = UT_ENCODING_DEFAULT) noexcept : UtCString(encoding)
    {
        const size_t size = text == nullptr ? 0 : std::strlen(text);
        if (size > inlineCapacity || text::IsUtf16(encoding)) {
            AssignCharText(std::string_view(text, size));
        } else if (size != 0) {
            std::memcpy(m_inline, text, size);
            m_size = size;
        }
    }

    /// Takes a zero-terminated text that is in `sourceEncoding` (for 1200 and 1201: it ends at the first zero unit) and
    /// converts it to `encoding`. Null gives the empty text.
    UtCString(const char* text, eUtEncodingType encoding, eUtEncodingType sourceEncoding) noexcept;
    /// Takes the bytes as they are, zero bytes included, and tags them. Serves the framework's 8-bit string type as
    /// well.
    UtCString(std::string_view bytes, eUtEncodingType encoding) noexcept : UtCString(encoding)
    {
        SetMemCopy(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(), encoding);
    }
    /// Takes a zero-terminated wide text (UTF-16 or UTF-32, as wide as the platform's wchar_t) and converts it. Null
    /// gives the empty text.
    explicit UtCString(const wchar_t* text, eUtEncodingType encoding = UT_ENCODING_DEFAULT) noexcept;
    UtCString(const UtCString& other) noexcept : UtCString(other.m_encoding) { *this = other; }
    /// The source becomes empty and keeps its encoding.
    UtCString(UtCString&& other) noexcept : UtCString(other.m_encoding) { TakeFrom(other); }
    UtCString(const UtCString& other, eUtEncodingType encoding) noexcept; ///< a copy converted to `encoding`

    /// Decimal text.
    explicit UtCString(short value, eUtEncodingType encoding = UT_ENCODING_DEFAULT) noexcept;
    explicit UtCString(int value, eUtEncodingType encoding = UT_ENCODING_DEFAULT) noexcept;
    explicit UtCString(unsigned int value, eUtEncodingType encoding = UT_ENCODING_DEFAULT) noexcept;
    explicit UtCString(long value, eUtEncodingType encoding = UT_ENCODING_DEFAULT) noexcept;
    /// Decimal text of a 32-bit value: a negative number that was cast to `unsigned long` reads as it does where that
    /// type has 32 bits (-1 is "4294967295").
    explicit UtCString(unsigned long value, eUtEncodingType encoding = UT_ENCODING_DEFAULT) noexcept;
    explicit UtCString(__int64 value, eUtEncodingType encoding = UT_ENCODING_DEFAULT) noexcept;
    explicit UtCString(unsigned __int64 value, eUtEncodingType encoding = UT_ENCODING_DEFAULT) noexcept;
    /// The shortest text that reads back as the same number: plain notation ("0.25", "1000000") for 0 and for
    /// magnitudes from 0.00001 to below 1e15, otherwise scientific ("1e+15"). "-0", "inf", "-inf", "nan" as named.
    explicit UtCString(double value, eUtEncodingType encoding = UT_ENCODING_DEFAULT) noexcept;
    /// The number in plain notation with exactly `width` digits behind the point, at least 0 (then without the point)
    /// and at most 100: 32.0 with width 2 is "32.00".
    UtCString(double value, int width, eUtEncodingType encoding) noexcept;

    ~UtCString()
    {
        if (m_data != m_inline)
            ReleaseBlock();
    }

    UtCString& operator=(const UtCString& other) noexcept
    {
        if (other.m_size > inlineCapacity) {
            SetMemCopy(reinterpret_cast<const unsigned char*>(other.m_data), other.m_size, other.m_encoding);
            return *this;
        }
        std::memmove(m_data, other.m_data, sizeof(m_inline)); // no buffer is smaller, and a fixed size takes no call
        m_size = other.m_size;
        m_encoding = other.m_encoding;
        return *this;
    }
    /// The source becomes empty, unless it is this text.
    UtCString& operator=(UtCString&& other) noexcept;
    /// Takes a text in encoding 256, converted; keeps the encoding tag.
    UtCString& operator=(const char* text) noexcept;

    // Access

    /// The bytes, followed by a terminating zero (eight zero bytes, which end a UTF-16 text too). Valid until the next
    /// change.
    const char* string() const noexcept { return m_data; }
    /// The bytes without the zeros, valid until the next change.
    std::string_view View() const noexcept { return {m_data, m_size}; }
    eUtEncodingType GetEncodingType() const noexcept { return m_encoding; }
    bool IsEmpty() const noexcept { return m_size == 0; }
    int GetLength() const noexcept; ///< in characters; at most 2147483647
    size_t GetByteLength() const noexcept { return m_size; }
    /// A buffer of `size` bytes and eight zero bytes behind them, to be written by C functions; it holds the present
    /// text, cut at `size`, and zeros. Valid until the next change; ReleaseBuffer ends the writing. Null, with the text
    /// empty, when memory ran out. A negative size is 0.
    char* GetBuffer(int size) noexcept;
    /// Ends the writing into GetBuffer: the text is what stands there before the first zero (1200, 1201: zero unit), at
    /// most the size that was asked for, and is in `encoding`. Without a GetBuffer before it cuts at a zero in the same
    /// way.
    void ReleaseBuffer(eUtEncodingType encoding = UT_ENCODING_DEFAULT) noexcept;
    /// A zero-terminated copy in the 8-bit encoding `encoding`, for the caller to free with UtFreeMemory. False, with
    /// `*text` null, when `encoding` is 1200 or 1201 or memory ran out; false when `text` is null.
    bool GetAnsiString(char** text, eUtEncodingType encoding = UT_ENCODING_DEFAULT) const noexcept;
    /// A copy of the bytes in this text's encoding, followed by `terminatorBytes` zero bytes (negative: none), for the
    /// caller to free with UtFreeMemory; `size` is the number of bytes without the zeros. The empty text gives a block,
    /// too. False, with `*bytes` null and `size` 0, when memory ran out; false when `bytes` is null.
    bool GetMemCopy(unsigned char** bytes, size_t& size, int terminatorBytes = 0) const noexcept;
    /// Replaces text and encoding: takes the bytes as they are. Null is empty, whatever `size` says.
    void SetMemCopy(const unsigned char* bytes, size_t size, eUtEncodingType encoding) noexcept
    {
        m_encoding = encoding;
        if (size > m_capacity)
            return AssignToNewBlock(reinterpret_cast<const char*>(bytes), size);
        if (bytes == nullptr)
            size = 0;
        else
            std::memmove(m_data, bytes, size);
        SetSize(size);
    }
    /// Converts the text. The tag is `encoding` afterwards in any case. True when the text is in `encoding` then; false
    /// when one of the two encodings is never converted (the bytes are kept, only the tag changes) or memory ran out.
    bool ChangeEncodingType(eUtEncodingType encoding) noexcept;
    /// Texts that are equal have equal hashes, whatever their encodings. Not for storing: it may differ between
    /// systems.
    // (Said to be inline here already, as its body follows behind the class: a compiler that takes the class from a DLL
    // must know before it meets a use.)
    inline uint64_t Hash() const noexcept;

    // Comparison: of the texts, character by character, also when the encodings differ

    inline bool operator==(const UtCString& other) const noexcept;
    bool operator!=(const UtCString& other) const noexcept { return !(*this == other); }
    bool operator==(const char* text) const noexcept;
    bool operator!=(const char* text) const noexcept { return !(*this == text); }
    /// Orders by code point; malformed bytes come behind every code point.
    bool operator<(const UtCString& other) const noexcept;
    /// Equal when the upper cases of all characters are equal.
    bool EqualNoCase(const UtCString& other) const noexcept;
    bool EqualNoCase(const char* text, eUtEncodingType encoding = UT_ENCODING_DEFAULT) const noexcept;
    /// Negative, 0 or positive: the order of the upper cases by code point.
    int CompareToNoCase(const UtCString& other) const noexcept;

    // Search: a negative start is 0; -1 when there is none or `start` lies behind the end

    int Search(int start, char character, eUtEncodingType encoding = UT_ENCODING_DEFAULT) const noexcept;
    /// The position of the first occurrence at or behind `start`. The empty text is found at `start`.
    int Search(int start, const UtCString& text) const noexcept;
    /// The position of the first character at or behind `start` that is one of `set`.
    int FindOneOf(const UtCString& set, int start = 0) const noexcept;
    bool Contains(const UtCString& text) const noexcept; ///< the empty text is contained in every text
    /// `exact` false ignores letter case. Every text starts and ends with the empty text.
    bool StartsWith(const UtCString& text, bool exact) const noexcept;
    bool EndsWith(const UtCString& text, bool exact) const noexcept;
    bool IsNumber() const noexcept;            ///< an optional "+" or "-" and at least one ASCII digit, nothing else
    bool IsDigit(int position) const noexcept; ///< an ASCII digit stands there; false out of range

    // Change (copies, in this text's encoding)

    /// `count` characters from `start` on; fewer at the end. A negative count is "to the end", a negative start 0.
    UtCString substr(int start, int count = -1) const noexcept;
    UtCString trim() const noexcept;                     ///< without the blanks (U+0020 only) at both ends
    UtCString trim(const UtCString& set) const noexcept; ///< without the characters of `set` at both ends
    UtCString trimLeft(const UtCString& set) const noexcept;
    UtCString trimRight() const noexcept;
    UtCString trimRight(const UtCString& set) const noexcept;
    UtCString toUpper() const noexcept;
    UtCString toLower() const noexcept;
    /// Every occurrence, found from left to right, of `oldText` becomes `newText`; `exact` false ignores letter case.
    /// An empty `oldText` changes nothing.
    UtCString replace(const UtCString& oldText, const UtCString& newText, bool exact = true) const noexcept;
    UtCString replace(const char* oldText, const char* newText,
                      eUtEncodingType encoding = UT_ENCODING_DEFAULT) const noexcept; ///< both are in `encoding`
    UtCString replace(char oldCharacter, char newCharacter) const noexcept;           ///< both are in encoding 256
    /// Wide characters are single units or code points; a surrogate is found nowhere and replaces as U+FFFD.
    UtCString replace(wchar_t oldCharacter, wchar_t newCharacter) const noexcept;

    // Change (in place)

    void SetToUpper() noexcept;
    void SetToLower() noexcept;
    void SetEmpty() noexcept { SetSize(0); } ///< keeps the encoding tag and the memory
    /// Deletes up to `count` characters from `position` on. A position out of range or a count below 1 deletes nothing.
    void Delete(int position, int count = 1) noexcept;
    void Remove(const UtCString& text) noexcept; ///< every occurrence, found from left to right; empty: changes nothing
    void Prepend(const UtCString& text) noexcept;
    void Enclose(const UtCString& text) noexcept; ///< `text` before and after
    void Enclose(const UtCString& left, const UtCString& right) noexcept;
    UtCString& operator+=(const UtCString& text) noexcept;
    UtCString& operator+=(const char* text) noexcept;        ///< in encoding 256, converted
    UtCString& operator+=(char character) noexcept;          ///< in encoding 256, converted
    UtCString& operator+=(int) = delete;                     ///< a number would be taken for a character
    UtCString& AppendBytes(std::string_view bytes) noexcept; ///< bytes that already are in this text's encoding
    UtCString operator+(const UtCString& text) const noexcept;
    UtCString operator+(const char* text) const noexcept;
    /// Both pieces with exactly one "\" between them: all "\" and "/" at the joint are replaced by it. When one piece
    /// is empty the result is the other one, unchanged. The result has the encoding of `directory`.
    static UtCString JoinFilePath(const UtCString& directory, const UtCString& name) noexcept;

    // Formatting: keep the encoding tag unless they name one

    /// C's printf conventions with "." as the decimal point; "%n" writes nothing, "%s" with null writes "(null)",
    /// fields and numbers end at 100000 characters. The result is taken as a text in this text's encoding (1200, 1201:
    /// converted from Windows-1252). Arguments may point into this text. Null as format is empty.
    [[gnu::format(printf, 2, 3)]] void Format(const char* format, ...) noexcept;
    /// Appends what Format would give.
    [[gnu::format(printf, 2, 3)]] void AppendFormat(const char* format, ...) noexcept;
    /// Becomes `format` with each "%s", in order, filled with the next item of the list, in `encoding`. Items are
    /// converted to it and taken as they are: a "%s" inside an item stays. "%%" gives "%"; any other "%" stays as it is
    /// ("%lu"). A missing item gives nothing, surplus items are ignored. `format` is a zero-terminated text in
    /// `encoding` (1200, 1201: in Windows-1252).
    void FormatStringList(const char* format, const UtCStringList& list,
                          eUtEncodingType encoding = UT_ENCODING_DEFAULT) noexcept;
    /// Appends what FormatStringList would give, converted to the encoding of this text.
    void AppendFormatStringList(const char* format, const UtCStringList& list,
                                eUtEncodingType encoding = UT_ENCODING_DEFAULT) noexcept;

    // Splitting

    /// Splits at every occurrence of `separator` and returns the number of pieces, which replace what `list` holds. The
    /// pieces may be empty: "a,,b," has four, the empty text has one. An empty separator gives one piece, the whole
    /// text.
    int Tokenize(const UtCString& separator, UtCStringList& list) const noexcept;
    /// Replaces what `list` holds by the runs of ASCII digits, at most `maximum` of them (negative: all); returns their
    /// number.
    int TokenizeNumeric(UtCStringList& list, long maximum = -1) const noexcept;

    // Conversion: the whole text as a number, with blanks and tabs allowed around it; false, and the target untouched,
    // when it is not one or out of range. An optional "+" or "-", decimal digits; a fraction behind "." and an exponent
    // for float and double. No hexadecimal, no "inf" or "nan". A magnitude too small for the type reads as 0.

    bool Convert(int& value) const noexcept;
    bool Convert(long& value) const noexcept;          ///< 32 bits: -2147483648 to 2147483647
    bool Convert(unsigned long& value) const noexcept; ///< 32 bits: 0 to 4294967295, without "-"
    bool Convert(__int64& value) const noexcept;
    bool Convert(float& value) const noexcept;
    bool Convert(double& value) const noexcept;

private:
    friend class text::TextBuilder;
    friend struct containers::KeyTraits<UtCString>;

    static constexpr size_t inlineCapacity = 24;
    // Behind the text stand eight zero bytes: its terminator, and the padding of its last word, so that comparing and
    // hashing go by whole words.
    static constexpr size_t slack = 8;

    void SetSize(size_t size) noexcept
    {
        m_size = size;
        std::memset(m_data + size, 0, slack);
    }
    void TakeFrom(UtCString& other) noexcept
    {
        if (other.m_data == other.m_inline) {
            std::memcpy(m_inline, other.m_inline, sizeof(m_inline));
        } else {
            m_data = other.m_data;
            m_capacity = other.m_capacity;
            other.m_data = other.m_inline;
            other.m_capacity = inlineCapacity;
        }
        m_size = other.m_size;
        other.SetSize(0);
    }

    void AssignCharText(std::string_view text) noexcept;
    void AssignToNewBlock(const char* bytes, size_t size) noexcept;
    void AssignConverted(std::string_view bytes, eUtEncodingType from, eUtEncodingType to) noexcept;
    template <typename T> void AssignNumber(T value) noexcept;
    void ReleaseBlock() noexcept;
    bool Reserve(size_t capacity) noexcept;
    char* Extend(size_t count) noexcept;
    void AppendText(std::string_view bytes, eUtEncodingType encoding) noexcept;
    bool PointsInto(std::string_view bytes) const noexcept;
    void Erase(size_t begin, size_t end) noexcept;
    // Whether the hash of the bytes, which is set in any case, is the hash of the text.
    inline bool HashBytes(uint64_t& hash) const noexcept;
    inline bool HasSameBytes(const UtCString& other) const noexcept;
    bool EqualsOtherEncoding(const UtCString& other) const noexcept;
    uint64_t HashOfCharacters() const noexcept;
    UtCString Piece(size_t begin, size_t end) const noexcept;
    bool MapAscii(uint64_t (*map)(uint64_t) noexcept) noexcept;
    void MapCharacters(uint32_t (*map)(uint32_t) noexcept) noexcept;

    char* m_data;
    size_t m_size;
    size_t m_capacity;
    eUtEncodingType m_encoding;
    char m_inline[inlineCapacity + slack];
};

inline bool UtCString::HashBytes(uint64_t& hash) const noexcept
{
    uint64_t result = text::HashStart(m_size);
    uint64_t seen = 0;
    for (size_t at = 0; at < m_size; at += sizeof(uint64_t)) {
        const uint64_t word = text::LoadWord(m_data + at);
        seen |= word;
        result = text::HashStep(result, word);
    }
    hash = result;
    return m_encoding == UT_ENCODING_UTF8 || (m_encoding == UT_ENCODING_DEFAULT && (seen & text::asciiMask) == 0);
}

inline bool UtCString::HasSameBytes(const UtCString& other) const noexcept
{
    if (m_encoding != other.m_encoding || m_size != other.m_size)
        return false;
    for (size_t at = 0; at < m_size; at += sizeof(uint64_t))
        if (text::LoadWord(m_data + at) != text::LoadWord(other.m_data + at))
            return false;
    return true;
}

inline uint64_t UtCString::Hash() const noexcept
{
    uint64_t hash;
    return HashBytes(hash) ? hash : HashOfCharacters();
}

inline bool UtCString::operator==(const UtCString& other) const noexcept
{
    return m_encoding == other.m_encoding ? HasSameBytes(other) : EqualsOtherEncoding(other);
}
