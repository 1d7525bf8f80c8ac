#pragma once

#include "text/UtCString.h"

/// The statements that look rows up by a condition. The texts put in are converted to `encoding` and nothing is quoted
/// or escaped: the table name stands in backticks, so one with a backtick makes a statement that the server refuses.
/// A statement for which there is no memory is empty, never a part.
namespace sql {

/// What a selection by key is made of. Empty `fields` are all columns, an empty `condition` or `order` is none.
struct RowSelection
{
    const UtCString& table;
    const UtCString& fields;
    const UtCString& condition; ///< without WHERE
    const UtCString& order;     ///< "ORDER BY " goes in front unless it begins so, in upper case
};

/// SELECT fields FROM `table` WHERE (condition) ORDER BY order, with a blank at its end when there is no order.
UtCString SelectRows(const RowSelection& selection, eUtEncodingType encoding);

/// SELECT COUNT(*) FROM `table`
UtCString CountTable(const UtCString& table, eUtEncodingType encoding);

/// CountTable, a blank and the condition, with "WHERE " in front of one that does not begin so. A condition that begins
/// with "SELECT " is the whole statement. Both words are found in any letter case.
UtCString CountRows(const UtCString& table, const UtCString& condition, eUtEncodingType encoding);

/// SELECT '1' FROM `table` WHERE (condition) LIMIT 1, for a condition whose semicolons and blanks at its end are cut
/// off. One that begins with "WHERE " is not enclosed, one that begins with "SELECT " stands for all but the limit;
/// both words in any letter case.
UtCString ExistRows(const UtCString& table, const UtCString& condition, eUtEncodingType encoding);

/// SELECT MAX(table.field) FROM table, neither name in backticks.
UtCString MaxOfField(const UtCString& table, const UtCString& field, eUtEncodingType encoding);

} // namespace sql
