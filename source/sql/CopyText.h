#pragma once

#include "text/UtCString.h"

// What a copy of a database sends and how it names its files. `tables` is a table list text. Names and texts go in as
// they are, in backticks where noted and never escaped. All results are UTF-8, and empty, never a part, when there is
// no memory.
namespace sql {

/// "143005_tmp": what the dump files of one copy have in common.
UtCString DumpFileStamp(int hour, int minute, int second) noexcept;

/// folder, table, ".", stamp. The folder ends in a separator.
UtCString DumpFileName(const UtCString& folder, const UtCString& table, const UtCString& stamp) noexcept;

/// FLUSH TABLES tables;
UtCString FlushForCopy(const UtCString& tables) noexcept;

/// LOCK TABLES `a` READ, `b` READ;
UtCString LockForReading(const UtCString& tables) noexcept;

/// CREATE DATABASE `database`
UtCString CreateDatabase(const UtCString& database) noexcept;

/// SHOW CREATE TABLE `database`.`table`
UtCString ShowCreateTable(const UtCString& database, const UtCString& table) noexcept;

/// The statement that creates a table, with "CREATE TABLE `database`." wherever it says "CREATE TABLE ".
UtCString CreateTableIn(const UtCString& database, const UtCString& createStatement) noexcept;

/// The statement that loads a dump file (commas, quotes, backslashes, CR LF) into a table. In the file's path "\"
/// becomes
/// "/", as the client opens it; an apostrophe in it ends it.
UtCString LoadDumpFile(const UtCString& fileName, const UtCString& database, const UtCString& table) noexcept;

} // namespace sql
