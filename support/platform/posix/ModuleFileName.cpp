#include "platform/ModuleFileName.h"

#include <unistd.h>

std::string platform::ModuleFileName()
{
    char path[260];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    return length > 0 ? std::string(path, static_cast<size_t>(length)) : std::string();
}
