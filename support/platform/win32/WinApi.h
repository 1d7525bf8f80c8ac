#pragma once

// The system's own header, without the parts that clash with ordinary names.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#if defined(MYDB_WITH_MFC)
#include <afxwin.h> // refuses to stand behind <windows.h>
#else
#include <windows.h>
#endif
