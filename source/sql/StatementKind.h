#pragma once

#include "text/UtCString.h"

namespace sql {

/// Whether a statement gives rows, judged by its first word. Letter case does not matter; a carriage return or a line
/// feed counts as a blank. One pass over the bytes, no memory.
///
/// True: SELECT, unless INTO OUTFILE or INTO DUMPFILE follows somewhere; SHOW, CHECK, REPAIR, OPTIMIZE, EXPLAIN;
/// HANDLER with READ somewhere; any text with UNION somewhere. Each word needs a blank behind it, and those found
/// "somewhere" one in front too.
///
/// False: fewer than ten characters, whatever they say; a first word with a blank in front; DESCRIBE, ANALYZE, BACKUP
/// and RESTORE. The bytes of a text whose encoding is never converted are read as UTF-16, low byte first.
bool IsSelectQuery(const UtCString& sql) noexcept;

} // namespace sql
