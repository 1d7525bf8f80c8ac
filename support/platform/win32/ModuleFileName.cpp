#include "platform/ModuleFileName.h"

#include "platform/win32/Recode.h"
#include "platform/win32/WinApi.h"

std::string platform::ModuleFileName()
{
    char path[MAX_PATH];
    return ToUtf8(ToWide({path, GetModuleFileNameA(nullptr, path, MAX_PATH)}, CP_ACP));
}
