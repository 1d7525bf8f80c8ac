#pragma once

#include "text/UtCString.h"
#include "text/UtCStringList.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

using namespace std::string_literals;
using namespace std::string_view_literals;

/// How a failing check shows a text: encoding and escaped bytes.
inline void PrintTo(const UtCString& text, std::ostream* out)
{
    *out << text.GetEncodingType() << ':' << testing::PrintToString(std::string(text.View()));
}

inline constexpr eUtEncodingType ansi = UT_ENCODING_DEFAULT;
inline constexpr eUtEncodingType utf8 = UT_ENCODING_UTF8;
inline constexpr eUtEncodingType utf16le = UT_ENCODING_UTF16_LE;
inline constexpr eUtEncodingType utf16be = UT_ENCODING_UTF16_BE;
inline constexpr eUtEncodingType opaque = UT_ENCODING_UTF32;

inline UtCString Text(std::string_view bytes, eUtEncodingType encoding = ansi)
{
    return UtCString(bytes, encoding);
}

inline std::string Bytes(const UtCString& text)
{
    return std::string(text.View());
}

/// ASCII as UTF-16.
inline std::string Units(std::string_view ascii, eUtEncodingType encoding)
{
    std::string bytes;
    for (const char c : ascii)
        bytes += encoding == utf16be ? std::string{'\0', c} : std::string{c, '\0'};
    return bytes;
}

/// ASCII in any encoding.
inline UtCString Ascii(std::string_view ascii, eUtEncodingType encoding)
{
    return encoding == utf16le || encoding == utf16be ? Text(Units(ascii, encoding), encoding) : Text(ascii, encoding);
}

inline std::vector<std::string> Items(const UtCStringList& list)
{
    std::vector<std::string> items;
    for (int index = 0; index < list.GetCount(); ++index)
        items.push_back(Bytes(list.item(index)));
    return items;
}

/// Checks text, tag and the zeros behind the text at once.
inline void ExpectText(const UtCString& text, std::string_view bytes, eUtEncodingType encoding)
{
    EXPECT_EQ(Bytes(text), bytes);
    EXPECT_EQ(text.GetEncodingType(), encoding);
    EXPECT_EQ(text.string()[text.GetByteLength()], 0);
    EXPECT_EQ(text.string()[text.GetByteLength() + 1], 0);
}
