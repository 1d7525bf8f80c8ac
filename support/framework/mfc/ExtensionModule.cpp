#include "framework/Mfc.h"

#include <afxdllx.h>

// Classes that cross between a DLL and its host, with their run-time class records, are those of an extension module.
static AFX_EXTENSION_MODULE extensionModule = {};

extern "C" int APIENTRY DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) {
        if (!AfxInitExtensionModule(extensionModule, instance))
            return 0;
        new CDynLinkLibrary(extensionModule); // the framework's list owns it
    } else if (reason == DLL_PROCESS_DETACH) {
        AfxTermExtensionModule(extensionModule);
    }
    return 1;
}
