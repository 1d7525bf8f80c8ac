#pragma once

#include "CDateTime.h"

#include <string_view>

namespace datetime {

/// Reads a date or date-time column as the server writes it, 2024-03-05 14:07:09. Only positions count, separators are
/// never looked at; the text is taken as one byte per character.
///
/// The first four characters are the year. From 18 characters on, month, day, hour, minute and second are the pairs at
/// 5, 8, 11, 14 and 17; from 9 characters on, month and day are read and the time is 00:00:00. Each piece is converted
/// by itself as `UtCString::Convert` does, and is 0 where that fails. Value 0.0 with status null for up to 8 characters
/// and for a year that is no number above 0, as in the zero date 0000-00-00; value 0.0 with status invalid for any
/// other date that does not exist.
CDateTime FromServerText(std::string_view text) noexcept;

} // namespace datetime
