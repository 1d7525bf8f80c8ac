#pragma once

#include <mysql.h>

namespace client {

/// Has the files that LOAD DATA LOCAL names read by the library instead of the client, on this handle.
///
/// The client reads them as well, but on Windows it takes a name for one in the ANSI code page, whatever the statement
/// is written in, and it takes a file that cannot be read to its end for one that ends there. Here the name is a native
/// path, and a failure fails the statement: with the error number of the C library and the client's own text ("File
/// 'name' not found (Errcode: 2)"), or 2008 without memory.
void ReadLocalFiles(MYSQL* handle) noexcept;

} // namespace client
