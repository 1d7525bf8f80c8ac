#pragma once

#include <afxwin.h>

class AFX_DOUBLE CDynLinkLibrary : public CCmdTarget
{
public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state);
};
