#pragma once

#include "text/UtCString.h"

namespace metadata {

/// The key by which the table cache looks a table up: the name without backticks at its ends, in upper case. Blanks
/// stay: a name with blanks around it matches no key. An empty name gives an empty key.
UtCString LookupKey(const UtCString& tableName);

/// The key under which a table is loaded, and the name under which the server is asked for it: the name without blanks
/// and backticks at its ends, in upper case, converted to the connection's encoding.
UtCString LoadKey(const UtCString& tableName, eUtEncodingType connectionEncoding);

} // namespace metadata
