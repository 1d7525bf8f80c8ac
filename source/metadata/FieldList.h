#pragma once

#include "MyDbTypes.h"
#include "metadata/TableCache.h"
#include "text/UtCString.h"

/// Texts made from the columns of a table. Pure: nothing here asks the server. A text for which there is no memory is
/// empty, never a part; WithoutFields throws std::bad_alloc as well.
namespace metadata {

/// All column names in upper case and in backticks, separated by a comma and a blank, in the server's order.
UtCString FieldList(const CTableCache& entry);

/// `list` without the columns named in `exclude`; CMyTable::RemoveFieldsFromFieldList says how.
UtCString WithoutFields(const UtCString& list, const UtCString& exclude);

/// The names of the columns of the primary key, from the last column to the first, joined by a comma.
UtCString PrimaryKeyFields(const CTableCache& entry);

/// The table type that belongs to a storage engine's name, whatever its letter case.
eTableTypes TableTypeOfEngine(const UtCString& engine);

} // namespace metadata
