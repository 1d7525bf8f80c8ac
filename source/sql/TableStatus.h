#pragma once

#include "text/UtCString.h"

namespace sql {

/// The statement that asks for the status of a table, in the encoding of `table`: SHOW TABLE STATUS FROM database LIKE
/// 'table'.
///
/// Neither name is quoted or escaped: a database whose name needs backticks, and a table name with a quote, make a
/// statement that the server refuses; "_" and "%" in the table name are wildcards.
UtCString ShowTableStatus(const UtCString& database, const UtCString& table);

/// The same with the database name in backticks, in `encoding`; the table name is a pattern here too. Empty, never a
/// part, when there is no memory.
UtCString ShowTableStatusQuoted(const UtCString& database, const UtCString& table, eUtEncodingType encoding);

} // namespace sql
