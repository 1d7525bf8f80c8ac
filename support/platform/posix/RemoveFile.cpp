#include "platform/RemoveFile.h"

#include <sys/stat.h>
#include <unistd.h>

bool platform::RemoveFile(const std::string& nativePath) noexcept
{
    struct stat status
    {
    };
    // Some systems let the superuser unlink a folder.
    return lstat(nativePath.c_str(), &status) == 0 && !S_ISDIR(status.st_mode) && unlink(nativePath.c_str()) == 0;
}
