#pragma once

#include "CMyDatabase.h"
#include "metadata/TableCache.h"

#include <memory>

/// How a table's metadata comes from the server. The cache decides when; nothing here touches the cache (but opening a
/// connection does: see connection/TableCacheHook.h).
namespace metadata {

/// A new entry with the columns of the table that the server knows by `key` in the connection's current database: one
/// field listing, a second one over a new Open when the first lost its connection (2001, 2006, 2013).
///
/// The key is sent up to its first zero byte. The connection must have a handle. Null when the table cannot be listed,
/// with the client's code and text as the connection's last error (0 and "Kein Fehler!" where the client gives no
/// reason); a key of more than 126 bytes is not sent, as the client cannot carry it, and fails with 1103 and the
/// server's text for it. Null without a new error for a table without columns and when memory runs out (which may also
/// throw std::bad_alloc).
std::shared_ptr<CTableCache> LoadColumns(CMyDatabase& database, const UtCString& key);

/// Asks the server for the entry's storage engine with SHOW TABLE STATUS (one round trip; the connection's last
/// statement and error become those of this query). The engine stays empty when the statement fails, or has no rows or
/// no engine.
void LoadEngine(CMyDatabase& database, CTableCache& entry);

} // namespace metadata
