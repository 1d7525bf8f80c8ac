#include "platform/Folder.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

class Folder
{
public:
    explicit Folder(const char* path) noexcept : m_entries(opendir(path)) {}

    // Takes the descriptor over; nothing is open when it is -1.
    explicit Folder(int descriptor) noexcept : m_entries(descriptor < 0 ? nullptr : fdopendir(descriptor))
    {
        if (descriptor >= 0 && !m_entries)
            close(descriptor);
    }

    ~Folder()
    {
        if (m_entries)
            closedir(m_entries);
    }

    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    bool IsOpen() const noexcept { return m_entries != nullptr; }
    int Descriptor() const noexcept { return dirfd(m_entries); }

    /// The next name, valid until the next call. Null at the end and, with `errno` set, on a failure.
    const char* Next() noexcept
    {
        for (;;) {
            errno = 0;
            const dirent* const entry = readdir(m_entries);
            if (!entry)
                return nullptr;
            const std::string_view name = entry->d_name;
            if (name != "." && name != "..")
                return entry->d_name;
        }
    }

private:
    DIR* m_entries;
};

constexpr int openFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

// A folder that its owner may not read is opened after it was made readable; only a folder can fail with EACCES here.
int OpenForRemoval(int parent, const char* name) noexcept
{
    const int descriptor = openat(parent, name, openFlags);
    if (descriptor >= 0 || errno != EACCES || fchmodat(parent, name, S_IRWXU, 0) != 0)
        return descriptor;
    return openat(parent, name, openFlags);
}

bool RemoveTree(int parent, const char* name) noexcept
{
    Folder folder(OpenForRemoval(parent, name));
    if (!folder.IsOpen())
        return unlinkat(parent, name, 0) == 0;
    fchmod(folder.Descriptor(), S_IRWXU);
    while (const char* const entry = folder.Next())
        if (!RemoveTree(folder.Descriptor(), entry))
            return false;
    return unlinkat(parent, name, AT_REMOVEDIR) == 0;
}

} // namespace

bool ListFolder(const std::string& path, std::vector<std::string>& names)
{
    Folder folder(path.empty() ? "." : path.c_str());
    if (!folder.IsOpen())
        return false;
    while (const char* const name = folder.Next())
        names.emplace_back(name);
    return errno == 0;
}

bool IsNothingAt(const std::string& path)
{
    struct stat status
    {
    };
    return !path.empty() && lstat(path.c_str(), &status) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

bool IsFolder(const std::string& path)
{
    struct stat status
    {
    };
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool RemoveFolderTree(const std::string& path) noexcept
{
    return RemoveTree(AT_FDCWD, path.c_str());
}

} // namespace platform
