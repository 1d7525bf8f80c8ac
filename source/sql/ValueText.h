#pragma once

#include "MyDbTypes.h"
#include "text/UtCString.h"

/// Values as they stand in a statement. Where memory runs out a text is empty.
namespace sql {

/// Text, blob, memo and date-time: the types whose values stand between apostrophes.
bool IsQuotedType(MYTYPES type) noexcept;

/// Whether a value is the word "null" in any letter case, which means SQL NULL.
bool IsNullWord(const UtCString& value) noexcept;

/// Whether a value has to be escaped before it can stand between apostrophes: it holds a carriage return, line feed,
/// tab, apostrophe or backslash, or a zero byte, at which a statement would end.
bool NeedsEscape(const UtCString& value) noexcept;

/// A value, escaped where needed, between apostrophes; one in UTF-16 becomes UTF-8.
UtCString Quoted(const UtCString& escapedValue);

/// The shortest text that reads back as the same number. Infinity and what is not a number give a text that is no
/// expression, so that every server refuses the statement, even one of a table with a column named "inf" or "nan".
UtCString DoubleText(double value);

/// The number with eight decimals, in an encoding; otherwise as DoubleText.
UtCString FloatText(float value, eUtEncodingType encoding);

/// The part of a user's name that stamps carry: up to the first "_", without one up to the first ":", else the whole.
UtCString StampUser(const UtCString& user);

} // namespace sql
