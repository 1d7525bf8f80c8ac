#pragma once

#include "MyDbTypes.h"
#include "text/UtCString.h"

#include <cstddef>

namespace text {
class TextBuilder;
}

/// The texts that the conditions of a key become: comparisons of a WHERE clause and entries of an ORDER BY list.
///
/// Nothing is escaped here. Names, operators and values are converted into the encoding of the text they go to. A text
/// that would have to take in pieces without knowing where their characters begin is given up, as if memory had run
/// out: UTF-16 with half a unit or with bytes that are never converted (opaque), and an opaque text with UTF-16.
namespace sql {

/// What a condition compares, how, and with what.
struct Condition
{
    const UtCString& table;
    const UtCString& field;
    const UtCString& op;
    const UtCString& value;
};

/// At least the number of bytes that the comparison of a condition takes in `encoding`, with an AND in front.
size_t ComparisonSize(const Condition& condition, eUtEncodingType encoding) noexcept;

/// Appends (`TABLE`.`FIELD` op value), the value between apostrophes when the column's type is text, blob, memo or
/// date-time. The value "null", in any letter case, makes it IS NULL after the operator "=" and IS NOT NULL after every
/// other one.
void AppendComparison(text::TextBuilder& clause, const Condition& condition, MYTYPES columnType) noexcept;

/// Appends TABLE.FIELD, without backticks, and " DESC" when the operator begins with "<".
void AppendOrderEntry(text::TextBuilder& list, const Condition& condition) noexcept;

/// Whether the names of a condition can stand between backticks.
bool CanBeNamed(const Condition& condition) noexcept;

// What stands in place of a clause. A server refuses each of them: its beginning names no column.

UtCString NoTableName(eUtEncodingType encoding) noexcept;
UtCString FieldNotExist(const Condition& condition, eUtEncodingType encoding) noexcept;
UtCString ClauseFailure() noexcept; ///< a part is missing. In encoding 256; takes no memory.

/// The clause that was put together; ClauseFailure when that failed. The builder is used up.
UtCString TakeClause(text::TextBuilder& clause) noexcept;

} // namespace sql
