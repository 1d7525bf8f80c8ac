#include "platform/PathRules.h"

#include <cstdlib>
#include <cstring>
#include <sys/stat.h>

namespace platform {
namespace {

// A backslash in the name could not be told from a separator later.
bool IsUsableDirectory(const char* path)
{
    struct stat status
    {
    };
    return path && *path == '/' && !std::strchr(path, '\\') && stat(path, &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

PathRules SystemPathRules() noexcept
{
    return {'/', false, false};
}

bool IsRootFolder(const std::string& nativePath)
{
    struct stat status
    {
    };
    struct stat root
    {
    };
    return lstat(nativePath.c_str(), &status) == 0 && stat("/", &root) == 0 && status.st_dev == root.st_dev &&
           status.st_ino == root.st_ino;
}

std::string TempDirectory()
{
    const char* const chosen = std::getenv("TMPDIR");
    return IsUsableDirectory(chosen) ? chosen : "/tmp";
}

} // namespace platform
