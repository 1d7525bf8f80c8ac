#pragma once

#include "text/UtCString.h"

#include <mysql.h>

namespace client {

/// The client's number for the last failure on `handle`; 0 when its last call succeeded or when there is no handle.
unsigned long ErrorNumber(MYSQL* handle) noexcept;

/// The last failure on `handle` as a text for people. Read it before any other call on the handle: most calls reset it.
///
/// - no handle: "Keine Verbindung zum Server!"
/// - the last call succeeded: "Kein Fehler!"
/// - otherwise the number, a colon, a blank and the client's own text ("2006: Server has gone away"), tagged UTF-8, the
///   client's default character set.
UtCString ErrorText(MYSQL* handle);

/// Whether an error number says that the connection is gone, so that a new one may help: 2001 (no socket), 2006 (server
/// has gone away), 2013 (connection lost during a statement).
bool IsConnectionLost(unsigned long errorNumber) noexcept;

} // namespace client
