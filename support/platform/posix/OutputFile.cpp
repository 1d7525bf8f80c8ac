#include "platform/OutputFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

int OpenToWrite(const char* path) noexcept
{
    constexpr mode_t everyone = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH; // less the process's mask
    int file = -1;
    do
        file = open(path, O_RDWR | O_CREAT | O_CLOEXEC | O_NOCTTY, everyone);
    while (file < 0 && errno == EINTR);
    return file;
}

// A file system without locks cannot say who else writes.
bool IsTaken(int file) noexcept
{
    return flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

// Emptied behind the lock and not while opening: it may be another program's.
bool MakeEmpty(int file) noexcept
{
    struct stat status
    {
    };
    return fstat(file, &status) == 0 && (!S_ISREG(status.st_mode) || ftruncate(file, 0) == 0);
}

} // namespace

intptr_t CreateOutputFile(const std::string& nativePath) noexcept
{
    if (nativePath.empty())
        return noFile;
    const int file = OpenToWrite(nativePath.c_str());
    if (file < 0)
        return noFile;
    if (!IsTaken(file) && MakeEmpty(file))
        return file;
    close(file);
    return noFile;
}

bool WriteOutputFile(intptr_t file, const void* bytes, size_t size) noexcept
{
    const char* next = static_cast<const char*>(bytes);
    while (size > 0) {
        const ssize_t written = write(static_cast<int>(file), next, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        next += written;
        size -= static_cast<size_t>(written);
    }
    return true;
}

bool CloseOutputFile(intptr_t file) noexcept
{
    return close(static_cast<int>(file)) == 0;
}

} // namespace platform
