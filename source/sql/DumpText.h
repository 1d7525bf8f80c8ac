#pragma once

#include "text/UtCString.h"

#include <string>
#include <string_view>
#include <vector>

// What a dump file is made of, apart from the values.
namespace sql {

/// The texts between and around the values, as bytes of the file.
struct DumpFormat
{
    std::string separator; ///< between two fields
    std::string enclosure; ///< before and after each value; may be empty
    std::string lineEnd;   ///< behind the last field
};

/// The texts that a caller has chosen, in the encoding of the file. An empty separator is "," and an empty line end
/// "\r\n"; an empty enclosure stays empty. UTF-16 is no encoding of a file, as the values never come in it: UTF-8 takes
/// its place. Throws std::bad_alloc.
DumpFormat ReadDumpFormat(const UtCString& separator, const UtCString& enclosure, const UtCString& lineEnd,
                          eUtEncodingType encoding);

/// What a row has for SQL NULL, without enclosure.
inline constexpr std::string_view dumpNull = "\\N";

/// The line that names the fields, each in the enclosure; the names are not escaped.
std::string DumpHeader(const std::vector<std::string_view>& names, const DumpFormat& format);

/// Copies a value to `to` if no escape changes it, whatever the client's character set and mode: if all its bytes are
/// ASCII, none of them a control character, a quote or a backslash. Otherwise false, and there are any bytes at `to`.
bool CopyUnescapedValue(std::string_view value, char* to) noexcept;

} // namespace sql
