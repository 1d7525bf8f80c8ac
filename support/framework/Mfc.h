#pragma once

// With MYDB_WITH_MFC the types in this folder are the host framework's own. Its headers come with Visual C++.
#if defined(MYDB_WITH_MFC)
#include <afxwin.h>

#include <afxcmn.h>
#include <afxdisp.h>
#include <atltime.h>
#endif
