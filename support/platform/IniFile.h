#pragma once

#include <cstddef>
#include <string>

namespace platform {

/// One value of an INI file: at most 255 bytes as they stand in the file, followed by a terminating zero.
struct IniValue
{
    static constexpr std::size_t maximumLength = 255;

    char text[maximumLength + 1];
    std::size_t length;
};

/// Reads one value of an INI file, as `GetPrivateProfileStringA` of Windows does with a buffer of 256 bytes, on every
/// system. `nativePath` is the file's full path in the system's own form; `section` and `key` are ASCII.
///
/// - The first section of that name counts, and in it the first line "key=value" of that key; later ones are not read.
/// - Names ignore (ASCII) letter case and the blanks around them; a name in the file is never unquoted. A section's
/// name
///   ends at the first "]" of its line, what follows is ignored; without a "]" the line is no section.
/// - Blanks (space, tab, vertical tab, form feed, carriage return) around the value are stripped, then one pair of
///   equal quotes, single or double; what is inside the quotes stays as it is. Then it is cut to 255 bytes.
/// - A line whose first non-blank is ";" is skipped. A ";" further on belongs to the value. A line without "=" is
///   skipped.
/// - A line ends at a line feed or at the end of the file; a zero byte ends the text of its line.
/// - A file that begins with the byte-order mark of UTF-16 with the low byte first is read as such and arrives in
///   Windows-1252, with "?" for every unit that has no place there. No other mark is known: that of UTF-8 belongs to
///   the first line, which therefore opens no section.
///
/// Gives `defaultValue` (ASCII without a blank at its end, cut to 255 bytes) when there is no such entry and when the
/// file cannot be read, is missing or is no regular file. A key that is there with nothing behind "=" gives the empty
/// text, not the default.
///
/// Reads the file up to the entry and never fails otherwise. Windows' own reader takes no path of more than 259
/// characters, and differs where docs/porting.md says so.
IniValue ReadIniValue(const std::string& nativePath, const char* section, const char* key,
                      const char* defaultValue) noexcept;

} // namespace platform
