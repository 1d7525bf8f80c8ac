#include "files/NativePath.h"
#include "files/UtFile.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace {

// With a trailing separator the system would follow a link at the end of the path.
std::string WithoutTrailingSeparators(std::string path)
{
    while (!path.empty() && (path.back() == '/' || path.back() == '\\'))
        path.pop_back();
    return path;
}

bool IsDotName(const fs::path& name)
{
    return name == "." || name == "..";
}

bool IsDrive(const std::string& path)
{
    return path.size() == 2 && path[1] == ':';
}

bool IsRoot(const fs::path& path)
{
    std::error_code error;
    const fs::path root = fs::absolute(path, error).root_path();
    return fs::equivalent(path, root, error);
}

// Entries of a write-protected folder cannot be removed before the folder is writable. Links are not followed.
void UnprotectFolders(const fs::path& path)
{
    std::error_code error;
    fs::permissions(path, fs::perms::owner_all, fs::perm_options::add, error);
    fs::recursive_directory_iterator entry(path, error);
    while (!error && entry != fs::recursive_directory_iterator()) {
        std::error_code ignored;
        if (fs::is_directory(entry->symlink_status(ignored)))
            fs::permissions(entry->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
        entry.increment(error);
    }
}

bool IsGone(const fs::path& path)
{
    std::error_code error;
    return fs::symlink_status(path, error).type() == fs::file_type::not_found;
}

bool RemoveFolder(const fs::path& path)
{
    std::error_code error;
    fs::remove_all(path, error);
    if (error) {
        UnprotectFolders(path);
        fs::remove_all(path, error);
    }
    return IsGone(path);
}

bool RemoveLink(const fs::path& path)
{
    std::error_code error;
    fs::remove(path, error);
    return IsGone(path);
}

bool DeleteTree(const std::string& native)
{
    const fs::path path = WithoutTrailingSeparators(native);
    std::error_code error;
    if (path.empty() || IsDrive(path.string()) || IsDotName(path.filename()))
        return false;
    if (IsGone(path))
        return true;
    if (fs::is_symlink(fs::symlink_status(path, error)))
        return fs::is_directory(path, error) && RemoveLink(path);
    return fs::is_directory(path, error) && !IsRoot(path) && RemoveFolder(path);
}

} // namespace

int UtDeleteDirectory(const UtCString& path) noexcept
try {
    return DeleteTree(files::NativePath(path)) ? 0 : 1;
} catch (...) {
    return 1;
}
