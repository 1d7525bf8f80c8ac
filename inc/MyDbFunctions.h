#pragma once

#include "MyDbExport.h"
#include "text/UtCString.h"

MYDB_EXPORT int MyDbMaxTryConnectReached();
MYDB_EXPORT void MyDbSetMaxTryConnect(unsigned long limit);
MYDB_EXPORT bool TestConnection(const UtCString& iniFile, int mode);
MYDB_EXPORT bool MyDbStaticFieldCacheRemove(const UtCString& tableName);
