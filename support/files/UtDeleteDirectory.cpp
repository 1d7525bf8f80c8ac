#include "files/DeletablePath.h"
#include "files/FileSystemPath.h"
#include "files/NativePath.h"
#include "files/UtFile.h"
#include "platform/Folder.h"

namespace files {
namespace {

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
    const std::string name = NativeText(FileSystemPath(nativePath).filename());
    return !nativePath.empty() && !IsDrive(nativePath) && !IsDotName(name, platform::SystemPathRules()) &&
           !platform::IsRootFolder(nativePath);
}

bool IsDotName(const std::string& name, const platform::PathRules& rules) noexcept
{
    if (name == "." || name == "..")
        return true;
    return rules.limitsNames && !name.empty() && name.find_first_not_of(". ") == std::string::npos;
}

} // namespace files

namespace {

bool DeleteTree(const std::string& nativePath)
{
    if (!files::IsDeletable(nativePath))
        return false;
    return platform::IsNothingAt(nativePath) ||
           (platform::IsFolder(nativePath) && platform::RemoveFolderTree(nativePath));
}

} // namespace

int UtDeleteDirectory(const UtCString& path) noexcept
try {
    return DeleteTree(files::WithoutTrailingSeparators(files::NativePath(path))) ? 0 : 1;
} catch (...) {
    return 1;
}
