#include "platform/ModuleFileName.h"

#include "platform/win32/Recode.h"
#include "platform/win32/WinApi.h"

std::string platform::ModuleFileName()
{
    // For a path that has no place the system gives MAX_PATH, and puts a zero inside or none at all.
    char path[MAX_PATH + 1] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    return ToUtf8(ToWide(path, CP_ACP));
}
