#pragma once

#include "CMyDatabase.h"

namespace connection {

/// Opens a closed connection. Whether there is one afterwards, with a database or without: Open says no to a live one
/// without database.
inline bool IsReachable(CMyDatabase& database)
{
    return database.Open(false, UtCString()) || database.IsConnected();
}

} // namespace connection
