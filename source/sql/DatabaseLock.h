#pragma once

#include "text/UtCString.h"

namespace sql {

// The statements about the named lock of a database, in `encoding`. The lock is named like the database with "_lock"
// behind; the name is not escaped, so one with an apostrophe makes a statement that the server refuses. Empty, never a
// part, when there is no memory.

UtCString GetLock(const UtCString& database, int seconds, eUtEncodingType encoding) noexcept;
UtCString ReleaseLock(const UtCString& database, eUtEncodingType encoding) noexcept;
UtCString IsFreeLock(const UtCString& database, eUtEncodingType encoding) noexcept;

} // namespace sql
