#pragma once

class CMyDatabase;

namespace connection {

/// Removes from the table cache the entries of every table that the opened database lists, because the cache knows
/// tables by name alone and a table of the same name may look different in this database. Asks the server for the list
/// ("SHOW TABLES"), so it overwrites the state of the last statement; a failure leaves the cache as it is.
///
/// Declared here because opening a connection needs it, defined by the table metadata, which builds on connections.
void AlignTableCache(CMyDatabase& database);

} // namespace connection
