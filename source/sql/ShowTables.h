#pragma once

#include "text/UtCString.h"

namespace sql {

/// SHOW TABLES FROM database LIKE 'table', in the encoding of `table`. Neither name is quoted or escaped: a database
/// whose name needs backticks and a table name with an apostrophe make a statement that the server refuses; "_" and "%"
/// in the table name are wildcards. Empty, never a part, when there is no memory.
UtCString ShowTablesLike(const UtCString& database, const UtCString& table);

} // namespace sql
