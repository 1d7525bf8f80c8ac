#pragma once

#include "text/UtCString.h"

/// The statements that ask the server for one of its variables. The name is neither quoted nor escaped: "_" and "%" in
/// it are wildcards, and one with an apostrophe makes another statement than meant. A statement for which there is no
/// memory is empty, never a part.
namespace sql {

/// SHOW STATUS LIKE 'name', in the given encoding.
UtCString ShowStatusLike(const UtCString& name, eUtEncodingType encoding);

/// SHOW VARIABLES LIKE 'name', in the given encoding.
UtCString ShowVariablesLike(const UtCString& name, eUtEncodingType encoding);

} // namespace sql
