#pragma once

// Everything that a host application needs.
#include "CDateTime.h"
#include "CMyDatabase.h"
#include "CMyField.h"
#include "CMyKey.h"
#include "CMyRecordSet.h"
#include "CMyServer.h"
#include "CMyTable.h"
#include "MyDbExport.h"
#include "MyDbFunctions.h"
#include "MyDbTypes.h"
#include "MyDbUserInterface.h"
#include "log/UtAppLogging.h"
#include "text/UtCStringList.h"
