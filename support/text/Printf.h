#pragma once

#include "text/TextBuilder.h"

#include <cstdarg>

namespace text {

/// Appends what C's printf makes of the format and the arguments, with "." as the decimal point whatever the locale.
/// "%s" with null writes "(null)", "%n" writes nothing, a `long double` is written with the precision of a double, and
/// a conversion that does not exist is written as it stands. The bytes go to `out` as they are; "%ls" and "%lc" are
/// converted to the encoding `wideEncoding`, and a precision never cuts one of their characters.
void AppendPrintf(TextBuilder& out, eUtEncodingType wideEncoding, const char* format, std::va_list arguments) noexcept;

} // namespace text
