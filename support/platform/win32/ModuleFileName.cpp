#include "platform/ModuleFileName.h"

#include "platform/win32/WinApi.h"

std::string platform::ModuleFileName()
{
    char path[MAX_PATH];
    return std::string(path, GetModuleFileNameA(nullptr, path, MAX_PATH));
}
