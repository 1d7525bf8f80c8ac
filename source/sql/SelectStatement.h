#pragma once

#include "text/UtCString.h"

/// The statements that a record set completes from its table and a caller's text. Nothing is quoted or escaped: names
/// that need backticks are the caller's to quote. A statement for which there is no memory is empty, never a part.
namespace sql {

/// SELECT * FROM table, in the given encoding.
UtCString SelectAll(const UtCString& table, eUtEncodingType encoding);

/// SELECT table.* FROM table clause, in the encoding of `clause`. "WHERE " goes in front of the clause unless that
/// begins with WHERE, ORDER BY, GROUP BY, HAVING or LIMIT, in any letter case and whatever follows ("whereabouts = 1"
/// is taken for a WHERE clause).
UtCString SelectByClause(const UtCString& table, const UtCString& clause);

} // namespace sql
