#pragma once

#include "CDateTime.h"
#include "framework/Guid.h"
#include "text/UtCString.h"

#include <string_view>

/// The values of a key's conditions as text. Without memory a rendering is empty; no value renders as the empty text.
namespace sql {

/// Four decimals, then without the zeros behind the last other digit: "2.5", "3", "0.1235", "-0" for a negative number
/// that rounds to nothing. "inf", "-inf" and "nan", which no server takes for a number.
UtCString KeyValue(double value) noexcept;

UtCString KeyValue(bool value) noexcept; ///< "TRUE" or "FALSE"

/// "2024-03-05 14:07:09", without the part that the value lacks; "null" for a value that IsNull.
UtCString KeyValue(const CDateTime& value);

/// "{6b29fc40-ca47-1067-b31d-00dd010662da}"; "null" for the all-zero GUID.
UtCString KeyValue(const _GUID& value) noexcept;

/// A text, in `encoding`, with a backslash before each backslash, apostrophe and double quote, so that it can stand
/// between apostrophes. When the operator begins with LIKE, in any letter case, underscores get one too, and in a value
/// that begins with a backslash every backslash becomes four. Only an empty value has an empty result.
UtCString EscapedKeyValue(std::string_view value, eUtEncodingType encoding, const UtCString& op) noexcept;

/// A text of two or more characters that begins and ends with an apostrophe, or begins and ends with a double quote,
/// without these two; every other text whole.
std::string_view WithoutQuotes(std::string_view value, eUtEncodingType encoding) noexcept;

} // namespace sql
