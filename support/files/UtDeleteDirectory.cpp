#include "files/DeletablePath.h"
#include "files/FileSystemPath.h"
#include "files/NativePath.h"
#include "files/UtFile.h"
#include "platform/Folder.h"
#include "platform/PathRules.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace files {
namespace {

bool IsDotName(const fs::path& name)
{
    return name == "." || name == "..";
}

bool IsDrive(const std::string& path)
{
    return path.size() == 2 && path[1] == ':';
}

} // namespace

std::string WithoutTrailingSeparators(std::string nativePath)
{
    while (!nativePath.empty() && (nativePath.back() == '/' || nativePath.back() == '\\'))
        nativePath.pop_back();
    return nativePath;
}

bool IsDeletable(const std::string& nativePath)
{
    const fs::path path = FileSystemPath(nativePath);
    return !path.empty() && !IsDrive(nativePath) && !IsDotName(path.filename()) && !platform::IsRootFolder(nativePath);
}

} // namespace files

namespace {

bool IsGone(const fs::path& path)
{
    std::error_code error;
    return fs::symlink_status(path, error).type() == fs::file_type::not_found;
}

bool RemoveLink(const fs::path& path)
{
    std::error_code error;
    fs::remove(path, error);
    return IsGone(path);
}

bool DeleteTree(const std::string& nativePath)
{
    if (!files::IsDeletable(nativePath))
        return false;
    const fs::path path = files::FileSystemPath(nativePath);
    if (IsGone(path))
        return true;
    std::error_code error;
    if (!fs::is_directory(path, error))
        return false;
    return fs::is_symlink(fs::symlink_status(path, error)) ? RemoveLink(path) : platform::RemoveFolderTree(nativePath);
}

} // namespace

int UtDeleteDirectory(const UtCString& path) noexcept
try {
    return DeleteTree(files::WithoutTrailingSeparators(files::NativePath(path))) ? 0 : 1;
} catch (...) {
    return 1;
}
