#pragma once

#include "MyDbExport.h"
#include "text/UtCString.h"

// What the process has one of. None of these is locked: callers serialise.

/// 1 when the failed connects of the process have reached the limit, so that every Open that would have to connect
/// fails at once and without network traffic; otherwise 0.
MYDB_EXPORT int MyDbMaxTryConnectReached();

/// Sets the limit on failed connects, 32 bits; a larger number, like the default 4294967295, means no practical limit.
/// 0 stops all connecting. The count of failed connects is of all connections since the start of the process and is not
/// reset: after a pause set a limit above it.
MYDB_EXPORT void MyDbSetMaxTryConnect(unsigned long limit);

/// Whether a connection can be made with the settings file (or the directory that holds it); see
/// CMyServer::LoadServerINI and CMyServer::TestConnect. Mode 1 shows a message box on failure, every other mode is
/// silent. Works also where the limit on failed connects is reached, except for a limit of 0, and leaves the count as
/// it was.
MYDB_EXPORT bool TestConnection(const UtCString& iniFile, int mode);

MYDB_EXPORT bool MyDbStaticFieldCacheRemove(const UtCString& tableName);
