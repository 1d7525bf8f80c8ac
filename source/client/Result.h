#pragma once

#include <mysql.h>

#include <memory>

namespace client {

struct FreeResult
{
    void operator()(MYSQL_RES* result) const noexcept { mysql_free_result(result); }
};

/// The owner of a result set. Declare it after its connection: freeing a half-read streamed result reads the rest of it
/// from the server, which needs the open handle.
using Result = std::unique_ptr<MYSQL_RES, FreeResult>;

} // namespace client
