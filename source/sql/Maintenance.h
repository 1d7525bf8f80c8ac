#pragma once

#include "text/UtCString.h"

namespace sql {

// The statements that maintain tables and databases, in `encoding`. `tables` is a table list text. Nothing is quoted
// but where noted, and nothing escaped. Empty, never a part, when there is no memory.

UtCString DropTable(const UtCString& database, const UtCString& table, eUtEncodingType encoding) noexcept;
UtCString DropDatabase(const UtCString& database, eUtEncodingType encoding) noexcept;
UtCString FlushTables(const UtCString& tables, eUtEncodingType encoding) noexcept;
UtCString OptimizeTables(const UtCString& tables, eUtEncodingType encoding) noexcept;

} // namespace sql
