#include "sql/ShowVariables.h"

#include "text/TextBuilder.h"

namespace sql {
namespace {

UtCString ShowLike(std::string_view beginning, const UtCString& name, eUtEncodingType encoding)
{
    text::TextBuilder statement(encoding);
    statement.Append(beginning, UT_ENCODING_DEFAULT);
    statement.AppendText(name); // KEPT K-120: the name goes into the LIKE pattern as it is.
    statement.Append("'", UT_ENCODING_DEFAULT);
    return statement.Take();
}

} // namespace

UtCString ShowStatusLike(const UtCString& name, eUtEncodingType encoding)
{
    return ShowLike("SHOW STATUS LIKE '", name, encoding);
}

UtCString ShowVariablesLike(const UtCString& name, eUtEncodingType encoding)
{
    return ShowLike("SHOW VARIABLES LIKE '", name, encoding);
}

} // namespace sql
