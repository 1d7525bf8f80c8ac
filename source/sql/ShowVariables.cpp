#include "sql/ShowVariables.h"

#include "sql/StatementBuilder.h"

namespace sql {
// KEPT K-120: the name goes into the LIKE pattern as it is.

UtCString ShowStatusLike(const UtCString& name, eUtEncodingType encoding)
{
    return (StatementBuilder(encoding) << "SHOW STATUS LIKE '" << name << "'").Take();
}

UtCString ShowVariablesLike(const UtCString& name, eUtEncodingType encoding)
{
    return (StatementBuilder(encoding) << "SHOW VARIABLES LIKE '" << name << "'").Take();
}

} // namespace sql
