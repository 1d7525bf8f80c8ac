#pragma once

/// The encodings that a text can carry. The numbers are part of the interface and resemble Windows code page numbers.
enum eUtEncodingType : int
{
    UT_ENCODING_DEFAULT = 256,   ///< the default single-byte encoding, Windows-1252 on every system
    UT_ENCODING_UTF16_LE = 1200, ///< UTF-16, low byte first
    UT_ENCODING_UTF16_BE = 1201, ///< UTF-16, high byte first
    UT_ENCODING_UTF8 = 65001,    ///< UTF-8
    UT_ENCODING_UTF32 = 65535    ///< reported for UTF-32 character sets; a text with this tag is never converted
};

namespace text {

constexpr bool IsUtf16(eUtEncodingType encoding) noexcept
{
    return encoding == UT_ENCODING_UTF16_LE || encoding == UT_ENCODING_UTF16_BE;
}

} // namespace text
