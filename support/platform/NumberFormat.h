#pragma once

#include <string>
#include <string_view>

namespace platform {

/// A number as the system's formatter writes it when every setting is given, so that it is the same text for every user
/// and on every system: exactly four digits behind a ".", the last one rounded half up; groups of three digits with "'"
/// between them; no zero in front of the point. "1234567" gives "1'234'567.0000", "0.5" gives ".5000".
///
/// `number` is ASCII digits with at most one "." among them, of any length; leading zeros count for nothing. Every
/// other text, the empty one included, gives the empty text.
std::string FormatNumber(std::string_view number);

} // namespace platform
