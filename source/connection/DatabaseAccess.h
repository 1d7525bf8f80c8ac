#pragma once

#include "CMyDatabase.h"

namespace connection {

/// What the other rooms of the library may do with a connection and a host application may not.
struct DatabaseAccess
{
    /// The client handle: null when closed. Owned by the connection, valid until it closes or reconnects itself, which
    /// every statement may do; fetch it again after each.
    static MYSQL* Handle(const CMyDatabase& database) noexcept { return database.m_handle; }

    /// Records a failure for GetErrorCode and GetErrorMessage. With an empty message GetErrorMessage describes the
    /// state of the handle at the time of that call.
    static void SetLastError(CMyDatabase& database, unsigned long code, const UtCString& message)
    {
        database.m_errorCode = code;
        database.m_errorMessage = message;
    }
};

} // namespace connection
