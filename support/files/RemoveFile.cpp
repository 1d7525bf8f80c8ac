#include "files/RemoveFile.h"

#include "files/NativePath.h"
#include "platform/RemoveFile.h"

bool files::RemoveFile(const UtCString& path) noexcept
{
    return platform::RemoveFile(NativePath(path));
}
