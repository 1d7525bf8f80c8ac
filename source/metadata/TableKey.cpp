#include "metadata/TableKey.h"

namespace metadata {

UtCString LookupKey(const UtCString& tableName)
{
    return tableName.trim(UtCString("`")).toUpper();
}

UtCString LoadKey(const UtCString& tableName, eUtEncodingType connectionEncoding)
{
    // KEPT K-25: a server that tells upper from lower case in table names is asked for the upper-case name.
    UtCString key = tableName.trim(UtCString(" `")).toUpper();
    key.ChangeEncodingType(connectionEncoding);
    return key;
}

} // namespace metadata
