#pragma once

#include "MyDbExport.h"
#include "text/UtEncoding.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

class UtCStringList;

#ifndef _MSC_VER
#ifndef __int64
#define __int64 long long
#endif
#endif

/// An owned, growable byte string with an encoding tag.
///
/// Positions and counts are in characters (Unicode code points; a malformed byte or unit counts as one character),
/// zero-based. No operation throws; nothing depends on the locale; a zero byte is a character like any other.
class MYDB_EXPORT UtCString
{
public:
    UtCString() noexcept;
    explicit UtCString(eUtEncodingType encoding) noexcept;
    /// Takes a zero-terminated text (null gives the empty text). With encoding 256 or 65001 the bytes are taken as they
    /// are; with 1200 or 1201 they are read as Windows-1252 and converted, as a zero-terminated char text cannot be UTF-16.
    UtCString(const char* text, eUtEncodingType encoding = UT_ENCODING_DEFAULT);
    /// Takes a zero-terminated text that is in `sourceEncoding` and converts it to `encoding`.
    UtCString(const char* text, eUtEncodingType encoding, eUtEncodingType sourceEncoding);
    /// Takes the bytes as they are, zero bytes included, and tags them.
    UtCString(std::string_view bytes, eUtEncodingType encoding);
    explicit UtCString(const wchar_t* text, eUtEncodingType encoding = UT_ENCODING_DEFAULT);
    UtCString(const UtCString& other);
    UtCString(UtCString&& other) noexcept;
    UtCString(const UtCString& other, eUtEncodingType encoding); ///< a copy converted to `encoding`
    explicit UtCString(short value, eUtEncodingType encoding = UT_ENCODING_DEFAULT);
    explicit UtCString(int value, eUtEncodingType encoding = UT_ENCODING_DEFAULT);
    explicit UtCString(long value, eUtEncodingType encoding = UT_ENCODING_DEFAULT);
    explicit UtCString(unsigned long value, eUtEncodingType encoding = UT_ENCODING_DEFAULT);
    explicit UtCString(__int64 value, eUtEncodingType encoding = UT_ENCODING_DEFAULT);
    explicit UtCString(double value, eUtEncodingType encoding = UT_ENCODING_DEFAULT);
    UtCString(double value, int width, eUtEncodingType encoding);
    ~UtCString();

    UtCString& operator=(const UtCString& other);
    UtCString& operator=(UtCString&& other) noexcept;
    UtCString& operator=(const char* text); ///< keeps the encoding tag

    // Access
    const char* string() const noexcept;         ///< the bytes, followed by a terminating zero (two for UTF-16)
    std::string_view View() const noexcept;      ///< the bytes without the terminating zero, valid until the next change
    eUtEncodingType GetEncodingType() const noexcept;
    bool IsEmpty() const noexcept;
    int GetLength() const noexcept;              ///< in characters
    size_t GetByteLength() const noexcept;
    char* GetBuffer(int size);
    void ReleaseBuffer(eUtEncodingType encoding = UT_ENCODING_DEFAULT);
    bool GetAnsiString(char** text, eUtEncodingType encoding = UT_ENCODING_DEFAULT) const;
    bool GetMemCopy(unsigned char** bytes, size_t& size, int terminatorBytes = 0) const;
    void SetMemCopy(const unsigned char* bytes, size_t size, eUtEncodingType encoding);
    bool ChangeEncodingType(eUtEncodingType encoding);

    // Comparison: of the texts, also when the encodings differ
    bool operator==(const UtCString& other) const noexcept;
    bool operator!=(const UtCString& other) const noexcept;
    bool operator==(const char* text) const noexcept;
    bool operator!=(const char* text) const noexcept;
    bool operator<(const UtCString& other) const noexcept;
    bool EqualNoCase(const UtCString& other) const noexcept;
    bool EqualNoCase(const char* text, eUtEncodingType encoding = UT_ENCODING_DEFAULT) const noexcept;
    int CompareToNoCase(const UtCString& other) const noexcept;

    // Search
    int Search(int start, char character, eUtEncodingType encoding = UT_ENCODING_DEFAULT) const;
    int Search(int start, const UtCString& text) const;
    int FindOneOf(const UtCString& set, int start = 0) const;
    bool Contains(const UtCString& text) const;
    bool StartsWith(const UtCString& text, bool exact) const;
    bool EndsWith(const UtCString& text, bool exact) const;
    bool IsNumber() const;
    bool IsDigit(int position) const;

    // Change (copies)
    UtCString substr(int start, int count = -1) const;
    UtCString trim() const;
    UtCString trim(const UtCString& set) const;
    UtCString trimLeft(const UtCString& set) const;
    UtCString trimRight() const;
    UtCString trimRight(const UtCString& set) const;
    UtCString toUpper() const;
    UtCString toLower() const;
    UtCString replace(const UtCString& oldText, const UtCString& newText, bool exact = true) const;
    UtCString replace(const char* oldText, const char* newText, eUtEncodingType encoding = UT_ENCODING_DEFAULT) const;
    UtCString replace(wchar_t oldCharacter, wchar_t newCharacter) const;

    // Change (in place)
    void SetToUpper();
    void SetToLower();
    void SetEmpty() noexcept; ///< keeps the encoding tag
    void Delete(int position, int count = 1);
    void Remove(const UtCString& text);
    void Prepend(const UtCString& text);
    void Enclose(const UtCString& text);
    void Enclose(const UtCString& left, const UtCString& right);
    UtCString& operator+=(const UtCString& text);
    UtCString& operator+=(const char* text);
    UtCString& operator+=(char character);
    UtCString operator+(const UtCString& text) const;
    UtCString operator+(const char* text) const;
    static UtCString JoinFilePath(const UtCString& directory, const UtCString& name);

    // Formatting
    void Format(const char* format, ...);
    void AppendFormat(const char* format, ...);
    void FormatStringList(const char* format, const UtCStringList& list, eUtEncodingType encoding = UT_ENCODING_DEFAULT);
    void AppendFormatStringList(const char* format, const UtCStringList& list,
                                eUtEncodingType encoding = UT_ENCODING_DEFAULT);

    // Splitting
    int Tokenize(const UtCString& separator, UtCStringList& list) const;
    int TokenizeNumeric(UtCStringList& list, long maximum = -1) const;

    // Conversion: the whole text as a number; false, and the target untouched, when it is not one or out of range
    bool Convert(int& value) const noexcept;
    bool Convert(long& value) const noexcept;          ///< 32 bits: -2147483648 to 2147483647
    bool Convert(unsigned long& value) const noexcept; ///< 32 bits: 0 to 4294967295
    bool Convert(__int64& value) const noexcept;
    bool Convert(float& value) const noexcept;
    bool Convert(double& value) const noexcept;

private:
    static constexpr size_t inlineCapacity = 24;

    char* m_data;
    size_t m_size;
    size_t m_capacity;
    eUtEncodingType m_encoding;
    char m_inline[inlineCapacity + 4];
};
